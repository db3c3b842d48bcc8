// Questions to Windows about this process and its surroundings: environment variables, its own file, the system
// folders, error texts. None of these fails: each has a documented fallback.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace base {

// The variable's value, or `fallback` when it is unset or empty.
std::wstring environmentVariable(const wchar_t* name, std::wstring_view fallback);

// The temporary folder of the user (GetTempPathW), without a trailing separator; "C:\Windows\Temp" when Windows names
// none.
std::wstring temporaryFolder();

// The full path of the running program.
std::wstring ownFilePath();

// The full path of a program in System32, the only place from which this program starts system tools.
std::wstring systemProgram(std::wstring_view fileName);

// The Windows folder, where explorer.exe lives.
std::wstring windowsFolder();

// What Windows says about an error code, in one line without a final full stop or line feed; "error 5" and the like
// where it has no text.
std::wstring errorText(unsigned long code);

// The arguments of this process as Windows splits its command line (CommandLineToArgvW), without the program itself.
std::vector<std::wstring> processArguments();

// GetFullPathNameW: the absolute form of `path` against the current folder; empty when Windows refuses it.
std::wstring fullPathName(const std::wstring& path);

}  // namespace base
