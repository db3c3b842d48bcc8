#include "base/win32/replace_file.h"

#include <windows.h>

#include <cstring>
#include <vector>

#include "base/win32/files.h"
#include "base/windows_path.h"

namespace base {
namespace {

constexpr int kAttempts = 40;
constexpr DWORD kPauseMs = 25;

// What passes: another writer has its new file open, or a reader (a virus scanner, say) has the old one.
bool passes(DWORD error) {
    return error == ERROR_SHARING_VIOLATION || error == ERROR_ACCESS_DENIED || error == ERROR_FILE_EXISTS;
}

// Calls `attempt` until it succeeds, fails for good, or has been called often enough.
template <typename Attempt>
bool persistently(Attempt attempt) {
    for (int i = 1; !attempt(); ++i) {
        if (i == kAttempts || !passes(GetLastError())) {
            return false;
        }
        Sleep(kPauseMs);
    }
    return true;
}

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

void discard(UniqueFile& file) {
    const DWORD error = GetLastError();
    FILE_DISPOSITION_INFO disposition{TRUE};
    SetFileInformationByHandle(file.get(), FileDispositionInfo, &disposition, sizeof(disposition));
    file.reset();
    SetLastError(error);
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
    discard(file);
    return false;
}

}  // namespace base
