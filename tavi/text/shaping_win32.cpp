// Shaping with Uniscribe: a paragraph becomes items of one script and direction, each item parts that one font has all
// characters of, each part glyphs.
#include <windows.h>

#include <usp10.h>

#include <algorithm>

#include "tavi/text/character_traits.h"
#include "tavi/text/clusters.h"
#include "tavi/text/font_cache_win32.h"
#include "tavi/text/font_fallback.h"
#include "tavi/text/glyph_run_win32.h"
#include "tavi/text/shaping.h"
#include "tavi/text/uniscribe_win32.h"

namespace tavi {
namespace {

// Shapes nothing by itself: it takes effect on the characters beside it.
bool isJoiner(char32_t character) {
    constexpr char32_t kWidthlessNonJoiner = 0x200C;
    const CharacterTraits traits = traitsOf(character);
    return character == kWidthlessNonJoiner || traits.cluster == ClusterClass::kJoiner ||
           traits.cluster == ClusterClass::kMark;
}

class Shaper {
    using Face = std::shared_ptr<const FontFace>;

public:
    Shaper(std::wstring_view text, const TextFont& font, int32_t dpi)
        : text_(text), font_(font), dpi_(dpi), han_(hanFormOf(text)), asked_(findFontFace(font.family, font, dpi)) {
        if (!asked_->isGenuine()) {
            const Face substitute = firstOf(substituteFamilies(font.family), {}, {}, {});
            asked_ = substitute ? substitute : asked_;
        }
    }

    // Empty runs when Uniscribe fails.
    ShapedText shape(bool rightToLeft);
    const Face& askedFace() const { return asked_; }

private:
    std::wstring_view part(size_t begin, size_t end) const { return text_.substr(begin, end - begin); }
    void useHeight(const FontFace& face) {
        result_.ascent = std::max(result_.ascent, face.ascent());
        result_.descent = std::max(result_.descent, face.descent());
    }

    std::vector<SCRIPT_ITEM> itemize(bool rightToLeft) const;
    void findWords(TextRange range, const SCRIPT_ANALYSIS& analysis);
    void shapeItem(TextRange range, const SCRIPT_ANALYSIS& analysis);
    void shapeVisible(TextRange range, const SCRIPT_ANALYSIS& analysis);
    void shapeRun(TextRange range, const SCRIPT_ANALYSIS& analysis, const Face& face);
    void appendInvisible(TextRange range, const SCRIPT_ANALYSIS& analysis);

    bool draws(const Face& face, std::wstring_view text, const SCRIPT_ANALYSIS& analysis) const {
        return face->hasGlyphs(device_, text) && drawsSurrogatePairs(device_, text, analysis, face);
    }
    Face findFace(std::wstring_view text, const SCRIPT_ANALYSIS& analysis) const;
    Face firstOf(std::wstring_view families, std::wstring_view text, const SCRIPT_ANALYSIS& analysis,
                 std::string_view tags) const;

