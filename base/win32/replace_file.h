// Replacing a file so that its path holds the old bytes or the new ones, whole, whatever happens meanwhile: a full
// disk, a crash, a second writer.
#pragma once

#include <cstddef>
#include <span>
#include <string>

namespace base {

// Writes `bytes` to "<path>.new", flushes them to the disk, and renames that file over `path`, which NTFS does in one
// step. Makes the folders. A writer in the way and then a reader in the way are waited for, about a second each. On
// failure the old file is as it was, the new one is gone, and GetLastError() tells the reason. It is a new file: what
// the old one had beside its bytes (attributes, rights of its own) goes with it, and a link is replaced, not followed.
bool replaceFile(const std::wstring& path, std::span<const std::byte> bytes);

// Copies a file to "<path>.kept", or "<path>.kept-2" and so on where there is one, down to the disk. True as well when
// there is no file. On failure no half of a copy is left, and GetLastError() tells the reason.
bool keepCopy(const std::wstring& path);

}  // namespace base
