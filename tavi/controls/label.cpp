#include "tavi/controls/label.h"

#include <utility>

namespace tavi {
Label::Label(std::wstring id, const Rect& bounds, std::wstring text) : Control(std::move(id), bounds) {
    setText(std::move(text));
}
void Label::setFit(TextFit /*fit*/) {}
void Label::setAlign(TextAlign /*align*/, TextVertical /*vertical*/) {}
void Label::setFontChange(int /*morePoints*/, int /*weight*/) {}
Size Label::preferredSize(int32_t /*width*/) const {
    return {};
}
bool Label::isCut() const {
    return false;
}
bool Label::matchesType(std::wstring_view type) const {
    return type == L"text";
}
void Label::paint(HDC /*target*/, Point /*origin*/) {}
void Label::releaseCaches() {}
void Label::textChanged() {}
void Label::appearanceChanged() {}
TextFormat Label::format(int32_t /*deviceWidth*/) const {
    return {};
}
const TextLayout& Label::layoutFor(int32_t /*deviceWidth*/) const {
    static const std::remove_cvref_t<const TextLayout&> kNone;
    return kNone;
}

}  // namespace tavi
