#include "core/product_paths.h"

#include <gtest/gtest.h>

namespace {

using velquin::UserFolders;
using velquin::UserPaths;

TEST(ProductPaths, EachPathHasItsFallback) {
    const UserFolders allFolders = {.localAppData = LR"(L:\Local)",
                                    .appData = LR"(R:\Roaming)",
                                    .userProfile = LR"(U:\Home)",
                                    .temporary = LR"(T:\Temp)",
                                    .commonPrograms = LR"(P:\Programs)",
                                    .desktop = LR"(D:\Desk)"};
    using F = UserFolders;
    using P = UserPaths;
    struct Case {
        std::wstring (UserPaths::*path)() const;
        std::vector<std::wstring UserFolders::*> missing;
        std::wstring expected;
    };
    const std::wstring data = LR"(L:\Local\LumoraPrivateMemory\Velquin)";
    const std::wstring dataInTemp = LR"(T:\Temp\LumoraPrivateMemory\Velquin)";
    const std::wstring programs = LR"(\Microsoft\Windows\Start Menu\Programs\)";
    const Case cases[] = {
        {&P::dataFolderBase, {}, LR"(L:\Local)"},
        {&P::dataFolderBase, {&F::localAppData}, LR"(T:\Temp)"},
        {&P::dataFolder, {}, data},
        {&P::dataFolder, {&F::localAppData, &F::appData}, dataInTemp},
        {&P::configurationFile, {}, data + LR"(\velquin.json)"},
        {&P::configurationFile, {&F::localAppData}, dataInTemp + LR"(\velquin.json)"},
        {&P::legacyConfigurationFile, {}, data + LR"(\quenbria.veracrypt.json)"},
        {&P::roamingFolder, {}, LR"(R:\Roaming)"},
        {&P::roamingFolder, {&F::appData}, data},
        {&P::roamingFolder, {&F::appData, &F::localAppData}, dataInTemp},
        {&P::startMenuShortcut, {}, LR"(P:\Programs\Vantorik\Lumora Velquin.lnk)"},
        {&P::startMenuShortcut, {&F::commonPrograms}, L"R:\\Roaming" + programs + LR"(Vantorik\Lumora Velquin.lnk)"},
        {&P::legacyStartMenuShortcut, {}, LR"(P:\Programs\Lumora\Lumora Velquin.lnk)"},
        {&P::legacyStartMenuShortcut,
         {&F::commonPrograms, &F::appData},
         data + programs + LR"(Lumora\Lumora Velquin.lnk)"},
        {&P::startupShortcut, {}, L"R:\\Roaming" + programs + LR"(Startup\Lumora Velquin.lnk)"},
        {&P::startupShortcut, {&F::appData}, data + programs + LR"(Startup\Lumora Velquin.lnk)"},
        {&P::legacyStartupShortcut,
         {},
         L"R:\\Roaming" + programs + LR"(Startup\Lumora - Quenbria VeraCrypt mount.lnk)"},
        {&P::desktopShortcut, {&F::userProfile}, LR"(D:\Desk\Lumora Velquin.lnk)"},
        {&P::desktopShortcut, {&F::desktop}, LR"(U:\Home\Desktop\Lumora Velquin.lnk)"},
        {&P::desktopShortcut, {&F::desktop, &F::userProfile}, LR"(R:\Roaming\Desktop\Lumora Velquin.lnk)"},
        {&P::desktopShortcut, {&F::desktop, &F::userProfile, &F::appData}, data + LR"(\Desktop\Lumora Velquin.lnk)"},
    };
    for (const Case& c : cases) {
        UserFolders folders = allFolders;
        for (const auto member : c.missing) {
            (folders.*member).clear();
        }
        EXPECT_EQ((UserPaths(folders).*c.path)(), c.expected);
    }
}

TEST(ProductPaths, FilesBesideTheConfiguration) {
    using velquin::logFileBeside, velquin::passwordFileBeside;
    EXPECT_EQ(passwordFileBeside(LR"(C:\d\velquin.json)"), LR"(C:\d\velquin.password.dpapi)");
    EXPECT_EQ(passwordFileBeside(LR"(C:\d.d\velquin)"), LR"(C:\d.d\velquin.password.dpapi)");
    EXPECT_EQ(logFileBeside(LR"(C:\d\velquin.json)"), LR"(C:\d\velquin.log)");
    EXPECT_EQ(logFileBeside(LR"(C:\d.d\my.own.json)"), LR"(C:\d.d\my.own.log)");
}

}  // namespace
