#include "base/argument_quoting.h"

namespace base {

std::wstring quoteArgument(std::wstring_view argument) {
    if (argument.empty()) {
        return L"\"\"";
    }
    if (argument.find_first_of(L" \t\"") == std::wstring_view::npos) {
        return std::wstring(argument);
    }
    std::wstring out = L"\"";
    size_t backslashes = 0;
    for (const wchar_t c : argument) {
        if (c == L'\\') {
            ++backslashes;
            continue;
        }
        out.append(c == L'"' ? 2 * backslashes + 1 : backslashes, L'\\');
        out.push_back(c);
        backslashes = 0;
    }
    out.append(2 * backslashes, L'\\');
    out.push_back(L'"');
    return out;
}

std::wstring joinArguments(std::span<const std::wstring> arguments) {
    std::wstring out;
    for (const std::wstring& argument : arguments) {
        if (!out.empty()) {
            out.push_back(L' ');
        }
        out += quoteArgument(argument);
    }
    return out;
}

std::wstring quotePath(std::wstring_view path) {
    std::wstring out = L"\"";
    out += path;
    out.push_back(L'"');
    return out;
}

}  // namespace base
