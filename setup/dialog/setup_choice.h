// What the setup dialog gives back.
#pragma once

#include <cstdint>
#include <string>

namespace velquin::setup {

enum class SetupAction : int32_t {
    Close = 0,  // also when the window was closed
    Install = 1,
    Reinstall = 2,
    Repair = 3,
    Uninstall = 4,
};

struct SetupChoice {
    SetupAction action = SetupAction::Close;
    bool startWithWindows = true;  // after the user's sign-in
    bool desktopShortcut = false;
    std::wstring installDir = {};  // as it was typed or picked

    bool operator==(const SetupChoice&) const = default;
};

}  // namespace velquin::setup
