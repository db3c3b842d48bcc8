// The glyphs of a run, as Uniscribe places and draws them.
#pragma once

#include <windows.h>

#include <usp10.h>

#include <memory>
#include <string>
#include <vector>

#include "tavi/text/font_cache_win32.h"
#include "tavi/text/shaping.h"

namespace tavi {

struct GlyphRun {
    std::shared_ptr<const FontFace> face;
    SCRIPT_ANALYSIS analysis = {};
    // From left to right.
    std::vector<WORD> glyphs = {};
    std::vector<SCRIPT_VISATTR> attributes = {};
    std::vector<int> advances = {};
    std::vector<GOFFSET> offsets = {};
    // For each unit of the run its first glyph in reading order.
    std::vector<WORD> clusters = {};
    // Instead of glyphs where there is no Uniscribe: GDI's own idea of the text, with an advance for each of its units.
    std::wstring plainText = {};

    // The glyphs of units of the run, counted from its beginning, which glyphs of their own begin and end.
    struct GlyphRange {
        size_t begin = 0;
        size_t end = 0;
    };
    GlyphRange glyphRange(size_t begin, size_t end) const;
};

// The glyphs of a text in a font; null where Uniscribe fails. When the font has all that is to be seen (`isComplete`),
// what it lacks beside that is not shown as missing.
std::shared_ptr<const GlyphRun> makeGlyphRun(const MeasuringDevice& device, std::wstring_view text,
                                             const SCRIPT_ANALYSIS& analysis, bool isComplete,
                                             const std::shared_ptr<const FontFace>& face);

// Whether a font has pictures for the characters beyond U+FFFF in a text, of which GDI tells nothing.
bool drawsSurrogatePairs(const MeasuringDevice& device, std::wstring_view text, const SCRIPT_ANALYSIS& analysis,
                         const std::shared_ptr<const FontFace>& face);

// The whole text as one run, for a system without Uniscribe.
ShapedText shapePlainly(std::wstring_view text, const std::shared_ptr<const FontFace>& face, bool rightToLeft);

}  // namespace tavi
