// What the code of texts has to know about a character: how it joins others, where lines break around it, what kind of
// word it belongs to, its direction. Compiled from the Unicode Character Database by tools/text/character_traits.py.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace tavi {

// A character of a text, and how many units of wchar_t it takes. Half a surrogate pair is one of its own.
struct CodePoint {
    char32_t value = 0;
    size_t length = 0;
};
// The one that begins at a position before the end, and the one that ends at a position behind the beginning.
CodePoint codePointAt(std::wstring_view text, size_t position);
CodePoint codePointBefore(std::wstring_view text, size_t position);
// `position`, or the beginning of the surrogate pair whose middle it is.
size_t codePointStart(std::wstring_view text, size_t position);

enum class ClusterClass : uint8_t {
    kOther,
    kMark,            // belongs to what stands before it
    kJoiner,          // ZWJ
    kControl,         // stands alone
    kCarriageReturn,  // stands alone, or with the line feed after it
    kLineFeed,
    kPrefix,   // belongs to what stands after it
    kFlag,     // two of them are a flag
    kPicture,  // ZWJ joins them
    kLeading,  // the parts of Hangul syllables
    kVowel,
    kTrailing,
    kSyllable,  // a whole one, with or without a trailing consonant
    kLinker,    // a mark that joins two consonants
    kConsonant,
};

enum class BreakClass : uint8_t {
    kLetter,     // lines break at blanks only
    kIdeograph,  // lines break before and behind it
    kOpening,    // never behind it
    kClosing,    // never before it
    kAfter,      // behind it
    kGlue,       // on neither side
    kBlank,
};

enum class WordClass : uint8_t { kSign, kLetter, kBlank };

enum class Direction : uint8_t { kNone, kLeftToRight, kRightToLeft };

struct CharacterTraits {
    ClusterClass cluster = ClusterClass::kOther;
    BreakClass lineBreak = BreakClass::kLetter;
    WordClass word = WordClass::kSign;
    Direction direction = Direction::kNone;
};
CharacterTraits traitsOf(char32_t character);

// Has no picture of its own, wherever it stands: joiners, marks of direction, variation selectors, places for breaks.
bool isInvisible(char32_t character);
// Ends a line: line feed, carriage return, and the separators of lines and paragraphs.
bool endsLine(char32_t character);

}  // namespace tavi
