// What the recording doubles of system tools share. They work in C:\doubles: NAME.log records each call's raw command
// line, NAME.script tells what to do, one line a call, its last line for all further calls.
#pragma once

#include <string>
#include <vector>

namespace doubles {

inline constexpr wchar_t kFolder[] = L"C:\\doubles";

// Records this call and returns the words of its script line; empty where there is no script.
std::vector<std::wstring> beginCall(const std::wstring& name);

void appendLine(const std::wstring& fileName, const std::wstring& line);
std::vector<std::wstring> readLines(const std::wstring& fileName);
void writeLines(const std::wstring& fileName, const std::vector<std::wstring>& lines);

}  // namespace doubles
