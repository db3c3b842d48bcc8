#include "setup/options.h"

#include <algorithm>

#include "base/text.h"

namespace velquin::setup {
namespace {

struct ModeOption {
    Mode mode;
    const wchar_t* option;
    const wchar_t* name;
};
// The modes that an option chooses, in the order in which the first one present wins.
constexpr ModeOption kModes[] = {
    {Mode::install, L"--install", L"install"},
    {Mode::repair, L"--repair", L"repair"},
    {Mode::uninstall, L"--uninstall", L"uninstall"},
    {Mode::selfTest, L"--self-test", L"product core self-test"},
    {Mode::updateServiceSelfTest, L"--self-test-update-service", L"update service self-test"},
    {Mode::mountDiagnosticsSelfTest, L"--self-test-mount-diagnostics", L"mount diagnostics self-test"},
    {Mode::liveUpdateManifestSelfTest, L"--self-test-live-update-manifest", L"live update manifest self-test"},
};

constexpr Option kOptions[] = {
    {L"--install", nullptr, L"install the product, or upgrade or reinstall it, without any dialog"},
    {kInstallDirOption, L"folder", L"with --install: the folder to install into"},
    {kDesktopOption, nullptr, L"with --install: create the desktop shortcut"},
    {kNoStartupOption, nullptr, L"with a first --install: do not start the product with Windows"},
    {kNoStartOption, nullptr, L"with --install: do not start the product afterwards"},
    {kRestartAppOption, nullptr, L"with --install: start the product afterwards in any case"},
    {kQuietOption, nullptr, L"with --install as --no-start; with --uninstall: no window of any kind"},
    {L"--repair", nullptr, L"restore shortcuts, start with Windows and registry entries"},
    {L"--uninstall", nullptr, L"remove the product"},
    {kRemoveConfigOption, nullptr, L"with --uninstall: remove the user's configuration folder, too"},
    {kTempWorkerOption, nullptr, L"marks the temporary copy that uninstalls; added by the program itself"},
    {L"--self-test", nullptr, L"check the product core"},
    {L"--self-test-update-service", nullptr, L"check the update client without a network"},
    {L"--self-test-mount-diagnostics", nullptr, L"check the mount diagnostics"},
    {L"--self-test-live-update-manifest", nullptr, L"check the published update and its download"},
};

}  // namespace

std::span<const Option> optionTable() {
    return kOptions;
}

const wchar_t* modeName(Mode mode) {
    const auto* found = std::ranges::find(kModes, mode, &ModeOption::mode);
    return found != std::end(kModes) ? found->name : L"interactive";
}

bool Arguments::has(std::wstring_view option) const {
    return std::ranges::any_of(
        list_, [option](const std::wstring& argument) { return base::equalsIgnoringCase(argument, option); });
}

std::wstring Arguments::valueOf(std::wstring_view option) const {
    for (size_t i = 0; i + 1 < list_.size(); ++i) {
        if (base::equalsIgnoringCase(list_[i], option)) {
            return list_[i + 1];
        }
    }
    return {};
}

Mode Arguments::mode() const {
    const auto* chosen = std::ranges::find_if(kModes, [this](const ModeOption& row) { return has(row.option); });
    return chosen != std::end(kModes) ? chosen->mode : Mode::interactive;
}

bool chooseStartWithWindows(const Arguments& arguments, bool productInstalled, bool registeredNow) {
    return productInstalled ? registeredNow : !arguments.has(kNoStartupOption);
}

bool shouldLaunchAfterInstall(const Arguments& arguments) {
    return arguments.has(kRestartAppOption) || (!arguments.has(kNoStartOption) && !arguments.has(kQuietOption));
}

}  // namespace velquin::setup
