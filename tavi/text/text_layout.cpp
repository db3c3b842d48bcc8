#include "tavi/text/text_layout.h"

#include <algorithm>
#include <cstdlib>
#include <functional>

#include "tavi/text/character_traits.h"
#include "tavi/text/layout_cache.h"
#include "tavi/text/line_breaker.h"
#include "tavi/text/visual_line.h"

namespace tavi {
namespace {

constexpr std::wstring_view kEllipsisText = L"\x2026";

// The parts between line ends; one that ends the text begins no further part.
std::vector<std::wstring_view> paragraphsOf(std::wstring_view text) {
    std::vector<std::wstring_view> parts;
    size_t begin = 0;
    for (size_t at = 0; at < text.size(); ++at) {
        if (endsLine(static_cast<char32_t>(text[at]))) {
            parts.push_back(text.substr(begin, at - begin));
            at += text.substr(at).starts_with(L"\r\n") ? 1 : 0;
            begin = at + 1;
        }
    }
    if (begin < text.size() || parts.empty()) {
        parts.push_back(text.substr(begin));
    }
    return parts;
}

// A line before its pieces are put into order.
struct LogicalLine {
    size_t paragraph = 0;
    TextRange range = {};
};

}  // namespace

struct TextLayout::Data {
    TextFormat format;
    std::vector<MeasuredText> paragraphs;
    std::vector<MeasuredText> ellipsis;  // one, or none when nothing is cut
    std::vector<VisualLine> lines;
    std::vector<CaretPlace> carets;  // when there is one whole line
    Size size;
    int32_t ascent = 0;
    int32_t lineHeight = 0;

    Data(std::wstring_view text, const TextFormat& wanted);

