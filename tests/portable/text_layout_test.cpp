#include "tavi/text/text_layout.h"

#include <algorithm>

#include "tavi/core/cache_release.h"
#include "tavi/text/clusters.h"
#include "tests/portable/shaping_stand_in.h"
#include "tests/portable/table.h"

namespace {

using namespace tavi;

constexpr int32_t kAdvance = 8;
constexpr int32_t kLineHeight = 16;

TextFormat formatOf(TextFit fit, int32_t width, int maxLines = 0, bool rightToLeft = false) {
    return {.font = {.family = L"", .points = 12},
            .rightToLeft = rightToLeft,
            .fit = fit,
            .width = width,
            .maxLines = maxLines};
}

// What is drawn in each line, from left to right, with a bar between lines.
std::wstring drawnLines(const TextLayout& layout, const Rect& area = {}) {
    stand_in::takeDrawnTexts();
    layout.draw(nullptr, area, 0, TextAlign::kStart, TextVertical::kTop);
    std::wstring result;
    int32_t y = kLineHeight * 3 / 4;
    for (const stand_in::DrawnText& part : stand_in::takeDrawnTexts()) {
        for (; y < part.origin.y; y += kLineHeight) {
            result += L'|';
        }
        result += part.text;
    }
    return result;
}

std::wstring wrapped(const std::wstring& text, int clusters, int maxLines = 0) {
    return drawnLines(TextLayout(text, formatOf(TextFit::kWrap, clusters * kAdvance, maxLines)));
}

TEST(TextLayout, BreaksLinesBetweenWords) {
    struct Case {
        const wchar_t* text;
        int clusters;
        const wchar_t* lines;
    };
    constexpr Case kCases[] = {
        {L"one two three", 7, L"one two|three"},
        {L"one two   three", 7, L"one two|three"},  // blanks hang over
        {L"one two", 3, L"one|two"},
        {L"a\nb\r\n\r\nc\n", 9, L"a|b||c"},
        {L"wonderful a", 4, L"wond|erfu|l a"},
        {L"a wonderful", 4, L"a|wond|erfu|l"},
        {L"xe\x301\x301y", 1, L"x|e\x301\x301|y"},  // never inside of a cluster
        {L"a wxfi", 3, L"a|wx|fi"},                 // nor of what is one glyph
        {L"one\x200Btwo", 4, L"one|two"},           // a break that is not seen
        {L"well-known", 7, L"well-|known"},
        {L"run --all", 6, L"run|--all"},
        {L"1-2 3", 2, L"1-|2|3"},
        {L"C:\\Programs\\Tools", 12, L"C:\\Programs\\|Tools"},
        {L"10\xA0MB left", 4, L"10\xA0M|B|left"},
        {L"\x65E5\x672C\x8A9E\x3001\x6F22", 3, L"\x65E5\x672C|\x8A9E\x3001\x6F22"},  // no line begins with a comma
        {L"\x65E5\x672C\xFF08\x6F22", 3, L"\x65E5\x672C|\xFF08\x6F22"},              // or ends with a bracket
        {L"\x30C7\x30FC\x30BF\x30FC", 3, L"\x30C7\x30FC|\x30BF\x30FC"},
        {L"vrai ? oui", 5, L"vrai|? oui"},
        {L"vrai ?", 6, L"vrai ?"},
        {L"a na \x2019n b .exe", 5, L"a na|\x2019n b|.exe"},  // an apostrophe that begins a word
        {L"ab (cd) ef", 6, L"ab|(cd)|ef"},
        {L"\xFB01\xFB01 1.500,25", 8, L"\xFB01\xFB01|1.500,25"},
        {L"\xD55C\xAD6D\xC5B4", 2, L"\xD55C\xAD6D|\xC5B4"},
        {L"in\x00ADto", 3, L"in\x00AD|to"},
        {L"\xE01\xE02\xE40\xE01\xE02", 4, L"\xE01\xE02|\xE40\xE01\xE02"},  // a word of the dictionary
        {L"ab cd", 0, L"a|b|c|d"},
        {L"ab", -5, L"a|b"},
        {L"", 5, L""},
        {L"\xD83D x", 1, L"\xFFFD|x"},
    };
    for (const Case& c : kCases) {
        EXPECT_EQ(wrapped(c.text, c.clusters), c.lines);
    }
    EXPECT_EQ(wrapped(L"one two three four", 7, 2), L"one two|three\x2026") << "blanks before it go";
    EXPECT_EQ(wrapped(L"one two three four", 5, 2), L"one|two\x2026");
    EXPECT_EQ(wrapped(L"one\ntwo", 9, 1), L"one\x2026");
    EXPECT_EQ(wrapped(L"one two", 7, 1), L"one two");
}

TEST(TextLayout, CutsWhatHasNoRoomWithAnEllipsis) {
    const auto cut = [](const std::wstring& text, int clusters) {
        return drawnLines(TextLayout(text, formatOf(TextFit::kEllipsis, clusters * kAdvance)));
    };
    EXPECT_EQ(cut(L"wonderful", 9), L"wonderful");
    EXPECT_EQ(cut(L"wonderful", 8), L"wonderf\x2026");
    EXPECT_EQ(cut(L"wo nder", 4), L"wo\x2026");
    EXPECT_EQ(cut(L"e\x301\x301xyz", 3), L"e\x301\x301x\x2026");
    EXPECT_EQ(cut(L"fixyz", 2), L"\x2026");
    EXPECT_EQ(cut(L"ab", 0), L"\x2026");
    EXPECT_EQ(cut(L"a\nb", 3), L"a b");
    EXPECT_EQ(cut(L"\x5D0\x5D1\x5D2", 2), L"\x5D0\x2026");

    const TextLayout rightToLeft(L"\x5D0\x5D1\x5D2", formatOf(TextFit::kEllipsis, 16, 0, true));
    EXPECT_TRUE(rightToLeft.isCut());
    EXPECT_EQ(drawnLines(rightToLeft), L"\x2026\x5D0") << "a text from right to left ends at the left";
    EXPECT_FALSE(TextLayout(L"ab", formatOf(TextFit::kEllipsis, 16)).isCut());
}

TEST(TextLayout, HasTheSizeOfItsLines) {
    const TextLayout layout(L"one\ntwo three", formatOf(TextFit::kWrap, 100));
    EXPECT_EQ(layout.size(), (Size{9 * kAdvance, 2 * kLineHeight}));
    EXPECT_EQ(layout.lineHeight(), kLineHeight);
    EXPECT_EQ(TextLayout().size(), Size{});
    EXPECT_EQ(TextLayout().lineCount(), 0U);
    const TextLayout empty(L"", formatOf(TextFit::kWhole, 0));
    EXPECT_EQ(empty.size(), (Size{0, kLineHeight})) << "a caret stands in it";
    TextFormat large = formatOf(TextFit::kWhole, 0);
    large.dpi = 192;
    EXPECT_EQ(TextLayout(L"ab", large).size(), (Size{4 * kAdvance, 2 * kLineHeight}));
}

TEST(TextLayout, AlignsAlongTheReadingDirection) {
    const Rect area{100, 10, 80, 40};
    const auto originOf = [&](bool rightToLeft, TextAlign align, TextVertical vertical) {
        stand_in::takeDrawnTexts();
        TextLayout(L"ab", formatOf(TextFit::kWhole, 0, 0, rightToLeft)).draw(nullptr, area, 0x123456, align, vertical);
        const std::vector<stand_in::DrawnText> drawn = stand_in::takeDrawnTexts();
        EXPECT_EQ(drawn.size(), 1U);
        EXPECT_EQ(drawn.front().color, 0x123456U);
        return drawn.front().origin;
    };
    EXPECT_EQ(originOf(false, TextAlign::kStart, TextVertical::kTop), (Point{100, 22}));
    EXPECT_EQ(originOf(false, TextAlign::kEnd, TextVertical::kTop), (Point{164, 22}));
    EXPECT_EQ(originOf(true, TextAlign::kStart, TextVertical::kTop), (Point{164, 22}));
    EXPECT_EQ(originOf(true, TextAlign::kEnd, TextVertical::kTop), (Point{100, 22}));
    EXPECT_EQ(originOf(true, TextAlign::kCenter, TextVertical::kCenter), (Point{132, 34}));
}

// Four latin letters and a blank, three Hebrew ones, a blank and two latin letters.
constexpr wchar_t kMixed[] = L"abcd \x5D0\x5D1\x5D2 ef";

TEST(TextLayout, PutsRunsIntoVisualOrder) {
    const auto drawn = [](bool rightToLeft) {
        return drawnLines(TextLayout(kMixed, formatOf(TextFit::kWhole, 0, 0, rightToLeft)));
    };
    EXPECT_EQ(drawn(false), L"abcd \x5D0\x5D1\x5D2 ef");
    EXPECT_EQ(drawn(true), L"ef \x5D0\x5D1\x5D2 abcd") << "runs, each drawn from its left end";
}

TEST(TextLayout, PlacesCaretsWhereCharactersBegin) {
    const TextLayout layout(kMixed, formatOf(TextFit::kWhole, 0));
    const std::vector<int32_t> places{0, 8, 16, 24, 32, 64, 56, 48, 64, 72, 80, 88};
    for (size_t i = 0; i < places.size(); ++i) {
        EXPECT_EQ(layout.caretX(i), places[i]) << i;
    }
    EXPECT_EQ(layout.caretX(99), 88);
    EXPECT_EQ(layout.positionAt(-50), 0U);
    EXPECT_EQ(layout.positionAt(11), 1U);
    EXPECT_EQ(layout.positionAt(13), 2U);
    EXPECT_EQ(layout.positionAt(50), 7U);
    EXPECT_EQ(layout.positionAt(500), 11U);
    EXPECT_EQ(layout.visualNeighbor(0, true), 1U);
    EXPECT_EQ(layout.visualNeighbor(4, true), 7U) << "into the Hebrew from its end";
    EXPECT_EQ(layout.visualNeighbor(7, true), 6U);
    EXPECT_EQ(layout.visualNeighbor(7, false), 4U);
    EXPECT_EQ(layout.visualNeighbor(0, false), 0U);
    EXPECT_EQ(layout.visualNeighbor(11, true), 11U);
    using Spans = std::vector<TextLayout::Span>;
    EXPECT_EQ(layout.spans(3, 6), (Spans{{24, 40}, {56, 64}}));
    EXPECT_EQ(layout.spans(0, 11), (Spans{{0, 88}}));
    EXPECT_EQ(layout.spans(4, 4), Spans{});

    const TextLayout typed(L"\x5D0 ", formatOf(TextFit::kWhole, 0));
    EXPECT_EQ(typed.caretX(2), 16) << "blanks at the end run with the paragraph";
    const TextLayout ligature(L"xfiz\x301", formatOf(TextFit::kWhole, 0));
    EXPECT_EQ(ligature.caretX(2), 16) << "letters that share a glyph share its width";
    EXPECT_EQ(ligature.caretX(4), 24) << "not inside of a cluster";
    EXPECT_EQ(TextLayout(L"", formatOf(TextFit::kWhole, 0, 0, true)).caretX(0), 0);
}

TEST(TextLayout, KeepsWhatItMeasured) {
    const TextFormat format = formatOf(TextFit::kWhole, 0);
    TextLayout first(L"kept", format);
    const TextLayout copy = first;
    first = {};
    EXPECT_EQ(copy.size().width, 32);
    CacheRelease release;
    cachesReleased().emit(release);
    EXPECT_EQ(copy.size().width, 32) << "a layout outlives the caches";
    EXPECT_EQ(TextLayout(L"kept", format).size().width, 32);
}

// Nothing is lost, no line is wider than the room unless one cluster is.
void expectInvariants(const std::wstring& text, const TextFormat& format) {
    const TextLayout layout(text, format);
    const std::wstring lines = drawnLines(layout);
    const auto visible = [](const std::wstring& all) {
        std::wstring kept;
        std::ranges::copy_if(all, std::back_inserter(kept), [](wchar_t c) {
            return std::wstring_view(L" |\r\n\x200B\x301").find(c) == std::wstring::npos;
        });
        std::ranges::sort(kept);
        return kept;
    };
    std::wstring expected = text;
    std::ranges::replace_if(expected, [](wchar_t c) { return c >= 0xD800 && c < 0xE000; }, L'\xFFFD');
    if (!layout.isCut()) {
        ASSERT_EQ(visible(lines), visible(expected));
    }
    if (format.fit != TextFit::kWhole) {
        ASSERT_LE(layout.size().width, std::max(format.width, 2 * kAdvance));
    }
    if (format.maxLines > 0) {
        ASSERT_LE(layout.lineCount(), static_cast<size_t>(format.maxLines));
    }
    if (layout.lineCount() == 1 && format.fit == TextFit::kWhole) {
        for (size_t at = 0; at <= text.size(); ++at) {
            const int32_t x = layout.caretX(at);
            ASSERT_TRUE(x >= 0 && x <= layout.size().width);
            ASSERT_EQ(layout.caretX(layout.positionAt(x)), x);
            ASSERT_GE(layout.caretX(layout.visualNeighbor(at, true)), x);
            ASSERT_LE(layout.caretX(layout.visualNeighbor(at, false)), x);
        }
        int32_t covered = 0;
        for (const TextLayout::Span& span : layout.spans(0, text.size())) {
            covered += span.right - span.left;
        }
        ASSERT_EQ(covered, layout.size().width);
    }
}

TEST(TextLayout, LosesNothingOfRandomTexts) {
    std::mt19937 random(11);
    constexpr std::wstring_view kAlphabet =
        L"aaa   fi-/(,)\n\r\x301\x200B\x5D0\x5D1\x627\x660\x65E5\x3001\xFF08\xE40\xE01\xD83D\x200D";
    constexpr TextFit kFits[] = {TextFit::kWhole, TextFit::kEllipsis, TextFit::kWrap};
    for (int i = 0; i < 600 && !HasFatalFailure(); ++i) {
        const std::wstring text = testing_table::randomText(random, kAlphabet, 30);
        const auto width = static_cast<int32_t>(random() % 200) - 20;
        SCOPED_TRACE(testing::PrintToString(text) + " in " + std::to_string(width));
        expectInvariants(text, formatOf(kFits[i % 3], width, static_cast<int>(random() % 4), random() % 2 == 0));
    }
}

}  // namespace
