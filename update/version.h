// Dotted version numbers.
#pragma once

#include <string_view>

namespace velquin::update {

// -1 when `a` is the older version, 1 when it is the newer one, 0 when they are equal. A version is read as numbers
// between full stops up to the first other character; missing numbers count as zero, and so does a version that begins
// with a letter: 1.0 equals 1.0.0, 1.2.3-beta equals 1.2.3, v1.2 equals 0. Numbers may be of any length.
int compareVersions(std::wstring_view a, std::wstring_view b);

}  // namespace velquin::update
