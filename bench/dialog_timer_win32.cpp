// dialog_timer OUT.txt: what the setup's dialog spends the time until its first frame on, in a process of its own, as
// the setup has it. OUT gets a line for each share in their order, its name and its microseconds: the program's
// loading; the configuration with the texts; the skins (their folder and the configured one of them); the display, to
// which the first window of a process connects it, whatever that window is; the window with its controls and their
// layout; the first frame.
#include <windows.h>

#include <span>
#include <string>
#include <utility>

#include "base/win32/files.h"
#include "bench/clock.h"
#include "core/configuration.h"
#include "localization/catalog.h"
#include "setup/dialog/dialog_model.h"
#include "setup/dialog/setup_look.h"
#include "setup/dialog/setup_window.h"

namespace {

using bench::microseconds;

// The moments of the dialog, whose messages a hook sees before it does.
struct Moments {
    HWND window = nullptr;
    WNDPROC procedure = nullptr;
    long long created = 0;
    long long shown = 0;
    long long painted = 0;
};
Moments moments;

// Times the first frame, then ends the dialog.
LRESULT CALLBACK paintTimed(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    const LRESULT result = CallWindowProcW(moments.procedure, window, message, wParam, lParam);
    if (message == WM_PAINT && moments.painted == 0) {
        GdiFlush();
        moments.painted = microseconds();
        PostMessageW(window, WM_CLOSE, 0, 0);
    }
    return result;
}

LRESULT CALLBACK watch(int code, WPARAM wParam, LPARAM lParam) {
    const auto* const sent = reinterpret_cast<const CWPSTRUCT*>(lParam);
    if (code >= 0 && sent->message == WM_NCCREATE && moments.window == nullptr) {
        moments.window = sent->hwnd;
        moments.created = microseconds();
    }
    if (code >= 0 && sent->message == WM_SHOWWINDOW && sent->hwnd == moments.window && moments.shown == 0) {
        moments.shown = microseconds();
        moments.procedure = reinterpret_cast<WNDPROC>(
            SetWindowLongPtrW(moments.window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(paintTimed)));
    }
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

// Since Windows made this process.
long long processAge() {
    FILETIME created{};
    FILETIME unused{};
    FILETIME now{};
    GetProcessTimes(GetCurrentProcess(), &created, &unused, &unused, &unused);
    GetSystemTimePreciseAsFileTime(&now);
    const auto ticks = [](const FILETIME& time) {
        return static_cast<long long>(static_cast<unsigned long long>(time.dwHighDateTime) << 32 | time.dwLowDateTime);
    };
    return (ticks(now) - ticks(created)) / 10;
}

// All texts of the dialog. Gives their length, so that none of it can be left out.
size_t readTexts(const velquin::ProductConfig& config) {
    const velquin::setup::DialogLayout& layout = velquin::setup::dialogLayout(false);
    size_t length = velquin::localizedText(config, layout.headingId).size() +
                    velquin::localizedText(config, layout.messageId).size();
    for (const velquin::setup::DialogButton& button : layout.buttons) {
        length += velquin::localizedText(config, button.textId).size();
    }
    for (const velquin::setup::DialogItem& item : layout.items) {
        length += item.textId != velquin::setup::kNoText ? velquin::localizedText(config, item.textId).size() : 0;
    }
    return length;
}

}  // namespace

int wmain(int argc, wchar_t** argv) {
    const long long loading = processAge();
    if (argc != 2) {
        return 2;
    }
    const long long start = microseconds();
    const velquin::ProductConfig config = velquin::loadProductConfig();
    const bool hasTexts = readTexts(config) > 0;
    const long long texts = microseconds();
    velquin::setup::useSetupLook(config);
    const long long skins = microseconds();
    // The first window of a process connects it to the display, whatever the window is.
    const HWND first = CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 10, 10, nullptr, nullptr, nullptr, nullptr);
    ShowWindow(first, SW_SHOWNOACTIVATE);
    UpdateWindow(first);
    const long long display = microseconds();
    const HHOOK hook = SetWindowsHookExW(WH_CALLWNDPROC, watch, nullptr, GetCurrentThreadId());
    velquin::setup::showSetupChoice(GetModuleHandleW(nullptr), false);
    UnhookWindowsHookEx(hook);
    DestroyWindow(first);
    if (!hasTexts || moments.painted == 0) {
        return 1;
    }
    const std::pair<const char*, long long> shares[] = {
        {"loading", loading},
        {"texts", texts - start},
        {"skins", skins - texts},
        {"display", display - skins},
        {"window", moments.shown - moments.created},
        {"paint", moments.painted - moments.shown},
    };
    std::string report;
    for (const auto& [name, time] : shares) {
        report += std::string(name) + " " + std::to_string(time) + "\n";
    }
    const base::UniqueFile file = base::openFile(argv[1], GENERIC_WRITE, 0, CREATE_ALWAYS);
    return file && base::writeAll(file.get(), std::as_bytes(std::span(report))) ? 0 : 1;
}
