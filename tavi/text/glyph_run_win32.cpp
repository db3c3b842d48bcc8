#include "tavi/text/glyph_run_win32.h"

#include <algorithm>

#include "base/text.h"
#include "tavi/text/uniscribe_win32.h"

namespace tavi {
namespace {

// Uniscribe's own advice for the first try.
size_t likelyGlyphs(size_t characters) {
    return characters * 3 / 2 + 16;
}

bool shapeGlyphs(HDC device, std::wstring_view text, GlyphRun& run) {
    constexpr size_t kMostGlyphs = 0xFFFF;
    run.clusters.resize(text.size());
    HRESULT result = E_OUTOFMEMORY;
    int count = 0;
    for (size_t room = likelyGlyphs(text.size()); result == E_OUTOFMEMORY && room <= kMostGlyphs; room *= 2) {
        run.glyphs.resize(room);
        run.attributes.resize(room);
        const auto shape = [&] {
            return uniscribe().shape(device, run.face->scriptCache(), text.data(), static_cast<int>(text.size()),
                                     static_cast<int>(room), &run.analysis, run.glyphs.data(), run.clusters.data(),
                                     run.attributes.data(), &count);
        };
        result = shape();
        if (result == USP_E_SCRIPT_NOT_IN_FONT) {
            // The characters are there, the knowledge of the script is not.
            run.analysis.eScript = SCRIPT_UNDEFINED;
            result = shape();
        }
    }
    if (FAILED(result)) {
        return false;
    }
    run.glyphs.resize(static_cast<size_t>(count));
    run.attributes.resize(run.glyphs.size());
    return true;
}

bool placeGlyphs(HDC device, GlyphRun& run) {
    run.advances.resize(run.glyphs.size());
    run.offsets.resize(run.glyphs.size());
    ABC extent{};
    return SUCCEEDED(uniscribe().place(device, run.face->scriptCache(), run.glyphs.data(),
                                       static_cast<int>(run.glyphs.size()), run.attributes.data(), &run.analysis,
                                       run.advances.data(), run.offsets.data(), &extent));
}

// The font has all that is to be seen, so what it lacks is a joiner or the like, for which it would show a box. Some
// fonts draw joiners as thin lines, too.
void hideInvisible(HDC device, GlyphRun& run) {
    SCRIPT_FONTPROPERTIES properties{};
    properties.cBytes = sizeof(properties);
    constexpr std::wstring_view kJoiners = L"\x200C\x200D";
    WORD joiners[kJoiners.size()]{};
    GetGlyphIndicesW(device, kJoiners.data(), static_cast<int>(kJoiners.size()), joiners, GGI_MARK_NONEXISTING_GLYPHS);
    if (FAILED(uniscribe().fontProperties(device, run.face->scriptCache(), &properties))) {
        return;
    }
    for (size_t i = 0; i < run.glyphs.size(); ++i) {
        if (run.glyphs[i] == properties.wgDefault || std::ranges::find(joiners, run.glyphs[i]) != std::end(joiners)) {
            run.glyphs[i] = properties.wgBlank;
            run.advances[i] = 0;
        }
    }
}

// A device as text is drawn on it, and as it was before.
class TextState {
public:
    TextState(HDC device, HFONT font, uint32_t color)
        : device_(device),
          font_(SelectObject(device, font)),
          color_(SetTextColor(device, color)),
          mode_(SetBkMode(device, TRANSPARENT)),
          align_(SetTextAlign(device, TA_BASELINE | TA_LEFT)) {}
    ~TextState() {
        SetTextAlign(device_, align_);
        SetBkMode(device_, mode_);
        SetTextColor(device_, color_);
        SelectObject(device_, font_);
    }
    TextState(const TextState&) = delete;
    TextState& operator=(const TextState&) = delete;

private:
    HDC device_;
    HGDIOBJ font_;
    COLORREF color_;
    int mode_;
    UINT align_;
};

}  // namespace

GlyphRun::GlyphRange GlyphRun::glyphRange(size_t begin, size_t end) const {
    const auto first = static_cast<size_t>(clusters[begin]);
    if (analysis.fRTL) {
        const size_t behind = end < clusters.size() ? clusters[end] + size_t{1} : 0;
        return {std::min(behind, glyphs.size()), std::min(first + 1, glyphs.size())};
    }
    const size_t behind = end < clusters.size() ? clusters[end] : glyphs.size();
    return {std::min(first, glyphs.size()), std::min(behind, glyphs.size())};
}

std::shared_ptr<const GlyphRun> makeGlyphRun(const MeasuringDevice& device, std::wstring_view text,
                                             const SCRIPT_ANALYSIS& analysis, bool isComplete,
                                             const std::shared_ptr<const FontFace>& face) {
    const auto run = std::make_shared<GlyphRun>();
    run->face = face;
    run->analysis = analysis;
    run->analysis.fLogicalOrder = FALSE;
    const HDC target = device.with(face->handle());
    if (!shapeGlyphs(target, text, *run) || !placeGlyphs(target, *run)) {
        return nullptr;
    }
    if (isComplete) {
        hideInvisible(target, *run);
    }
    return run;
}

bool drawsSurrogatePairs(const MeasuringDevice& device, std::wstring_view text, const SCRIPT_ANALYSIS& analysis,
                         const std::shared_ptr<const FontFace>& face) {
    const auto isPair = [](wchar_t unit) { return base::isHighSurrogate(static_cast<char32_t>(unit)); };
    if (std::ranges::none_of(text, isPair)) {
        return true;
    }
    const std::shared_ptr<const GlyphRun> run = makeGlyphRun(device, text, analysis, false, face);
    SCRIPT_FONTPROPERTIES properties{};
    properties.cBytes = sizeof(properties);
    if (!run || FAILED(uniscribe().fontProperties(device.with(face->handle()), face->scriptCache(), &properties))) {
        return false;
    }
    for (size_t i = 0; i < text.size(); ++i) {
        if (isPair(text[i]) && run->glyphs[run->clusters[i]] == properties.wgDefault) {
            return false;
        }
    }
    return true;
}

void drawRun(HDC target, const ShapedRun& run, size_t begin, size_t end, Point origin, uint32_t color) {
    if (!run.glyphs || begin >= end) {
        return;
    }
    const GlyphRun& glyphs = *run.glyphs;
    const TextState state(target, glyphs.face->handle(), color);
    if (!glyphs.plainText.empty()) {
        const UINT options = run.level % 2 != 0 ? ETO_RTLREADING : 0U;
        ExtTextOutW(target, origin.x, origin.y, options, nullptr, glyphs.plainText.data() + begin,
                    static_cast<UINT>(end - begin), glyphs.advances.data() + begin);
        return;
    }
    const GlyphRun::GlyphRange range = glyphs.glyphRange(begin - run.begin, end - run.begin);
    if (range.begin < range.end) {
        uniscribe().textOut(target, glyphs.face->scriptCache(), origin.x, origin.y, 0, nullptr, &glyphs.analysis,
                            nullptr, 0, glyphs.glyphs.data() + range.begin, static_cast<int>(range.end - range.begin),
                            glyphs.advances.data() + range.begin, nullptr, glyphs.offsets.data() + range.begin);
    }
}

}  // namespace tavi
