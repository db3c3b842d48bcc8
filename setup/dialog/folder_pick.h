// What a picked or written folder becomes.
#pragma once

#include <string>
#include <string_view>

namespace velquin::setup {

// The folder for the product itself: the picked one when it bears the product's name in either case, else one of that
// name inside of it. Not yet normalised. Empty for an empty folder.
std::wstring productFolderIn(std::wstring_view picked);

// A folder as it was written or pasted, without the quotes that Explorer puts around a path that it copies.
std::wstring unquotedFolder(std::wstring_view written);

}  // namespace velquin::setup
