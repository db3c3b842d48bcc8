#include "setup/options.h"

#include <gtest/gtest.h>

namespace {

using namespace velquin::setup;
using List = std::vector<std::wstring>;

// The modes in their order of precedence.
constexpr std::pair<const wchar_t*, Mode> kModes[] = {
    {L"--install", Mode::install},
    {L"--repair", Mode::repair},
    {L"--Uninstall", Mode::uninstall},
    {L"--SELF-test", Mode::selfTest},
    {L"--self-test-update-service", Mode::updateServiceSelfTest},
    {L"--self-test-mount-diagnostics", Mode::mountDiagnosticsSelfTest},
    {L"--self-test-live-update-MANIFEST", Mode::liveUpdateManifestSelfTest},
};

TEST(Options, OfTwoModeOptionsTheFirstInPrecedenceWins) {
    for (size_t winner = 0; winner < std::size(kModes); ++winner) {
        for (size_t other = winner; other < std::size(kModes); ++other) {
            const List either = {kModes[winner].first, kModes[other].first};
            const List turned = {either.rbegin(), either.rend()};
            EXPECT_EQ(Arguments(either).mode(), kModes[winner].second) << testing::PrintToString(either);
            EXPECT_EQ(Arguments(turned).mode(), kModes[winner].second) << testing::PrintToString(turned);
        }
    }
    EXPECT_EQ(Arguments({L"--install-dir", L"--repair"}).mode(), Mode::repair) << "a value counts as an argument";
    const List none = {L"",           L"install",  L"-install",   L"/install",     L"--install=1",
                       L"--install ", L"--instal", L"--installs", L"--self-tests", L"--quiet"};
    EXPECT_EQ(Arguments(none).mode(), Mode::interactive);
}

TEST(Options, TheValueIsTheNextArgument) {
    const std::pair<List, const wchar_t*> cases[] = {
        {{L"--install", L"C:\\a"}, L""},
        {{L"--Install-DIR", L"C:\\a b\\", L"--quiet"}, L"C:\\a b\\"},
        {{L"--install-dir"}, L""},
        {{L"--install-dir", L"--desktop"}, L"--desktop"},
        {{L"--install-dir", L"one", L"--install-dir", L"two"}, L"one"},
        {{L"--install-dir", L"--install-dir", L"two"}, L"--install-dir"},
        {{L"--install-dir", L"", L"x"}, L""},
        {{L"--install-dir=C:\\a", L"x"}, L""},
    };
    for (const auto& [list, value] : cases) {
        EXPECT_EQ(Arguments(list).valueOf(kInstallDirOption), value) << testing::PrintToString(list);
    }
    EXPECT_TRUE(Arguments({L"--install-dir", L"--DESKTOP"}).has(kDesktopOption));
    EXPECT_FALSE(Arguments({L"--desktops", L"desktop"}).has(kDesktopOption));
}

TEST(Options, Choices) {
    for (const bool registered : {false, true}) {
        for (const List& list : {List{}, List{L"--No-Startup"}}) {
            EXPECT_EQ(chooseStartWithWindows(Arguments(list), true, registered), registered) << "it keeps what it has";
            EXPECT_EQ(chooseStartWithWindows(Arguments(list), false, registered), list.empty());
        }
    }
    const std::pair<List, bool> launches[] = {
        {{L"--no-startup", L"--desktop"}, true},
        {{L"--no-start"}, false},
        {{L"--QUIET"}, false},
        {{L"--Restart-App", L"--quiet", L"--no-start"}, true},
    };
    for (const auto& [list, expected] : launches) {
        EXPECT_EQ(shouldLaunchAfterInstall(Arguments(list)), expected) << testing::PrintToString(list);
    }
}

}  // namespace
