// The seam between the layout of texts and what knows fonts: characters become runs of glyphs here, each run of one
// font and one direction. On Windows it is Uniscribe (shaping_win32.cpp); the portable tests bring a shaper without
// fonts.
//
// All lengths are device pixels. Positions count units of wchar_t.
#pragma once

#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

#include "tavi/core/geometry.h"
#include "tavi/core/native_handles.h"
#include "tavi/core/text_font.h"

namespace tavi {

// The glyphs of a run and their font, known to the shaper only.
struct GlyphRun;

// A part of a text in one font and one direction.
struct ShapedRun {
    size_t begin = 0;
    size_t end = 0;
    uint8_t level = 0;                            // of embedding (UAX #9): odd ones run from right to left
    std::shared_ptr<const GlyphRun> glyphs = {};  // null where nothing is to be drawn
};

// What a unit of the text became. Where several units share glyphs, the first of them has their whole advance.
struct ShapedUnit {
    int32_t advance = 0;
    bool divisible = false;  // glyphs of its own begin here, so the run may be drawn in parts before and from here on
    bool softBreak = false;  // a word begins here in a script without blanks, as far as a dictionary knows
};

struct ShapedText {
    std::vector<ShapedRun> runs = {};    // in the order of the text, without gaps
    std::vector<ShapedUnit> units = {};  // one for each unit of the text
    int32_t ascent = 0;                  // of the font asked for, raised by those that stand in for it
    int32_t descent = 0;
};

// Of one paragraph without line ends or other control characters. An empty text has the asked font's height.
ShapedText shapeText(std::wstring_view text, const TextFont& font, int32_t dpi, bool rightToLeft);

// Draws the units from `begin` to `end` of a run, their left edge and baseline at `origin`; both ends are divisible or
// those of the run.
void drawRun(HDC target, const ShapedRun& run, size_t begin, size_t end, Point origin, uint32_t color);

}  // namespace tavi
