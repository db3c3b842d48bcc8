// A button with a caption, or with a painted sign in its place.
#pragma once

#include "tavi/controls/control_text.h"
#include "tavi/controls/glyphs.h"
#include "tavi/controls/pressable.h"
#include "tavi/core/events.h"
#include "tavi/core/signal.h"

namespace tavi {

class ThemedButton : public Pressable {
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

    bool matchesType(std::wstring_view type) const override { return type == type_; }
    bool acceptsFocus() const override { return focusable_; }
    void automationValue(std::wstring& value) const override { value = text(); }
    void paint(HDC target, Point origin) override;
    void releaseCaches() override;

protected:
    void act() override;

private:
    std::wstring type_ = L"button";
    std::wstring part_ = L"surface";
    ControlLooks looks_{type_};
    ControlText caption_;
    Glyph glyph_ = Glyph::kNone;
    bool focusable_ = true;
};

}  // namespace tavi
