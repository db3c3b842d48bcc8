#include "base/win32/files.h"

#include <algorithm>

#include "base/windows_path.h"

namespace base {
namespace {

// Every path goes to Windows in the form that may be longer than MAX_PATH.
DWORD attributesOf(const std::wstring& path) {
    return GetFileAttributesW(extendedLengthPath(path).c_str());
}

bool hasAttribute(DWORD attributes, DWORD wanted) {
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & wanted) != 0;
}

bool fileInformation(const std::wstring& path, BY_HANDLE_FILE_INFORMATION& information) {
    const UniqueFile file = openFile(path, 0, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, OPEN_EXISTING,
                                     FILE_FLAG_BACKUP_SEMANTICS);
    return file && GetFileInformationByHandle(file.get(), &information) != 0;
}

uint64_t joined(DWORD high, DWORD low) {
    return (uint64_t{high} << 32) | low;
}

bool deleteEntry(const std::wstring& path) {
    const std::wstring extended = extendedLengthPath(path);
    if (DeleteFileW(extended.c_str())) {
        return true;
    }
    const DWORD attributes = GetFileAttributesW(extended.c_str());
    if (!hasAttribute(attributes, FILE_ATTRIBUTE_READONLY)) {
        return attributes == INVALID_FILE_ATTRIBUTES;
    }
    SetFileAttributesW(extended.c_str(), attributes & ~static_cast<DWORD>(FILE_ATTRIBUTE_READONLY));
    return DeleteFileW(extended.c_str()) != 0;
}

// Removes an empty folder, even one with the read-only attribute.
bool removeEmptyFolder(const std::wstring& folder) {
    const std::wstring extended = extendedLengthPath(folder);
    if (RemoveDirectoryW(extended.c_str())) {
        return true;
    }
    const DWORD attributes = GetFileAttributesW(extended.c_str());
    return hasAttribute(attributes, FILE_ATTRIBUTE_READONLY) &&
           SetFileAttributesW(extended.c_str(), attributes & ~static_cast<DWORD>(FILE_ATTRIBUTE_READONLY)) &&
           RemoveDirectoryW(extended.c_str());
}

}  // namespace

bool pathExists(const std::wstring& path) {
    return attributesOf(path) != INVALID_FILE_ATTRIBUTES;
}

bool fileExists(const std::wstring& path) {
    const DWORD attributes = attributesOf(path);
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

bool folderExists(const std::wstring& path) {
    return hasAttribute(attributesOf(path), FILE_ATTRIBUTE_DIRECTORY);
}

bool isLink(const std::wstring& path) {
    return hasAttribute(attributesOf(path), FILE_ATTRIBUTE_REPARSE_POINT);
}

std::wstring firstLinkBelow(const std::wstring& base, const std::wstring& path) {
    for (size_t end = base.size(); end < path.size();) {
        const size_t next = path.find(L'\\', end + 1);
        end = next == std::wstring::npos ? path.size() : next;
        std::wstring component = path.substr(0, end);
        if (isLink(component)) {
            return component;
        }
    }
    return {};
}

bool createFolders(const std::wstring& folder) {
    if (folder.empty() || folderExists(folder)) {
        return !folder.empty();
    }
    const std::wstring parent = parentPath(folder);
    if (parent.size() < folder.size() && parent.size() > rootLength(folder)) {
        createFolders(parent);
    }
    return CreateDirectoryW(extendedLengthPath(folder).c_str(), nullptr) != 0 ||
           (GetLastError() == ERROR_ALREADY_EXISTS && folderExists(folder));
}

bool isSameFile(const std::wstring& a, const std::wstring& b) {
    BY_HANDLE_FILE_INFORMATION first{};
    BY_HANDLE_FILE_INFORMATION second{};
    return fileInformation(a, first) && fileInformation(b, second) &&
           first.dwVolumeSerialNumber == second.dwVolumeSerialNumber && first.nFileIndexHigh == second.nFileIndexHigh &&
           first.nFileIndexLow == second.nFileIndexLow;
}

uint64_t fileSize(const std::wstring& path) {
    WIN32_FILE_ATTRIBUTE_DATA data{};
    if (!GetFileAttributesExW(extendedLengthPath(path).c_str(), GetFileExInfoStandard, &data) ||
        hasAttribute(data.dwFileAttributes, FILE_ATTRIBUTE_DIRECTORY)) {
        return 0;
    }
    return joined(data.nFileSizeHigh, data.nFileSizeLow);
}

std::vector<FolderEntry> listFolder(const std::wstring& folder) {
    std::vector<FolderEntry> entries;
    WIN32_FIND_DATAW data{};
    const UniqueFind find(FindFirstFileW(extendedLengthPath(joinPath(folder, L"*")).c_str(), &data));
    if (!find) {
        return entries;
    }
    do {
        const std::wstring name = data.cFileName;
        if (name == L"." || name == L"..") {
            continue;
        }
        // Not every reparse point says so in the listing, so the path is asked as well.
        entries.push_back(
            {name, joined(data.nFileSizeHigh, data.nFileSizeLow),
             hasAttribute(data.dwFileAttributes, FILE_ATTRIBUTE_DIRECTORY),
             hasAttribute(data.dwFileAttributes, FILE_ATTRIBUTE_REPARSE_POINT) || isLink(joinPath(folder, name))});
    } while (FindNextFileW(find.get(), &data));
    return entries;
}

UniqueFile openFile(const std::wstring& path, DWORD access, DWORD share, DWORD disposition, DWORD flags) {
    return UniqueFile(
        CreateFileW(extendedLengthPath(path).c_str(), access, share, nullptr, disposition, flags, nullptr));
}

bool writeAll(HANDLE file, std::span<const std::byte> bytes) {
    while (!bytes.empty()) {
        const auto chunk = static_cast<DWORD>(std::min<size_t>(bytes.size(), size_t{1} << 26));
        DWORD written = 0;
        if (!WriteFile(file, bytes.data(), chunk, &written, nullptr)) {
            return false;
        }
        if (written == 0) {
            SetLastError(ERROR_DISK_FULL);
            return false;
        }
        bytes = bytes.subspan(written);
    }
    return true;
}

bool removeTree(const std::wstring& folder, const std::function<void(const std::wstring&)>& skipped) {
    bool complete = true;
    {
        // Held without FILE_SHARE_DELETE: as long as it is open, neither this folder nor one above it can be renamed or
        // replaced. FILE_FLAG_OPEN_REPARSE_POINT holds a link itself and not what it leads to.
        const UniqueFile held = openFile(folder, FILE_LIST_DIRECTORY, FILE_SHARE_READ | FILE_SHARE_WRITE, OPEN_EXISTING,
                                         FILE_FLAG_BACKUP_SEMANTICS | FILE_FLAG_OPEN_REPARSE_POINT);
        if (!held) {
            return !pathExists(folder);
        }
        if (isLink(folder)) {
            skipped(folder);
            return false;
        }
        for (const FolderEntry& entry : listFolder(folder)) {
            const std::wstring path = joinPath(folder, entry.name);
            if (entry.isFolder) {
                complete = removeTree(path, skipped) && complete;
            } else {
                // Deleting a link to a file deletes the link.
                complete = deleteEntry(path) && complete;
            }
        }
    }
    return removeEmptyFolder(folder) && complete;
}

}  // namespace base
