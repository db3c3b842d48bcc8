#include "base/text.h"

#include <gtest/gtest.h>

#include "tests/portable/table.h"

namespace {

using base::toUtf8;
using base::toWide;

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
        EXPECT_EQ(base::toWideStrict(utf8), wide);
    }
    EXPECT_EQ(base::toWideStrict("\xEF\xBF\xBD"), L"\xFFFD") << "a replacement character is one like any other";
    EXPECT_EQ(toUtf8(toWide(std::string_view("a\0b", 3))), std::string("a\0b", 3));
}

TEST(Text, MaximalIllFormedPartsBecomeOneReplacementEach) {
    constexpr std::pair<const char*, const wchar_t*> kCases[] = {
        {"a\x80z", L"a\xFFFDz"},
        {"\xC0\x80\xC1\xF5\xFF", L"\xFFFD\xFFFD\xFFFD\xFFFD\xFFFD"},
        // Overlong forms, a surrogate, one beyond the last code point.
        {"\xE0\x9F\xBF", L"\xFFFD\xFFFD\xFFFD"},
        {"\xF0\x8F\xBF\xBF", L"\xFFFD\xFFFD\xFFFD\xFFFD"},
        {"\xED\xA0\x80", L"\xFFFD\xFFFD\xFFFD"},
        {"\xF4\x90\x80\x80", L"\xFFFD\xFFFD\xFFFD\xFFFD"},
        // Cut off by a letter, another lead and the end.
        {"\xE6\x97z", L"\xFFFDz"},
        {"\xF0\x9F\xC3\xA9", L"\xFFFD\xE9"},
        {"z\xF0\x9F\x98", L"z\xFFFD"},
        {"a\xF1\x80\x80\xE1\x80\xC2z", L"a\xFFFD\xFFFD\xFFFDz"},
    };
    for (const auto& [utf8, wide] : kCases) {
        EXPECT_EQ(toWide(utf8), wide) << testing::PrintToString(utf8);
        EXPECT_EQ(base::toWideStrict(utf8), std::nullopt) << testing::PrintToString(utf8);
    }
}

TEST(Text, FilesAreReadByTheirByteOrderMark) {
    using namespace std::string_view_literals;
    const std::tuple<std::string_view, const wchar_t*, bool> cases[] = {
        {""sv, L"", true},
        {"\xC3\xA9\xEF\xBF\xBD"sv, L"\xE9\xFFFD", true},
        {"\xC3\xA9\xFF"sv, L"\xE9\xFFFD", false},
        {"\xEF\xBB\xBF{\xC3\xA9"sv, L"{\xE9", true},
        {"\xFF\xFE{\0\xE9\0\x3D\xD8\0\xDE"sv, L"{\xE9\U0001F600", true},
        {"\xFE\xFF\0{\0\xE9\xD8\x3D\xDE\0"sv, L"{\xE9\U0001F600", true},
        // Half a pair, half a unit.
        {"\xFF\xFE\x3D\xD8{\0\0\xDE"sv, L"\xFFFD{\xFFFD", false},
        {"\xFE\xFF\0{\0"sv, L"{", false},
    };
    for (const auto& [bytes, text, isWellFormed] : cases) {
        const base::DecodedText decoded = base::decodeTextFile(bytes);
        EXPECT_EQ(decoded.text, text) << testing::PrintToString(bytes);
        EXPECT_EQ(decoded.isWellFormed, isWellFormed) << testing::PrintToString(bytes);
    }
}

TEST(Text, PairedSurrogatesAreOneCharacterAndOthersAreReplaced) {
    constexpr std::pair<const wchar_t*, const char*> kCases[] = {
        {L"\xD800\xDC00\xDBFF\xDFFF", "\xF0\x90\x80\x80\xF4\x8F\xBF\xBF"},
        {L"a\xD83D", "a\xEF\xBF\xBD"},
        {L"\xD83Dz", "\xEF\xBF\xBDz"},
        {L"\xDE00\xD83D", "\xEF\xBF\xBD\xEF\xBF\xBD"},
        {L"\xD83D\xD83D\xDE00", "\xEF\xBF\xBD\xF0\x9F\x98\x80"},
        {L"\x110000\x7FFFFFFF", "\xEF\xBF\xBD\xEF\xBF\xBD"},
    };
    for (const auto& [wide, utf8] : kCases) {
        EXPECT_EQ(toUtf8(wide), utf8) << testing::PrintToString(wide);
    }
}

TEST(Text, TrimmingPaddingAndComparing) {
    testing_table::expectEach(base::trimmed, {{L" \t\r\n\v\f", L""}, {L"  a  b\t", L"a  b"}, {L"a", L"a"}});
    EXPECT_EQ(base::zeroPadded(0, 2), L"00");
    EXPECT_EQ(base::zeroPadded(1234, 2), L"1234");
    EXPECT_EQ(base::lowered(L"AZ[az]@09_"), L"az[az]@09_");
    struct Case {
        const wchar_t *text, *other;
        bool equal, endsWith;
    };
    constexpr Case kCases[] = {
        {L"Velquin.EXE", L"vELQUIN.exe", true, true},
        {L"a\\b.MSI", L".msi", false, true},
        {L"abc", L"", false, true},
        {L"msi", L".msi", false, false},
        {L"a.msi2", L".msi", false, false},
    };
    for (const Case& c : kCases) {
        EXPECT_EQ(base::equalsIgnoringCase(c.text, c.other), c.equal) << testing::PrintToString(c.text);
        EXPECT_EQ(base::endsWithIgnoringCase(c.text, c.other), c.endsWith) << testing::PrintToString(c.text);
    }
}

}  // namespace
