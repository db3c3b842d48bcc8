#include "tavi/text/clusters.h"

#include <algorithm>

#include "tavi/text/character_traits.h"

namespace tavi {
namespace {

using enum ClusterClass;

bool isExtension(ClusterClass c) {
    return c == kMark || c == kJoiner || c == kLinker;
}

bool standsAlone(ClusterClass c) {
    return c == kControl || c == kCarriageReturn || c == kLineFeed;
}

bool isLeadingAndVowel(char32_t syllable) {
    constexpr char32_t kFirstSyllable = 0xAC00;
    constexpr char32_t kTrailingConsonants = 28;
    return (syllable - kFirstSyllable) % kTrailingConsonants == 0;
}

// A character with its place in a cluster, which is read from its beginning.
struct Character {
    char32_t value = 0;
    ClusterClass cluster = kOther;
};

Character characterAt(std::wstring_view text, size_t position) {
    const char32_t value = codePointAt(text, position).value;
    return {value, traitsOf(value).cluster};
}

bool joinsHangul(Character before, Character after) {
    switch (after.cluster) {
        case kLeading:
        case kSyllable:
            return before.cluster == kLeading;
        case kVowel:
            return before.cluster == kLeading || before.cluster == kVowel ||
                   (before.cluster == kSyllable && isLeadingAndVowel(before.value));
        case kTrailing:
            return before.cluster == kVowel || before.cluster == kTrailing || before.cluster == kSyllable;
        default:
            return false;
    }
}

enum class Joint : uint8_t { kApart, kTogether, kDependsOnMore };

Joint jointOf(Character before, Character after) {
    if (before.cluster == kCarriageReturn && after.cluster == kLineFeed) {
        return Joint::kTogether;
    }
    if (standsAlone(before.cluster) || standsAlone(after.cluster)) {
        return Joint::kApart;
    }
    if (isExtension(after.cluster) || before.cluster == kPrefix || joinsHangul(before, after)) {
        return Joint::kTogether;
    }
    const bool mayJoin = (before.cluster == kFlag && after.cluster == kFlag) ||
                         (before.cluster == kJoiner && after.cluster == kPicture) ||
                         (isExtension(before.cluster) && after.cluster == kConsonant);
    return mayJoin ? Joint::kDependsOnMore : Joint::kApart;
}

// What decides over joints that depend on more than the two characters beside them.
class ClusterReader {
public:
    explicit ClusterReader(Character first) { take(first); }

    bool accepts(Character next) const {
        const Joint joint = jointOf(last_, next);
        if (joint != Joint::kDependsOnMore) {
            return joint == Joint::kTogether;
        }
        return next.cluster == kFlag ? hasOddFlag_ : next.cluster == kPicture ? isPicture_ : isConsonant_ && isLinked_;
    }

    void take(Character next) {
        if (next.cluster == kLinker) {
            isLinked_ = true;
        } else if (!isExtension(next.cluster)) {
            isConsonant_ = next.cluster == kConsonant;
            isPicture_ = next.cluster == kPicture;
            hasOddFlag_ = next.cluster == kFlag && !hasOddFlag_;
            isLinked_ = false;
        }
        last_ = next;
    }

private:
    Character last_ = {};
    bool hasOddFlag_ = false;
    bool isPicture_ = false;
    bool isConsonant_ = false;
    bool isLinked_ = false;
};

// The end of the cluster that begins at `start`.
size_t clusterEnd(std::wstring_view text, size_t start) {
    ClusterReader reader(characterAt(text, start));
    size_t at = start + codePointAt(text, start).length;
    while (at < text.size()) {
        const Character next = characterAt(text, at);
        if (!reader.accepts(next)) {
            break;
        }
        reader.take(next);
        at += codePointAt(text, at).length;
    }
    return at;
}

// A beginning of a cluster at `position` or before it, found without reading the whole text.
size_t safeStart(std::wstring_view text, size_t position) {
    size_t at = codePointStart(text, position);
    while (at > 0) {
        const CodePoint before = codePointBefore(text, at);
        const Character character{before.value, traitsOf(before.value).cluster};
        if (at < text.size() && jointOf(character, characterAt(text, at)) == Joint::kApart) {
            break;
        }
        at -= before.length;
    }
    return at;
}

WordClass wordClassAt(std::wstring_view text, size_t position) {
    return traitsOf(codePointAt(text, position).value).word;
}

// How far clusters of the same kind go on from a cluster's beginning, in both directions.
size_t runEnd(std::wstring_view text, size_t start) {
    size_t at = start;
    while (at < text.size() && wordClassAt(text, at) == wordClassAt(text, start)) {
        at = nextCluster(text, at);
    }
    return at;
}

size_t runBegin(std::wstring_view text, size_t start) {
    size_t at = start;
    while (at > 0) {
        const size_t before = previousCluster(text, at);
        if (wordClassAt(text, before) != wordClassAt(text, start)) {
            break;
        }
        at = before;
    }
    return at;
}

}  // namespace

size_t clusterStart(std::wstring_view text, size_t position) {
    if (position >= text.size()) {
        return text.size();
    }
    size_t start = safeStart(text, position);
    for (size_t end = clusterEnd(text, start); end <= position; end = clusterEnd(text, start)) {
        start = end;
    }
    return start;
}

size_t nextCluster(std::wstring_view text, size_t position) {
    return position < text.size() ? clusterEnd(text, clusterStart(text, position)) : text.size();
}

size_t previousCluster(std::wstring_view text, size_t position) {
    const size_t start = clusterStart(text, position);
    return start > 0 ? clusterStart(text, start - 1) : 0;
}

size_t nextWord(std::wstring_view text, size_t position) {
    size_t at = clusterStart(text, position);
    if (at < text.size() && wordClassAt(text, at) != WordClass::kBlank) {
        at = runEnd(text, at);
    }
    return at < text.size() && wordClassAt(text, at) == WordClass::kBlank ? runEnd(text, at) : at;
}

size_t previousWord(std::wstring_view text, size_t position) {
    size_t at = previousCluster(text, position);
    if (at < text.size() && wordClassAt(text, at) == WordClass::kBlank) {
        at = previousCluster(text, runBegin(text, at));
    }
    return at < text.size() ? runBegin(text, at) : at;
}

TextRange wordAt(std::wstring_view text, size_t position) {
    const size_t start = position < text.size() ? clusterStart(text, position) : previousCluster(text, text.size());
    return start < text.size() ? TextRange{runBegin(text, start), runEnd(text, start)} : TextRange{};
}

bool startsRightToLeft(std::wstring_view text) {
    int isolates = 0;
    for (size_t at = 0; at < text.size();) {
        const CodePoint character = codePointAt(text, at);
        at += character.length;
        constexpr char32_t kFirstIsolate = 0x2066;
        constexpr char32_t kIsolateEnd = 0x2069;
        if (character.value >= kFirstIsolate && character.value < kIsolateEnd) {
            ++isolates;
        } else if (character.value == kIsolateEnd) {
            isolates = std::max(isolates - 1, 0);
        } else if (const Direction direction = traitsOf(character.value).direction;
                   isolates == 0 && direction != Direction::kNone) {
            return direction == Direction::kRightToLeft;
        }
    }
    return false;
}

}  // namespace tavi
