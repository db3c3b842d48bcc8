// File-system operations as the setup needs them: wide paths of any length, plain results, no exceptions. Every
// function that fails leaves its reason in GetLastError().
#pragma once

#include <windows.h>

#include <cstdint>
#include <functional>
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

// Removes a folder with all it holds and never passes through a link: a link at the root or below is left in place and
// given to `skipped`. Every folder is held open while its content goes, so that nobody can put a link in its place
// between the check and the deletion. What cannot be deleted stays; true when nothing stayed.
bool removeTree(const std::wstring& folder, const std::function<void(const std::wstring&)>& skipped);

}  // namespace base
