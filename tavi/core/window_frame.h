// What a title bar and pop-ups need of the real window around the tree.
#pragma once

#include <memory>

#include "tavi/core/geometry.h"
#include "tavi/core/native_handles.h"
#include "tavi/core/popup_window.h"

namespace tavi {

class WindowFrame {
public:
    // The Win32 window; null before it is made and after it has gone.
    virtual HWND handle() const = 0;
    // Whether its style has the means for it.
    virtual bool canMinimize() const = 0;
    virtual bool canMaximize() const = 0;
    virtual bool maximized() const = 0;
    virtual void minimize() = 0;
    virtual void maximize() = 0;
    virtual void restore() = 0;
    virtual void resetToDefaultSize() = 0;
    // As a click on a close button does: the window decides.
    virtual void requestClose() = 0;
    // Moves the window with the pointer until the button is up. Handles messages meanwhile.
    virtual void beginMove() = 0;
    // Opens the window's own menu (move, minimise, close) at a point of the screen, device pixels. Handles messages
    // meanwhile. Nothing happens where the style has no such menu.
    virtual void openSystemMenu(Point onScreen) = 0;
    // From design pixels of the client area to device pixels of the screen.
    virtual Rect onScreen(const Rect& area) const = 0;
    // Opens a pop-up window over this one; one that is open is dismissed. Null when there is no window to stand beside,
    // or Windows refuses.
    virtual std::unique_ptr<PopupWindow> openPopup(PopupRequest /*request*/) { return nullptr; }

protected:
    ~WindowFrame() = default;
};

}  // namespace tavi
