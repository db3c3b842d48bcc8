#include "tavi/text/clusters.h"

#include "tests/portable/table.h"

namespace {

using namespace tavi;
using testing_table::expectEach;

// The text with a bar between its clusters.
std::wstring clustersOf(const std::wstring& text) {
    std::wstring result;
    for (size_t at = 0; at < text.size(); at = nextCluster(text, at)) {
        result += (at > 0 ? L"|" : L"") + text.substr(at, nextCluster(text, at) - at);
    }
    return result;
}

TEST(Clusters, AreWhatPeopleTakeForOneCharacter) {
    expectEach(clustersOf,
               {
                   {L"", L""},
                   {L"ab", L"a|b"},
                   {L"e\x301\x323z", L"e\x301\x323|z"},
                   {L"a\r\nb\n\r", L"a|\r\n|b|\n|\r"},
                   {L"\n\x301", L"\n|\x301"},
                   // Hangul: letters that make a syllable, a whole one with a last consonant, two syllables.
                   {L"\x1112\x1161\x11ABz", L"\x1112\x1161\x11AB|z"},
                   {L"\xD558\x11AB\xD55C\x11AB\xD55C\x1161", L"\xD558\x11AB|\xD55C\x11AB|\xD55C|\x1161"},
                   // Flags, in pairs; a family; a heart with its selector; a hand with a tone of skin.
                   {L"\U0001F1E8\U0001F1FF\U0001F1E9\U0001F1EA\U0001F1E8",
                    L"\U0001F1E8\U0001F1FF|\U0001F1E9\U0001F1EA|\U0001F1E8"},
                   {L"\U0001F468\x200D\U0001F469\x200D\U0001F467z", L"\U0001F468\x200D\U0001F469\x200D\U0001F467|z"},
                   {L"a\x200D\U0001F469", L"a\x200D|\U0001F469"},
                   {L"\x2764\xFE0F\U0001F44D\U0001F3FD", L"\x2764\xFE0F|\U0001F44D\U0001F3FD"},
                   // Conjuncts of Devanagari and Khmer; a virama at the end of a word; none in Tamil.
                   {L"\x915\x94D\x937\x93F\x915", L"\x915\x94D\x937\x93F|\x915"},
                   {L"\x1781\x17D2\x1798\x17C2\x179A", L"\x1781\x17D2\x1798\x17C2|\x179A"},
                   {L"\x915\x94D \x937", L"\x915\x94D| |\x937"},
                   {L"\xBA4\xBCD\xBA4", L"\xBA4\xBCD|\xBA4"},
                   // Thai: a vowel before its consonant is one of its own, one above it is not.
                   {L"\xE40\xE1B\xE47\xE19\xE19\xE33", L"\xE40|\xE1B\xE47|\xE19|\xE19\xE33"},
                   // Halves of surrogate pairs.
                   {L"\xD83D z\xDE00", L"\xD83D| |z|\xDE00"},
                   {L"a\x200B\x301", L"a|\x200B|\x301"},
               });
}

TEST(Clusters, AreTheSameFromEveryPositionAndInBothDirections) {
    std::mt19937 random(7);
    constexpr std::wstring_view kAlphabet =
        L"a "
        L"\r\n\x301\x200D\x200B\x915\x94D\x937\x1112\x1161\x11AB\xAC00\xD83D\xDE00\U0001F1E8\U0001F469\xE40\xE33\x600";
    for (int i = 0; i < 500; ++i) {
        const std::wstring text = testing_table::randomText(random, kAlphabet, 24);
        for (size_t at = 0; at < text.size();) {
            const size_t next = nextCluster(text, at);
            ASSERT_GT(next, at);
            ASSERT_EQ(previousCluster(text, next), at) << testing::PrintToString(text);
            for (size_t inside = at; inside < next; ++inside) {
                ASSERT_EQ(clusterStart(text, inside), at) << testing::PrintToString(text);
            }
            at = next;
        }
        EXPECT_EQ(clusterStart(text, text.size() + 3), text.size());
        EXPECT_EQ(previousCluster(text, 0), 0U);
    }
}

TEST(Words, AreJumpedOverWithTheBlanksBehindThem) {
    const std::wstring text = L"one, two  f\x301ive";  // one|,_|two__|five
    const std::vector<size_t> ends{3, 5, 10, 15};
    size_t at = 0;
    for (const size_t end : ends) {
        EXPECT_EQ(nextWord(text, at), end);
        EXPECT_EQ(previousWord(text, end), at);
        at = end;
    }
    EXPECT_EQ(nextWord(text, 15), 15U);
    EXPECT_EQ(nextWord(text, 9), 10U) << "from the middle of blanks";
    EXPECT_EQ(previousWord(text, 12), 10U);
    EXPECT_EQ(previousWord(L"  a", 2), 0U);
}

TEST(Words, AreFoundAroundAPosition) {
    const std::wstring text = L"one, \x5E9\x5DC\x5D5\x5DD";
    const std::vector<std::pair<size_t, TextRange>> cases{
        {0, {0, 3}}, {2, {0, 3}}, {3, {3, 4}}, {4, {4, 5}}, {6, {5, 9}}, {9, {5, 9}}, {99, {5, 9}},
    };
    for (const auto& [position, expected] : cases) {
        const TextRange found = wordAt(text, position);
        EXPECT_TRUE(found == expected) << position << ": " << found.begin << " to " << found.end;
    }
    EXPECT_TRUE(wordAt(L"", 0).empty());
}

TEST(Direction, IsThatOfTheFirstCharacterWithOne) {
    EXPECT_TRUE(startsRightToLeft(L"12 - \x5D0 b"));
    EXPECT_TRUE(startsRightToLeft(L"\x627"));
    EXPECT_TRUE(startsRightToLeft(L"\x200F 1"));
    EXPECT_TRUE(startsRightToLeft(L"\x2067 a\x2069 \x5D0")) << "what is isolated does not count";
    EXPECT_FALSE(startsRightToLeft(L"\x2069 a \x5D0"));
    EXPECT_FALSE(startsRightToLeft(L"1 2"));
    EXPECT_FALSE(startsRightToLeft(L""));
}

}  // namespace
