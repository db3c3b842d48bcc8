// From the dialog's choice to the exit code, with flows and windows replaced; what is shown while a flow runs.
#include "setup/dialog/interactive_flow.h"

#include <gtest/gtest.h>

#include <vector>

#include "core/log.h"
#include "localization/text_ids.h"
#include "setup/dialog/progress_steps.h"

namespace {

using namespace velquin::setup;
using Lines = std::vector<std::wstring>;

// Writes down what is asked of it.
struct Stage final : InteractiveSteps {
    bool installed = false;
    bool hasShortcut = false;
    bool hasStart = false;
    bool ok = true;
    int code = 0;
    SetupChoice choice;
    Lines calls;

    static std::wstring flags(bool desktop, bool start) {
        return std::wstring(desktop ? L" desktop" : L" -") + (start ? L" start" : L" -");
    }
    void note(std::wstring call) { calls.push_back(std::move(call)); }

    bool isProductInstalled() override { return installed; }
    SetupChoice showSetupChoice(bool isInstalled) override {
        note(isInstalled ? L"ask installed" : L"ask");
        return choice;
    }
    std::wstring resolveInstallDir(const std::wstring& requested) override {
        return requested == L"  " ? L"" : requested + L"!";
    }
    bool desktopShortcutExists() override { return hasShortcut; }
    bool readStartupRegistration() override { return hasStart; }
    bool installProduct(SetupAction action, bool desktop, bool start, const std::wstring& folder) override {
        note((action == SetupAction::Install ? L"install" : L"reinstall") + flags(desktop, start) + L" " + folder);
        return ok;
    }
    bool repairProduct(bool desktop, bool start) override {
        note(L"repair" + flags(desktop, start));
        return ok;
    }
    int uninstallProduct(bool removeConfig) override {
        note(removeConfig ? L"uninstall all" : L"uninstall");
        return code;
    }
    void launchInstalledApp() override { note(L"launch"); }
    void showMessage(int title, int message, bool isError) override {
        note(L"message " + std::to_wstring(title) + L" " + std::to_wstring(message) + (isError ? L" error" : L""));
    }
    void showResult(int title, bool isError) override {
        note(L"result " + std::to_wstring(title) + (isError ? L" error" : L""));
    }
};

TEST(InteractiveFlow, RunsWhatWasChosenAndTellsTheResult) {
    using enum SetupAction;
    struct Case {
        SetupChoice choice;
        bool ok;  // the flow's result; an uninstall's is `code`
        int code;
        Lines calls;  // after the question
        int exitCode;
    };
    const Lines refused{L"message 86 87 error"};
    const Case cases[] = {
        {{Close, true, true, L"C:\\P"}, true, 0, {}, 0},
        {{static_cast<SetupAction>(5), true, true, L"C:\\P"}, true, 0, {}, 0},
        {{static_cast<SetupAction>(-1), true, true, L"C:\\P"}, true, 0, {}, 0},
        {{Install, false, true, L"C:\\P"}, true, 0, {L"install desktop - C:\\P!", L"result 79", L"launch"}, 0},
        {{Install, true, false, L"C:\\P"}, false, 0, {L"install - start C:\\P!", L"result 83 error"}, 4},
        {{Install, true, true, L"  "}, true, 0, refused, 4},
        // What the installed product has counts: a desktop shortcut and no start with Windows.
        {{Reinstall, true, false, L"C:\\P"}, true, 0, {L"reinstall desktop - C:\\P!", L"result 80", L"launch"}, 0},
        {{Reinstall, true, false, L"C:\\P"}, false, 0, {L"reinstall desktop - C:\\P!", L"result 83 error"}, 4},
        {{Reinstall, true, false, L"  "}, true, 0, refused, 4},
        {{Repair, true, false, L""}, true, 0, {L"repair desktop -", L"result 81"}, 0},
        {{Repair, true, false, L""}, false, 0, {L"repair desktop -", L"result 84 error"}, 5},
        {{Uninstall, true, false, L""}, false, 0, {L"uninstall", L"result 82"}, 0},
        {{Uninstall, true, false, L""}, true, 2, {L"uninstall", L"result 85 error"}, 2},
        {{Uninstall, true, false, L""}, true, 6, {L"uninstall", L"result 85 error"}, 6},
    };
    for (const Case& each : cases) {
        Stage stage;
        stage.choice = each.choice;
        stage.ok = each.ok;
        stage.code = each.code;
        stage.hasShortcut = true;
        stage.installed = each.choice.action >= Reinstall;
        EXPECT_EQ(runInteractive(stage), each.exitCode);
        Lines expected{stage.installed ? L"ask installed" : L"ask"};
        expected.insert(expected.end(), each.calls.begin(), each.calls.end());
        EXPECT_EQ(stage.calls, expected);
    }
}

TEST(InteractiveFlow, LogLinesBecomeSteps) {
    namespace text = velquin::text;
    const std::pair<const wchar_t*, ProgressStep> cases[] = {
        {L"install folder: C:\\Apps (x86)\\Lumora Velquin (chosen)",
         {text::kInstallFolder, L"C:\\Apps (x86)\\Lumora Velquin"}},
        {L"install folder: C:\\Apps (x86)\\Lumora Velquin", {text::kInstallFolder, L"C:\\Apps (x86)\\Lumora Velquin"}},
        {L"MSI extracted: C:\\Users\\a\\setup-msi-cache\\Velquin-1.0.188.msi", {text::kInstall, L"Velquin.msi"}},
        {L"no running copy of Velquin.exe", {text::kClose, L"Velquin.exe"}},
        {L"process closed pid=17", {text::kClose, L"Velquin.exe"}},
        {L"removing existing MSI products before install: 1", {text::kUninstall, L"Lumora Velquin"}},
        {L"msiexec launch remove-existing: /x {1} /qn", {text::kUninstall, L"Lumora Velquin"}},
        {L"msiexec launch install: /i \"C:\\Velquin.msi\" /qn", {text::kInstall, L"Velquin.msi"}},
        {L"copied: C:\\a -> b\\x.exe -> D:\\VelquinSetup.exe", {text::kInstall, L"VelquinSetup.exe"}},
        {L"embedded payload extracted: D:\\P\\skins\\00.json", {text::kInstall, L"00.json"}},
        {L"registering in: C:\\P desktop shortcut=yes start with Windows=no", {text::kInstallFolder, L"C:\\P"}},
        {L"shortcut created: C:\\D\\Lumora Velquin.lnk -> C:\\P\\Velquin.exe", {-1, L"Lumora Velquin.lnk"}},
        {L"Scheduled task installed: Lumora Velquin", {text::kStartWithWindows, L""}},
        {L"file deleted: C:\\P\\Velquin.exe", {text::kUninstall, L"Velquin.exe"}},
        {L"registry key deleted: Software\\Classes\\Applications\\Velquin.exe", {text::kUninstall, L"Velquin.exe"}},
    };
    for (const auto& [line, step] : cases) {
        EXPECT_EQ(progressStep(line), step) << testing::PrintToString(line);
    }
    for (const wchar_t* line :
         {L"", L"install", L"install started", L"install folder refused, nothing was changed: C:\\",
          L"msiexec install exit=0 log=C:\\x", L"shortcut failed: C:\\D\\a.lnk hresult=5", L"repair ok",
          L"copy failed: a -> b : Access is denied"}) {
        EXPECT_EQ(progressStep(line), std::nullopt) << testing::PrintToString(line);
    }
    EXPECT_EQ(progressLine(L"Install", L"Velquin.msi"), L"Install: Velquin.msi");
    EXPECT_EQ(progressLine(L"", L"Velquin.msi") + progressLine(L"Install", L""), L"Velquin.msiInstall");
    EXPECT_EQ(formatElapsed(-1) + L" " + formatElapsed(7) + L" " + formatElapsed(754) + L" " + formatElapsed(3723),
              L"0:00 0:07 12:34 1:02:03");
    EXPECT_EQ(progressHeading(SetupAction::Install), 74);
    EXPECT_EQ(progressHeading(SetupAction::Repair), 64);
    EXPECT_EQ(progressHeading(SetupAction::Reinstall), 65);
    EXPECT_EQ(progressHeading(SetupAction::Uninstall), 66);
}

TEST(InteractiveFlow, AnObserverOfTheLogMayGoInTheMiddleOfALine) {
    Lines seen;
    velquin::setLogObserver([&seen](std::wstring_view line) {
        velquin::setLogObserver({});  // destroys no callback that is running
        seen.emplace_back(line);
    });
    velquin::tellLogObserver(L"one");
    velquin::tellLogObserver(L"two");
    EXPECT_EQ(seen, (Lines{L"one"}));
}

}  // namespace
