// Input of a real window, what it shows of itself, and what other threads ask of it.
#include <algorithm>
#include <thread>

#include "tavi/core/dialog_window.h"
#include "tests/windows/window_support.h"

namespace {

using namespace testing_windows;

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

}  // namespace
