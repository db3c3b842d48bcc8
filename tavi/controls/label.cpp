#include "tavi/controls/label.h"

#include <utility>

namespace tavi {

Label::Label(std::wstring id, const Rect& bounds, std::wstring text) : Control(std::move(id), bounds) {
    setText(std::move(text));
}

void Label::setFit(TextFit fit) {
    if (fit_ != fit) {
        fit_ = fit;
        requestRepaint();
    }
}

void Label::setAlign(TextAlign align, TextVertical vertical) {
    if (align_ != align || vertical_ != vertical) {
        align_ = align;
        vertical_ = vertical;
        requestRepaint();
    }
}

void Label::setFontChange(int morePoints, int weight) {
    if (morePoints_ != morePoints || weight_ != weight) {
        morePoints_ = morePoints;
        weight_ = weight;
        requestRepaint();
    }
}

TextFont Label::font() const {
    TextFont font = looks_.font(*this);
    font.points += morePoints_;
    font.weight = weight_ != 0 ? weight_ : font.weight;
    return font;
}

const TextLayout& Label::fitted(const Rect& room) const {
    return lines_.fitted(*this, text(), font(), fit_, room.size());
}

Rect Label::room(Point origin) const {
    const Scale scale = window() != nullptr ? window()->scale() : Scale();
    return insetBy(deviceRect(localBounds(), origin), scale.length(kSurfaceInset), 0);
}

Size Label::preferredSize(int32_t width) const {
    return ControlText::needed(*this, text(), font(), width, kSurfaceInset);
}

bool Label::isCut() const {
    return fitted(room(clientOrigin())).isCut();
}

void Label::paint(HDC target, Point origin) {
    const SurfaceState state = usable() ? SurfaceState::kNormal : SurfaceState::kDisabled;
    const StyleLook& look = looks_.look(*this, state);
    const Rect area = deviceRect(localBounds(), origin);
    // Texts lie on what is there, unless their appearance says otherwise.
    if (appearance().fillColor || appearance().borderColor) {
        looks_.paintArea(target, *this, origin, area, state);
    }
    const Rect inner = room(origin);
    fitted(inner).draw(target, inner, look.text, align_, vertical_);
}

void Label::releaseCaches() {
    looks_.forget();
    lines_.forget();
}

}  // namespace tavi
