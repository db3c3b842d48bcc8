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

bool isSamePathText(const std::wstring& a, const std::wstring& b) {
    return CompareStringOrdinal(a.c_str(), static_cast<int>(a.size()), b.c_str(), static_cast<int>(b.size()), TRUE) ==
           CSTR_EQUAL;
}

// Without FILE_SHARE_DELETE: as long as it is open, nobody else renames or deletes it. FILE_FLAG_OPEN_REPARSE_POINT
// opens a link itself and not what it leads to.
UniqueFile openToDelete(const std::wstring& path) {
    return openFile(path, DELETE | FILE_LIST_DIRECTORY | FILE_READ_ATTRIBUTES | FILE_WRITE_ATTRIBUTES,
                    FILE_SHARE_READ | FILE_SHARE_WRITE, OPEN_EXISTING,
                    FILE_FLAG_BACKUP_SEMANTICS | FILE_FLAG_OPEN_REPARSE_POINT);
}

// Deletes what the handle holds; it goes when the handle is closed. Windows refuses what has the read-only attribute.
bool deleteHeld(HANDLE file, DWORD attributes) {
    if (hasAttribute(attributes, FILE_ATTRIBUTE_READONLY)) {
        FILE_BASIC_INFO basic{};
        basic.FileAttributes = FILE_ATTRIBUTE_NORMAL;
        SetFileInformationByHandle(file, FileBasicInfo, &basic, sizeof(basic));
    }
    FILE_DISPOSITION_INFO disposition{TRUE};
    return SetFileInformationByHandle(file, FileDispositionInfo, &disposition, sizeof(disposition)) != 0;
}

// The names in a folder, read through its handle: whatever its path leads to meanwhile.
std::vector<std::wstring> namesIn(HANDLE folder) {
    std::vector<std::wstring> names;
    alignas(FILE_ID_BOTH_DIR_INFO) std::byte buffer[8192];
    while (GetFileInformationByHandleEx(folder, FileIdBothDirectoryInfo, buffer, sizeof(buffer))) {
        const std::byte* place = buffer;
        for (;;) {
            const auto* entry = reinterpret_cast<const FILE_ID_BOTH_DIR_INFO*>(place);
            std::wstring name(entry->FileName, entry->FileNameLength / sizeof(wchar_t));
            if (name != L"." && name != L"..") {
                names.push_back(std::move(name));
            }
            if (entry->NextEntryOffset == 0) {
                break;
            }
            place += entry->NextEntryOffset;
        }
    }
    return names;
}

// No folder that a program made is nested so deeply; one made to exhaust the stack is.
constexpr int kMaxDepth = 200;

bool removeHeld(HANDLE held, const std::wstring& path, const std::wstring& expectedPath,
                const std::function<void(const std::wstring&)>& skipped, int depth) {
    BY_HANDLE_FILE_INFORMATION information{};
    if (depth > kMaxDepth || !GetFileInformationByHandle(held, &information)) {
        return false;
    }
    bool complete = true;
    if (hasAttribute(information.dwFileAttributes, FILE_ATTRIBUTE_DIRECTORY)) {
        if (hasAttribute(information.dwFileAttributes, FILE_ATTRIBUTE_REPARSE_POINT) || isLink(path) ||
            !isSamePathText(finalPath(held), expectedPath)) {
            skipped(path);
            return false;
        }
        for (const std::wstring& name : namesIn(held)) {
            const std::wstring child = joinPath(path, name);
            const UniqueFile entry = openToDelete(child);
            complete =
                entry && removeHeld(entry.get(), child, joinPath(expectedPath, name), skipped, depth + 1) && complete;
        }
    } else if (!isSamePathText(finalPath(held), expectedPath)) {
        return false;
    }
    return complete && deleteHeld(held, information.dwFileAttributes);
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

std::optional<size_t> readSome(HANDLE file, std::span<std::byte> buffer) {
    DWORD read = 0;
    const auto wanted = static_cast<DWORD>(std::min<size_t>(buffer.size(), size_t{1} << 26));
    return ReadFile(file, buffer.data(), wanted, &read, nullptr) ? std::optional<size_t>(read) : std::nullopt;
}

std::optional<std::vector<std::byte>> readAll(HANDLE file, uint64_t limit) {
    LARGE_INTEGER size{};
    if (!GetFileSizeEx(file, &size)) {
        return std::nullopt;
    }
    if (static_cast<uint64_t>(size.QuadPart) > limit) {
        SetLastError(ERROR_FILE_TOO_LARGE);
        return std::nullopt;
    }
    std::vector<std::byte> bytes(static_cast<size_t>(size.QuadPart));
    for (size_t filled = 0; filled < bytes.size();) {
        const auto count = readSome(file, std::span(bytes).subspan(filled));
        if (!count) {
            return std::nullopt;
        }
        if (*count == 0) {
            SetLastError(ERROR_HANDLE_EOF);
            return std::nullopt;
        }
        filled += *count;
    }
    return bytes;
}

UniqueFile createNewFile(const std::wstring& path, DWORD access) {
    if (!DeleteFileW(extendedLengthPath(path).c_str()) && GetLastError() != ERROR_FILE_NOT_FOUND) {
        return UniqueFile();
    }
    return openFile(path, access, 0, CREATE_NEW, FILE_FLAG_OPEN_REPARSE_POINT);
}

void discardFile(UniqueFile& file) {
    const DWORD error = GetLastError();
    deleteHeld(file.get(), 0);
    file.reset();
    SetLastError(error);
}

std::wstring finalPath(HANDLE file) {
    std::wstring path(512, L'\0');
    for (;;) {
        const DWORD length =
            GetFinalPathNameByHandleW(file, path.data(), static_cast<DWORD>(path.size()), VOLUME_NAME_DOS);
        if (length == 0) {
            return {};
        }
        const bool fitted = length < path.size();
        path.resize(length);
        if (fitted) {
            break;
        }
    }
    if (path.starts_with(LR"(\\?\UNC\)")) {
        return LR"(\\)" + path.substr(8);
    }
    return path.starts_with(LR"(\\?\)") ? path.substr(4) : path;
}

bool liesWhereItSays(HANDLE file, const std::wstring& base, const std::wstring& path) {
    const UniqueFile root = openFile(base, 0, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, OPEN_EXISTING,
                                     FILE_FLAG_BACKUP_SEMANTICS);
    const std::wstring expected = root ? finalPath(root.get()) + path.substr(base.size()) : std::wstring();
    return !expected.empty() && isSamePathText(finalPath(file), expected);
}

bool removeTree(const std::wstring& folder, const std::function<void(const std::wstring&)>& skipped,
                const std::wstring& base) {
    if (!folderExists(folder)) {
        return !pathExists(folder);
    }
    const UniqueFile root = openToDelete(folder);
    if (!root) {
        return false;
    }
    if (!base.empty() && !liesWhereItSays(root.get(), base, folder)) {
        skipped(folder);
        return false;
    }
    const std::wstring place = finalPath(root.get());
    return !place.empty() && removeHeld(root.get(), folder, place, skipped, 0);
}

}  // namespace base
