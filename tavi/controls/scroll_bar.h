// A scroll bar: a thumb on a track, and buttons at its ends where the skin shows them.
#pragma once

#include "tavi/controls/control_looks.h"
#include "tavi/core/events.h"
#include "tavi/core/signal.h"

namespace tavi {

// Where a thumb lies along its track. Pure; lengths in one unit. It fills the track where all is seen.
struct ThumbPlace {
    int32_t start = 0;
    int32_t length = 0;

    bool operator==(const ThumbPlace&) const = default;
};
ThumbPlace thumbPlace(int32_t track, int32_t minimumThumb, int64_t range, int64_t page, int64_t value);
// The value at which the thumb begins at `start`: the nearest one; exactly the one that the thumb was placed for where
// values lie no closer than pixels.
int64_t valueOfThumb(int32_t start, int32_t track, int32_t minimumThumb, int64_t range, int64_t page);

class ScrollBar : public Control {
public:
    ScrollBar(std::wstring id, const Rect& bounds, bool vertical = true);

    Signal<ValueChangedEvent> changed;

    // What is scrolled has the length `range`, of which `page` is seen; the value is where that begins. All of it in
    // the unit of who scrolls; `line` is one step of it.
    void setRange(int64_t range, int64_t page, int64_t line = 1);
    int64_t value() const { return value_; }
    // The nearest one that there is.
    void setValue(int64_t value);
    int64_t largestValue() const { return range_ > page_ ? range_ - page_ : 0; }

    bool matchesType(std::wstring_view type) const override { return type == L"scrollbar"; }
    // How far it is scrolled, "42 %".
    void automationValue(std::wstring& value) const override;
    void paint(HDC target, Point origin) override;
    void releaseCaches() override { looks_.forget(); }
    bool pointerMove(PointerEvent& event) override;
    bool pointerPress(PointerEvent& event) override;
    bool pointerRelease(PointerEvent& event) override;
    bool pointerWheel(WheelEvent& event) override;
    void inputCancelled() override;
    void pointerLeft() override;

protected:
    void appendCustomState(ControlState& state) const override;
    void restoreCustomProperty(const StateProperty& property) override;

private:
    enum class Piece : uint8_t { kNone, kBack, kForward, kTrackBefore, kTrackAfter, kThumb };
    // A stretch along the bar, from its beginning on; design pixels.
    struct Stretch {
        int32_t start = 0;
        int32_t length = 0;
    };
    Stretch track() const;
    Stretch runway() const;  // the part of it in which the thumb moves
    Stretch thumb() const;
    bool mirrored() const;
    int32_t along(Point local) const;
    Rect across(Stretch stretch, int32_t thickness) const;
    Piece pieceAt(Point local) const;
    SurfaceState stateOfPiece(Piece piece) const;
    void setHot(Piece piece);
    void setPressed(Piece piece);
    void scroll(int64_t by);
    void act();
    void repeat();

    ControlLooks looks_{L"scrollbar"};
    bool vertical_;
    int64_t range_ = 0;
    int64_t page_ = 0;
    int64_t line_ = 1;
    int64_t value_ = 0;
    Piece hot_ = Piece::kNone;
    Piece pressed_ = Piece::kNone;
    Point at_;                // of the pointer
    int32_t grabOffset_ = 0;  // of the pointer in the thumb
    double wheelRest_ = 0.0;  // of a line, that the wheel has not moved yet
};

}  // namespace tavi
