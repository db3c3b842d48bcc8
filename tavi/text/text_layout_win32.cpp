#include <windows.h>

#include "tavi/core/drawing.h"
#include "tavi/text/text_layout.h"

namespace tavi {

// Stands in until runs are shaped: GDI's own layout.
struct TextLayout::Data {
    std::wstring text;
    TextFormat format;
    Size size;
    HFONT font = nullptr;
    ~Data() { DeleteObject(font); }
    UINT flags() const {
        return DT_NOPREFIX | (format.fit == TextFit::kWrap ? DT_WORDBREAK : DT_SINGLELINE) |
               (format.fit == TextFit::kEllipsis ? DT_END_ELLIPSIS : 0U) | (format.rightToLeft ? DT_RTLREADING : 0U);
    }
};

TextLayout::TextLayout(std::wstring_view text, const TextFormat& format) {
    const auto data = std::make_shared<Data>();
    data->text = text;
    data->format = format;
    data->font = CreateFontW(-MulDiv(format.font.points, format.dpi, 72), 0, 0, 0, format.font.weight, FALSE, FALSE,
                             FALSE, DEFAULT_CHARSET, OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS, ANTIALIASED_QUALITY,
                             DEFAULT_PITCH, format.font.family.c_str());
    const HDC screen = CreateCompatibleDC(nullptr);
    const HGDIOBJ before = SelectObject(screen, data->font);
    RECT rect{0, 0, format.fit == TextFit::kWhole ? 100000 : format.width, 0};
    DrawTextW(screen, data->text.c_str(), static_cast<int>(text.size()), &rect, data->flags() | DT_CALCRECT);
    data->size = {rect.right, rect.bottom};
    SelectObject(screen, before);
    DeleteDC(screen);
    data_ = data;
}

Size TextLayout::size() const {
    return data_ ? data_->size : Size{};
}
int32_t TextLayout::lineHeight() const {
    return size().height;
}
size_t TextLayout::lineCount() const {
    return 1;
}
bool TextLayout::isCut() const {
    return false;
}
const TextFormat& TextLayout::format() const {
    static const TextFormat kNone;
    return data_ ? data_->format : kNone;
}

void TextLayout::draw(HDC target, const Rect& area, uint32_t color, TextAlign align, TextVertical vertical) const {
    if (!data_) {
        return;
    }
    const HGDIOBJ before = SelectObject(target, data_->font);
    SetBkMode(target, TRANSPARENT);
    SetTextColor(target, color);
    const bool right = (align == TextAlign::kEnd) != data_->format.rightToLeft;
    RECT rect = toWindows(area);
    if (vertical == TextVertical::kCenter) {
        rect.top += (area.height - size().height) / 2;
    }
    DrawTextW(target, data_->text.c_str(), static_cast<int>(data_->text.size()), &rect,
              data_->flags() |
                  (align == TextAlign::kCenter ? DT_CENTER
                   : right                     ? DT_RIGHT
                                               : DT_LEFT) |
                  DT_NOCLIP);
    SelectObject(target, before);
}

int32_t TextLayout::caretX(size_t) const {
    return 0;
}
size_t TextLayout::positionAt(int32_t) const {
    return 0;
}
size_t TextLayout::visualNeighbor(size_t position, bool) const {
    return position;
}
std::vector<TextLayout::Span> TextLayout::spans(size_t, size_t) const {
    return {};
}

}  // namespace tavi
