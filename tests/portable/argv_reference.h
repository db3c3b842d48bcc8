// How Windows programs take their command line apart, written out plainly for the tests and the fuzz target of
// base/argument_quoting.h: the argv rules of the Microsoft C runtime for the arguments after the program's name.
#pragma once

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

namespace testing_reference {

// Blanks and tabs outside of quotes separate arguments. 2n backslashes and a quote give n backslashes and a quote that
// opens or closes; 2n+1 give n backslashes and the quote as a character; other backslashes are characters. Within
// quotes, a doubled quote is the character.
inline std::vector<std::wstring> splitArguments(std::wstring_view line) {
    std::vector<std::wstring> arguments;
    bool inArgument = false;
    bool inQuotes = false;
    for (size_t i = 0; i < line.size();) {
        if (!inQuotes && (line[i] == L' ' || line[i] == L'\t')) {
            inArgument = false;
            ++i;
            continue;
        }
        if (!inArgument) {
            arguments.emplace_back();
            inArgument = true;
        }
        std::wstring& argument = arguments.back();
        const size_t runEnd = std::min(line.find_first_not_of(L'\\', i), line.size());
        const size_t backslashes = runEnd - i;
        i = runEnd;
        if (i == line.size() || line[i] != L'"') {
            argument.append(backslashes, L'\\');
            if (backslashes == 0) {
                argument.push_back(line[i++]);
            }
            continue;
        }
        argument.append(backslashes / 2, L'\\');
        ++i;
        if (backslashes % 2 != 0) {
            argument.push_back(L'"');
        } else if (inQuotes && i < line.size() && line[i] == L'"') {
            argument.push_back(L'"');
            ++i;
        } else {
            inQuotes = !inQuotes;
        }
    }
    return arguments;
}

}  // namespace testing_reference
