#include "core/log.h"

#include <algorithm>

#include "base/text.h"

namespace velquin {

using base::zeroPadded;

std::wstring formatLocalTime(const TimeStamp& time) {
    return std::to_wstring(time.day) + L'.' + std::to_wstring(time.month) + L'.' + zeroPadded(time.year, 4) + L"  " +
           std::to_wstring(time.hour) + L':' + zeroPadded(time.minute, 2) + L':' + zeroPadded(time.second, 2);
}

std::wstring formatUtcTime(const TimeStamp& time) {
    return zeroPadded(time.year, 4) + L'-' + zeroPadded(time.month, 2) + L'-' + zeroPadded(time.day, 2) + L'T' +
           zeroPadded(time.hour, 2) + L':' + zeroPadded(time.minute, 2) + L':' + zeroPadded(time.second, 2) + L'.' +
           zeroPadded(time.millisecond, 3) + L'Z';
}

std::wstring formatDate(const TimeStamp& time) {
    return zeroPadded(time.year, 4) + zeroPadded(time.month, 2) + zeroPadded(time.day, 2);
}

namespace {

// Control characters of both sets, line and paragraph separators, and marks that turn the direction of writing.
bool breaksLines(wchar_t unit) {
    const auto c = static_cast<char32_t>(unit);
    return c < 0x20 || (c >= 0x7F && c <= 0x9F) || (c >= 0x2028 && c <= 0x202E) || (c >= 0x2066 && c <= 0x2069);
}

}  // namespace

std::wstring singleLine(std::wstring_view text) {
    constexpr size_t kMaxLength = 300;
    std::wstring line(text.substr(0, kMaxLength));
    std::ranges::replace_if(line, breaksLines, L' ');
    return text.size() > kMaxLength ? line + L" …" : line;
}

std::string formatLogLine(const TimeStamp& local, std::wstring_view text) {
    return base::toUtf8(formatLocalTime(local)) + "  " + base::toUtf8(text) + '\n';
}

}  // namespace velquin
