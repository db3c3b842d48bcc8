// The command line of VelquinSetup.exe as data: every option it knows, the modes in their order of precedence, and how
// an argument list is read. Options are compared without regard to case; there is no "=" syntax and no short form.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace velquin::setup {

inline constexpr wchar_t kInstallDirOption[] = L"--install-dir";
inline constexpr wchar_t kNoStartupOption[] = L"--no-startup";
inline constexpr wchar_t kDesktopOption[] = L"--desktop";
inline constexpr wchar_t kRestartAppOption[] = L"--restart-app";
inline constexpr wchar_t kNoStartOption[] = L"--no-start";
inline constexpr wchar_t kQuietOption[] = L"--quiet";
inline constexpr wchar_t kRemoveConfigOption[] = L"--remove-config";
inline constexpr wchar_t kTempWorkerOption[] = L"--temp-uninstall-worker";

struct Option {
    const wchar_t* name;
    const wchar_t* value;    // what the next argument means, or null for a plain flag
    const wchar_t* meaning;  // one line for people
};
// All options, those that choose a mode among them.
std::span<const Option> optionTable();

enum class Mode {
    install,
    repair,
    uninstall,
    selfTest,
    updateServiceSelfTest,
    mountDiagnosticsSelfTest,
    liveUpdateManifestSelfTest,
    interactive,
};
// What the log calls it.
const wchar_t* modeName(Mode mode);

// The arguments of one process, without the program's own path.
class Arguments {
public:
    explicit Arguments(std::vector<std::wstring> arguments) : list_(std::move(arguments)) {}

    const std::vector<std::wstring>& list() const { return list_; }

    // True when any argument equals the option, even one that is another option's value.
    bool has(std::wstring_view option) const;

    // The argument behind the first occurrence of the option that has one, as it stands; empty where there is none.
    std::wstring valueOf(std::wstring_view option) const;

    // The first mode, in the order of the table in options.cpp, whose option is present; else the interactive one.
    Mode mode() const;

private:
    std::vector<std::wstring> list_;
};

// Whether the program is registered to start with Windows after the flow: a machine that has the product keeps what it
// has, a new one gets it unless --no-startup is given.
bool chooseStartWithWindows(const Arguments& arguments, bool productInstalled, bool registeredNow);

// Whether the installed application is started after a successful install.
bool shouldLaunchAfterInstall(const Arguments& arguments);

}  // namespace velquin::setup
