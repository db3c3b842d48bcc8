// Windows that an automatic test opens on a virtual desktop of its own, so that they do not disturb the person at the
// machine: TAVI_TEST_DESKTOP_ID names the desktop, TAVI_TEST_DESKTOP_DIAGNOSTIC_PATH a file for what went wrong.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "tavi/core/geometry.h"
#include "tavi/core/native_handles.h"

namespace tavi {

class TestDesktop {
public:
    // Off the screen, until the window is on its desktop.
    static constexpr Point kHiddenPlace{-32000, -32000};

    // The desktop that the environment names; none when it names none, or something that is no GUID (which is said to
    // the debugger).
    static std::optional<TestDesktop> requested();
    // The style of a window while it is placed: Windows keeps track of the desktops of overlapped windows only.
    static uint32_t placingStyle(uint32_t style);
    // Shows the window without activating it, waits until it has a desktop and moves it. Failures are reported and
    // otherwise ignored: the test then runs where the person is.
    void place(HWND window) const;

private:
    explicit TestDesktop(std::wstring id) : id_(std::move(id)) {}
    std::wstring id_;
};

}  // namespace tavi
