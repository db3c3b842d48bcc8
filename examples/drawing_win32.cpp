#include <windows.h>

#include "examples/drawing.h"
#include "tavi/core/drawing.h"

namespace example {
namespace {

constexpr int32_t kFontHeight = 15;  // design pixels

}  // namespace

void drawText(HDC target, const tavi::Rect& area, const tavi::Scale& scale, const std::wstring& text, Color color,
              Align align) {
    const HFONT font =
        CreateFontW(-scale.length(kFontHeight), 0, 0, 0, FW_NORMAL, FALSE, FALSE, FALSE, DEFAULT_CHARSET,
                    OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS, CLEARTYPE_QUALITY, DEFAULT_PITCH, L"Segoe UI");
    const HGDIOBJ before = SelectObject(target, font);
    RECT rect = tavi::toWindows(area);
    SetBkMode(target, TRANSPARENT);
    SetTextColor(target, color);
    const UINT format =
        align == Align::Center ? DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_END_ELLIPSIS : DT_WORDBREAK;
    DrawTextW(target, text.c_str(), static_cast<int>(text.size()), &rect, format | DT_NOPREFIX);
    SelectObject(target, before);
    DeleteObject(font);
}

}  // namespace example
