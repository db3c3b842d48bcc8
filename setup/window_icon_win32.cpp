#include <windows.h>

#include "setup/window_icon.h"

namespace velquin::setup {
namespace {

struct IconSlot {
    int widthMetric, heightMetric, classIndex;
    WPARAM kind;
};
constexpr IconSlot kIconSlots[] = {
    {SM_CXICON, SM_CYICON, GCLP_HICON, ICON_BIG},
    {SM_CXSMICON, SM_CYSMICON, GCLP_HICONSM, ICON_SMALL},
};

}  // namespace

void applySetupWindowIcon(HWND window, HINSTANCE instance) {
    if (window == nullptr) {
        return;
    }
    for (const IconSlot& slot : kIconSlots) {
        const HANDLE icon = LoadImageW(instance, MAKEINTRESOURCEW(1), IMAGE_ICON, GetSystemMetrics(slot.widthMetric),
                                       GetSystemMetrics(slot.heightMetric), LR_SHARED);
        if (icon != nullptr) {
            SetClassLongPtrW(window, slot.classIndex, reinterpret_cast<LONG_PTR>(icon));
            SendMessageW(window, WM_SETICON, slot.kind, reinterpret_cast<LPARAM>(icon));
        }
    }
}

}  // namespace velquin::setup
