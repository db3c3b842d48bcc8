#include "tavi/theme/image.h"

#include <algorithm>

#include "base/text.h"
#include "base/windows_path.h"

namespace tavi {
namespace {

constexpr size_t kLongestName = 200;
// Windows takes these for devices in every folder, with any extension.
constexpr std::wstring_view kDevices[] = {L"con", L"prn", L"aux", L"nul", L"conin$", L"conout$"};

bool isDevice(std::wstring_view component) {
    const std::wstring name = base::lowered(component.substr(0, component.find(L'.')));
    const std::wstring_view stem = std::wstring_view(name).substr(0, name.find_last_not_of(L' ') + 1);
    // The superscripts 1 to 3 count as digits there.
    const bool numbered = stem.size() == 4 && (stem.starts_with(L"com") || stem.starts_with(L"lpt")) &&
                          std::wstring_view(L"0123456789\u00B9\u00B2\u00B3").contains(stem[3]);
    return numbered || std::ranges::find(kDevices, stem) != std::end(kDevices);
}

}  // namespace

bool isSafePictureName(std::wstring_view name) {
    // A colon makes a drive or a stream of a file, and the other characters are in no file name.
    if (name.empty() || name.size() > kLongestName || base::rootLength(name) != 0 ||
        std::ranges::any_of(name, [](wchar_t c) { return c < L' ' || std::wstring_view(L":*?\"<>|").contains(c); })) {
        return false;
    }
    for (size_t begin = 0; begin <= name.size();) {
        const size_t end = std::min(name.find_first_of(L"/\\", begin), name.size());
        const std::wstring_view component = name.substr(begin, end - begin);
        // Windows drops dots and blanks at the end, so "... " may become "..".
        const bool named = component.find_last_not_of(L". ") != std::wstring_view::npos;
        if (!named || isDevice(component)) {
            return false;
        }
        begin = end + 1;
    }
    return true;
}

}  // namespace tavi
