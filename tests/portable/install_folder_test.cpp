#include "setup/install_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using velquin::setup::installFolderTextProblem;

// Every file in the longest folder is within the 259 characters that all of Windows can use.
constexpr size_t kLongest = 259 - 1 - std::wstring_view(LR"(assets\velquin_update_available_disabled.png)").size();

TEST(InstallFolder, AcceptsFullPaths) {
    EXPECT_EQ(velquin::setup::maxInstallFolderLength(), kLongest);
    const std::wstring accepted[] = {
        LR"(d:\v)",
        L"D:\\Gr\u00FC\u00DF\\--desktop\\a;b,c='&%TEMP%",
        LR"(\\server\share\Velquin)",
        L"C:\\" + std::wstring(kLongest - 3, L'n'),
    };
    for (const std::wstring& folder : accepted) {
        EXPECT_EQ(installFolderTextProblem(folder), L"") << testing::PrintToString(folder);
    }
}

TEST(InstallFolder, RefusesOthersAndSaysWhy) {
    const std::pair<std::wstring, const wchar_t*> cases[] = {
        {L"", L"full path"},
        {L"C:Velquin", L"full path"},
        {LR"(\\?\C:\Velquin)", L"full path"},
        {LR"(\\server\share\)", L"root"},
        {L"C:\\" + std::wstring(kLongest - 2, L'n'), L"longer than 214 characters"},
        {LR"(C:\Apps" --desktop)", L"quotation mark"},
        {LR"(C:\a<b\c)", L"'a<b' is no valid"},
        {LR"(C:\a\b:c)", L"'b:c' is no valid"},
        {LR"(\\server\share\*)", L"'*' is no valid"},
        {LR"(\\ser<ver\share\Velquin)", L"'ser<ver' is no valid"},
        {LR"(C:\dot.\Velquin)", L"'dot.' is no valid"},
        {LR"(C:\blank \Velquin)", L"'blank ' is no valid"},
        {std::wstring(L"C:\\a\0b", 6), L"is no valid"},
    };
    for (const auto& [folder, reason] : cases) {
        EXPECT_THAT(installFolderTextProblem(folder), testing::HasSubstr(reason)) << testing::PrintToString(folder);
    }
}

}  // namespace
