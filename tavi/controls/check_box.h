// A box that is ticked or not, with a caption beside it. All of it can be clicked.
#pragma once

#include "tavi/controls/control_text.h"
#include "tavi/controls/pressable.h"
#include "tavi/core/events.h"
#include "tavi/core/signal.h"

namespace tavi {

class CheckBox : public Pressable {
public:
    CheckBox(std::wstring id, const Rect& bounds, std::wstring caption, bool checked = false);

    // The person or the program has changed it: 0 or 1.
    Signal<ValueChangedEvent> changed;

    bool checked() const { return checked_; }
    void setChecked(bool checked);

    // Box, gap and caption in one line, design pixels. Needs a window.
    Size preferredSize() const;

    bool matchesType(std::wstring_view type) const override { return type == L"checkbox"; }
    // The caption and whether it is ticked.
    void automationValue(std::wstring& value) const override;
    // Space ticks it; Return is left to the window's default button.
    bool activate() override { return false; }
    void paint(HDC target, Point origin) override;
    void releaseCaches() override;

protected:
    void act() override { setChecked(!checked_); }
    void appendCustomState(ControlState& state) const override;
    void restoreCustomProperty(const StateProperty& property) override;

private:
    SurfaceState boxState(const Interaction& now) const;

    ControlLooks looks_{L"checkbox"};
    ControlText caption_;
    bool checked_ = false;
};

}  // namespace tavi
