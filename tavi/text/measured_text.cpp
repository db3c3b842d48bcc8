#include "tavi/text/measured_text.h"

#include "base/text.h"
#include "tavi/text/character_traits.h"
#include "tavi/text/clusters.h"

namespace tavi {
namespace {

constexpr wchar_t kBlank = L' ';
constexpr wchar_t kWidthlessBreak = 0x200B;
constexpr wchar_t kReplacement = 0xFFFD;
constexpr char32_t kLastCharacter = 0x10FFFF;

// Every unit stays one, so that positions stay the same.
std::wstring prepared(std::wstring_view text) {
    std::wstring result(text);
    for (size_t at = 0; at < result.size();) {
        const CodePoint character = codePointAt(text, at);
        const bool isControl = character.value < 0x20 || (character.value >= 0x7F && character.value < 0xA0);
        if (isControl || endsLine(character.value)) {
            const bool isSecond = character.value == L'\n' && at > 0 && text[at - 1] == L'\r';
            result[at] = isSecond ? kWidthlessBreak : kBlank;
        } else if (base::isHighSurrogate(character.value) || base::isLowSurrogate(character.value) ||
                   character.value > kLastCharacter) {
            result[at] = kReplacement;
        }
        at += character.length;
    }
    return result;
}

// The first character of a cluster, which decides for the whole of it.
struct Head {
    char32_t value = 0;
    CharacterTraits traits = {};
};

Head headAt(std::wstring_view text, size_t position) {
    const char32_t value = codePointAt(text, position).value;
    return {value, traitsOf(value)};
}

// Whether a line may end behind a hyphen or slash between two clusters. One that begins a word belongs to it.
bool breaksBehindSign(const Head& beforeSign, const Head& sign, const Head& after) {
    if (sign.value == kWidthlessBreak) {
        return true;
    }
    const bool isDigit = after.value >= U'0' && after.value <= U'9';
    const BreakClass before = beforeSign.traits.lineBreak;
    return !isDigit && after.traits.lineBreak != BreakClass::kAfter && before != BreakClass::kBlank &&
           before != BreakClass::kAfter && before != BreakClass::kOpening;
}

// The last cluster before a boundary and the first behind it, each with its neighbor.
struct Surroundings {
    Head beforeLast = {};
    Head last = {};
    Head first = {};
    Head second = {};
};

// A simplified UAX #14: what the user interfaces of all its languages need.
Boundary boundaryIn(const Surroundings& around) {
    const BreakClass left = around.last.traits.lineBreak;
    const BreakClass right = around.first.traits.lineBreak;
    const bool isBehindGap = left == BreakClass::kBlank || around.last.value == kWidthlessBreak;
    if (right == BreakClass::kBlank || right == BreakClass::kGlue || left == BreakClass::kGlue ||
        left == BreakClass::kOpening || (right == BreakClass::kClosing && !isBehindGap)) {
        return Boundary::kReluctant;
    }
    // French has blanks before its signs. What stands right before a letter begins a word: 'n, .exe.
    if (right == BreakClass::kClosing && left == BreakClass::kBlank &&
        around.second.traits.lineBreak != BreakClass::kLetter) {
        return Boundary::kForced;
    }
    if (isBehindGap) {
        return Boundary::kBreak;
    }
    if (left == BreakClass::kAfter) {
        return breaksBehindSign(around.beforeLast, around.last, around.first) ? Boundary::kBreak : Boundary::kReluctant;
    }
    if (right == BreakClass::kAfter) {
        return Boundary::kReluctant;
    }
    const bool isBesideIdeograph = left == BreakClass::kIdeograph || right == BreakClass::kIdeograph;
    return isBesideIdeograph ? Boundary::kBreak : Boundary::kForced;
}

}  // namespace

MeasuredText::MeasuredText(std::wstring_view text, const TextFont& font, int32_t dpi, bool rightToLeft)
    : text_(prepared(text)), shaped_(shapeText(text_, font, dpi, rightToLeft)) {
    findBoundaries();
    sumAdvances();
}

void MeasuredText::findBoundaries() {
    boundaries_.assign(text_.size() + 1, Boundary::kNone);
    boundaries_.front() = Boundary::kBreak;
    boundaries_.back() = Boundary::kBreak;
    const Head start{kBlank, traitsOf(kBlank)};
    Surroundings around{start, start, start, text_.empty() ? start : headAt(text_, 0)};
    for (size_t at = 0; at < text_.size();) {
        const size_t next = nextCluster(text_, at);
        around = {around.last, around.first, around.second, next < text_.size() ? headAt(text_, next) : start};
        if (at > 0) {
            const Boundary boundary = shaped_.units[at].softBreak ? Boundary::kBreak : boundaryIn(around);
            boundaries_[at] = shaped_.units[at].divisible ? boundary : Boundary::kCaret;
        }
        at = next;
    }
}

void MeasuredText::sumAdvances() {
    offsets_.assign(text_.size() + 1, 0);
    for (size_t begin = 0; begin < text_.size();) {
        // A group: what shares glyphs. Its width is spread evenly over the clusters in it.
        int32_t advance = shaped_.units[begin].advance;
        int32_t clusters = 1;
        size_t end = begin + 1;
        for (; end < text_.size() && !isDivisible(end); ++end) {
            advance += shaped_.units[end].advance;
            clusters += boundary(end) == Boundary::kCaret ? 1 : 0;
        }
        int32_t passed = 0;
        for (size_t at = begin + 1; at <= end; ++at) {
            passed += at == end || boundary(at) == Boundary::kCaret ? 1 : 0;
            offsets_[at] = offsets_[begin] + static_cast<int32_t>(int64_t{advance} * passed / clusters);
        }
        begin = end;
    }
}

size_t MeasuredText::withoutBlanks(size_t begin, size_t end) const {
    while (end > begin) {
        const CodePoint last = codePointBefore(text_, end);
        if (traitsOf(last.value).lineBreak != BreakClass::kBlank && last.value != kWidthlessBreak) {
            break;
        }
        end -= last.length;
    }
    // A blank that carries marks is more than one.
    while (!isDivisible(end)) {
        ++end;
    }
    return end;
}

}  // namespace tavi