    MeasuredText measured(std::wstring_view text) const { return {text, format.font, format.dpi, format.rightToLeft}; }
    bool isCut() const { return !ellipsis.empty(); }
    bool wraps() const { return format.fit == TextFit::kWrap; }
    std::vector<LogicalLine> logicalLines() const;
    void arrange(const std::vector<LogicalLine>& logical);
    void arrangeCut(const LogicalLine& line);
    void measureLines();
    size_t caretIndex(size_t position) const;
};

TextLayout::Data::Data(std::wstring_view text, const TextFormat& wanted) : format(wanted) {
    for (const std::wstring_view part : wraps() ? paragraphsOf(text) : std::vector{text}) {
        paragraphs.push_back(measured(part));
    }
    arrange(logicalLines());
    measureLines();
    if (lines.size() == 1 && paragraphs.size() == 1 && !isCut()) {
        carets = caretPlaces(paragraphs.front(), lines.front(), format.rightToLeft);
    }
}

std::vector<LogicalLine> TextLayout::Data::logicalLines() const {
    std::vector<LogicalLine> result;
    for (size_t i = 0; i < paragraphs.size(); ++i) {
        const MeasuredText& paragraph = paragraphs[i];
        if (!wraps()) {
            result.push_back({i, {0, paragraph.size()}});
            continue;
        }
        for (const TextRange& range : breakLines(paragraph, format.width)) {
            result.push_back({i, {range.begin, paragraph.withoutBlanks(range.begin, range.end)}});
        }
    }
    return result;
}

void TextLayout::Data::arrange(const std::vector<LogicalLine>& logical) {
    const size_t limit = wraps() && format.maxLines > 0 ? static_cast<size_t>(format.maxLines) : logical.size();
    const size_t whole = limit < logical.size() ? limit - 1 : logical.size();
    for (const LogicalLine& line : logical) {
        const MeasuredText& paragraph = paragraphs[line.paragraph];
        const size_t visible = paragraph.withoutBlanks(line.range.begin, line.range.end);
        const auto isTooWide = [&](size_t end) {
            return format.fit == TextFit::kEllipsis && paragraph.width(line.range.begin, end) > format.width;
        };
        if (lines.size() == whole || isTooWide(visible)) {
            arrangeCut(line);
            return;
        }
        const TextRange shown{line.range.begin, isTooWide(line.range.end) ? visible : line.range.end};
        lines.push_back(arrangeLine(paragraph, shown, nullptr, format.rightToLeft));
    }
}

// As much of the rest of the paragraph as there is room for, and the ellipsis.
void TextLayout::Data::arrangeCut(const LogicalLine& line) {
    ellipsis.push_back(measured(kEllipsisText));
    const MeasuredText& sign = ellipsis.front();
    const MeasuredText& paragraph = paragraphs[line.paragraph];
    const int32_t room = format.width - sign.width(0, sign.size());
    const TextRange range{line.range.begin, longestFit(paragraph, line.range.begin, room)};
    lines.push_back(arrangeLine(paragraph, range, &sign, format.rightToLeft));
}

void TextLayout::Data::measureLines() {
    int32_t descent = 0;
    for (const auto& texts : {std::cref(paragraphs), std::cref(ellipsis)}) {
        for (const MeasuredText& text : texts.get()) {
            ascent = std::max(ascent, text.shaped().ascent);
            descent = std::max(descent, text.shaped().descent);
        }
    }
    lineHeight = ascent + descent;
    for (const VisualLine& line : lines) {
        size.width = std::max(size.width, line.width);
    }
    size.height = saturate(int64_t{lineHeight} * static_cast<int64_t>(lines.size()));
}

// Of the cluster that a position lies in, or of the end.
size_t TextLayout::Data::caretIndex(size_t position) const {
    const auto beyond = std::ranges::upper_bound(carets, position, {}, &CaretPlace::position);
    return static_cast<size_t>(std::max<std::ptrdiff_t>(beyond - carets.begin() - 1, 0));
}

TextLayout::TextLayout(std::wstring_view text, const TextFormat& format)
    : data_(keptLayouts<const Data>().find(text, format, [&] { return std::make_shared<const Data>(text, format); })) {}

Size TextLayout::size() const {
    return data_ ? data_->size : Size{};
}

int32_t TextLayout::lineHeight() const {
    return data_ ? data_->lineHeight : 0;
}

int32_t TextLayout::baseline() const {
    return data_ ? data_->ascent : 0;
}

size_t TextLayout::lineCount() const {
    return data_ ? data_->lines.size() : 0;
}

bool TextLayout::isCut() const {
    return data_ && data_->isCut();
}

const TextFormat& TextLayout::format() const {
    static const TextFormat kNone;
    return data_ ? data_->format : kNone;
}

void TextLayout::draw(HDC target, const Rect& area, uint32_t color, TextAlign align, TextVertical vertical) const {
    if (!data_) {
        return;
    }
    const int32_t above = vertical == TextVertical::kCenter ? (area.height - data_->size.height) / 2 : 0;
    const bool toTheRight = (align == TextAlign::kEnd) != data_->format.rightToLeft;
    Point origin{0, area.y + above + data_->ascent};
    for (const VisualLine& line : data_->lines) {
        const int32_t free = area.width - line.width;
        origin.x = area.x + (align == TextAlign::kCenter ? free / 2 : toTheRight ? free : 0);
        for (const VisualPiece& piece : line.pieces) {
            drawRun(target, *piece.run, piece.begin, piece.end, origin + Point{piece.left, 0}, color);
        }
        origin.y += data_->lineHeight;
    }
}

int32_t TextLayout::caretX(size_t position) const {
    return data_ && !data_->carets.empty() ? data_->carets[data_->caretIndex(position)].x : 0;
}

size_t TextLayout::positionAt(int32_t x) const {
    if (!data_ || data_->carets.empty()) {
        return 0;
    }
    const auto distance = [x](const CaretPlace& place) { return std::abs(int64_t{place.x} - x); };
    return std::ranges::min_element(data_->carets, {}, distance)->position;
}

size_t TextLayout::visualNeighbor(size_t position, bool toTheRight) const {
    if (!data_ || data_->carets.empty()) {
        return position;
    }
    // The nearest place on that side; where two positions share it, the one that is nearer in the text.
    const CaretPlace from = data_->carets[data_->caretIndex(position)];
    const CaretPlace* best = &from;
    const auto step = [&](const CaretPlace& place) { return toTheRight ? place.x - from.x : from.x - place.x; };
    const auto leap = [&](const CaretPlace& place) {
        return place.position > from.position ? place.position - from.position : from.position - place.position;
    };
    for (const CaretPlace& place : data_->carets) {
        const bool isNearer =
            best == &from || step(place) < step(*best) || (step(place) == step(*best) && leap(place) < leap(*best));
        if (step(place) > 0 && isNearer) {
            best = &place;
        }
    }
    return best->position;
}

std::vector<TextLayout::Span> TextLayout::spans(size_t begin, size_t end) const {
    std::vector<Span> result;
    if (!data_ || data_->carets.empty()) {
        return result;
    }
    const size_t from = data_->carets[data_->caretIndex(begin)].position;
    const size_t to = data_->carets[data_->caretIndex(end)].position;
    for (const VisualPiece& piece : data_->lines.front().pieces) {
        const size_t first = std::max(from, piece.begin);
        const size_t last = std::min(to, piece.end);
        if (first >= last) {
            continue;
        }
        const int32_t left = piece.edge(piece.isRightToLeft() ? last : first);
        const int32_t right = piece.edge(piece.isRightToLeft() ? first : last);
        if (!result.empty() && result.back().right == left) {
            result.back().right = right;
        } else if (left < right) {
            result.push_back({left, right});
        }
    }
    return result;
}

}  // namespace tavi
