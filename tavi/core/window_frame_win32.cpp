// What the controls of a window may do to it.
#include <windows.h>

#include "tavi/core/drawing.h"
#include "tavi/core/window_native.h"

namespace tavi {

bool WindowNative::canMinimize() const {
    return (style_ & WS_MINIMIZEBOX) != 0;
}

bool WindowNative::canMaximize() const {
    return (style_ & WS_MAXIMIZEBOX) != 0;
}

bool WindowNative::maximized() const {
    return IsZoomed(handle_) != FALSE;
}

void WindowNative::minimize() {
    ShowWindow(handle_, SW_MINIMIZE);
}

void WindowNative::maximize() {
    ShowWindow(handle_, SW_MAXIMIZE);
}

void WindowNative::restore() {
    ShowWindow(handle_, SW_RESTORE);
}

// By a message of its own: whoever asks may be in the middle of something.
void WindowNative::requestClose() {
    if (const HWND target = handle_) {
        PostMessageW(target, WM_CLOSE, 0, 0);
    }
}

void WindowNative::beginMove() {
    const std::shared_ptr<WindowNative> keep = shared_from_this();
    ReleaseCapture();
    SendMessageW(handle_, WM_NCLBUTTONDOWN, HTCAPTION, 0);
}

// Windows opens it by itself only over a title bar of its own. What applies now is for the opener to say.
void WindowNative::openSystemMenu(Point onScreen) {
    const std::shared_ptr<WindowNative> keep = shared_from_this();
    const HMENU menu = GetSystemMenu(handle_, FALSE);
    if (menu == nullptr) {
        return;
    }
    const bool zoomed = maximized();
    const struct {
        UINT command;
        bool applies;
    } kStates[] = {{SC_RESTORE, zoomed},
                   {SC_MOVE, !zoomed},
                   {SC_SIZE, !zoomed && (style_ & WS_THICKFRAME) != 0},
                   {SC_MINIMIZE, canMinimize()},
                   {SC_MAXIMIZE, !zoomed && canMaximize()}};
    for (const auto& [command, applies] : kStates) {
        EnableMenuItem(menu, command, MF_BYCOMMAND | (applies ? MF_ENABLED : MF_GRAYED));
    }
    const UINT side = tree_->rightToLeft() ? TPM_RIGHTALIGN | TPM_LAYOUTRTL : TPM_LEFTALIGN;
    const BOOL command =
        TrackPopupMenu(menu, TPM_RETURNCMD | TPM_RIGHTBUTTON | side, onScreen.x, onScreen.y, 0, handle_, nullptr);
    if (command != 0 && handle_ != nullptr) {
        PostMessageW(handle_, WM_SYSCOMMAND, static_cast<WPARAM>(command), MAKELPARAM(onScreen.x, onScreen.y));
    }
}

Rect WindowNative::onScreen(const Rect& area) const {
    const Rect device = tree_->scale().device(area);
    POINT corner{device.x, device.y};
    ClientToScreen(handle_, &corner);
    return {corner.x, corner.y, device.width, device.height};
}

// Windows asks for the arrow of the class where the frame is, and has the last word there.
WindowNative::Answer WindowNative::onCursor(const Message& message) {
    if (LOWORD(message.lParam) != HTCLIENT) {
        return std::nullopt;
    }
    static const struct {
        CursorShape shape;
        LPCWSTR resource;
    } kCursors[] = {
        {CursorShape::Arrow, IDC_ARROW},         {CursorShape::Text, IDC_IBEAM},
        {CursorShape::Hand, IDC_HAND},           {CursorShape::SizeHorizontal, IDC_SIZEWE},
        {CursorShape::SizeVertical, IDC_SIZENS},
    };
    for (const auto& [shape, resource] : kCursors) {
        if (shape == tree_->cursorShape()) {
            SetCursor(LoadCursorW(nullptr, resource));
        }
    }
    return TRUE;
}

}  // namespace tavi
