// Reading small UTF-8 text files line by line, for the test tools and the timer of the benchmarks.
#pragma once

#include <algorithm>
#include <string>
#include <vector>

#include "base/text.h"
#include "base/win32/held_file.h"

inline std::vector<std::wstring> splitText(const std::wstring& text, wchar_t separator) {
    std::vector<std::wstring> parts;
    for (size_t start = 0; start < text.size();) {
        const size_t end = std::min(text.find(separator, start), text.size());
        parts.push_back(text.substr(start, end - start));
        start = end + 1;
    }
    return parts;
}

// No lines for a file that cannot be read.
inline std::vector<std::wstring> readTextLines(const std::wstring& path) {
    const auto bytes = base::readWholeFile(path).value_or(std::vector<std::byte>());
    return splitText(base::toWide({reinterpret_cast<const char*>(bytes.data()), bytes.size()}), L'\n');
}
