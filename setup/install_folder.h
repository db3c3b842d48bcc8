// Whether a folder can take the product, asked before anything on the machine is changed: an upgrade removes the old
// version first, so a folder that turns out to be unusable only afterwards would leave a person with nothing.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace velquin::setup {

// The longest install folder, in characters, below which every installed file still has a path that all of Windows can
// use.
size_t maxInstallFolderLength();

// Why `folder` (normalised) cannot be an install folder by its text alone; empty when it can.
std::wstring installFolderTextProblem(std::wstring_view folder);

// Why `folder` cannot be used on this machine now: by its text, or since a file stands in its way, it cannot be written
// to, or its disk has less than `neededBytes` left. Empty when it can. Leaves nothing behind.
std::wstring installFolderProblem(const std::wstring& folder, uint64_t neededBytes);

}  // namespace velquin::setup
