#include "setup/registry_rows.h"

#include <gtest/gtest.h>

namespace {

using namespace velquin::setup;

TEST(RegistryRows, Applications) {
    const auto rows = applicationRows(kApplications[1], LR"(D:\a b)");
    std::wstring printed;
    for (const RegistryRow& row : rows) {
        printed += L"\n" + row.key + L" [" + row.name + L"] " + std::get<std::wstring>(row.content);
    }
    EXPECT_EQ(printed,
              LR"(
Software\Microsoft\Windows\CurrentVersion\App Paths\VelquinSetup.exe [] D:\a b\VelquinSetup.exe
Software\Microsoft\Windows\CurrentVersion\App Paths\VelquinSetup.exe [Path] D:\a b
Software\Classes\Applications\VelquinSetup.exe [FriendlyAppName] Lumora Velquin Setup
Software\Classes\Applications\VelquinSetup.exe [ApplicationCompany] Vantorik
Software\Classes\Applications\VelquinSetup.exe [ApplicationDescription] Installer for Velquin
Software\Classes\Applications\VelquinSetup.exe\ApplicationIcon [] D:\a b\VelquinSetup.exe,0
Software\Classes\Applications\VelquinSetup.exe\shell\open\command [] "D:\a b\VelquinSetup.exe")");
    // Deleting the keys takes every row along.
    const auto keys = applicationKeys(kApplications[1]);
    for (const RegistryRow& row : rows) {
        EXPECT_TRUE(row.key.starts_with(keys.at(0)) || row.key.starts_with(keys.at(1)));
    }
}

TEST(RegistryRows, SizesInKib) {
    constexpr uint32_t kMax32 = 0xFFFFFFFF;
    constexpr std::pair<uint64_t, uint32_t> kCases[] = {
        {0, 0},
        {1, 1},
        {1024, 1},
        {1025, 2},
        {uint64_t{kMax32} * 1024 - 1024, kMax32 - 1},
        {uint64_t{kMax32} * 1024 + 1, kMax32},
        {UINT64_MAX, kMax32},
    };
    for (const auto& [bytes, kib] : kCases) {
        EXPECT_EQ(kibOf(bytes), kib) << bytes;
    }
    EXPECT_EQ(totalKib({1, 0, 2, 4}), 7u);
    EXPECT_EQ(totalKib({kMax32, 1, kMax32, kMax32}), kMax32);
}

}  // namespace
