#include "setup/window_icon.h"

#include <windows.h>

#include <gtest/gtest.h>

namespace {

using velquin::setup::applySetupWindowIcon;

SIZE sizeOf(HICON icon) {
    ICONINFO info{};
    BITMAP bitmap{};
    EXPECT_TRUE(GetIconInfo(icon, &info));
    EXPECT_NE(GetObjectW(info.hbmMask, sizeof(bitmap), &bitmap), 0);
    DeleteObject(info.hbmMask);
    DeleteObject(info.hbmColor);
    return {bitmap.bmWidth, bitmap.bmHeight};
}

TEST(WindowIcon, WindowAndClassGetBothSizes) {
    const HINSTANCE instance = GetModuleHandleW(nullptr);
    const HWND window = CreateWindowW(L"STATIC", L"", 0, 0, 0, 9, 9, nullptr, nullptr, instance, nullptr);
    ASSERT_NE(window, nullptr);
    const auto icon = [window](WPARAM kind) {
        return reinterpret_cast<HICON>(SendMessageW(window, WM_GETICON, kind, 0));
    };
    applySetupWindowIcon(window, GetModuleHandleW(L"kernel32.dll"));
    EXPECT_EQ(icon(ICON_BIG), nullptr) << "there is none to take";
    applySetupWindowIcon(window, instance);
    const struct {
        WPARAM kind;
        int classIndex, widthMetric, heightMetric;
    } slots[] = {{ICON_BIG, GCLP_HICON, SM_CXICON, SM_CYICON}, {ICON_SMALL, GCLP_HICONSM, SM_CXSMICON, SM_CYSMICON}};
    for (const auto& slot : slots) {
        ASSERT_NE(icon(slot.kind), nullptr);
        EXPECT_EQ(GetClassLongPtrW(window, slot.classIndex), reinterpret_cast<ULONG_PTR>(icon(slot.kind)));
        const SIZE size = sizeOf(icon(slot.kind));
        EXPECT_EQ(size.cx, GetSystemMetrics(slot.widthMetric));
        EXPECT_EQ(size.cy, GetSystemMetrics(slot.heightMetric));
    }
    DestroyWindow(window);
    // A call to Windows about a null window would leave an error.
    SetLastError(ERROR_SUCCESS);
    applySetupWindowIcon(nullptr, instance);
    EXPECT_EQ(GetLastError(), DWORD{ERROR_SUCCESS});
}

}  // namespace
