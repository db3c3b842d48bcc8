// A text as it will be drawn: broken into lines, each run of a script in a font that has it, in visual order. Measured
// once and kept; drawing it again costs no measuring. A value: copies share what was measured.
//
// All lengths are device pixels. Positions in the text count units of wchar_t.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "tavi/core/geometry.h"
#include "tavi/core/native_handles.h"
#include "tavi/core/text_font.h"

namespace tavi {

// What happens to a text that is wider than its room.
enum class TextFit : uint8_t {
    kWhole,     // nothing: one line as long as it is
    kEllipsis,  // one line, cut at its end, with an ellipsis
    kWrap,      // lines broken between words, and inside of a word only where it is wider than the room
};

// Along the reading direction: a text that starts, starts at the right in a right-to-left one.
enum class TextAlign : uint8_t { kStart, kCenter, kEnd };
enum class TextVertical : uint8_t { kTop, kCenter };

struct TextFormat {
    TextFont font = {};
    int32_t dpi = 96;
    bool rightToLeft = false;  // of the paragraph; what is inside of it follows its own characters
    TextFit fit = TextFit::kWhole;
    int32_t width = 0;  // of the room, for kEllipsis and kWrap
    int maxLines = 0;   // for kWrap: the last one ends with an ellipsis where there is more; 0 for any number

    bool operator==(const TextFormat&) const = default;
};

class TextLayout {
public:
    // Nothing, of no size.
    TextLayout() = default;
    // Controls characters such as line feeds break lines when it wraps and are blanks otherwise; what has no width
    // (joiners, U+200B) is not drawn.
    TextLayout(std::wstring_view text, const TextFormat& format);

    // Of all lines: the widest one, and the sum of their heights.
    Size size() const;
    int32_t lineHeight() const;
    // From the top of a line to where its letters stand.
    int32_t baseline() const;
    size_t lineCount() const;
    // Whether an ellipsis stands for a part of the text.
    bool isCut() const;
    const TextFormat& format() const;

    // Draws it into an area; what hangs over its edges is drawn, too. Clips are the caller's.
    void draw(HDC target, const Rect& area, uint32_t color, TextAlign align = TextAlign::kStart,
              TextVertical vertical = TextVertical::kCenter) const;

    // Carets and selections, for one line that is whole. x counts from the left edge of the line.
    int32_t caretX(size_t position) const;
    // The caret position nearest to x; always the beginning of a cluster, or the end.
    size_t positionAt(int32_t x) const;
    // The caret position that lies one cluster to the left, or to the right, as the eye sees it.
    size_t visualNeighbor(size_t position, bool toTheRight) const;
    // What a range of the text covers, from left to right; several pieces where directions mix.
    struct Span {
        int32_t left = 0;
        int32_t right = 0;

        bool operator==(const Span&) const = default;
    };
    std::vector<Span> spans(size_t begin, size_t end) const;

private:
    struct Data;
    std::shared_ptr<const Data> data_;
};

}  // namespace tavi
