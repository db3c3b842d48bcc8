// What is pressed as a button is: by a click that begins and ends on it, by Space, which acts when it is let go, or by
// the default action of the keyboard. Keeps what it looks like meanwhile; what it does is up to its class.
#pragma once

#include "tavi/controls/control_looks.h"

namespace tavi {

class Pressable : public Control {
public:
    using Control::Control;

    bool acceptsFocus() const override { return true; }
    bool pointerPress(PointerEvent& event) override;
    bool pointerRelease(PointerEvent& event) override;
    bool keyPress(KeyEvent& event) override;
    bool keyRelease(KeyEvent& event) override;
    bool activate() override;
    void inputCancelled() override { change(Hold::kNone, hot_, focused_); }
    void pointerEntered() override { change(hold_, true, focused_); }
    void pointerLeft() override { change(hold_, false, focused_); }
    // What holds it down does not count any more when the focus goes.
    void focusChanged(bool focused) override { change(focused ? hold_ : Hold::kNone, hot_, focused); }

protected:
    // It was pressed. Afterwards it may be gone.
    virtual void act() = 0;
    Interaction interaction() const;

private:
    // What holds it down.
    enum class Hold : uint8_t { kNone, kPointer, kKey };
    void change(Hold hold, bool hot, bool focused);

    Hold hold_ = Hold::kNone;
    bool hot_ = false;  // the pointer is over it
    bool focused_ = false;
};

}  // namespace tavi
