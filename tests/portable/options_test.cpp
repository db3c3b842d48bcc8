#include "setup/options.h"

#include <gtest/gtest.h>

#include <set>

namespace {

using namespace velquin::setup;
using List = std::vector<std::wstring>;

// The modes in their order of precedence.
struct ModeCase {
    const wchar_t *option, *otherCase;
    Mode mode;
};
constexpr ModeCase kModes[] = {
    {L"--install", L"--INSTALL", Mode::install},
    {L"--repair", L"--Repair", Mode::repair},
    {L"--uninstall", L"--unInstall", Mode::uninstall},
    {L"--self-test", L"--SELF-test", Mode::selfTest},
    {L"--self-test-update-service", L"--self-test-UPDATE-service", Mode::updateServiceSelfTest},
    {L"--self-test-mount-diagnostics", L"--Self-Test-Mount-Diagnostics", Mode::mountDiagnosticsSelfTest},
    {L"--self-test-live-update-manifest", L"--self-test-live-update-MANIFEST", Mode::liveUpdateManifestSelfTest},
};

TEST(Options, OfTwoModeOptionsTheFirstInPrecedenceWins) {
    for (size_t winner = 0; winner < std::size(kModes); ++winner) {
        for (size_t other = winner; other < std::size(kModes); ++other) {
            const List either = {kModes[winner].option, kModes[other].otherCase};
            EXPECT_EQ(Arguments(either).mode(), kModes[winner].mode) << testing::PrintToString(either);
            EXPECT_EQ(Arguments({either.rbegin(), either.rend()}).mode(), kModes[winner].mode)
                << testing::PrintToString(either);
        }
    }
}

TEST(Options, WithoutAModeOptionTheModeIsInteractive) {
    const List cases[] = {
        {},
        {L""},
        {L"--desktop", L"--quiet", L"--no-start", L"--temp-uninstall-worker"},
        {L"install", L"-install", L"/install", L"--install=1", L"--install ", L"--instal", L"--installs"},
        {L"--self-test-update", L"--self-tests"},
    };
    for (const List& list : cases) {
        EXPECT_EQ(Arguments(list).mode(), Mode::interactive) << testing::PrintToString(list);
    }
    EXPECT_EQ(Arguments({L"--install-dir", L"--repair"}).mode(), Mode::repair) << "a value counts as an argument";
}

TEST(Options, TheTableListsEveryOptionOnce) {
    std::set<std::wstring> names;
    for (const Option& option : optionTable()) {
        EXPECT_TRUE(names.insert(option.name).second) << testing::PrintToString(option.name);
        EXPECT_EQ(option.value != nullptr, option.name == std::wstring_view(L"--install-dir"));
        EXPECT_STRNE(option.meaning, L"");
    }
    std::set<std::wstring> expected = {
        L"--install-dir", L"--no-startup", L"--desktop",       L"--restart-app",
        L"--no-start",    L"--quiet",      L"--remove-config", L"--temp-uninstall-worker"};
    for (const ModeCase& c : kModes) {
        expected.insert(c.option);
    }
    EXPECT_EQ(names, expected);
}

TEST(Options, TheValueIsTheNextArgument) {
    struct Case {
        const char* name;
        List list;
        const wchar_t* value;
    };
    const Case cases[] = {
        {"absent", {L"--install", L"C:\\a"}, L""},
        {"present", {L"--install", L"--install-dir", L"C:\\a b\\", L"--quiet"}, L"C:\\a b\\"},
        {"in another case", {L"--Install-DIR", L"C:\\a"}, L"C:\\a"},
        {"last argument", {L"--install", L"--install-dir"}, L""},
        {"followed by an option", {L"--install-dir", L"--desktop"}, L"--desktop"},
        {"twice", {L"--install-dir", L"one", L"--install-dir", L"two"}, L"one"},
        {"twice in a row", {L"--install-dir", L"--install-dir", L"two"}, L"--install-dir"},
        {"second one last", {L"--install-dir", L"one", L"--install-dir"}, L"one"},
        {"empty value", {L"--install-dir", L"", L"x"}, L""},
        {"no = syntax", {L"--install-dir=C:\\a", L"x"}, L""},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(Arguments(c.list).valueOf(kInstallDirOption), c.value) << c.name;
    }
    EXPECT_TRUE(Arguments({L"--install", L"--install-dir", L"--DESKTOP"}).has(kDesktopOption));
    EXPECT_FALSE(Arguments({L"--desktops", L"desktop"}).has(kDesktopOption));
}

TEST(Options, StartWithWindows) {
    struct Case {
        bool noStartup, installed, registered, expected;
    };
    constexpr Case kCases[] = {
        {false, false, false, true}, {false, false, true, true},  {true, false, false, false},
        {true, false, true, false},  {false, true, false, false}, {false, true, true, true},
        {true, true, false, false},  {true, true, true, true},
    };
    for (const Case& c : kCases) {
        const Arguments arguments(c.noStartup ? List{L"--install", L"--No-Startup"}
                                              : List{L"--install", L"--no-start"});
        EXPECT_EQ(chooseStartWithWindows(arguments, c.installed, c.registered), c.expected)
            << c.noStartup << c.installed << c.registered;
    }
}

TEST(Options, LaunchAfterInstall) {
    const std::pair<List, bool> cases[] = {
        {{}, true},
        {{L"--no-startup", L"--desktop"}, true},
        {{L"--no-start"}, false},
        {{L"--QUIET"}, false},
        {{L"--no-start", L"--quiet"}, false},
        {{L"--restart-app"}, true},
        {{L"--no-start", L"--Restart-App"}, true},
        {{L"--restart-app", L"--quiet"}, true},
        {{L"--restart-app", L"--quiet", L"--no-start"}, true},
    };
    for (const auto& [list, expected] : cases) {
        EXPECT_EQ(shouldLaunchAfterInstall(Arguments(list)), expected) << testing::PrintToString(list);
    }
}

}  // namespace
