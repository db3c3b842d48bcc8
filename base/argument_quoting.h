// Command lines: quoting by the rules of the Windows argv parser, so that a program started with the result reads back
// exactly the arguments that were joined.
#pragma once

#include <span>
#include <string>
#include <string_view>

namespace base {

// One argument as it has to stand in a command line. An empty one becomes ""; one without a blank, tab or double quote
// stays as it is; any other is wrapped in double quotes. A run of n backslashes becomes 2n+1 before an embedded quote
// and 2n before the closing one (source: the argv rules of the Microsoft C runtime and CommandLineToArgvW).
std::wstring quoteArgument(std::wstring_view argument);

// All arguments quoted and joined with single blanks.
std::wstring joinArguments(std::span<const std::wstring> arguments);

// A path in double quotes, whatever it holds: the form for the registry, where Windows itself splits the text. A path
// cannot hold a double quote.
std::wstring quotePath(std::wstring_view path);

}  // namespace base