    std::wstring_view text_;
    const TextFont& font_;
    int32_t dpi_;
    HanForm han_;
    Face asked_;
    MeasuringDevice device_;
    ShapedText result_;
};

ShapedText Shaper::shape(bool rightToLeft) {
    result_.units.resize(text_.size());
    useHeight(*asked_);
    const std::vector<SCRIPT_ITEM> items = itemize(rightToLeft);
    for (size_t i = 0; i + 1 < items.size(); ++i) {
        const TextRange range{static_cast<size_t>(items[i].iCharPos), static_cast<size_t>(items[i + 1].iCharPos)};
        findWords(range, items[i].a);
        shapeItem(range, items[i].a);
    }
    return std::move(result_);
}

// The items, and one more that begins at the end.
std::vector<SCRIPT_ITEM> Shaper::itemize(bool rightToLeft) const {
    const SCRIPT_CONTROL control{};
    SCRIPT_STATE state{};
    state.uBidiLevel = rightToLeft ? 1 : 0;
    std::vector<SCRIPT_ITEM> items(std::min<size_t>(text_.size(), 32) + 2);
    int count = 0;
    HRESULT result = E_OUTOFMEMORY;
    while (result == E_OUTOFMEMORY) {
        result = uniscribe().itemize(text_.data(), static_cast<int>(text_.size()), static_cast<int>(items.size()) - 1,
                                     &control, &state, items.data(), &count);
        if (result == E_OUTOFMEMORY && items.size() > text_.size() + 2) {
            break;
        }
        items.resize(SUCCEEDED(result) ? static_cast<size_t>(count) + 1 : items.size() * 2);
    }
    return SUCCEEDED(result) ? items : std::vector<SCRIPT_ITEM>{};
}

// Scripts without blanks between words have a dictionary, if the system brings one.
void Shaper::findWords(TextRange range, const SCRIPT_ANALYSIS& analysis) {
    const SCRIPT_PROPERTIES** properties = nullptr;
    int count = 0;
    const bool isKnown = SUCCEEDED(uniscribe().properties(&properties, &count)) && analysis.eScript < count;
    if (!isKnown || !properties[analysis.eScript]->fNeedsWordBreaking) {
        return;
    }
    const std::wstring_view text = part(range.begin, range.end);
    std::vector<SCRIPT_LOGATTR> attributes(text.size());
    if (SUCCEEDED(uniscribe().breakWords(text.data(), static_cast<int>(text.size()), &analysis, attributes.data()))) {
        for (size_t i = 1; i < text.size(); ++i) {
            result_.units[range.begin + i].softBreak = attributes[i].fSoftBreak != 0;
        }
    }
}

// Characters without a picture get no glyphs: fonts would show what they have for a missing character.
void Shaper::shapeItem(TextRange range, const SCRIPT_ANALYSIS& analysis) {
    size_t begin = range.begin;
    for (size_t at = range.begin; at < range.end;) {
        const CodePoint character = codePointAt(text_, at);
        const size_t next = std::min(at + character.length, range.end);
        if (isInvisible(character.value) && !isJoiner(character.value)) {
            shapeVisible({begin, at}, analysis);
            appendInvisible({at, next}, analysis);
            begin = next;
        }
        at = next;
    }
    shapeVisible({begin, range.end}, analysis);
}

void Shaper::appendInvisible(TextRange range, const SCRIPT_ANALYSIS& analysis) {
    result_.units[range.begin].divisible = true;
    result_.runs.push_back({range.begin, range.end, static_cast<uint8_t>(analysis.s.uBidiLevel)});
}

// In one font if there is one that has it all, else each cluster in the first font that has it.
void Shaper::shapeVisible(TextRange range, const SCRIPT_ANALYSIS& analysis) {
    if (range.empty()) {
        return;
    }
    if (const Face face = findFace(part(range.begin, range.end), analysis)) {
        shapeRun(range, analysis, face);
        return;
    }
    Face face;
    size_t begin = range.begin;
    for (size_t at = range.begin; at < range.end;) {
        const size_t next = std::min(nextCluster(text_, at), range.end);
        const Face found = findFace(part(at, next), analysis);
        const Face own = found ? found : asked_;
        if (face && own != face) {
            shapeRun({begin, at}, analysis, face);
            begin = at;
        }
        face = own;
        at = next;
    }
    shapeRun({begin, range.end}, analysis, face);
}

Shaper::Face Shaper::findFace(std::wstring_view text, const SCRIPT_ANALYSIS& analysis) const {
    FallbackFonts fonts;
    for (size_t at = 0; at < text.size() && fonts.families.empty(); at += codePointAt(text, at).length) {
        fonts = fallbackFonts(codePointAt(text, at).value, han_);
    }
    if (asked_->canShape(fonts.shapingTags) && draws(asked_, text, analysis)) {
        return asked_;
    }
    if (const Face face = firstOf(fonts.families, text, analysis, fonts.shapingTags)) {
        return face;
    }
    return firstOf(kLastResortFamilies, text, analysis, {});
}

Shaper::Face Shaper::firstOf(std::wstring_view families, std::wstring_view text, const SCRIPT_ANALYSIS& analysis,
                             std::string_view tags) const {
    while (!families.empty()) {
        const std::wstring_view family = families.substr(0, families.find(L'|'));
        families.remove_prefix(std::min(family.size() + 1, families.size()));
        const Face face = findFontFace(std::wstring(family), font_, dpi_);
        if (face->isGenuine() && face->canShape(tags) && draws(face, text, analysis)) {
            return face;
        }
    }
    return nullptr;
}

void Shaper::shapeRun(TextRange range, const SCRIPT_ANALYSIS& analysis, const Face& face) {
    const std::wstring_view text = part(range.begin, range.end);
    const std::shared_ptr<const GlyphRun> run =
        makeGlyphRun(device_, text, analysis, draws(face, text, analysis), face);
    useHeight(*face);
    result_.runs.push_back({range.begin, range.end, static_cast<uint8_t>(analysis.s.uBidiLevel), run});
    result_.units[range.begin].divisible = true;
    if (!run) {
        return;
    }
    const size_t length = range.end - range.begin;
    for (size_t begin = 0; begin < length;) {
        size_t end = begin + 1;
        while (end < length && run->clusters[end] == run->clusters[begin]) {
            ++end;
        }
        const GlyphRun::GlyphRange glyphs = run->glyphRange(begin, end);
        ShapedUnit& unit = result_.units[range.begin + begin];
        unit.divisible = true;
        for (size_t i = glyphs.begin; i < glyphs.end; ++i) {
            unit.advance += run->advances[i];
        }
        begin = end;
    }
}

}  // namespace

ShapedText shapeText(std::wstring_view text, const TextFont& font, int32_t dpi, bool rightToLeft) {
    Shaper shaper(text, font, dpi);
    if (uniscribe().isComplete()) {
        ShapedText shaped = shaper.shape(rightToLeft);
        if (text.empty() || !shaped.runs.empty()) {
            return shaped;
        }
    }
    return shapePlainly(text, shaper.askedFace(), rightToLeft);
}

}  // namespace tavi
