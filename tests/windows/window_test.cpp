// Windows of the UI framework as Windows sees them.
#include <windows.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <thread>

#include "tavi/core/dialog_window.h"
#include "tavi/core/window_tree.h"

namespace {

using namespace tavi;
using Log = std::vector<std::wstring>;

const HINSTANCE kInstance = GetModuleHandleW(nullptr);

void pump(int milliseconds, const std::function<bool()>& until = [] { return false; }) {
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

bool pumpUntil(const std::function<bool()>& until) {
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
std::vector<uint32_t> pictureOf(Window& window) {
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

SIZE clientOf(const Window& window) {
    RECT client{};
    GetClientRect(window.handle(), &client);
    return {client.right, client.bottom};
}

RECT rectOf(HWND window) {
    RECT rect{};
    GetWindowRect(window, &rect);
    return rect;
}

void sendKey(WORD key, bool down, DWORD flags = 0, WORD unit = 0) {
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki = {key, unit, flags | (down ? 0 : KEYEVENTF_KEYUP), 0, 0};
    SendInput(1, &input, sizeof(input));
}

void sendMouse(HWND window, Point client, DWORD flags, int data = 0) {
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

TEST_F(TaviWin32, IsMadeAsAskedFor) {
    EXPECT_EQ(window.handle(), nullptr);
    open();
    wchar_t name[40]{};
    GetClassNameW(window.handle(), name, 40);
    EXPECT_STREQ(name, L"TaviDesignWindow");
    EXPECT_EQ(clientOf(window).cx, 400);
    EXPECT_EQ(clientOf(window).cy, 300);
    EXPECT_EQ(window.root().bounds(), (Rect{0, 0, 400, 300}));
    EXPECT_EQ(window.root().id(), L"root");
    EXPECT_FALSE(window.create({})) << "it is there already";

    Window other(kInstance);
    other.setMinimumClientSize({700, 500});
    ASSERT_TRUE(other.create({.clientSize = {0, 100}}));
    EXPECT_EQ(clientOf(other).cx, 700);
    EXPECT_EQ(clientOf(other).cy, 500);
    Window refused(kInstance);
    EXPECT_FALSE(refused.create({.style = WS_CHILD}));
    EXPECT_EQ(refused.handle(), nullptr);
    refused.close();
    refused.setTitle(L"nothing happens");
}

TEST_F(TaviWin32, PaintsOnceForEachChangeAndOnlyWhatChanged) {
    open();
    const auto counts = [&] { return std::pair(window.paintCounts().painted, window.paintCounts().copied); };
    const auto [painted, copied] = counts();
    EXPECT_GE(painted, 1U);
    pump(50);
    box->setText(box->text());
    box->setBounds(box->bounds());
    pump(50);
    EXPECT_EQ(counts(), std::pair(painted, copied)) << "nothing had changed";
    box->color = 0x0000FF;
    box->requestRepaint();
    box->requestRepaint();
    box->setBounds({30, 10, 100, 50});
    UpdateWindow(window.handle());
    EXPECT_EQ(counts(), std::pair(painted + 1, copied)) << "gathered into one";
    InvalidateRect(window.handle(), nullptr, FALSE);
    UpdateWindow(window.handle());
    EXPECT_EQ(counts(), std::pair(painted + 1, copied + 1)) << "uncovered: copied from the buffer";

    const HDC screen = GetDC(window.handle());
    const RECT part{100, 20, 120, 40};
    InvalidateRect(window.handle(), &part, FALSE);
    UpdateWindow(window.handle());
    EXPECT_EQ(GetPixel(screen, 110, 30), box->color) << "from its place in the buffer";
    ReleaseDC(window.handle(), screen);

    window.root().add<Box>(L"corner", Rect{380, 280, 20, 20});
    // Inverts, so that what is painted twice shows.
    window.root().add<Panel>(L"inverting", Rect{60, 30, 60, 40})->setPaintHook([](HDC target, const Rect& device) {
        const RECT rect{device.x, device.y, device.right(), device.bottom()};
        InvertRect(target, &rect);
    });
    const std::vector<uint32_t> picture = pictureOf(window);
    EXPECT_EQ((picture[65 * 400 + 70] ^ picture[200 * 400 + 300]) & 0xFFFFFF, 0xFFFFFFU) << "after its sibling's clip";
    for (const int dpi : {96, 120, 144, 168}) {
        RECT place = rectOf(window.handle());
        SendMessageW(window.handle(), WM_DPICHANGED, static_cast<WPARAM>(MAKEWPARAM(dpi, dpi)),
                     reinterpret_cast<LPARAM>(&place));
        UpdateWindow(window.handle());
        for (int step = 0; step < 12; ++step) {
            box->setBounds({step * 7, step * 3, 50 + step, 20 + step * 5});
            const std::vector<uint32_t> parts = pictureOf(window);
            window.requestRepaint();
            ASSERT_EQ(parts.back(), picture.back()) << "the buffer is as large as the window";
            ASSERT_EQ(parts == pictureOf(window), true) << "at " << dpi << " dpi, step " << step;
        }
    }
}

TEST_F(TaviWin32, KeepsItsDesignSizeAndItsStateWhenTheScaleChanges) {
    open();
    int notified = 0;
    box->setTreeNotification([&](Control&) { ++notified; });
    window.tree().setFocus(box);
    for (const int dpi : {144, 168, 120, 96}) {
        RECT suggested{50, 40, 10, 10};
        SendMessageW(window.handle(), WM_DPICHANGED, static_cast<WPARAM>(MAKEWPARAM(dpi, dpi)),
                     reinterpret_cast<LPARAM>(&suggested));
        EXPECT_EQ(clientOf(window).cx, 400 * dpi / 96) << dpi;
        EXPECT_EQ(clientOf(window).cy, 300 * dpi / 96) << dpi;
        EXPECT_EQ(window.root().bounds(), (Rect{0, 0, 400, 300})) << dpi;
        EXPECT_EQ(box->bounds(), (Rect{20, 10, 100, 50}));
        EXPECT_EQ(window.tree().focused(), box);
    }
    EXPECT_EQ(notified, 4);
    SIZE scaled{};
    EXPECT_TRUE(SendMessageW(window.handle(), WM_GETDPISCALEDSIZE, 192, reinterpret_cast<LPARAM>(&scaled)));
    EXPECT_GE(scaled.cx, 800);
    EXPECT_EQ(rectOf(window.handle()).left, 50);
    RECT work{};
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &work, 0);
    for (const bool dragged : {false, true}) {
        RECT beyond{work.right - 50, 40, work.right + 350, 340};
        SendMessageW(window.handle(), dragged ? WM_ENTERSIZEMOVE : WM_EXITSIZEMOVE, 0, 0);
        SendMessageW(window.handle(), WM_DPICHANGED, MAKEWPARAM(96, 96), reinterpret_cast<LPARAM>(&beyond));
        EXPECT_EQ(rectOf(window.handle()).right > work.right, dragged) << "under the mouse it stays where it is held";
    }
}

TEST_F(TaviWin32, TakesInput) {
    open();
    sendMouse(window.handle(), {30, 30}, MOUSEEVENTF_LEFTDOWN);
    sendMouse(window.handle(), {300, 200}, MOUSEEVENTF_LEFTUP);
    pump(50);
    EXPECT_EQ(taken(), (Log{L"press (10, 20) 1", L"release (280, 190)"})) << "the press keeps the pointer";
    EXPECT_EQ(GetCapture(), nullptr);
    sendMouse(window.handle(), {60, 50}, MOUSEEVENTF_LEFTDOWN);
    pump(50);
    EXPECT_EQ(GetCapture(), window.handle());
    ReleaseCapture();
    sendMouse(window.handle(), {60, 50}, MOUSEEVENTF_LEFTUP);
    pump(50);
    EXPECT_EQ(taken(), (Log{L"press (40, 40) 1", L"cancelled", L"release (40, 40)"})) << "another took the pointer";
    sendMouse(window.handle(), {30, 30}, MOUSEEVENTF_WHEEL, -120);
    pump(50);
    EXPECT_EQ(taken(), (Log{L"wheel (10, 20) down"}));
    sendKey(0, true, KEYEVENTF_UNICODE, 0x20AC);
    sendKey(0, false, KEYEVENTF_UNICODE, 0x20AC);
    for (const WORD unit : {WORD{0xD83D}, WORD{0xDE00}}) {
        sendKey(0, true, KEYEVENTF_UNICODE, unit);
        sendKey(0, false, KEYEVENTF_UNICODE, unit);
    }
    pump(50);
    EXPECT_EQ(taken(), (Log{L"text \u20AC", L"text \U0001F600"}));
    box->handledKey = 'A';
    sendKey('A', true);
    sendKey('A', false);
    pump(50);
    EXPECT_EQ(taken(), (Log{L"key"})) << "the character of a key that was handled is dropped";
    PostMessageW(window.handle(), WM_CHAR, 'b', 0);
    pump(50);
    EXPECT_EQ(taken(), (Log{L"text b"})) << "one that comes without a key is not";
    for (int i = 0; i < 3; ++i) {
        sendKey(VK_SPACE, true);
    }
    sendKey(VK_SPACE, false);
    pump(50);
    EXPECT_EQ(taken(), (Log{L"activate", L"text  ", L"text  "})) << "held: pressed once, typed by who types";

    const HWND handle = window.handle();
    PostMessageW(handle, WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(30, 30));
    PostMessageW(handle, WM_CANCELMODE, 0, 0);
    PostMessageW(handle, WM_LBUTTONUP, 0, MAKELPARAM(300, 200));
    PostMessageW(handle, WM_IME_ENDCOMPOSITION, 0, 0);
    PostMessageW(handle, WM_PASTE, 0, 0);
    pump(50);
    EXPECT_EQ(taken(), (Log{L"press (10, 20) 2", L"cancelled", L"release (280, 190)", L"composition ''", L"edit"}));
    SendMessageW(handle, WM_KILLFOCUS, 0, 0);
    SendMessageW(handle, WM_SETFOCUS, 0, 0);
    EXPECT_EQ(taken(), (Log{L"blur", L"focus"}));
    SetFocus(nullptr);
    window.tree().setFocus(nullptr);
    window.tree().setFocus(box);
    EXPECT_EQ(GetFocus(), handle);
}

TEST_F(TaviWin32, StaysBetweenItsMinimumAndTheWorkArea) {
    box = nullptr;
    open({.title = L"sizes", .clientSize = {400, 300}});
    box->setMinimumSize(350, 20);
    window.setMinimumClientSize({200, 150});
    EXPECT_EQ(window.effectiveMinimumClientSize(), (Size{370, 150})) << "its content counts";
    const HWND handle = window.handle();
    const auto frame = [&] {
        const RECT rect = rectOf(handle);
        return SIZE{rect.right - rect.left - clientOf(window).cx, rect.bottom - rect.top - clientOf(window).cy};
    }();
    window.setMinimumClientSize({200, 330});
    EXPECT_EQ(clientOf(window).cy, 330) << "it grows to a new minimum";
    window.setMinimumClientSize({200, 150});
    SetWindowPos(handle, nullptr, 0, 0, 10, 10, SWP_NOMOVE | SWP_NOZORDER);
    EXPECT_EQ(clientOf(window).cx, 370);
    EXPECT_EQ(clientOf(window).cy, 150);
    RECT dragged{100, 100, 120, 600};
    SendMessageW(handle, WM_SIZING, WMSZ_LEFT, reinterpret_cast<LPARAM>(&dragged));
    EXPECT_EQ(dragged.left, 120 - 370 - frame.cx);

    window.setDefaultClientSize({420, 320});
    for (const int command : {SW_MAXIMIZE, SW_MINIMIZE, SW_RESTORE, SW_SHOWMINIMIZED}) {
        ShowWindow(handle, command == SW_SHOWMINIMIZED ? SW_MAXIMIZE : command);
        ShowWindow(handle, command);
        window.resetToDefaultSize();
        EXPECT_EQ(clientOf(window).cx, 420) << command;
        EXPECT_EQ(clientOf(window).cy, 320) << command;
    }
    RECT work{};
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &work, 0);
    window.setDefaultClientSize({90000, 90000});
    window.resetToDefaultSize();
    EXPECT_EQ(EqualRect(&work, std::initializer_list<RECT>{rectOf(handle)}.begin()), TRUE);
    window.setDefaultClientSize({420, 320});
    window.resetToDefaultSize();
    window.centerOn(nullptr);
    const RECT centred = rectOf(handle);
    EXPECT_LE(std::abs((centred.left - work.left) - (work.right - centred.right)), 1);
}

TEST_F(TaviWin32, DrawsItsOwnFrame) {
    open({.title = L"chrome",
          .clientSize = {400, 300},
          .style = WS_POPUP | WS_THICKFRAME | WS_MINIMIZEBOX,
          .customChrome = true});
    const HWND handle = window.handle();
    const RECT rect = rectOf(handle);
    EXPECT_EQ(rect.right - rect.left, 400);
    EXPECT_EQ(clientOf(window).cx, 400);
    const auto hit = [&](int x, int y) { return SendMessageW(handle, WM_NCHITTEST, 0, MAKELPARAM(x, y)); };
    EXPECT_EQ(hit(rect.left, rect.top), HTTOPLEFT);
    EXPECT_EQ(hit(rect.right - 1, rect.top + 150), HTRIGHT);
    EXPECT_EQ(hit(rect.left + 200, rect.top + 150), HTCLIENT);
    RECT work{};
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &work, 0);
    window.maximize();
    EXPECT_TRUE(window.maximized());
    EXPECT_EQ(EqualRect(&work, std::initializer_list<RECT>{rectOf(handle)}.begin()), TRUE);
    EXPECT_EQ(hit(work.left, work.top), HTCLIENT);
    window.restore();
    EXPECT_EQ(clientOf(window).cx, 400);
}

TEST_F(TaviWin32, WritesDiagnosticsWhereItIsTold) {
    Log lines;
    window.setDiagnostics(true);
    window.setDiagnosticSink([&](const std::wstring& line) { lines.push_back(line); });
    open();
    RECT dragged{100, 100, 900, 600};
    SendMessageW(window.handle(), WM_SIZING, WMSZ_TOPLEFT, reinterpret_cast<LPARAM>(&dragged));
    SendMessageW(window.handle(), WM_NCHITTEST, 0, MAKELPARAM(-5, 3));
    RECT suggested{50, 40, 450, 340};
    SendMessageW(window.handle(), WM_DPICHANGED, MAKEWPARAM(96, 96), reinterpret_cast<LPARAM>(&suggested));
    window.resetToDefaultSize();
    const Log beginnings = {
        L"[Tavi diagnostic] Tavi DPI awareness mode=",
        L"[Tavi diagnostic] WM_GETMINMAXINFO clientRect=",
        L"[Tavi diagnostic] WM_SIZING edge=WMSZ_TOPLEFT rectBefore=(100, 100, 800x500) rectAfter=(100, 100, 800x500) "
        L"clientRect=",
        L"[Tavi diagnostic] WM_NCHITTEST hit=HTNOWHERE cursorScreen=(-5, 3) cursorClient=",
        L"[Tavi diagnostic] WM_DPICHANGED dpi=96->96 before=(",
        L"[Tavi diagnostic] Window::resetToDefaultSize currentWindow=(50, 40, ",
    };
    for (const std::wstring& beginning : beginnings) {
        EXPECT_TRUE(std::ranges::any_of(lines, [&](const std::wstring& line) { return line.starts_with(beginning); }))
            << testing::PrintToString(beginning) << " is not in " << testing::PrintToString(lines);
    }
}

TEST_F(TaviWin32, ShowsTooltipsAndTheDebugOverlay) {
    open();
    box->setTooltip(L"What this is for");
    sendMouse(window.handle(), {200, 200}, 0);
    sendMouse(window.handle(), {30, 30}, 0);
    HWND tooltip = nullptr;
    const auto visible = [&] {
        return (tooltip = FindWindowW(L"TaviTooltip", nullptr)) != nullptr && IsWindowVisible(tooltip);
    };
    ASSERT_TRUE(pumpUntil(visible));
    POINT below{20, 60 + 4};
    ClientToScreen(window.handle(), &below);
    EXPECT_EQ(rectOf(tooltip).left, below.x);
    EXPECT_EQ(rectOf(tooltip).top, below.y);
    EXPECT_EQ(GetActiveWindow(), window.handle());
    EXPECT_EQ(SendMessageW(tooltip, WM_NCHITTEST, 0, 0), HTTRANSPARENT);
    sendKey(VK_CONTROL, true);
    sendKey(VK_F12, true);
    sendKey(VK_F12, false);
    sendKey(VK_CONTROL, false);
    pump(50);
    EXPECT_FALSE(visible()) << "a key hides it";
    ASSERT_TRUE(window.tree().overlay().on);
    const std::vector<uint32_t> with = pictureOf(window);
    sendKey(VK_F12, true);
    sendKey(VK_F12, false);
    pump(50);
    ASSERT_TRUE(OpenClipboard(nullptr));
    const auto* const text = static_cast<const wchar_t*>(GlobalLock(GetClipboardData(CF_UNICODETEXT)));
    const std::wstring copied = text != nullptr ? text : L"";
    EXPECT_TRUE(copied.starts_with(L"Tavi debug context\r\ncursor=(30, 30)\r\ncontrol=root/box"))
        << testing::PrintToString(copied);
    CloseClipboard();
    SendMessageW(window.handle(), WM_MOUSELEAVE, 0, 0);
    EXPECT_NE(with == pictureOf(window), true) << "the overlay follows the pointer";
    TRACKMOUSEEVENT track{sizeof(track), TME_LEAVE | TME_CANCEL, window.handle(), 0};
    TrackMouseEvent(&track);
    sendMouse(window.handle(), {31, 31}, 0);
    pump(50);
    track.dwFlags = TME_QUERY;
    TrackMouseEvent(&track);
    EXPECT_EQ(track.dwFlags & TME_LEAVE, DWORD{TME_LEAVE}) << "asked for again";
}

TEST_F(TaviWin32, OtherThreadsHandTheirRequestsOver) {
    open();
    const auto painted = window.paintCounts().painted;
    DWORD ranOn = 0;
    std::thread other([&] {
        window.setTitle(L"from afar");
        window.requestRepaint();
        window.post([&] { ranOn = GetCurrentThreadId(); });
    });
    EXPECT_TRUE(pumpUntil([&] { return ranOn != 0 && window.paintCounts().painted > painted; }));
    other.join();
    EXPECT_EQ(ranOn, GetCurrentThreadId());
    wchar_t title[20]{};
    GetWindowTextW(window.handle(), title, 20);
    EXPECT_STREQ(title, L"from afar");
    std::thread([&] { window.close(); }).join();
    EXPECT_TRUE(pumpUntil([&] { return window.handle() == nullptr; }));
    window.post([&] { ranOn = 1; });
    EXPECT_EQ(ranOn, 1U) << "on its own thread at once";
    window.requestRepaint();
    bool taken = true;
    std::thread late([&] { taken = window.post([&] { ranOn = 2; }); });
    late.join();
    EXPECT_FALSE(taken);
    EXPECT_EQ(ranOn, 1U) << "the window is gone";
}

TEST_F(TaviWin32, WhatWasPostedKeepsItsOrderAroundADialog) {
    open();
    std::wstring order;
    DialogWindow dialog(kInstance);
    std::thread other([&] {
        window.post([&] {
            order += L"1";
            ASSERT_TRUE(dialog.create({.clientSize = {100, 80}, .owner = window.handle()}));
            dialog.runModal();
            order += L"4";
        });
        window.post([&] { order += L"2"; });
        window.post([&] {
            order += L"3";
            dialog.end(DialogResult::Ok);
        });
    });
    other.join();
    EXPECT_TRUE(pumpUntil([&] { return order.size() == 4; }));
    EXPECT_EQ(order, L"1234");
}

TEST_F(TaviWin32, ALoopEndsWithAWindowThatWasClosedByASentMessage) {
    open();
    const HWND handle = window.handle();
    std::thread other([&] {
        Sleep(100);
        SendMessageW(handle, WM_CLOSE, 0, 0);
    });
    EXPECT_EQ(window.run(), 0);
    other.join();
    const Window::Poster poster = Window(kInstance).poster();
    EXPECT_FALSE(poster([] {})) << "its window is gone";
}

// What a dialog's owner sees while the dialog runs and when it ends.
struct Owner : Window {
    using Window::Window;
    bool enabledBeforeDialogWent = false;
    HWND dialog = nullptr;
    bool handleMessage(uint32_t message, uintptr_t wParam, intptr_t, intptr_t&) override {
        if (message == WM_ENABLE && wParam != 0) {
            enabledBeforeDialogWent = IsWindow(dialog) != FALSE;
        }
        return false;
    }
};

struct TaviDialog : testing::Test {
    Owner owner{kInstance};
    std::unique_ptr<DialogWindow> dialog = std::make_unique<DialogWindow>(kInstance);
    Box* button = nullptr;

    void SetUp() override {
        owner.root().add<Box>(L"owner's", Rect{0, 0, 50, 50});
        ASSERT_TRUE(owner.create({.title = L"owner", .clientSize = {500, 400}}));
        SetWindowPos(owner.handle(), nullptr, 20, 30, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
        owner.show();
        button = dialog->root().add<Box>(L"button", Rect{10, 10, 80, 30});
        ASSERT_TRUE(dialog->create({.title = L"dialog", .clientSize = {200, 100}, .owner = owner.handle()}));
        owner.dialog = dialog->handle();
    }
    // Posts the message once the dialog runs, and runs it.
    DialogResult run(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
        PostMessageW(dialog->handle(), message, wParam, lParam);
        return dialog->runModal();
    }
};

TEST_F(TaviDialog, LiesInTheMiddleOfItsOwner) {
    const RECT made = rectOf(dialog->handle());
    const RECT around = rectOf(owner.handle());
    EXPECT_LE(std::abs(made.left + made.right - around.left - around.right), 1);
    EXPECT_LE(std::abs(made.top + made.bottom - around.top - around.bottom), 1);
    dialog->centerOn(nullptr);
    EXPECT_EQ(EqualRect(&made, std::initializer_list<RECT>{rectOf(dialog->handle())}.begin()), FALSE);
    dialog->centerOn(owner.handle());
    EXPECT_EQ(EqualRect(&made, std::initializer_list<RECT>{rectOf(dialog->handle())}.begin()), TRUE);
}

TEST_F(TaviDialog, EndsWithItsResult) {
    button->then = [&](const std::wstring& hook) {
        if (hook == L"activate") {
            EXPECT_FALSE(IsWindowEnabled(owner.handle()));
            dialog->end(DialogResult::Yes);
            dialog->end(DialogResult::No);
        }
    };
    dialog->setDefaultControl(button);
    EXPECT_EQ(run(WM_KEYDOWN, VK_RETURN), DialogResult::Yes);
    EXPECT_TRUE(IsWindowEnabled(owner.handle()));
    EXPECT_TRUE(owner.enabledBeforeDialogWent);
    EXPECT_EQ(dialog->handle(), nullptr);
    EXPECT_EQ(GetActiveWindow(), owner.handle());
    EXPECT_EQ(dialog->runModal(), DialogResult::None) << "it is not there any more";
    ASSERT_TRUE(dialog->create({.title = L"again", .clientSize = {200, 100}, .owner = owner.handle()}));
    EXPECT_EQ(run(WM_KEYDOWN, VK_ESCAPE), DialogResult::Close);
}

TEST_F(TaviDialog, EndedBeforeItRunsItEndsAtOnce) {
    std::thread worker([&] { dialog->end(DialogResult::No); });
    worker.join();
    EXPECT_EQ(dialog->runModal(), DialogResult::No);
    ASSERT_TRUE(dialog->create({.clientSize = {200, 100}, .owner = owner.handle()}));
    dialog->end(DialogResult::Yes);
    EXPECT_EQ(dialog->runModal(), DialogResult::Yes);
}

// Return opens it: the character that Windows has made of the key must not be typed into the owner meanwhile.
TEST_F(TaviDialog, KeepsTheCharacterOfItsKeyFromItsOwner) {
    Log typed;
    Box* const field = owner.root().add<Box>(L"field", Rect{100, 0, 50, 50}, &typed);
    owner.tree().setFocus(field);
    field->handledKey = VK_RETURN;
    field->then = [&](const std::wstring& hook) {
        if (hook == L"key") {
            PostMessageW(dialog->handle(), WM_KEYDOWN, VK_ESCAPE, 0);
            dialog->runModal();
        }
    };
    PostMessageW(owner.handle(), WM_KEYDOWN, VK_RETURN, 0);
    PostMessageW(owner.handle(), WM_CHAR, '\r', 0);
    pump(200);
    EXPECT_EQ(std::ranges::count(typed, L"text \r"), 0);
    EXPECT_EQ(std::ranges::count(typed, L"key"), 1);
}

TEST_F(TaviDialog, ClosesWithoutAButton) {
    EXPECT_EQ(run(WM_SYSCOMMAND, SC_CLOSE), DialogResult::Close);
    EXPECT_TRUE(IsWindowEnabled(owner.handle()));
}

TEST_F(TaviDialog, LeavesAnOwnerDisabledThatWasDisabled) {
    EnableWindow(owner.handle(), FALSE);
    EXPECT_EQ(run(WM_CLOSE), DialogResult::Close);
    EXPECT_FALSE(IsWindowEnabled(owner.handle()));
}

TEST_F(TaviDialog, PassesOnTheEndOfTheProgram) {
    dialog->tree().root().setTreeNotification([](Control&) { PostQuitMessage(77); });
    EXPECT_EQ(run(WM_FONTCHANGE), DialogResult::Close);
    EXPECT_TRUE(IsWindowEnabled(owner.handle()));
    MSG message{};
    ASSERT_TRUE(PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
    EXPECT_EQ(message.wParam, 77U);
}

TEST_F(TaviDialog, Nests) {
    DialogResult innerResult = DialogResult::None;
    button->then = [&](const std::wstring& hook) {
        if (hook == L"activate" && innerResult == DialogResult::None) {
            DialogWindow inner(kInstance);
            ASSERT_TRUE(inner.create({.clientSize = {100, 80}, .owner = dialog->handle()}));
            // The outer one ends while the inner one still runs.
            dialog->end(DialogResult::Ok);
            PostMessageW(inner.handle(), WM_KEYDOWN, VK_ESCAPE, 0);
            innerResult = inner.runModal();
            EXPECT_TRUE(IsWindowEnabled(dialog->handle()));
            EXPECT_FALSE(IsWindowEnabled(owner.handle()));
        }
    };
    EXPECT_EQ(run(WM_KEYDOWN, VK_SPACE), DialogResult::Ok);
    EXPECT_EQ(innerResult, DialogResult::Close);
    EXPECT_TRUE(IsWindowEnabled(owner.handle()));
}

TEST_F(TaviDialog, MayBeDestroyedByItsOwnButton) {
    for (const bool altogether : {false, true}) {
        button->then = [&, altogether](const std::wstring& hook) {
            if (hook == L"activate" && altogether) {
                dialog.reset();
            } else if (hook == L"activate") {
                DestroyWindow(dialog->handle());
            }
        };
        EXPECT_EQ(run(WM_KEYDOWN, VK_SPACE), DialogResult::Close);
        EXPECT_TRUE(IsWindowEnabled(owner.handle()));
        EXPECT_TRUE(std::exchange(owner.enabledBeforeDialogWent, false));
        if (!altogether) {
            ASSERT_TRUE(dialog->create({.clientSize = {200, 100}, .owner = owner.handle()}));
            owner.dialog = dialog->handle();
        }
    }
}

TEST_F(TaviDialog, GoesWithItsOwner) {
    button->then = [&](const std::wstring& hook) {
        if (hook == L"activate") {
            DestroyWindow(owner.handle());
        }
    };
    EXPECT_EQ(run(WM_KEYDOWN, VK_SPACE), DialogResult::Close);
    EXPECT_EQ(owner.handle(), nullptr);
}

// The highest places in their tables that Windows gives many more objects: they rise with objects that are left behind.
// Wine does not count objects, so there these are what tells. Many, because the places that are free are used first.
std::pair<WORD, WORD> nextPlaces() {
    std::pair<WORD, WORD> highest;
    HRGN regions[300];
    HWND windows[30];
    for (HRGN& region : regions) {
        region = CreateRectRgn(0, 0, 1, 1);
        highest.first = std::max(highest.first, static_cast<WORD>(reinterpret_cast<uintptr_t>(region)));
    }
    for (HWND& window : windows) {
        window = CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, kInstance, nullptr);
        highest.second = std::max(highest.second, static_cast<WORD>(reinterpret_cast<uintptr_t>(window)));
    }
    std::ranges::for_each(regions, DeleteObject);
    std::ranges::for_each(windows, DestroyWindow);
    return highest;
}

TEST(TaviLeaks, AThousandWindowsLeaveNothingBehind) {
    const auto openOne = [](bool shown) {
        Window window(kInstance);
        window.root().add<Box>(L"box", Rect{20, 10, 100, 50})->setTooltip(L"tip");
        ASSERT_TRUE(window.create({.clientSize = {200, 100}}));
        window.tree().keyPress({.code = VK_F12, .modifiers = kControlKey});
        EXPECT_FALSE(pictureOf(window).empty());
        if (shown) {
            window.show();
            window.tree().pointerMove({.position = {30, 30}});
            window.tree().timeOut(WindowTimer::Tooltip);
        }
    };
    const auto used = [](DWORD kind) { return GetGuiResources(GetCurrentProcess(), kind); };
    for (int i = 0; i < 10; ++i) {
        openOne(true);
    }
    const DWORD drawing = used(GR_GDIOBJECTS);
    const DWORD windows = used(GR_USEROBJECTS);
    const auto [drawingPlace, windowPlace] = nextPlaces();
    for (int i = 0; i < 1000; ++i) {
        openOne(i % 50 == 0);
    }
    EXPECT_LE(used(GR_GDIOBJECTS), drawing + 8);
    EXPECT_LE(used(GR_USEROBJECTS), windows + 8);
    EXPECT_LE(nextPlaces().first, drawingPlace + 10);
    EXPECT_LE(nextPlaces().second, windowPlace + 10);
    EXPECT_EQ(FindWindowW(L"TaviDesignWindow", nullptr), nullptr);
    EXPECT_EQ(FindWindowW(L"TaviTooltip", nullptr), nullptr);
}

TEST_F(TaviWin32, TestDesktopThatCannotBeHadIsReportedAndIgnored) {
    wchar_t folder[MAX_PATH]{};
    GetTempPathW(MAX_PATH, folder);
    const std::wstring report = std::wstring(folder) + L"tavi-desktop.txt";
    DeleteFileW(report.c_str());
    SetEnvironmentVariableW(L"TAVI_TEST_DESKTOP_DIAGNOSTIC_PATH", report.c_str());
    SetEnvironmentVariableW(L"TAVI_TEST_DESKTOP_ID", L"no desktop");
    Window first(kInstance);
    EXPECT_TRUE(first.create({.clientSize = {300, 200}}));
    EXPECT_EQ(GetFileAttributesW(report.c_str()), INVALID_FILE_ATTRIBUTES);
    SetEnvironmentVariableW(L"TAVI_TEST_DESKTOP_ID", L"{11111111-2222-3333-4444-555555555555}");
    Window hidden(kInstance);
    EXPECT_TRUE(hidden.create({.clientSize = {300, 200}}));
    EXPECT_FALSE(IsWindowVisible(hidden.handle())) << "not before it is asked for";
    open({.title = L"placed", .clientSize = {300, 200}, .style = WS_POPUP | WS_CAPTION});
    SetEnvironmentVariableW(L"TAVI_TEST_DESKTOP_ID", nullptr);
    SetEnvironmentVariableW(L"TAVI_TEST_DESKTOP_DIAGNOSTIC_PATH", nullptr);
    EXPECT_EQ(GetWindowLongPtrW(window.handle(), GWL_STYLE) & (WS_POPUP | WS_OVERLAPPEDWINDOW),
              static_cast<LONG_PTR>(WS_POPUP | WS_CAPTION));
    EXPECT_GE(rectOf(window.handle()).left, 0);
    EXPECT_EQ(clientOf(window).cx, 300);
    char text[64]{};
    DWORD read = 0;
    const HANDLE file =
        CreateFileW(report.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, FILE_FLAG_DELETE_ON_CLOSE, nullptr);
    ASSERT_NE(file, INVALID_HANDLE_VALUE);
    ReadFile(file, text, sizeof(text) - 1, &read, nullptr);
    CloseHandle(file);
    EXPECT_TRUE(std::string(text).starts_with("tavi_test_desktop_placement_error=0x8") &&
                std::string(text).ends_with("\r\n"))
        << text;
}

}  // namespace
