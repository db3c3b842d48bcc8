#include "tavi/text/font_cache_win32.h"

#include <algorithm>

#include "base/text.h"
#include "base/win32/system_library.h"
#include "tavi/core/cache_release.h"
#include "tavi/text/character_traits.h"
#include "tavi/text/uniscribe_win32.h"

namespace tavi {
namespace {

struct FontKey {
    std::wstring family;
    int height = 0;  // pixels
    int weight = 0;

    bool operator==(const FontKey&) const = default;
};

struct KnownFont {
    FontKey key;
    std::shared_ptr<const FontFace> face;
};

// A few sizes and weights of the fonts of a few scripts; small enough to be walked through.
class FontCache {
public:
    FontCache() : connection_(cachesReleased().connect([this](CacheRelease&) { fonts_.clear(); })) {}

    std::shared_ptr<const FontFace> find(const FontKey& key) {
        const auto found = std::ranges::find(fonts_, key, &KnownFont::key);
        if (found != fonts_.end()) {
            return found->face;
        }
        fonts_.push_back({key, std::make_shared<const FontFace>(key.family, key.height, key.weight)});
        return fonts_.back().face;
    }

private:
    std::vector<KnownFont> fonts_;
    ScopedConnection connection_;
};

std::wstring systemFamily() {
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof(metrics);
    const bool isKnown = SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof(metrics), &metrics, 0) != FALSE;
    return isKnown ? metrics.lfMessageFont.lfFaceName : L"Segoe UI";
}

// By any of its names: a font may have one in each of several languages, and Windows tells the one in its own.
bool isInstalled(HDC device, const std::wstring& family) {
    LOGFONTW wanted{};
    wanted.lfCharSet = DEFAULT_CHARSET;
    family.copy(wanted.lfFaceName, LF_FACESIZE - 1);
    bool isFound = false;
    const FONTENUMPROCW find = [](const LOGFONTW*, const TEXTMETRICW*, DWORD, LPARAM found) -> int {
        *reinterpret_cast<bool*>(found) = true;
        return 0;
    };
    EnumFontFamiliesExW(device, &wanted, find, reinterpret_cast<LPARAM>(&isFound), 0);
    return isFound;
}

uint16_t bigEndian(const std::vector<uint8_t>& bytes, size_t at) {
    return at + 2 <= bytes.size() ? static_cast<uint16_t>(bytes[at] << 8 | bytes[at + 1]) : uint16_t{0};
}

std::vector<uint8_t> fontTable(HDC device, const char (&name)[5]) {
    const DWORD tag = static_cast<DWORD>(name[0]) | static_cast<DWORD>(name[1]) << 8 |
                      static_cast<DWORD>(name[2]) << 16 | static_cast<DWORD>(name[3]) << 24;
    const DWORD size = GetFontData(device, tag, 0, nullptr, 0);
    if (size == GDI_ERROR) {
        return {};
    }
    std::vector<uint8_t> bytes(size);
    return GetFontData(device, tag, 0, bytes.data(), size) == size ? bytes : std::vector<uint8_t>{};
}

}  // namespace

const Uniscribe& uniscribe() {
    static const Uniscribe kFunctions = [] {
        static base::SystemLibrary library(L"usp10.dll");
        return Uniscribe{
            .itemize = library.function<decltype(ScriptItemize)>("ScriptItemize"),
            .properties = library.function<decltype(ScriptGetProperties)>("ScriptGetProperties"),
            .shape = library.function<decltype(ScriptShape)>("ScriptShape"),
            .place = library.function<decltype(ScriptPlace)>("ScriptPlace"),
            .breakWords = library.function<decltype(ScriptBreak)>("ScriptBreak"),
            .textOut = library.function<decltype(ScriptTextOut)>("ScriptTextOut"),
            .fontProperties = library.function<decltype(ScriptGetFontProperties)>("ScriptGetFontProperties"),
            .freeCache = library.function<decltype(ScriptFreeCache)>("ScriptFreeCache"),
        };
    }();
    return kFunctions;
}

FontFace::FontFace(const std::wstring& family, int height, int weight)
    : font_(CreateFontW(-height, 0, 0, 0, weight, FALSE, FALSE, FALSE, DEFAULT_CHARSET, OUT_DEFAULT_PRECIS,
                        CLIP_DEFAULT_PRECIS, ANTIALIASED_QUALITY, DEFAULT_PITCH, family.c_str())) {
    const MeasuringDevice measuring;
    const HDC device = measuring.with(font_);
    TEXTMETRICW metrics{};
    GetTextMetricsW(device, &metrics);
    ascent_ = metrics.tmAscent;
    descent_ = metrics.tmDescent;
    wchar_t name[LF_FACESIZE]{};
    GetTextFaceW(device, LF_FACESIZE, name);
    isGenuine_ = base::equalsIgnoringCase(name, family) || isInstalled(device, family);
    readScripts(device);
}

FontFace::~FontFace() {
    if (cache_ != nullptr && uniscribe().freeCache != nullptr) {
        uniscribe().freeCache(&cache_);
    }
    DeleteObject(font_);
}

// The list of scripts in the table of glyph substitutions: its place stands in the table's head; a count, and for each
// script its tag and a place.
void FontFace::readScripts(HDC device) {
    const std::vector<uint8_t> table = fontTable(device, "GSUB");
    const size_t list = bigEndian(table, 4);
    const size_t count = list != 0 ? bigEndian(table, list) : 0;
    for (size_t i = 0; i < count; ++i) {
        const size_t record = list + 2 + 6 * i;
        if (record + 4 <= table.size()) {
            scripts_.emplace_back(table.begin() + static_cast<std::ptrdiff_t>(record),
                                  table.begin() + static_cast<std::ptrdiff_t>(record + 4));
        }
    }
}

bool FontFace::hasGlyphs(const MeasuringDevice& device, std::wstring_view text) const {
    std::vector<WORD> glyphs(text.size());
    GetGlyphIndicesW(device.with(font_), text.data(), static_cast<int>(text.size()), glyphs.data(),
                     GGI_MARK_NONEXISTING_GLYPHS);
    for (size_t i = 0; i < text.size(); ++i) {
        constexpr WORD kMissing = 0xFFFF;
        const auto unit = static_cast<char32_t>(text[i]);
        const bool needsNone = base::isHighSurrogate(unit) || base::isLowSurrogate(unit) || isInvisible(unit);
        if (glyphs[i] == kMissing && !needsNone) {
            return false;
        }
    }
    return true;
}

bool FontFace::canShape(std::string_view scriptTags) const {
    constexpr size_t kTagLength = 4;
    bool found = scriptTags.empty();
    for (size_t at = 0; at < scriptTags.size() && !found; at += kTagLength) {
        found = std::ranges::find(scripts_, scriptTags.substr(at, kTagLength)) != scripts_.end();
    }
    return found;
}

std::shared_ptr<const FontFace> findFontFace(const std::wstring& family, const TextFont& font, int32_t dpi) {
    static FontCache cache;
    constexpr int kPointsPerInch = 72;
    const int height = std::max(MulDiv(font.points, dpi, kPointsPerInch), 1);
    return cache.find({family.empty() ? systemFamily() : family, height, font.weight});
}

}  // namespace tavi
