#include "tavi/controls/themed_button.h"

#include <utility>

namespace tavi {
namespace {

// Design pixels: a button's usual height, the room at either side of a caption and the least of it.
constexpr int32_t kHeight = 32;
constexpr int32_t kPadding = 16;
constexpr int32_t kLeastPadding = 4;

}  // namespace

ThemedButton::ThemedButton(std::wstring id, const Rect& bounds, std::wstring caption)
    : Pressable(std::move(id), bounds) {
    setText(std::move(caption));
}

void ThemedButton::setGlyph(Glyph glyph) {
    if (glyph_ != glyph) {
        glyph_ = glyph;
        requestRepaint();
    }
}

void ThemedButton::setLook(std::wstring_view type, std::wstring_view part) {
    if (type_ != type || part_ != part) {
        type_ = type;
        part_ = part;
        looks_ = ControlLooks(type_);
        requestRepaint();
    }
}

Size ThemedButton::preferredSize() const {
    const Size caption = ControlText::needed(*this, text(), looks_.font(*this));
    return larger({caption.width + 2 * kPadding, caption.height + 2 * kLeastPadding}, {0, kHeight});
}

void ThemedButton::paint(HDC target, Point origin) {
    const Interaction now = interaction();
    const SurfaceState state = stateOf(now);
    const Rect surface = surfaceArea(*this, origin);
    looks_.paintArea(target, *this, origin, surface, state, part_, now.focused);
    const Color color = looks_.look(*this, state, part_).text;
    if (glyph_ != Glyph::kNone) {
        drawGlyph(target, surface, glyph_, color);
        return;
    }
    const Rect room = insetBy(surface, window()->scale().length(kLeastPadding), 0);
    caption_.fitted(*this, text(), looks_.font(*this), TextFit::kEllipsis, room.size())
        .draw(target, room, color, TextAlign::kCenter);
}

void ThemedButton::releaseCaches() {
    looks_.forget();
    caption_.forget();
}

void ThemedButton::act() {
    CommandEvent event{.source = this, .command = id()};
    pressed.emit(event);
}

}  // namespace tavi
