#include "tools/gallery/text.h"

#include <windows.h>

#include <algorithm>
#include <cmath>

#include "tavi/core/drawing.h"
#include "tavi/theme/composition.h"

namespace gallery {
namespace {

float distanceToSegment(Place p, Place a, Place b) {
    const float dx = b.x - a.x;
    const float dy = b.y - a.y;
    const float length = dx * dx + dy * dy;
    const float along = length > 0 ? std::clamp(((p.x - a.x) * dx + (p.y - a.y) * dy) / length, 0.0F, 1.0F) : 0.0F;
    return std::hypot(p.x - a.x - along * dx, p.y - a.y - along * dy);
}

}  // namespace

HFONT makeFont(const tavi::Theme& theme, Face face, int percent) {
    const bool mono = face == Face::kMono;
    const int points = (mono ? theme.monoPointSize : theme.uiPointSize) + (face == Face::kTitle ? 4 : 0);
    const std::wstring& family = mono ? theme.monoFontFamily : theme.uiFontFamily;
    return CreateFontW(-MulDiv(points, 96 * percent, 7200), 0, 0, 0, mono ? theme.monoWeight : theme.uiWeight, FALSE,
                       FALSE, FALSE, DEFAULT_CHARSET, OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS, ANTIALIASED_QUALITY,
                       DEFAULT_PITCH, family.c_str());
}

void drawText(HDC target, const tavi::Rect& area, HFONT font, tavi::Color color, std::wstring_view text, Align align,
              int inset) {
    const HGDIOBJ before = SelectObject(target, font);
    SetBkMode(target, TRANSPARENT);
    SetTextColor(target, color);
    RECT rect = tavi::toWindows(area);
    rect.left += inset;
    rect.right -= inset;
    const UINT line = DT_VCENTER | DT_SINGLELINE | DT_END_ELLIPSIS;
    const UINT format = align == Align::kWrapped ? DT_WORDBREAK : align == Align::kCentre ? DT_CENTER | line : line;
    DrawTextW(target, text.data(), static_cast<int>(text.size()), &rect, format | DT_NOPREFIX);
    SelectObject(target, before);
}

void drawStroke(HDC target, std::span<const Place> places, float width, tavi::Color color) {
    if (places.size() < 2) {
        return;
    }
    const auto [left, right] = std::ranges::minmax(places, {}, &Place::x);
    const auto [top, bottom] = std::ranges::minmax(places, {}, &Place::y);
    const auto down = [&](float value) { return static_cast<int32_t>(std::floor(value - width)); };
    const auto up = [&](float value) { return static_cast<int32_t>(std::ceil(value + width)); };
    const tavi::Rect area = tavi::rectBetween(down(left.x), down(top.y), up(right.x), up(bottom.y));
    tavi::PixelBuffer picture(area.size());
    const tavi::PixelView view = picture.view();
    for (int32_t y = 0; y < area.height; ++y) {
        for (int32_t x = 0; x < area.width; ++x) {
            const Place centre{static_cast<float>(area.x + x) + 0.5F, static_cast<float>(area.y + y) + 0.5F};
            float distance = width;
            for (size_t i = 1; i < places.size(); ++i) {
                distance = std::min(distance, distanceToSegment(centre, places[i - 1], places[i]));
            }
            const float coverage = std::clamp(width / 2 - distance + 0.5F, 0.0F, 1.0F);
            view.row(y)[x] = tavi::premultiplied(color, static_cast<uint8_t>(std::lround(coverage * 255)));
        }
    }
    tavi::compose(target, area.position(), picture);
}

}  // namespace gallery
