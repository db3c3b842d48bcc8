#include "base/win32/system.h"

#include <windows.h>

#include <shellapi.h>

#include <optional>

#include "base/windows_path.h"

namespace base {
namespace {

// Calls `query(buffer, size)` with growing buffers. It returns the length without the terminator when the text fitted,
// the size it needs (or the size given) when not, and 0 on failure.
template <typename Query>
std::optional<std::wstring> readGrowing(DWORD firstSize, Query query) {
    std::wstring buffer(firstSize, L'\0');
    for (;;) {
        const auto size = static_cast<DWORD>(buffer.size());
        const DWORD length = query(buffer.data(), size);
        if (length == 0) {
            return std::nullopt;
        }
        if (length < size) {
            buffer.resize(length);
            return buffer;
        }
        buffer.resize(length > size ? length : size_t{size} * 2);
    }
}

std::wstring systemFolder() {
    return readGrowing(MAX_PATH, [](wchar_t* buffer, DWORD size) { return GetSystemDirectoryW(buffer, size); })
        .value_or(L"C:\\Windows\\System32");
}

}  // namespace

std::wstring environmentVariable(const wchar_t* name, std::wstring_view fallback) {
    return readGrowing(256, [name](wchar_t* buffer, DWORD size) { return GetEnvironmentVariableW(name, buffer, size); })
        .value_or(std::wstring(fallback));
}

std::wstring temporaryFolder() {
    std::wstring folder = readGrowing(MAX_PATH, [](wchar_t* buffer, DWORD size) {
                              return GetTempPathW(size, buffer);
                          }).value_or(L"C:\\Windows\\Temp");
    while (folder.size() > 3 && folder.back() == L'\\') {
        folder.pop_back();
    }
    return folder;
}

std::wstring ownFilePath() {
    return readGrowing(MAX_PATH, [](wchar_t* buffer, DWORD size) { return GetModuleFileNameW(nullptr, buffer, size); })
        .value_or(L"");
}

std::wstring systemProgram(std::wstring_view fileName) {
    return joinPath(systemFolder(), fileName);
}

std::wstring windowsFolder() {
    return readGrowing(MAX_PATH, [](wchar_t* buffer, DWORD size) { return GetWindowsDirectoryW(buffer, size); })
        .value_or(L"C:\\Windows");
}

std::wstring errorText(unsigned long code) {
    wchar_t buffer[512];
    DWORD length =
        FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS | FORMAT_MESSAGE_MAX_WIDTH_MASK,
                       nullptr, code, 0, buffer, static_cast<DWORD>(std::size(buffer)), nullptr);
    while (length > 0 && (buffer[length - 1] <= L' ' || buffer[length - 1] == L'.')) {
        --length;
    }
    return length > 0 ? std::wstring(buffer, length) : L"error " + std::to_wstring(code);
}

std::vector<std::wstring> processArguments() {
    int count = 0;
    wchar_t** split = CommandLineToArgvW(GetCommandLineW(), &count);
    std::vector<std::wstring> arguments;
    for (int i = 1; split != nullptr && i < count; ++i) {
        arguments.emplace_back(split[i]);
    }
    LocalFree(static_cast<void*>(split));
    return arguments;
}

std::wstring fullPathName(const std::wstring& path) {
    return readGrowing(MAX_PATH, [&path](wchar_t* buffer,
                                         DWORD size) { return GetFullPathNameW(path.c_str(), size, buffer, nullptr); })
        .value_or(L"");
}

}  // namespace base
