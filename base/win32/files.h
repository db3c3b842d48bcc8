// File-system operations as the setup needs them: wide paths of any length, plain results, no exceptions. Every
// function that fails leaves its reason in GetLastError().
#pragma once

#include <windows.h>

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "base/win32/unique_handle.h"

namespace base {

bool fileExists(const std::wstring& path);    // a file, not a folder
bool folderExists(const std::wstring& path);  // a folder or a link to one
bool pathExists(const std::wstring& path);

// True when `path` itself is a reparse point: a symbolic link, a junction, a mounted volume.
bool isLink(const std::wstring& path);

// The first component of `path` below `base` that is a link, or empty. What does not exist is no link. `path` has to
// lie below `base`.
std::wstring firstLinkBelow(const std::wstring& base, const std::wstring& path);

// Makes the folder and its parents. True when it is there afterwards.
bool createFolders(const std::wstring& folder);

// True when both exist and are one and the same file.
bool isSameFile(const std::wstring& a, const std::wstring& b);

// Size in bytes, 0 for a missing file.
uint64_t fileSize(const std::wstring& path);

struct FolderEntry {
    std::wstring name;
    uint64_t size = 0;  // bytes
    bool isFolder = false;
    bool isLink = false;
};
// The entries of one folder, without "." and "..", in the order Windows gives them; empty when it cannot be read.
std::vector<FolderEntry> listFolder(const std::wstring& folder);

UniqueFile openFile(const std::wstring& path, DWORD access, DWORD share, DWORD disposition, DWORD flags = 0);

// Writes all bytes at the handle's position; false when the disk took fewer.
bool writeAll(HANDLE file, std::span<const std::byte> bytes);

// Reads up to buffer.size() bytes at the handle's position. Gives how many came, 0 at the end; nothing on failure.
std::optional<size_t> readSome(HANDLE file, std::span<std::byte> buffer);

// All bytes of an open file. Nothing when it cannot be read to its end or holds more than `limit` bytes
// (ERROR_FILE_TOO_LARGE).
std::optional<std::vector<std::byte>> readAll(HANDLE file, uint64_t limit);

// Opens a file for writing that was not there before: whatever stands at the path (a link to elsewhere, a file with a
// second name) goes first and is never written through. Nobody else may open it meanwhile. None on failure.
UniqueFile createNewFile(const std::wstring& path, DWORD access = GENERIC_WRITE);

// Deletes what the handle, opened with DELETE, holds, and closes it. Leaves GetLastError() as it was.
void discardFile(UniqueFile& file);

// Where a file or folder that is held open really lies, without the "\\?\" prefix: what its path says once all links on
// the way are followed. Empty when Windows does not tell.
std::wstring finalPath(HANDLE file);

// True when the open file, reached by `path`, lies below `base` just where the path says, so that no link between the
// two was followed. Links above and at `base` do not matter.
bool liesWhereItSays(HANDLE file, const std::wstring& base, const std::wstring& path);

// Removes a folder with all it holds and never passes through a link: one at the root, below, or between `base` (a
// folder above, empty for none) and the root is left in place and given to `skipped`. Each entry is opened, checked and
// deleted through one handle, so it does not help to put a link in its place in between. What cannot be deleted stays,
// and so does what is nested deeper than any real folder; true when nothing stayed.
bool removeTree(const std::wstring& folder, const std::function<void(const std::wstring&)>& skipped,
                const std::wstring& base = {});

}  // namespace base
