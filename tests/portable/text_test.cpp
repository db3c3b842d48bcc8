#include "base/text.h"

#include <gtest/gtest.h>

#include "tests/portable/table.h"

namespace {

using base::toUtf8;
using base::toWide;

std::wstring units(std::initializer_list<unsigned> values) {
    std::wstring text;
    for (const unsigned value : values) {
        text.push_back(static_cast<wchar_t>(value));
    }
    return text;
}

TEST(Text, WellFormedTextGoesBothWays) {
    // The first and last code point of each length.
    constexpr std::pair<const wchar_t*, const char*> kCases[] = {
        {L"", ""},
        {L"\x01 ~\x7F", "\x01 ~\x7F"},
        {L"\x80\x7FF", "\xC2\x80\xDF\xBF"},
        {L"\x800\xFFFF", "\xE0\xA0\x80\xEF\xBF\xBF"},
        {L"\xD7FF\xE000", "\xED\x9F\xBF\xEE\x80\x80"},
        {L"\U00010000\U0010FFFF", "\xF0\x90\x80\x80\xF4\x8F\xBF\xBF"},
        {L"Gr\u00FC\u00DF \u65E5 \U0001F600", "Gr\xC3\xBC\xC3\x9F \xE6\x97\xA5 \xF0\x9F\x98\x80"},
    };
    for (const auto& [wide, utf8] : kCases) {
        EXPECT_EQ(toUtf8(wide), utf8);
        EXPECT_EQ(toWide(utf8), wide);
    }
    EXPECT_EQ(toUtf8(std::wstring(1, L'\0')), std::string(1, '\0'));
    EXPECT_EQ(toWide(std::string_view("a\0b", 3)), std::wstring(L"a\0b", 3));
}

TEST(Text, MaximalIllFormedPartsBecomeOneReplacementEach) {
    struct Case {
        const char *name, *utf8;
        const wchar_t* wide;
    };
    constexpr Case kCases[] = {
        {"lone continuation", "a\x80z", L"a\xFFFDz"},
        {"bytes that never occur", "\xC0\x80\xC1\xF5\xFF", L"\xFFFD\xFFFD\xFFFD\xFFFD\xFFFD"},
        {"overlong, three bytes", "\xE0\x9F\xBF", L"\xFFFD\xFFFD\xFFFD"},
        {"overlong, four bytes", "\xF0\x8F\xBF\xBF", L"\xFFFD\xFFFD\xFFFD\xFFFD"},
        {"encoded surrogate", "\xED\xA0\x80", L"\xFFFD\xFFFD\xFFFD"},
        {"beyond the last code point", "\xF4\x90\x80\x80", L"\xFFFD\xFFFD\xFFFD\xFFFD"},
        {"two of three bytes", "\xE6\x97z", L"\xFFFDz"},
        {"three of four bytes", "\xF0\x9F\x98z", L"\xFFFDz"},
        {"cut off by another lead", "\xF0\x9F\xC3\xA9", L"\xFFFD\xE9"},
        {"cut off by the end", "z\xF0\x9F\x98", L"z\xFFFD"},
        {"lead at the end", "z\xC3", L"z\xFFFD"},
        {"several parts in a row", "a\xF1\x80\x80\xE1\x80\xC2z", L"a\xFFFD\xFFFD\xFFFDz"},
    };
    for (const Case& c : kCases) {
        EXPECT_EQ(toWide(c.utf8), c.wide) << c.name;
    }
}

TEST(Text, PairedSurrogatesAreOneCharacterAndOthersAreReplaced) {
    struct Case {
        const char* name;
        std::wstring wide;
        const char* utf8;
    };
    const Case cases[] = {
        {"pair", units({0xD83D, 0xDE00}), "\xF0\x9F\x98\x80"},
        {"first and last pair", units({0xD800, 0xDC00, 0xDBFF, 0xDFFF}), "\xF0\x90\x80\x80\xF4\x8F\xBF\xBF"},
        {"high at the end", units({'a', 0xD83D}), "a\xEF\xBF\xBD"},
        {"high before a letter", units({0xD83D, 'z'}), "\xEF\xBF\xBDz"},
        {"low alone", units({0xDE00, 'z'}), "\xEF\xBF\xBDz"},
        {"wrong order", units({0xDE00, 0xD83D}), "\xEF\xBF\xBD\xEF\xBF\xBD"},
        {"high before a pair", units({0xD83D, 0xD83D, 0xDE00}), "\xEF\xBF\xBD\xF0\x9F\x98\x80"},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(toUtf8(c.wide), c.utf8) << c.name;
    }
    if constexpr (sizeof(wchar_t) == 4) {
        EXPECT_EQ(toUtf8(units({0x110000, 0xFFFFFFFF})), "\xEF\xBF\xBD\xEF\xBF\xBD");
    }
}

TEST(Text, RandomCodePointsGoBothWays) {
    testing_table::Random random(1);
    constexpr size_t kLimits[] = {0x80, 0x800, 0x10000, 0x110000};
    for (int round = 0; round < 2000; ++round) {
        std::wstring text;
        for (int i = 0; i < 20; ++i) {
            const size_t limit = kLimits[testing_table::randomBelow(random, std::size(kLimits))];
            const auto c = static_cast<char32_t>(testing_table::randomBelow(random, limit));
            if (c < 0xD800 || c > 0xDFFF) {
                base::appendCodePoint(text, c);
            }
        }
        ASSERT_EQ(toWide(toUtf8(text)), text);
    }
}

TEST(Text, Trimming) {
    const testing_table::Pairs pairs = {
        {L"", L""},           {L" \t\r\n\v\f", L""}, {L"a", L"a"},
        {L"  a b\t", L"a b"}, {L"a  b", L"a  b"},    {L"\n\"x\" ", L"\"x\""},
    };
    testing_table::expectEach(base::trimmed, pairs);
}

TEST(Text, ComparingWithoutCase) {
    struct Case {
        const wchar_t *text, *other;
        bool equal, endsWith;
    };
    constexpr Case kCases[] = {
        {L"", L"", true, true},
        {L"Velquin.EXE", L"vELQUIN.exe", true, true},
        {L"a\\b.MSI", L".msi", false, true},
        {L"abc", L"", false, true},
        {L"", L"a", false, false},
        {L"msi", L".msi", false, false},
        {L"a.msi2", L".msi", false, false},
        {L"[", L"{", false, false},
    };
    for (const Case& c : kCases) {
        EXPECT_EQ(base::equalsIgnoringCase(c.text, c.other), c.equal) << testing::PrintToString(c.text);
        EXPECT_EQ(base::endsWithIgnoringCase(c.text, c.other), c.endsWith) << testing::PrintToString(c.text);
    }
    EXPECT_EQ(base::lowered(L"AZ[az]@09_"), L"az[az]@09_");
}

TEST(Text, ZeroPadding) {
    EXPECT_EQ(base::zeroPadded(0, 2), L"00");
    EXPECT_EQ(base::zeroPadded(7, 1), L"7");
    EXPECT_EQ(base::zeroPadded(7, 4), L"0007");
    EXPECT_EQ(base::zeroPadded(1234, 2), L"1234");
    EXPECT_EQ(base::zeroPadded(4294967295u, 3), L"4294967295");
}

}  // namespace
