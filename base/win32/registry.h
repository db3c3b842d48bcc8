// Registry access by plain functions. All keys are in the 64-bit view, which is this program's own. Text from the
// registry is untrusted: only values of the expected type are returned, and no more than the caller's limit is read.
#pragma once

#include <windows.h>

#include <cstdint>
#include <optional>
#include <string>

namespace base {

bool registryKeyExists(HKEY root, const std::wstring& key);

// A string or expandable string as stored, without its terminator. Nothing for a missing value, another type, or one
// longer than `limitBytes`.
std::optional<std::wstring> readRegistryString(HKEY root, const std::wstring& key, const std::wstring& name,
                                               uint32_t limitBytes);

// Both make the key where needed and return the Windows error code, 0 for success. The empty name is the default value.
uint32_t writeRegistryString(HKEY root, const std::wstring& key, const std::wstring& name, const std::wstring& text);
uint32_t writeRegistryNumber(HKEY root, const std::wstring& key, const std::wstring& name, uint32_t number);

// Deletes a key with all below it; a missing one counts as deleted (0), else the Windows error code.
uint32_t deleteRegistryTree(HKEY root, const std::wstring& key);

}  // namespace base
