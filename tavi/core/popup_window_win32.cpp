// Pop-up windows. All that closes one shows in the messages of its owner: a press on it, the loss of the activation (a
// press anywhere else), a move. So neither the pointer has to be captured nor hooks to be set.
#include "tavi/core/popup_window.h"

#include <windows.h>

#include <algorithm>
#include <utility>

#include "tavi/core/drawing.h"
#include "tavi/core/message_loop.h"
#include "tavi/core/window_native.h"

namespace tavi {

class NativePopup final : public Window, public PopupWindow {
public:
    NativePopup(HINSTANCE instance, const std::shared_ptr<WindowNative>& owner) : Window(instance), owner_(owner) {}
    ~NativePopup() override {
        const std::shared_ptr<WindowNative> owner = owner_.lock();
        if (owner != nullptr && owner->popup_ == this) {
            owner->popup_ = nullptr;
        }
    }

    bool open(WindowNative& owner, PopupRequest request);
    void dismiss() {
        if (const auto dismissed = std::exchange(dismissed_, {})) {
            dismissed();
        }
    }
    bool takes(const Message& message) const;
    bool takesKeys() const { return takesKeys_; }
    void runUntil(const std::function<bool()>& done) override;

protected:
    bool handleMessage(uint32_t message, uintptr_t, intptr_t, intptr_t& result) override {
        result = MA_NOACTIVATE;
        return message == WM_MOUSEACTIVATE;
    }
    void closeRequested() override { dismiss(); }

private:
    std::weak_ptr<WindowNative> owner_;
    bool takesKeys_ = false;
    std::function<void()> dismissed_;
};

bool NativePopup::open(WindowNative& owner, PopupRequest request) {
    const int32_t dpi = owner.tree().scale().dpi();
    takesKeys_ = request.takesKeys;
    dismissed_ = std::move(request.dismissed);
    native().setEscapeCloses(true);
    tree().setRightToLeft(request.rightToLeft);
    // Seen where the content has round corners.
    tree().setBackground(owner.tree().background());
    tree().setClient({}, dpi);
    Control* const content = root().addChild(std::move(request.content));
    if (content == nullptr) {
        return false;
    }
    const RelativeLength end{.fraction = 1.0};
    content->setConstraints({.left = RelativeLength{}, .right = end, .top = RelativeLength{}, .bottom = end});
    const RECT onWhich = toWindows(request.anchor);
    const Rect place = placePopup(request.anchor, Scale(dpi).device(request.measure()),
                                  workAreaOf(MonitorFromRect(&onWhich, MONITOR_DEFAULTTONEAREST)), request.rightToLeft,
                                  request.shrinks);
    if (!create({.style = WS_POPUP,
                 .extendedStyle = WS_EX_NOACTIVATE | WS_EX_TOOLWINDOW | WS_EX_TOPMOST,
                 .customChrome = true,
                 .owner = owner.handle(),
                 .place = place})) {
        return false;
    }
    if (takesKeys_) {
        tree().activated(true);
    }
    ShowWindow(handle(), SW_SHOWNOACTIVATE);
    UpdateWindow(handle());
    return true;
}

// Keys and, over the pop-up window, the wheel: Windows sends both to the window that has the focus.
bool NativePopup::takes(const Message& message) const {
    switch (message.number) {
        case WM_KEYDOWN:
        case WM_KEYUP:
        case WM_CHAR:
            return takesKeys_;
        case WM_MOUSEWHEEL: {
            const Point at = pointOf(message.lParam);
            return windowRectOf(handle()).value_or(Rect{}).contains(at);
        }
        default:
            return false;
    }
}

void NativePopup::runUntil(const std::function<bool()>& done) {
    if (const std::optional<int> quit = pumpMessages(done)) {
        PostQuitMessage(*quit);
    }
}

namespace {

// Whether a message of the owner says that its pop-up window has to go.
bool endsPopup(const Message& message) {
    switch (message.number) {
        case WM_LBUTTONDOWN:
        case WM_LBUTTONDBLCLK:
        case WM_RBUTTONDOWN:
        case WM_RBUTTONDBLCLK:
        case WM_MBUTTONDOWN:
        case WM_MBUTTONDBLCLK:
        case WM_XBUTTONDOWN:
        case WM_XBUTTONDBLCLK:
        case WM_NCLBUTTONDOWN:
        case WM_NCLBUTTONDBLCLK:
        case WM_NCRBUTTONDOWN:
        case WM_NCMBUTTONDOWN:
        case WM_NCXBUTTONDOWN:
        case WM_MOVE:
        case WM_SIZE:
        case WM_DPICHANGED:
        case WM_DISPLAYCHANGE:
        case WM_CANCELMODE:
            return true;
        case WM_ACTIVATE:
            return LOWORD(message.wParam) == WA_INACTIVE;
        case WM_ENABLE:
        case WM_SHOWWINDOW:
            return message.wParam == FALSE;
        default:
            return false;
    }
}

}  // namespace

std::unique_ptr<PopupWindow> WindowNative::openPopup(PopupRequest request) {
    const std::shared_ptr<WindowNative> keep = shared_from_this();
    if (popup_ != nullptr) {
        popup_->dismiss();
    }
    if (handle_ == nullptr || popup_ != nullptr) {
        return nullptr;
    }
    auto popup = std::make_unique<NativePopup>(instance_, keep);
    popup_ = popup.get();
    const bool isOpen = popup->open(*this, std::move(request));
    return isOpen ? std::move(popup) : nullptr;
}

WindowNative::Answer WindowNative::tellPopup(const Message& message) {
    if (message.number == WM_DESTROY) {
        popup_->dismiss();
        return std::nullopt;
    }
    if (popup_->takes(message)) {
        const bool isKey = message.number == WM_KEYDOWN;
        const HWND target = popup_->handle();
        SendMessageW(target, message.number, message.wParam, message.lParam);
        if (isKey) {
            // Its character comes when the pop-up window may have gone, and is none for this window.
            swallowsCharacter_ = true;
        }
        return 0;
    }
    if (popup_->takesKeys() && message.number == WM_SYSKEYDOWN) {
        // Alt and F10 close a menu and do nothing else.
        popup_->close();
        swallowsCharacter_ = true;
        return 0;
    }
    if (endsPopup(message)) {
        // By a message of its own, so that this one still finds it open: a press on the field of an open list closes it
        // instead of opening it anew.
        popup_->close();
    }
    return std::nullopt;
}

}  // namespace tavi
