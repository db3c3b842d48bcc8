// A box that is ticked or not, with a caption beside it. All of it can be clicked.
#pragma once

#include "tavi/controls/control_looks.h"
#include "tavi/core/events.h"
#include "tavi/core/signal.h"
#include "tavi/text/text_layout.h"

namespace tavi {

class CheckBox : public Control {
public:
    CheckBox(std::wstring id, const Rect& bounds, std::wstring caption, bool checked = false);

    // The person or the program has changed it: 0 or 1.
    Signal<ValueChangedEvent> changed;

    bool checked() const { return checked_; }
    void setChecked(bool checked);

    // Box, gap and caption in one line, design pixels. Needs a window.
    Size preferredSize() const;

    bool matchesType(std::wstring_view type) const override;
    bool acceptsFocus() const override { return true; }
    // The caption and whether it is ticked.
    void automationValue(std::wstring& value) const override;
    void paint(HDC target, Point origin) override;
    void releaseCaches() override;
    bool pointerMove(PointerEvent& event) override;
    bool pointerPress(PointerEvent& event) override;
    bool pointerRelease(PointerEvent& event) override;
    bool keyPress(KeyEvent& event) override;
    bool keyRelease(KeyEvent& event) override;
    bool activate() override;
    void inputCancelled() override;
    void pointerEntered() override;
    void pointerLeft() override;
    void focusChanged(bool focused) override;

protected:
    void textChanged() override;
    void appearanceChanged() override;
    void appendCustomState(ControlState& state) const override;
    void restoreCustomProperty(const StateProperty& property) override;

private:
    void setDown(bool down);
    const TextLayout& layoutFor(int32_t deviceWidth) const;

    ControlLooks looks_{L"checkbox"};
    bool checked_ = false;
    bool focused_ = false;
    bool hot_ = false;
    bool armed_ = false;
    bool down_ = false;
    mutable TextLayout layout_;
    mutable bool measured_ = false;
};

}  // namespace tavi
