// What the setup writes to the registry, as rows: pure data. All keys are below HKEY_LOCAL_MACHINE.
#pragma once

#include <cstdint>
#include <string>
#include <variant>
#include <vector>

namespace velquin::setup {

struct RegistryRow {
    std::wstring key;
    std::wstring name;  // empty: the default value
    std::variant<std::wstring, uint32_t> content;

    bool operator==(const RegistryRow&) const = default;
};

// One of the product's two programs as Windows knows it by its file name.
struct ApplicationRegistration {
    const wchar_t* fileName;
    const wchar_t* displayName;
    const wchar_t* description;
};
inline constexpr size_t kApplicationCount = 2;
extern const ApplicationRegistration kApplications[kApplicationCount];

// The keys that hold an application's registration and go with it.
std::vector<std::wstring> applicationKeys(const ApplicationRegistration& application);
std::vector<RegistryRow> applicationRows(const ApplicationRegistration& application, const std::wstring& installFolder);

// The entry in the list of installed programs. `installDate` is "20250203", `sizeKib` in KiB.
std::vector<RegistryRow> uninstallRows(const std::wstring& installFolder, const std::wstring& installDate,
                                       uint32_t sizeKib);

// Bytes rounded up to whole KiB, at most 0xFFFFFFFF.
uint32_t kibOf(uint64_t bytes);
// The sum of sizes in KiB, at most 0xFFFFFFFF.
uint32_t totalKib(const std::vector<uint32_t>& sizes);

}  // namespace velquin::setup
