#include "setup/install_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using namespace velquin::setup;
using testing::HasSubstr;

// Every file in the longest folder is within the 259 characters that all of Windows can use.
constexpr std::wstring_view kLongestInstalledPath = LR"(assets\velquin_update_available_disabled.png)";
constexpr size_t kLongest = 259 - 1 - kLongestInstalledPath.size();

TEST(InstallFolder, AcceptsFullPaths) {
    EXPECT_EQ(maxInstallFolderLength(), kLongest);
    const std::wstring accepted[] = {
        LR"(C:\Program Files\Lumora Velquin)",
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
        {L"Velquin", L"full path"},
        {LR"(\Velquin)", L"full path"},
        {L"C:Velquin", L"full path"},
        {LR"(\\server)", L"full path"},
        {LR"(\\?\C:\Velquin)", L"full path"},
        {LR"(C:\)", L"root"},
        {LR"(\\server\share)", L"root"},
        {LR"(\\server\share\)", L"root"},
        {L"C:\\" + std::wstring(kLongest - 2, L'n'), L"longer than 214 characters"},
        {LR"(C:\Apps" --desktop)", L"quotation mark"},
        {LR"(C:\a<b\c)", L"'a<b' is no valid"},
        {LR"(C:\a\b>)", L"'b>' is no valid"},
        {LR"(C:\a\b:c)", L"'b:c' is no valid"},
        {LR"(C:\a|b)", L"'a|b' is no valid"},
        {LR"(C:\a?)", L"'a?' is no valid"},
        {LR"(\\server\share\*)", L"'*' is no valid"},
        {LR"(\\ser<ver\share\Velquin)", L"'ser<ver' is no valid"},
        {LR"(C:\dot.\Velquin)", L"'dot.' is no valid"},
        {LR"(C:\blank \Velquin)", L"'blank ' is no valid"},
        {L"C:\\a\nb", L"'a\nb' is no valid"},
        {std::wstring(L"C:\\a\0b", 6), L"is no valid"},
    };
    for (const auto& [folder, reason] : cases) {
        EXPECT_THAT(installFolderTextProblem(folder), HasSubstr(reason)) << testing::PrintToString(folder);
    }
}

}  // namespace
