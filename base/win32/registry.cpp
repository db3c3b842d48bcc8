#include "base/win32/registry.h"

#include "base/win32/unique_handle.h"

namespace base {
namespace {

uint32_t writeValue(HKEY root, const std::wstring& key, const std::wstring& name, DWORD type, const void* data,
                    size_t bytes) {
    UniqueRegistryKey opened;
    const LSTATUS made = RegCreateKeyExW(root, key.c_str(), 0, nullptr, REG_OPTION_NON_VOLATILE, KEY_SET_VALUE, nullptr,
                                         opened.put(), nullptr);
    if (made != ERROR_SUCCESS) {
        return static_cast<uint32_t>(made);
    }
    return static_cast<uint32_t>(
        RegSetValueExW(opened.get(), name.c_str(), 0, type, static_cast<const BYTE*>(data), static_cast<DWORD>(bytes)));
}

}  // namespace

bool registryKeyExists(HKEY root, const std::wstring& key) {
    UniqueRegistryKey opened;
    return RegOpenKeyExW(root, key.c_str(), 0, KEY_READ, opened.put()) == ERROR_SUCCESS;
}

std::optional<std::wstring> readRegistryString(HKEY root, const std::wstring& key, const std::wstring& name,
                                               uint32_t limitBytes) {
    UniqueRegistryKey opened;
    if (RegOpenKeyExW(root, key.c_str(), 0, KEY_QUERY_VALUE, opened.put()) != ERROR_SUCCESS) {
        return std::nullopt;
    }
    std::wstring text(limitBytes / sizeof(wchar_t), L'\0');
    auto bytes = static_cast<DWORD>(text.size() * sizeof(wchar_t));
    DWORD type = 0;
    if (RegQueryValueExW(opened.get(), name.c_str(), nullptr, &type, reinterpret_cast<BYTE*>(text.data()), &bytes) !=
            ERROR_SUCCESS ||
        (type != REG_SZ && type != REG_EXPAND_SZ)) {
        return std::nullopt;
    }
    text.resize(bytes / sizeof(wchar_t));
    // Whoever wrote the value may have stored any number of terminators, or none.
    const size_t end = text.find(L'\0');
    return end == std::wstring::npos ? text : text.substr(0, end);
}

uint32_t writeRegistryString(HKEY root, const std::wstring& key, const std::wstring& name, const std::wstring& text) {
    return writeValue(root, key, name, REG_SZ, text.c_str(), (text.size() + 1) * sizeof(wchar_t));
}

uint32_t writeRegistryNumber(HKEY root, const std::wstring& key, const std::wstring& name, uint32_t number) {
    return writeValue(root, key, name, REG_DWORD, &number, sizeof(number));
}

uint32_t deleteRegistryTree(HKEY root, const std::wstring& key) {
    const LSTATUS result = RegDeleteTreeW(root, key.c_str());
    return result == ERROR_FILE_NOT_FOUND ? 0 : static_cast<uint32_t>(result);
}

}  // namespace base
