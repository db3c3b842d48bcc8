// A control in one small file: a button that is painted flat, knows hover, press and focus, and says when it was
// pressed.
#pragma once

#include "tavi/core/control.h"
#include "tavi/core/events.h"
#include "tavi/core/signal.h"

namespace example {

class PushButton : public tavi::Control {
public:
    PushButton(std::wstring id, const tavi::Rect& bounds, std::wstring caption);

    tavi::Signal<tavi::CommandEvent> pressed;

    void paint(HDC target, tavi::Point origin) override;
    bool pointerPress(tavi::PointerEvent& event) override;
    bool pointerRelease(tavi::PointerEvent& event) override;
    void inputCancelled() override { setDown(false); }
    void pointerEntered() override { requestRepaint(); }
    void pointerLeft() override { requestRepaint(); }
    bool acceptsFocus() const override { return true; }
    void focusChanged(bool focused) override {
        focused_ = focused;
        requestRepaint();
    }
    bool activate() override;
    void automationValue(std::wstring& value) const override { value = text(); }

private:
    void setDown(bool down);
    bool down_ = false;
    bool focused_ = false;
};

}  // namespace example
