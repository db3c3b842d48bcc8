// A paragraph with its glyphs and where it may be divided: what lines are broken from.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "tavi/core/text_font.h"
#include "tavi/text/shaping.h"

namespace tavi {

// What may happen before a unit of a text, each including those before it.
enum class Boundary : uint8_t {
    kNone,       // nothing: it lies inside of a cluster
    kCaret,      // a caret may stand there
    kReluctant,  // a line may be broken there if there is no other way
    kForced,     // a line may be broken there inside of a word that is wider than the room
    kBreak,      // a line may be broken there
};

class MeasuredText {
public:
    // Control characters and line ends become blanks, halves of surrogate pairs U+FFFD.
    MeasuredText(std::wstring_view text, const TextFont& font, int32_t dpi, bool rightToLeft);

    size_t size() const { return text_.size(); }
    const ShapedText& shaped() const { return shaped_; }
    // Before a unit, or at the end of the text.
    Boundary boundary(size_t position) const { return boundaries_[position]; }
    bool isDivisible(size_t position) const { return boundaries_[position] >= Boundary::kReluctant; }
    // The extent of a part. Clusters that share glyphs share their width.
    int32_t width(size_t begin, size_t end) const { return offsets_[end] - offsets_[begin]; }
    // The end of a part without the blanks and invisible characters at its end.
    size_t withoutBlanks(size_t begin, size_t end) const;

private:
    void findBoundaries();
    void sumAdvances();

    std::wstring text_;
    ShapedText shaped_;
    std::vector<Boundary> boundaries_;  // one more than units
    std::vector<int32_t> offsets_;      // sums of advances, one more than units
};

}  // namespace tavi
