// The text of a control, laid out for its window and kept until the text, its room, its font or the scale differ.
#pragma once

#include <string>
#include <string_view>

#include "tavi/core/control.h"
#include "tavi/text/text_layout.h"

namespace tavi {

class ControlText {
public:
    // Lines that are broken get as many as the room is high, at least one; the last one ends with an ellipsis where
    // there is more. `room` is device pixels. Valid until the next call.
    const TextLayout& fitted(const Control& control, std::wstring_view text, const TextFont& font, TextFit fit,
                             Size room);
    void forget() { isKept_ = false; }

    // What a text needs in design pixels, rounded up, with `inset` kept free at both of its sides; `width` is the room
    // for lines that are broken and those sides, 0 for any. A control of such a size holds the text wherever it lies.
    static Size needed(const Control& control, std::wstring_view text, const TextFont& font, int32_t width = 0,
                       int32_t inset = 0);

private:
    std::wstring text_;
    TextFormat format_;  // without a number of lines
    int32_t height_ = 0;
    TextLayout layout_;
    bool isKept_ = false;
};

}  // namespace tavi
