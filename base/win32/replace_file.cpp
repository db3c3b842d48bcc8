#include "base/win32/replace_file.h"

#include <windows.h>

#include <cstring>
#include <vector>

#include "base/win32/files.h"
#include "base/win32/patience.h"
#include "base/windows_path.h"

namespace base {
namespace {

// FileRenameInfoEx with FILE_RENAME_FLAG_REPLACE_IF_EXISTS and FILE_RENAME_FLAG_POSIX_SEMANTICS: the headers have them
// for later systems only. The first flag alone reads as TRUE in the older form.
constexpr auto kFileRenameInfoEx = static_cast<FILE_INFO_BY_HANDLE_CLASS>(22);
constexpr BYTE kReplaceIfExists = 1;
constexpr BYTE kPosixSemantics = 2;

bool renameAs(HANDLE file, const std::wstring& target, FILE_INFO_BY_HANDLE_CLASS kind, BYTE flags) {
    const std::wstring name = extendedLengthPath(target);
    std::vector<std::byte> buffer(sizeof(FILE_RENAME_INFO) + name.size() * sizeof(wchar_t));
    auto* information = reinterpret_cast<FILE_RENAME_INFO*>(buffer.data());
    information->ReplaceIfExists = flags;
    information->FileNameLength = static_cast<DWORD>(name.size() * sizeof(wchar_t));
    std::memcpy(information->FileName, name.data(), information->FileNameLength);
    return SetFileInformationByHandle(file, kind, information, static_cast<DWORD>(buffer.size())) != 0;
}

// Renames an open file over `target`. By its handle: a second writer cannot get hold of the new file in between. With
// the semantics of POSIX, where the file system has them, a reader of the old file is in nobody's way and reads on in
// it.
bool renameOver(HANDLE file, const std::wstring& target) {
    return renameAs(file, target, kFileRenameInfoEx, kReplaceIfExists | kPosixSemantics) ||
           renameAs(file, target, FileRenameInfo, kReplaceIfExists);
}

bool copyTo(HANDLE source, HANDLE target) {
    std::vector<std::byte> chunk(size_t{1} << 16);
    for (;;) {
        const auto count = readSome(source, chunk);
        if (!count || !writeAll(target, std::span(chunk).first(*count))) {
            return false;
        }
        if (*count == 0) {
            return FlushFileBuffers(target) != 0;
        }
    }
}

}  // namespace

bool replaceFile(const std::wstring& path, std::span<const std::byte> bytes) {
    createFolders(parentPath(path));
    UniqueFile file;
    const bool opened = persistently([&] {
        file = createNewFile(path + L".new", GENERIC_WRITE | DELETE);
        return static_cast<bool>(file);
    });
    if (!opened) {
        return false;
    }
    if (writeAll(file.get(), bytes) && FlushFileBuffers(file.get()) &&
        persistently([&] { return renameOver(file.get(), path); })) {
        return true;
    }
    discardFile(file);
    return false;
}

bool keepCopy(const std::wstring& path) {
    UniqueFile source;
    const bool opened = persistently([&] {
        source = openFile(path, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, OPEN_EXISTING);
        return static_cast<bool>(source);
    });
    if (!opened) {
        return GetLastError() == ERROR_FILE_NOT_FOUND || GetLastError() == ERROR_PATH_NOT_FOUND;
    }
    constexpr int kMaxCopies = 100;
    UniqueFile copy;
    for (int i = 1; i <= kMaxCopies && !copy; ++i) {
        const std::wstring name = path + L".kept" + (i > 1 ? L"-" + std::to_wstring(i) : L"");
        copy = openFile(name, GENERIC_WRITE | DELETE, 0, CREATE_NEW, FILE_FLAG_OPEN_REPARSE_POINT);
        if (!copy && GetLastError() != ERROR_FILE_EXISTS) {
            return false;
        }
    }
    if (copy && copyTo(source.get(), copy.get())) {
        return true;
    }
    if (copy) {
        discardFile(copy);
    }
    return false;
}

}  // namespace base
