// What the tests of real windows share: a control that writes down its input, input that is injected, the picture of a
// client area.
#pragma once

#include <windows.h>

#include <gtest/gtest.h>

#include <chrono>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "tavi/core/window.h"
#include "tavi/core/window_tree.h"

namespace testing_windows {

using namespace tavi;
using Log = std::vector<std::wstring>;

inline const HINSTANCE kInstance = GetModuleHandleW(nullptr);

inline void pump(int milliseconds, const std::function<bool()>& until = [] { return false; }) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(milliseconds);
    do {
        MSG message{};
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
        Sleep(1);
    } while (!until() && std::chrono::steady_clock::now() < end);
}

inline bool pumpUntil(const std::function<bool()>& until) {
    pump(5000, until);
    return until();
}

// Filled with a color of its own, and writes down its input.
struct Box : Panel {
    Box(std::wstring name, const Rect& area, Log* journal = nullptr, uint32_t fill = 0x336699)
        : Panel(std::move(name), area), log(journal), color(fill) {
        setPaintHook([this](HDC target, const Rect& device) {
            const RECT rect{device.x, device.y, device.right(), device.bottom()};
            SetDCBrushColor(target, color);
            FillRect(target, &rect, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
            FrameRect(target, &rect, static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
        });
    }
    bool note(const std::wstring& what) {
        if (log != nullptr) {
            log->push_back(what);
        }
        if (then) {
            const auto callback = then;
            callback(what);
        }
        return true;
    }
    bool pointerPress(PointerEvent& e) override {
        return note(L"press " + describe(e.position) + L" " + std::to_wstring(e.clicks));
    }
    bool pointerRelease(PointerEvent& e) override { return note(L"release " + describe(e.position)); }
    bool pointerWheel(WheelEvent& e) override {
        return note(L"wheel " + describe(e.position) + (e.steps < 0 ? L" down" : L" up"));
    }
    bool keyPress(KeyEvent& e) override { return e.code == handledKey && note(L"key"); }
    bool textInput(TextInputEvent& e) override { return note(L"text " + e.text); }
    bool compositionChanged(CompositionEvent& e) override { return note(L"composition '" + e.text + L"'"); }
    bool editCommand(EditCommand) override { return note(L"edit"); }
    bool acceptsFocus() const override { return true; }
    void focusChanged(bool focused) override { note(focused ? L"focus" : L"blur"); }
    bool activate() override { return note(L"activate"); }
    void inputCancelled() override { note(L"cancelled"); }

    Log* log;
    uint32_t color;
    uint32_t handledKey = 0;
    std::function<void(const std::wstring&)> then;
};

// The client area as its own buffer has it.
inline std::vector<uint32_t> pictureOf(Window& window) {
    RECT client{};
    GetClientRect(window.handle(), &client);
    BITMAPINFO info{};
    info.bmiHeader = {sizeof(info.bmiHeader), client.right, -client.bottom, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    void* bits = nullptr;
    const HDC target = CreateCompatibleDC(nullptr);
    const HBITMAP bitmap = CreateDIBSection(target, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    const HGDIOBJ before = SelectObject(target, bitmap);
    SendMessageW(window.handle(), WM_PRINTCLIENT, reinterpret_cast<WPARAM>(target), 0);
    GdiFlush();
    const auto* const pixels = static_cast<const uint32_t*>(bits);
    std::vector<uint32_t> picture(pixels,
                                  pixels + static_cast<size_t>(client.right) * static_cast<size_t>(client.bottom));
    SelectObject(target, before);
    DeleteObject(bitmap);
    DeleteDC(target);
    return picture;
}

inline SIZE clientOf(const Window& window) {
    RECT client{};
    GetClientRect(window.handle(), &client);
    return {client.right, client.bottom};
}

inline RECT rectOf(HWND window) {
    RECT rect{};
    GetWindowRect(window, &rect);
    return rect;
}

inline void sendKey(WORD key, bool down, DWORD flags = 0, WORD unit = 0) {
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki = {key, unit, flags | (down ? 0 : KEYEVENTF_KEYUP), 0, 0};
    SendInput(1, &input, sizeof(input));
}

inline void sendMouse(HWND window, Point client, DWORD flags, int data = 0) {
    POINT point{client.x, client.y};
    ClientToScreen(window, &point);
    INPUT input{};
    input.type = INPUT_MOUSE;
    input.mi.dx = point.x * 65536 / GetSystemMetrics(SM_CXSCREEN) + 1;
    input.mi.dy = point.y * 65536 / GetSystemMetrics(SM_CYSCREEN) + 1;
    input.mi.mouseData = static_cast<DWORD>(data);
    input.mi.dwFlags = MOUSEEVENTF_ABSOLUTE | MOUSEEVENTF_MOVE | flags;
    SendInput(1, &input, sizeof(input));
}

struct TaviWin32 : testing::Test {
    Window window{kInstance};
    Log log;
    Box* box = nullptr;

    void open(const WindowOptions& options = {.title = L"tavi test", .clientSize = {400, 300}}) {
        box = window.root().add<Box>(L"box", Rect{20, 10, 100, 50}, &log);
        ASSERT_TRUE(window.create(options));
        window.show();
        SetForegroundWindow(window.handle());
        pump(50);
        log.clear();
    }
    Log taken() { return std::exchange(log, {}); }
};

}  // namespace testing_windows
