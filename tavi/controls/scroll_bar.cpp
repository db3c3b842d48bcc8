#include "tavi/controls/scroll_bar.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <utility>

#include "base/text.h"
#include "tavi/controls/glyphs.h"
#include "tavi/theme/active_skin.h"

namespace tavi {
namespace {

constexpr int32_t kFirstRepeatMilliseconds = 350;
constexpr int32_t kRepeatMilliseconds = 50;
constexpr double kLinesPerNotch = 3.0;

constexpr std::wstring_view kValue = L"value";

// part / whole of `amount`, rounded to the nearest; 0 <= part <= whole, 0 < whole. Long multiplication, since no
// product of such numbers fits 64 bits.
int64_t shareOf(int64_t amount, int64_t part, int64_t whole) {
    const auto divisor = static_cast<uint64_t>(whole);
    uint64_t quotient = 0;
    uint64_t rest = 0;
    const auto carry = [&] {
        quotient += rest >= divisor ? 1 : 0;
        rest -= rest >= divisor ? divisor : 0;
    };
    for (int bit = std::numeric_limits<int64_t>::digits; bit-- > 0;) {
        quotient *= 2;
        rest *= 2;
        carry();
        if ((static_cast<uint64_t>(amount) >> bit & 1) != 0) {
            rest += static_cast<uint64_t>(part);
            carry();
        }
    }
    return static_cast<int64_t>(quotient + (rest >= divisor - rest ? 1 : 0));
}

// The sum, or the end of the range that it goes beyond.
int64_t saturatedSum(int64_t a, int64_t b) {
    using Limits = std::numeric_limits<int64_t>;
    if (b > 0) {
        return a > Limits::max() - b ? Limits::max() : a + b;
    }
    return a < Limits::min() - b ? Limits::min() : a + b;
}

}  // namespace

ThumbPlace thumbPlace(int32_t track, int32_t minimumThumb, int64_t range, int64_t page, int64_t value) {
    track = std::max(track, 0);
    page = std::max<int64_t>(page, 0);
    if (range <= page) {
        return {0, track};
    }
    const auto share = static_cast<int32_t>(shareOf(track, page, range));
    const int32_t length = std::min(std::max(share, minimumThumb), track);
    const int64_t largest = range - page;
    return {static_cast<int32_t>(shareOf(track - length, std::clamp<int64_t>(value, 0, largest), largest)), length};
}

int64_t valueOfThumb(int32_t start, int32_t track, int32_t minimumThumb, int64_t range, int64_t page) {
    const int32_t room = track - thumbPlace(track, minimumThumb, range, page, 0).length;
    if (room <= 0) {
        return 0;
    }
    return shareOf(range - std::max<int64_t>(page, 0), std::clamp(start, 0, room), room);
}

ScrollBar::ScrollBar(std::wstring id, const Rect& bounds, bool vertical)
    : Control(std::move(id), bounds), vertical_(vertical) {}

void ScrollBar::setRange(int64_t range, int64_t page, int64_t line) {
    range = std::max<int64_t>(range, 0);
    page = std::max<int64_t>(page, 0);
    line_ = std::max<int64_t>(line, 1);
    if (range_ != range || page_ != page) {
        range_ = range;
        page_ = page;
        requestRepaint();
        setValue(value_);
    }
}

void ScrollBar::setValue(int64_t value) {
    value = std::clamp<int64_t>(value, 0, largestValue());
    if (value_ == value) {
        return;
    }
    const int64_t before = std::exchange(value_, value);
    requestRepaint();
    ValueChangedEvent event{
        .source = this, .oldValue = static_cast<double>(before), .newValue = static_cast<double>(value)};
    changed.emit(event);
}

void ScrollBar::automationValue(std::wstring& value) const {
    value = std::to_wstring(largestValue() > 0 ? shareOf(100, value_, largestValue()) : 0) + L" %";
}

void ScrollBar::appendCustomState(ControlState& state) const {
    state.properties.push_back({std::wstring(kValue), std::to_wstring(value_)});
}

void ScrollBar::restoreCustomProperty(const StateProperty& property) {
    const std::string text = base::toUtf8(property.value);
    int64_t value = 0;
    if (property.name == kValue && std::from_chars(text.data(), text.data() + text.size(), value).ec == std::errc()) {
        setValue(value);
    }
}

// Places. All of it counts from the bar's beginning: its top, or the side where reading begins.

bool ScrollBar::mirrored() const {
    return !vertical_ && window() != nullptr && window()->rightToLeft();
}

int32_t ScrollBar::along(Point local) const {
    return vertical_ ? local.y : mirrored() ? bounds().width - 1 - local.x : local.x;
}

Rect ScrollBar::across(Stretch stretch, int32_t thickness) const {
    const Rect all = localBounds();
    const int32_t extent = vertical_ ? all.width : all.height;
    const int32_t beside = std::max(0, extent - thickness) / 2;
    const int32_t most = std::min(thickness, extent);
    if (vertical_) {
        return {beside, stretch.start, most, stretch.length};
    }
    return {mirrored() ? all.width - stretch.start - stretch.length : stretch.start, beside, stretch.length, most};
}

ScrollBar::Stretch ScrollBar::track() const {
    const ScrollBarShapes& shapes = activeSkin().shapes.scrollbar;
    const int32_t extent = vertical_ ? bounds().height : bounds().width;
    const int32_t button = shapes.showButtons ? std::min(shapes.buttonExtent, extent / 2) : 0;
    return {button, extent - 2 * button};
}

ScrollBar::Stretch ScrollBar::runway() const {
    const Stretch whole = track();
    const int32_t padding = std::clamp(activeSkin().shapes.scrollbar.trackPadding, 0, whole.length / 2);
    return {whole.start + padding, whole.length - 2 * padding};
}

ScrollBar::Stretch ScrollBar::thumb() const {
    const Stretch room = runway();
    const ThumbPlace place =
        thumbPlace(room.length, activeSkin().shapes.scrollbar.minThumbExtent, range_, page_, value_);
    return {room.start + place.start, place.length};
}

ScrollBar::Piece ScrollBar::pieceAt(Point local) const {
    if (!localBounds().contains(local)) {
        return Piece::kNone;
    }
    const int32_t at = along(local);
    const Stretch whole = track();
    const Stretch place = thumb();
    return at < whole.start                   ? Piece::kBack
           : at >= whole.start + whole.length ? Piece::kForward
           : largestValue() == 0              ? Piece::kNone
           : at < place.start                 ? Piece::kTrackBefore
           : at < place.start + place.length  ? Piece::kThumb
                                              : Piece::kTrackAfter;
}

// Painting.

SurfaceState ScrollBar::stateOfPiece(Piece piece) const {
    return stateOf({.enabled = usable() && largestValue() > 0,
                    .pressed = pressed_ == piece && (hot_ == piece || piece == Piece::kThumb),
                    .hot = hot_ == piece && (pressed_ == Piece::kNone || pressed_ == piece)});
}

void ScrollBar::paint(HDC target, Point origin) {
    const ScrollBarShapes& shapes = activeSkin().shapes.scrollbar;
    const Stretch whole = track();
    const SurfaceState state = usable() ? SurfaceState::kNormal : SurfaceState::kDisabled;
    looks_.paint(target, *this, origin, across(whole, shapes.trackThickness), state, L"track");
    if (largestValue() > 0) {
        looks_.paint(target, *this, origin, across(thumb(), shapes.thumbThickness), stateOfPiece(Piece::kThumb),
                     L"thumb");
    }
    if (whole.start == 0) {
        return;
    }
    struct Button {
        Piece piece;
        Stretch place;
        Glyph glyph;
    };
    const Glyph back = vertical_ ? Glyph::kArrowUp : mirrored() ? Glyph::kArrowRight : Glyph::kArrowLeft;
    const Glyph forward = vertical_ ? Glyph::kArrowDown : mirrored() ? Glyph::kArrowLeft : Glyph::kArrowRight;
    for (const Button& button : {Button{Piece::kBack, {0, whole.start}, back},
                                 Button{Piece::kForward, {whole.start + whole.length, whole.start}, forward}}) {
        const SurfaceState look = stateOfPiece(button.piece);
        const Rect place = across(button.place, shapes.trackThickness);
        looks_.paint(target, *this, origin, place, look, L"button");
        drawGlyph(target, deviceRect(place, origin), button.glyph, looks_.look(*this, look, L"button").text);
    }
}

// Input.

void ScrollBar::setHot(Piece piece) {
    if (hot_ != piece) {
        hot_ = piece;
        requestRepaint();
    }
}

void ScrollBar::setPressed(Piece piece) {
    if (pressed_ != piece) {
        pressed_ = piece;
        requestRepaint();
        if (piece == Piece::kNone && window() != nullptr) {
            window()->setControlTimer(*this, 0);
        }
    }
}

void ScrollBar::scroll(int64_t by) {
    setValue(saturatedSum(value_, by));
}

// What a press on the piece does, and goes on doing while it is held over it.
void ScrollBar::act() {
    const int64_t page = std::max(page_ - line_, line_);  // one line of what was seen stays
    switch (pressed_) {
        case Piece::kBack:
            return scroll(-line_);
        case Piece::kForward:
            return scroll(line_);
        case Piece::kTrackBefore:
            return scroll(-page);
        case Piece::kTrackAfter:
            return scroll(page);
        default:
            return;
    }
}

void ScrollBar::repeat() {
    window()->setControlTimer(*this, kRepeatMilliseconds, [this] { repeat(); });
    // The thumb stops where the pointer is.
    if (pieceAt(at_) == pressed_) {
        act();
    }
}

bool ScrollBar::pointerPress(PointerEvent& event) {
    at_ = event.position;
    const Piece piece = pieceAt(at_);
    if (event.button != PointerButton::Left || !enabled() || piece == Piece::kNone) {
        return pressed_ != Piece::kNone;
    }
    setHot(piece);
    setPressed(piece);
    if (piece == Piece::kThumb) {
        grabOffset_ = along(at_) - thumb().start;
        return true;
    }
    window()->setControlTimer(*this, kFirstRepeatMilliseconds, [this] { repeat(); });
    act();
    return true;
}

bool ScrollBar::pointerMove(PointerEvent& event) {
    at_ = event.position;
    setHot(pieceAt(at_));
    if (pressed_ == Piece::kThumb) {
        const Stretch room = runway();
        setValue(valueOfThumb(saturate(int64_t{along(at_)} - grabOffset_ - room.start), room.length,
                              activeSkin().shapes.scrollbar.minThumbExtent, range_, page_));
    }
    return true;
}

bool ScrollBar::pointerRelease(PointerEvent& event) {
    if (event.button != PointerButton::Left || pressed_ == Piece::kNone) {
        return false;
    }
    setPressed(Piece::kNone);
    return true;
}

bool ScrollBar::pointerWheel(WheelEvent& event) {
    if (largestValue() == 0 || !enabled() || (event.horizontal && vertical_)) {
        return false;
    }
    // Fine wheels turn by parts of a notch; what is less than a step is kept for the next turn.
    const double towards = event.horizontal && !mirrored() ? event.steps : -event.steps;
    const double lines = wheelRest_ + towards * kLinesPerNotch;
    const double whole = std::clamp(std::trunc(lines), -1e6, 1e6);
    wheelRest_ = std::clamp(lines - whole, -1.0, 1.0);
    const auto limit = std::numeric_limits<int64_t>::max() / line_;
    scroll(line_ * std::clamp(static_cast<int64_t>(whole), -limit, limit));
    return true;
}

void ScrollBar::inputCancelled() {
    setPressed(Piece::kNone);
}

void ScrollBar::pointerLeft() {
    setHot(Piece::kNone);
}

}  // namespace tavi
