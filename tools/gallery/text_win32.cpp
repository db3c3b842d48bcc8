#include "tools/gallery/text.h"

#include <windows.h>

#include "tavi/core/drawing.h"

namespace gallery {

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

}  // namespace gallery
