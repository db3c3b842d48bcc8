#include "tavi/text/visual_line.h"

#include <algorithm>

namespace tavi {
namespace {

// The pieces of a part of a text in the order of the text. Blanks at its end have the paragraph's level (UAX #9, L1).
void appendPieces(std::vector<VisualPiece>& pieces, const MeasuredText& text, TextRange range, uint8_t paragraphLevel) {
    const size_t visible = text.withoutBlanks(range.begin, range.end);
    for (const ShapedRun& run : text.shaped().runs) {
        const auto append = [&](size_t begin, size_t end, uint8_t level) {
            const size_t from = std::max(run.begin, begin);
            const size_t to = std::min(run.end, end);
            if (from < to) {
                pieces.push_back({.text = &text, .run = &run, .begin = from, .end = to, .level = level});
            }
        };
        append(range.begin, visible, run.level);
        append(visible, range.end, paragraphLevel);
    }
}

// UAX #9, L2: from the highest level to the lowest odd one, reverses what is at that level or above.
void reorder(std::vector<VisualPiece>& pieces) {
    uint8_t highest = 0;
    for (const VisualPiece& piece : pieces) {
        highest = std::max(highest, piece.level);
    }
    for (uint8_t level = highest; level > 0; --level) {
        for (auto at = pieces.begin(); at != pieces.end();) {
            const auto begin = std::find_if(at, pieces.end(), [&](const VisualPiece& p) { return p.level >= level; });
            at = std::find_if(begin, pieces.end(), [&](const VisualPiece& p) { return p.level < level; });
            std::reverse(begin, at);
        }
    }
}

}  // namespace

int32_t VisualPiece::edge(size_t position) const {
    const int32_t passed = text->width(begin, position);
    return left + (isRightToLeft() ? width() - passed : passed);
}

VisualLine arrangeLine(const MeasuredText& text, TextRange range, const MeasuredText* tail, bool rightToLeft) {
    const uint8_t level = rightToLeft ? 1 : 0;
    VisualLine line;
    appendPieces(line.pieces, text, range, level);
    if (tail != nullptr) {
        for (const ShapedRun& run : tail->shaped().runs) {
            line.pieces.push_back({.text = tail, .run = &run, .begin = run.begin, .end = run.end, .level = level});
        }
    }
    reorder(line.pieces);
    for (VisualPiece& piece : line.pieces) {
        piece.left = line.width;
        line.width += piece.width();
    }
    return line;
}

std::vector<CaretPlace> caretPlaces(const MeasuredText& text, const VisualLine& line, bool rightToLeft) {
    std::vector<CaretPlace> places;
    const VisualPiece* last = nullptr;
    for (const VisualPiece& piece : line.pieces) {
        for (size_t at = piece.begin; at < piece.end; ++at) {
            if (text.boundary(at) >= Boundary::kCaret) {
                places.push_back({at, piece.edge(at)});
            }
        }
        last = last == nullptr || piece.end > last->end ? &piece : last;
    }
    std::ranges::sort(places, {}, &CaretPlace::position);
    places.push_back({text.size(), last != nullptr ? last->edge(last->end) : rightToLeft ? line.width : 0});
    return places;
}

}  // namespace tavi
