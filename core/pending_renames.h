// The list PendingFileRenameOperations, in which Windows keeps what it will delete or rename at the next restart: pairs
// of zero-terminated strings, a source "\??\C:\…" and a target that is empty for a deletion. As pure text.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace velquin {

// The strings of the stored value, empty ones included. A value that lacks its last terminators is read as far as it
// goes.
std::vector<std::wstring> parsePendingRenames(std::wstring_view stored);

// The same strings as they are stored, each terminated, with the terminator of the whole list.
std::wstring formatPendingRenames(const std::vector<std::wstring>& strings);

// Removes the pairs that delete one of `paths` (compared without regard to case) and returns the paths that were
// removed. Renames, pairs of others and their order stay as they are.
std::vector<std::wstring> removePendingDeletes(std::vector<std::wstring>& strings,
                                               const std::vector<std::wstring>& paths);

}  // namespace velquin
