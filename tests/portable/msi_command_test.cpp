#include "setup/msi_command.h"

#include <gtest/gtest.h>

#include "tests/portable/table.h"

namespace {

using namespace velquin::setup;

TEST(MsiCommand, OnlyTwoExitCodesAreSuccess) {
    for (const uint32_t code : {0u, 3010u}) {
        EXPECT_TRUE(isMsiSuccess(code)) << code;
    }
    for (const uint32_t code : {1u, 2u, 124u, 1602u, 1603u, 1605u, 1618u, 1641u, 3009u, 3011u, 0xFFFFFFFFu}) {
        EXPECT_FALSE(isMsiSuccess(code)) << code;
    }
}

TEST(MsiCommand, InstallArguments) {
    const std::pair<MsiInstallRequest, const wchar_t*> cases[] = {
        {{LR"(C:\cache\1.0.188-Velquin.msi)", LR"(D:\Velquin)", true, false},
         LR"(/i C:\cache\1.0.188-Velquin.msi /qn /norestart INSTALLFOLDER=D:\Velquin STARTWITHWINDOWS=1 DESKTOPSHORTCUT=0)"},
        {{LR"(C:\Users\A B\v.msi)", LR"(C:\Program Files\Lumora Velquin)", false, true},
         LR"(/i "C:\Users\A B\v.msi" /qn /norestart INSTALLFOLDER="C:\Program Files\Lumora Velquin" STARTWITHWINDOWS=0 )"
         LR"(DESKTOPSHORTCUT=1)"},
    };
    for (const auto& [request, arguments] : cases) {
        EXPECT_EQ(msiInstallArguments(request), arguments);
    }
}

TEST(MsiCommand, RemovingAndLogging) {
    EXPECT_EQ(msiRemoveArguments(L"{5C8BB41F-68F4-4E58-9076-9D3DF55EBEF5}"),
              L"/x {5C8BB41F-68F4-4E58-9076-9D3DF55EBEF5} /qn /norestart");
    EXPECT_EQ(withMsiLog(L"/x {1} /qn", LR"(C:\logs\a.log)"), LR"(/x {1} /qn /L*V C:\logs\a.log)");
    EXPECT_EQ(withMsiLog(L"/x {1} /qn", LR"(C:\my logs\a.log)"), LR"(/x {1} /qn /L*V "C:\my logs\a.log")");
}

TEST(MsiCommand, LogFileNames) {
    constexpr const wchar_t* kCases[][3] = {
        {L"install", L"2024-05-01T08:30:12.045Z", L"msi-install-1.0.188-2024-05-01T08-30-12-045Z.log"},
        {L"remove-existing", L"2025-12-31T23:59:59.999Z", L"msi-remove-existing-1.0.188-2025-12-31T23-59-59-999Z.log"},
        {LR"(..\a_b c/)", L"x", L"msi----a_b-c--1.0.188-x.log"},
    };
    for (const auto& [action, stamp, expected] : kCases) {
        EXPECT_EQ(msiLogFileName(action, stamp), expected);
    }
}

TEST(MsiCommand, CachedPackageNames) {
    const testing_table::Pairs pairs = {
        {LR"(installer\Velquin.msi)", L"1.0.188-Velquin.msi"},
        {L"Other.MSI", L"1.0.188-Other.MSI"},
        {L"installer/a/b.msi", L"1.0.188-b.msi"},
        {LR"(installer\)", L"1.0.188-Velquin.msi"},
        {L"", L"1.0.188-Velquin.msi"},
    };
    testing_table::expectEach(cachedPackageName, pairs);
}

}  // namespace
