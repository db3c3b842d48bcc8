// Texts as fonts draw them: what is measured by counting ink on a bitmap.
#include <windows.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "tavi/text/clusters.h"
#include "tavi/text/font_fallback.h"
#include "tavi/text/glyph_run_win32.h"
#include "tavi/text/text_layout.h"

namespace {

using namespace tavi;

constexpr Size kCanvas{320, 64};

// White on black, so that what is not zero is ink.
class Canvas {
public:
    Canvas() : device_(CreateCompatibleDC(nullptr)) {
        BITMAPINFO info{};
        info.bmiHeader = {sizeof(info.bmiHeader), kCanvas.width, -kCanvas.height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
        bitmap_ = CreateDIBSection(device_, &info, DIB_RGB_COLORS, &bits_, nullptr, 0);
        before_ = SelectObject(device_, bitmap_);
    }
    ~Canvas() {
        SelectObject(device_, before_);
        DeleteObject(bitmap_);
        DeleteDC(device_);
    }
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;

    HDC device() const { return device_; }
    std::vector<uint32_t> pixels() const {
        GdiFlush();
        const auto* const first = static_cast<const uint32_t*>(bits_);
        return {first, first + kCanvas.width * kCanvas.height};
    }

private:
    HDC device_;
    HBITMAP bitmap_ = nullptr;
    HGDIOBJ before_ = nullptr;
    void* bits_ = nullptr;
};

TextFormat formatOf(TextFit fit = TextFit::kWhole, int32_t width = 0) {
    return {.font = {.family = L"Segoe UI", .points = 12}, .fit = fit, .width = width};
}

std::vector<uint32_t> picture(const std::wstring& text) {
    const Canvas canvas;
    TextLayout(text, formatOf()).draw(canvas.device(), {0, 0, kCanvas.width, kCanvas.height}, 0xFFFFFF);
    return canvas.pixels();
}

bool hasInk(const std::vector<uint32_t>& pixels) {
    return std::ranges::any_of(pixels, [](uint32_t pixel) { return (pixel & 0xFFFFFF) != 0; });
}

// The rightmost column with ink.
size_t inkEnd(const std::vector<uint32_t>& pixels) {
    size_t end = 0;
    for (size_t i = 0; i < pixels.size(); ++i) {
        end = (pixels[i] & 0xFFFFFF) != 0 ? std::max(end, i % kCanvas.width) : end;
    }
    return end;
}

int32_t widthOf(const std::wstring& text) {
    return TextLayout(text, formatOf()).size().width;
}

// A letter or syllable of each script of the program's languages.
TEST(TextDrawing, EachScriptHasPicturesOfItsOwn) {
    const std::vector<std::wstring> letters{L"a",      L"\x3B1",  L"\x436",  L"\x561",  L"\x5D0",  L"\x628", L"\x67E",
                                            L"\x6D0",  L"\x915",  L"\x995",  L"\x9F0",  L"\xA15",  L"\xA95", L"\xB15",
                                            L"\xB95",  L"\xC15",  L"\xC95",  L"\xD15",  L"\xE01",  L"\xE81", L"\x10D0",
                                            L"\x1200", L"\x13A0", L"\x1780", L"\x3042", L"\xAC00", L"\x4E2D"};
    const std::vector<uint32_t> missing = picture(L"\xFFFF");
    std::vector<std::vector<uint32_t>> pictures{missing};
    for (const std::wstring& letter : letters) {
        const std::vector<uint32_t> drawn = picture(letter);
        EXPECT_TRUE(hasInk(drawn)) << testing::PrintToString(letter);
        EXPECT_EQ(std::ranges::find(pictures, drawn), pictures.end())
            << testing::PrintToString(letter) << " looks like another one, or like a missing one";
        pictures.push_back(drawn);
    }
}

TEST(TextDrawing, CharactersAreJoinedAsTheirScriptsWant) {
    // Three letters beh, and the same kept apart.
    EXPECT_LT(widthOf(L"\x628\x628\x628"), widthOf(L"\x628\x200C\x628\x200C\x628"));
    // Letters of Devanagari and Bengali that make a conjunct, and the same with a virama that is seen.
    EXPECT_NE(picture(L"\x915\x94D\x937"), picture(L"\x915\x94D\x200C\x937"));
    EXPECT_NE(picture(L"\x995\x9CD\x9B7"), picture(L"\x995\x9CD\x200C\x9B7"));
    // What has no picture takes no room.
    EXPECT_EQ(picture(L"ab"), picture(L"a\x200B"
                                      L"b"));
    EXPECT_EQ(widthOf(L"\x1780\x200B\x1781"), widthOf(L"\x1780") + widthOf(L"\x1781"));
}

TEST(TextDrawing, AnEllipsisFitsInItsRoom) {
    for (const wchar_t* const text : {L"A text that is too long", L"\x5D8\x5E7\x5E1\x5D8 \x5D0\x5E8\x5D5\x5DA",
                                      L"\x628\x631\x646\x627\x645\x62C \x627\x644\x625\x639\x62F\x627\x62F"}) {
        for (int32_t room = 24; room < 60; room += 5) {
            const TextLayout layout(text, formatOf(TextFit::kEllipsis, room));
            EXPECT_TRUE(layout.isCut());
            EXPECT_LE(layout.size().width, room);
            const Canvas canvas;
            layout.draw(canvas.device(), {0, 0, room, kCanvas.height}, 0xFFFFFF);
            EXPECT_TRUE(hasInk(canvas.pixels()));
        }
    }
}

// Units of 16 bits: a pair is one character for clusters, carets, lines and fonts.
TEST(TextDrawing, SurrogatePairsAreNeverDivided) {
    const std::wstring pair = L"\xD840\xDC0B";
    const std::wstring text = L"a" + pair + L"\x301" + pair + L"\xD83D";
    EXPECT_EQ(nextCluster(text, 1), 4U);
    EXPECT_EQ(previousCluster(text, 6), 4U);
    EXPECT_EQ(clusterStart(text, 2), 1U);
    const TextLayout layout(text, formatOf());
    EXPECT_EQ(layout.caretX(2), layout.caretX(1));
    EXPECT_EQ(layout.visualNeighbor(1, true), 4U);
    EXPECT_EQ(TextLayout(pair + pair, formatOf(TextFit::kWrap, 1)).lineCount(), 2U);
    EXPECT_EQ(nextCluster(L"\xD83C\xDDE8\xD83C\xDDFFz", 0), 4U) << "a flag";
    // In a font that has it; shown as missing, not left out, where none has.
    EXPECT_TRUE(hasInk(picture(pair)));
    EXPECT_NE(picture(pair), picture(L"\xD840\xDC89"));
    EXPECT_TRUE(hasInk(picture(L"\xDB80\xDC00")));
}

// What is drawn where Windows lacks Uniscribe.
TEST(TextDrawing, TheWholeTextIsOneRunWithoutUniscribe) {
    const std::wstring text = L"Plain \x5D0\x5D1";
    for (const bool rightToLeft : {false, true}) {
        const ShapedText shaped =
            shapePlainly(text, findFontFace(L"Segoe UI", {.family = L"Segoe UI", .points = 12}, 96), rightToLeft);
        ASSERT_EQ(shaped.runs.size(), 1U);
        ASSERT_EQ(shaped.units.size(), text.size());
        const Canvas whole;
        const Canvas parts;
        drawRun(whole.device(), shaped.runs.front(), 0, 5, {10, 30}, 0xFFFFFF);
        int32_t x = 10;
        for (size_t i = 0; i < 5; ++i) {
            drawRun(parts.device(), shaped.runs.front(), i, i + 1, {x, 30}, 0xFFFFFF);
            x += shaped.units[i].advance;
        }
        EXPECT_TRUE(hasInk(whole.pixels()));
        EXPECT_EQ(inkEnd(whole.pixels()), inkEnd(parts.pixels())) << "advances are those of the letters";
    }
}

TEST(TextDrawing, AFontThatIsMissingHasASubstituteOfItsSize) {
    EXPECT_TRUE(substituteFamilies(L"JetBrains Mono").contains(L"Consolas"));
    EXPECT_EQ(substituteFamilies(L"Exo 2"), L"Segoe UI");
    TextFormat format = formatOf();
    format.font.family = L"Nobody Has Such A Mono";
    const TextLayout thin(L"iiii", format);
    EXPECT_EQ(thin.size().width, TextLayout(L"MMMM", format).size().width) << "one for code";
    format.font.family = L"Cascadia Mono";
    EXPECT_EQ(thin.size(), TextLayout(L"iiii", format).size());
}

TEST(TextDrawing, LinesAreAsHighAsTheFontsInThem) {
    const int32_t latin = TextLayout(L"a", formatOf()).lineHeight();
    EXPECT_GE(TextLayout(L"a \x628", formatOf()).lineHeight(), latin);
    EXPECT_EQ(TextLayout(L"", formatOf()).lineHeight(), latin);
}

TEST(TextDrawing, LeavesTheDeviceAsItWas) {
    const Canvas canvas;
    SetTextColor(canvas.device(), 0x010203);
    const HGDIOBJ font = GetCurrentObject(canvas.device(), OBJ_FONT);
    TextLayout(L"a \x628", formatOf()).draw(canvas.device(), {0, 0, 100, 20}, 0xFFFFFF);
    EXPECT_EQ(GetTextColor(canvas.device()), 0x010203U);
    EXPECT_EQ(GetCurrentObject(canvas.device(), OBJ_FONT), font);
    EXPECT_EQ(GetTextAlign(canvas.device()), UINT{TA_LEFT});
    EXPECT_EQ(GetBkMode(canvas.device()), OPAQUE);
}

}  // namespace
