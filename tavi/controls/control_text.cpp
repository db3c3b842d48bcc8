#include "tavi/controls/control_text.h"

#include <algorithm>

namespace tavi {
namespace {

TextFormat formatFor(const Control& control, const TextFont& font, TextFit fit, int32_t width) {
    const WindowHost* const window = control.window();
    return {.font = font,
            .dpi = window != nullptr ? window->scale().dpi() : kDesignDpi,
            .rightToLeft = window != nullptr && window->rightToLeft(),
            .fit = fit,
            .width = width};
}

}  // namespace

const TextLayout& ControlText::fitted(const Control& control, std::wstring_view text, const TextFont& font, TextFit fit,
                                      Size room) {
    TextFormat format = formatFor(control, font, fit, fit == TextFit::kWhole ? 0 : room.width);
    const int32_t height = fit == TextFit::kWrap ? room.height : 0;
    if (isKept_ && text_ == text && format_ == format && height_ == height) {
        return layout_;
    }
    text_ = text;
    format_ = format;
    height_ = height;
    layout_ = TextLayout(text, format);
    if (fit == TextFit::kWrap && layout_.lineHeight() > 0 && layout_.size().height > height) {
        format.maxLines = std::max(1, height / layout_.lineHeight());
        layout_ = TextLayout(text, format);
    }
    isKept_ = true;
    return layout_;
}

Size ControlText::needed(const Control& control, std::wstring_view text, const TextFont& font, int32_t width,
                         int32_t inset) {
    const Scale scale = control.window() != nullptr ? control.window()->scale() : Scale();
    const int32_t sides = 2 * scale.length(inset);
    const TextFit fit = width > 0 ? TextFit::kWrap : TextFit::kWhole;
    // Edges are mapped to the device, so that how many pixels lie between two of them depends on where they are: never
    // less than the whole ones of the extent. Hence both ways of rounding here.
    const int64_t dpi = scale.dpi();
    const int64_t narrowest = width * dpi / kDesignDpi;
    const TextFormat format = formatFor(control, font, fit, saturate(std::max<int64_t>(narrowest - sides, 0)));
    const Size lines = TextLayout(text, format).size();
    const auto cover = [dpi](int64_t device) { return saturate((device * kDesignDpi + dpi - 1) / dpi); };
    return {cover(int64_t{lines.width} + sides), cover(lines.height)};
}

}  // namespace tavi
