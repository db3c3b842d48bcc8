#include "core/product_paths.h"

#include <gtest/gtest.h>

namespace {

using F = velquin::UserFolders;
using P = velquin::UserPaths;

TEST(ProductPaths, EachPathHasItsFallback) {
    const F allFolders = {L"L:\\Local", L"R:\\Roaming", L"U:\\Home", L"T:\\Temp", L"P:\\Programs", L"D:\\Desk"};
    struct Case {
        std::wstring (P::*path)() const;
        std::vector<std::wstring F::*> missing;
        std::wstring expected;
    };
    const std::wstring data = LR"(L:\Local\LumoraPrivateMemory\Velquin)";
    const std::wstring dataInTemp = LR"(T:\Temp\LumoraPrivateMemory\Velquin)";
    const std::wstring programs = LR"(\Microsoft\Windows\Start Menu\Programs\)";
    const std::wstring link = L"Lumora Velquin.lnk";
    const Case cases[] = {
        {&P::dataFolderBase, {&F::localAppData}, LR"(T:\Temp)"},
        {&P::configurationFile, {}, data + LR"(\velquin.json)"},
        {&P::configurationFile, {&F::localAppData, &F::appData}, dataInTemp + LR"(\velquin.json)"},
        {&P::legacyConfigurationFile, {}, data + LR"(\quenbria.veracrypt.json)"},
        {&P::roamingFolder, {&F::appData, &F::localAppData}, dataInTemp},
        {&P::startMenuShortcut, {&F::commonPrograms}, L"R:\\Roaming" + programs + L"Vantorik\\" + link},
        {&P::legacyStartMenuShortcut, {&F::commonPrograms, &F::appData}, data + programs + L"Lumora\\" + link},
        {&P::startupShortcut, {&F::appData}, data + programs + L"Startup\\" + link},
        {&P::desktopShortcut, {&F::desktop}, LR"(U:\Home\Desktop\)" + link},
        {&P::desktopShortcut, {&F::desktop, &F::userProfile, &F::appData}, data + LR"(\Desktop\)" + link},
    };
    for (const Case& c : cases) {
        F folders = allFolders;
        for (const auto member : c.missing) {
            (folders.*member).clear();
        }
        EXPECT_EQ((P(folders).*c.path)(), c.expected);
    }
    EXPECT_EQ(velquin::passwordFileBeside(LR"(C:\d.d\velquin.json)"), LR"(C:\d.d\velquin.password.dpapi)");
    EXPECT_EQ(velquin::logFileBeside(LR"(C:\d.d\my.own.json)"), LR"(C:\d.d\my.own.log)");
}

}  // namespace
