// What the tests and fuzz targets of base/windows_path.h share: a machine to make paths absolute on, and the sign of a
// drive.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "base/windows_path.h"

namespace testing_reference {

// Windows' answer on a machine whose current folder is C:\Work, and the root on every other drive.
inline std::optional<std::wstring> absoluteInWorkFolder(const std::wstring& path) {
    const size_t root = base::rootLength(path);
    if (path.starts_with(LR"(\\)") || base::isFullyQualified(path)) {
        return path;
    }
    if (root == 1) {
        return L"C:" + path;
    }
    if (root == 2) {
        return path.substr(0, 2) + L'\\' + path.substr(2);
    }
    return LR"(C:\Work\)" + path;
}

inline std::optional<std::wstring> absoluteFails(const std::wstring&) {
    return std::nullopt;
}

inline bool beginsWithDrive(std::wstring_view text) {
    return text.size() >= 2 && text[1] == L':' &&
           ((text[0] >= L'A' && text[0] <= L'Z') || (text[0] >= L'a' && text[0] <= L'z'));
}

}  // namespace testing_reference
