// Windows of the UI framework as Windows sees them: making, painting, sizes, scale, what they leave behind.
#include <algorithm>

#include "tests/windows/window_support.h"

namespace {

using namespace testing_windows;

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
    other.setTitle(L"set before");
    other.setMinimumClientSize({700, 500});
    ASSERT_TRUE(other.create({.clientSize = {0, 100}}));
    EXPECT_EQ(clientOf(other).cx, 700);
    EXPECT_EQ(clientOf(other).cy, 500);
    wchar_t title[40]{};
    GetWindowTextW(other.handle(), title, 40);
    EXPECT_STREQ(title, L"set before");
    EXPECT_EQ(other.title(), L"set before");
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

// Texts do not grow evenly, so a window may have to be larger at another scale.
TEST_F(TaviWin32, KeepsTheSizeThatItsTreeAsksForAtTheNewScale) {
    open({.title = L"grows", .clientSize = {400, 300}, .style = WS_POPUP, .customChrome = true});
    window.root().setTreeNotification([&](Control&) {
        window.setMinimumClientSize({400, 320});
        window.setDefaultClientSize({400, 320});
        window.resetToDefaultSize();
    });
    RECT suggested{50, 40, 650, 490};
    SendMessageW(window.handle(), WM_DPICHANGED, MAKEWPARAM(144, 144), reinterpret_cast<LPARAM>(&suggested));
    EXPECT_EQ(window.root().bounds(), (Rect{0, 0, 400, 320}));

    window.root().setTreeNotification([&](Control&) { window.setMinimumClientSize({400, 340}); });
    RECT work{};
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &work, 0);
    RECT beyond{work.right - 50, 40, work.right + 350, 360};
    SendMessageW(window.handle(), WM_ENTERSIZEMOVE, 0, 0);
    SendMessageW(window.handle(), WM_DPICHANGED, MAKEWPARAM(96, 96), reinterpret_cast<LPARAM>(&beyond));
    EXPECT_EQ(rectOf(window.handle()).left, beyond.left) << "under the mouse it stays where it is held";
    EXPECT_EQ(window.root().bounds(), (Rect{0, 0, 400, 340}));
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
