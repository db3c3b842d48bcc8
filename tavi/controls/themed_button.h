// A button with a caption, or with a painted sign in its place.
#pragma once

#include "tavi/controls/control_looks.h"
#include "tavi/controls/glyphs.h"
#include "tavi/core/events.h"
#include "tavi/core/signal.h"
#include "tavi/text/text_layout.h"

namespace tavi {

class ThemedButton : public Control {
public:
    ThemedButton(std::wstring id, const Rect& bounds, std::wstring caption);

    // It was clicked, or acted on with the keyboard. The command is its id. The callback may destroy it.
    Signal<CommandEvent> pressed;

    void setGlyph(Glyph glyph);
    Glyph glyph() const { return glyph_; }
    // Painted and named for another type of control, such as a title bar's buttons: `type` and the part of it.
    void setLook(std::wstring_view type, std::wstring_view part);
    // Without the focus: buttons of a frame are for the mouse.
    void setFocusable(bool focusable) { focusable_ = focusable; }

    // What the caption needs with room around it, design pixels. Needs a window.
    Size preferredSize() const;

    bool matchesType(std::wstring_view type) const override;
    bool acceptsFocus() const override { return focusable_; }
    void automationValue(std::wstring& value) const override { value = text(); }
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

private:
    void setDown(bool down);
    const TextLayout& layoutFor(int32_t deviceWidth) const;

    ControlLooks looks_{L"button"};
    std::wstring type_ = L"button";
    std::wstring part_ = L"surface";
    Glyph glyph_ = Glyph::kNone;
    bool focusable_ = true;
    bool focused_ = false;
    bool hot_ = false;
    bool armed_ = false;  // a press has begun on it
    bool down_ = false;   // and it looks pressed
    mutable TextLayout layout_;
    mutable bool measured_ = false;
};

}  // namespace tavi
