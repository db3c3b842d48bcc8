// What people take for one character, and for one word: where a caret may stand in a text, and where it jumps to. Pure
// functions of the text; positions count units of wchar_t (UTF-16 on Windows), and one that lies inside a character
// counts as its beginning.
//
// Follows Unicode's extended grapheme clusters (UAX #29) as far as editing needs them: combining marks, joiners and
// variation selectors, surrogate pairs, Hangul syllables, flags, conjuncts of Indic scripts.
#pragma once

#include <cstddef>
#include <string_view>

namespace tavi {

// Where the cluster that follows `position` ends, and where the one before it begins; the ends of the text beyond it.
size_t nextCluster(std::wstring_view text, size_t position);
size_t previousCluster(std::wstring_view text, size_t position);
// The beginning of the cluster that `position` lies in.
size_t clusterStart(std::wstring_view text, size_t position);

// Where a jump by words leads: to the beginning of the next word, and to that of the word before. Words are runs of
// letters and digits, or of other signs; blanks belong to the word before them.
size_t nextWord(std::wstring_view text, size_t position);
size_t previousWord(std::wstring_view text, size_t position);

// The word around a position, as a double click selects it: without the blanks after it.
struct TextRange {
    size_t begin = 0;
    size_t end = 0;

    bool empty() const { return begin == end; }
    bool operator==(const TextRange&) const = default;
};
TextRange wordAt(std::wstring_view text, size_t position);

// Whether the first character with a direction of its own runs from right to left (UAX #9, P2 and P3).
bool startsRightToLeft(std::wstring_view text);

}  // namespace tavi
