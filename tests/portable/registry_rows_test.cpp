#include "setup/registry_rows.h"

#include <gtest/gtest.h>

namespace {

using namespace velquin::setup;
using Rows = std::vector<RegistryRow>;

const std::wstring kFolder = LR"(C:\Program Files\Lumora Velquin)";
constexpr uint32_t kMax32 = 0xFFFFFFFF;

// Whoever reads a failure wants the rows, not their bytes.
std::wstring printed(const Rows& rows) {
    std::wstring out;
    for (const RegistryRow& row : rows) {
        const auto* text = std::get_if<std::wstring>(&row.content);
        out += row.key + L" [" + row.name + L"] " +
               (text != nullptr ? *text : L"dword " + std::to_wstring(std::get<uint32_t>(row.content))) + L"\n";
    }
    return out;
}

TEST(RegistryRows, Applications) {
    const std::wstring paths = LR"(Software\Microsoft\Windows\CurrentVersion\App Paths\)";
    const std::wstring classes = LR"(Software\Classes\Applications\)";
    struct Case {
        const wchar_t *file, *name, *description;
    };
    constexpr Case kCases[] = {
        {L"Velquin.exe", L"Lumora Velquin", L"Velquin manager"},
        {L"VelquinSetup.exe", L"Lumora Velquin Setup", L"Installer for Velquin"},
    };
    static_assert(std::size(kCases) == kApplicationCount);
    for (size_t i = 0; i < kApplicationCount; ++i) {
        const Case& c = kCases[i];
        const std::wstring path = kFolder + L"\\" + c.file;
        const Rows expected = {
            {paths + c.file, L"", path},
            {paths + c.file, L"Path", kFolder},
            {classes + c.file, L"FriendlyAppName", c.name},
            {classes + c.file, L"ApplicationCompany", L"Vantorik"},
            {classes + c.file, L"ApplicationDescription", c.description},
            {classes + c.file + LR"(\ApplicationIcon)", L"", path + L",0"},
            {classes + c.file + LR"(\shell\open\command)", L"", L"\"" + path + L"\""},
        };
        const Rows rows = applicationRows(kApplications[i], kFolder);
        EXPECT_EQ(printed(rows), printed(expected));
        // Deleting the keys must take every row along.
        const auto keys = applicationKeys(kApplications[i]);
        EXPECT_EQ(keys, (std::vector{paths + c.file, classes + c.file}));
    }
}

TEST(RegistryRows, UninstallEntry) {
    const std::wstring key = LR"(Software\Microsoft\Windows\CurrentVersion\Uninstall\LumoraVelquin)";
    const Rows expected = {
        {key, L"DisplayName", L"Lumora Velquin"},
        {key, L"DisplayVersion", L"1.0.188"},
        {key, L"Publisher", L"Vantorik"},
        {key, L"InstallLocation", LR"(D:\Velquin)"},
        {key, L"DisplayIcon", LR"("D:\Velquin\Velquin.exe",0)"},
        {key, L"UninstallString", LR"("D:\Velquin\VelquinSetup.exe" --uninstall)"},
        {key, L"QuietUninstallString", LR"("D:\Velquin\VelquinSetup.exe" --uninstall --quiet)"},
        {key, L"InstallDate", L"20250203"},
        {key, L"NoModify", 1u},
        {key, L"NoRepair", 1u},
        {key, L"EstimatedSize", kMax32},
    };
    EXPECT_EQ(printed(uninstallRows(LR"(D:\Velquin)", L"20250203", kMax32)), printed(expected));
}

TEST(RegistryRows, SizesInKib) {
    constexpr std::pair<uint64_t, uint32_t> kCases[] = {
        {0, 0},
        {1, 1},
        {1023, 1},
        {1024, 1},
        {1025, 2},
        {uint64_t{kMax32} * 1024 - 1024, kMax32 - 1},
        {uint64_t{kMax32} * 1024 - 1023, kMax32},
        {uint64_t{kMax32} * 1024 + 1, kMax32},
        {UINT64_MAX, kMax32},
    };
    for (const auto& [bytes, kib] : kCases) {
        EXPECT_EQ(kibOf(bytes), kib) << bytes;
    }
    EXPECT_EQ(totalKib({}), 0u);
    EXPECT_EQ(totalKib({1, 0, 2, 4}), 7u);
    EXPECT_EQ(totalKib({kMax32 - 1, 1}), kMax32);
    EXPECT_EQ(totalKib({kMax32, 1, kMax32, kMax32}), kMax32);
}

}  // namespace
