#include "setup/window_icon.h"

#include "tests/win32/support.h"

namespace {

using velquin::setup::applySetupWindowIcon;

// A window that nobody sees, of a class of its own, since the class keeps its icons.
class WindowIcon : public testing::Test {
protected:
    WindowIcon() {
        WNDCLASSW windowClass{};
        windowClass.lpfnWndProc = DefWindowProcW;
        windowClass.lpszClassName = className_.c_str();
        windowClass.hInstance = instance_;
        RegisterClassW(&windowClass);
        window_ = CreateWindowExW(0, className_.c_str(), L"", WS_OVERLAPPEDWINDOW, 0, 0, 10, 10, nullptr, nullptr,
                                  instance_, nullptr);
        EXPECT_NE(window_, nullptr);
    }
    ~WindowIcon() override {
        DestroyWindow(window_);
        UnregisterClassW(className_.c_str(), instance_);
    }

    HICON icon(WPARAM kind) const { return reinterpret_cast<HICON>(SendMessageW(window_, WM_GETICON, kind, 0)); }
    HICON classIcon(int index) const { return reinterpret_cast<HICON>(GetClassLongPtrW(window_, index)); }

    const HINSTANCE instance_ = GetModuleHandleW(nullptr);
    const std::wstring className_ = velquin::test::uniqueName();
    HWND window_ = nullptr;
};

SIZE sizeOf(HICON icon) {
    ICONINFO info{};
    BITMAP bitmap{};
    EXPECT_TRUE(GetIconInfo(icon, &info));
    EXPECT_NE(GetObjectW(info.hbmMask, sizeof(bitmap), &bitmap), 0);
    DeleteObject(info.hbmMask);
    DeleteObject(info.hbmColor);
    return {bitmap.bmWidth, bitmap.bmHeight};
}

TEST_F(WindowIcon, WindowAndClassGetBothSizes) {
    ASSERT_EQ(icon(ICON_BIG), nullptr);
    ASSERT_EQ(icon(ICON_SMALL), nullptr);
    applySetupWindowIcon(window_, instance_);
    ASSERT_NE(icon(ICON_BIG), nullptr);
    ASSERT_NE(icon(ICON_SMALL), nullptr);
    EXPECT_EQ(classIcon(GCLP_HICON), icon(ICON_BIG));
    EXPECT_EQ(classIcon(GCLP_HICONSM), icon(ICON_SMALL));
    const SIZE big = sizeOf(icon(ICON_BIG));
    EXPECT_EQ(big.cx, GetSystemMetrics(SM_CXICON));
    EXPECT_EQ(big.cy, GetSystemMetrics(SM_CYICON));
    const SIZE small = sizeOf(icon(ICON_SMALL));
    EXPECT_EQ(small.cx, GetSystemMetrics(SM_CXSMICON));
    EXPECT_EQ(small.cy, GetSystemMetrics(SM_CYSMICON));
}

TEST_F(WindowIcon, NothingHappensWithoutAWindowOrAnIcon) {
    applySetupWindowIcon(window_, instance_);
    const HICON big = icon(ICON_BIG);
    const HICON small = icon(ICON_SMALL);
    applySetupWindowIcon(window_, GetModuleHandleW(L"kernel32.dll"));
    EXPECT_EQ(icon(ICON_BIG), big);
    EXPECT_EQ(icon(ICON_SMALL), small);
    EXPECT_EQ(classIcon(GCLP_HICON), big);
    // A call to Windows about a null window would leave an error.
    SetLastError(ERROR_SUCCESS);
    applySetupWindowIcon(nullptr, instance_);
    EXPECT_EQ(GetLastError(), DWORD{ERROR_SUCCESS});
}

}  // namespace
