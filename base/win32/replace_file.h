// Replacing a file so that its path holds the old bytes or the new ones, whole, whatever happens meanwhile: a full
// disk, a crash, a second writer.
#pragma once

#include <cstddef>
#include <span>
#include <string>

namespace base {

// Writes `bytes` to "<path>.new", flushes them to the disk, and renames that file over `path` in one step. Makes the
// folders. A writer or reader in the way is waited for, up to about a second. On failure the old file is as it was, the
// new one is gone, and GetLastError() tells the reason.
bool replaceFile(const std::wstring& path, std::span<const std::byte> bytes);

}  // namespace base
