#include "double.h"

#include <windows.h>

#include <algorithm>

#include "base/text.h"
#include "base/win32/files.h"
#include "base/windows_path.h"
#include "text_lines.h"

namespace doubles {
namespace {

std::wstring pathOf(const std::wstring& fileName) {
    return base::joinPath(kFolder, fileName);
}

}  // namespace

std::vector<std::wstring> readLines(const std::wstring& fileName) {
    return readTextLines(pathOf(fileName));
}

void appendLine(const std::wstring& fileName, const std::wstring& line) {
    const std::string text = base::toUtf8(line) + "\n";
    const base::UniqueFile file =
        base::openFile(pathOf(fileName), FILE_APPEND_DATA, FILE_SHARE_READ | FILE_SHARE_WRITE, OPEN_ALWAYS);
    base::writeAll(file.get(), std::as_bytes(std::span(text)));
}

void writeLines(const std::wstring& fileName, const std::vector<std::wstring>& lines) {
    DeleteFileW(pathOf(fileName).c_str());
    for (const std::wstring& line : lines) {
        appendLine(fileName, line);
    }
}

std::vector<std::wstring> beginCall(const std::wstring& name) {
    const size_t call = readLines(name + L".log").size();
    appendLine(name + L".log", GetCommandLineW());
    const std::vector<std::wstring> script = readLines(name + L".script");
    return script.empty() ? std::vector<std::wstring>() : splitText(script[std::min(call, script.size() - 1)], L' ');
}

}  // namespace doubles
