#include "tests/portable/shaping_stand_in.h"

#include <algorithm>
#include <utility>

#include "tavi/text/character_traits.h"
#include "tavi/text/clusters.h"
#include "tavi/text/shaping.h"

namespace tavi {

struct GlyphRun {
    std::wstring text;
};

namespace {

std::vector<stand_in::DrawnText>& drawn() {
    static std::vector<stand_in::DrawnText> texts;
    return texts;
}

// Levels of embedding, of characters without a direction those of the paragraph, or of what stands on both sides.
std::vector<uint8_t> levelsOf(std::wstring_view text, bool rightToLeft) {
    const Direction base = rightToLeft ? Direction::kRightToLeft : Direction::kLeftToRight;
    std::vector<Direction> directions;
    for (const wchar_t unit : text) {
        directions.push_back(traitsOf(static_cast<char32_t>(unit)).direction);
    }
    std::vector<uint8_t> levels;
    Direction before = base;
    for (size_t i = 0; i < text.size(); ++i) {
        if (directions[i] == Direction::kNone) {
            const auto strong = std::find_if(directions.begin() + static_cast<std::ptrdiff_t>(i), directions.end(),
                                             [](Direction d) { return d != Direction::kNone; });
            const Direction after = strong != directions.end() ? *strong : base;
            directions[i] = before == after ? before : base;
        }
        before = directions[i];
        levels.push_back(before == Direction::kRightToLeft ? 1 : rightToLeft ? 2 : 0);
    }
    return levels;
}

}  // namespace

ShapedText shapeText(std::wstring_view text, const TextFont& font, int32_t dpi, bool rightToLeft) {
    const int32_t unit = font.points * dpi / (12 * 96 / 4);  // a fourth of the size
    ShapedText shaped{.units = std::vector<ShapedUnit>(text.size()), .ascent = 3 * unit, .descent = unit};
    const std::vector<uint8_t> levels = levelsOf(text, rightToLeft);
    for (size_t at = 0; at < text.size();) {
        const bool isLigature = text.substr(at).starts_with(L"fi");
        const size_t next = nextCluster(text, isLigature ? at + 1 : at);
        const int32_t width = isLigature ? 4 * unit : 2 * unit;
        shaped.units[at] = {.advance = isInvisible(static_cast<char32_t>(text[at])) ? 0 : width,
                            .divisible = true,
                            .softBreak = at > 0 && text[at] == 0x0E40};
        if (shaped.runs.empty() || shaped.runs.back().level != levels[at]) {
            shaped.runs.push_back({at, at, levels[at]});
        }
        shaped.runs.back().end = next;
        at = next;
    }
    for (ShapedRun& run : shaped.runs) {
        run.glyphs = std::make_shared<GlyphRun>(std::wstring(text.substr(run.begin, run.end - run.begin)));
    }
    return shaped;
}

void drawRun(HDC /*target*/, const ShapedRun& run, size_t begin, size_t end, Point origin, uint32_t color) {
    drawn().push_back({run.glyphs->text.substr(begin - run.begin, end - begin), origin, color});
}

}  // namespace tavi

namespace stand_in {

std::vector<DrawnText> takeDrawnTexts() {
    return std::exchange(tavi::drawn(), {});
}

}  // namespace stand_in
