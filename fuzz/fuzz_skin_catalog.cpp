#include "base/text.h"
#include "fuzz/fuzz_input.h"
#include "tavi/theme/control_types.h"
#include "tavi/theme/normalize_key.h"
#include "tavi/theme/skin_reader.h"
#include "tavi/theme/skin_styles.h"
#include "tavi/theme/surface_painter.h"
#include "tavi/theme/surface_properties.h"

using fuzz::require;
using namespace tavi;

namespace {

void checkStyle(const StyleOverride& style) {
    require(!style.properties.empty(), "no style is empty");
    require(!style.variant.empty(), "every style has a variant");
    for (const auto [path, value] : style.properties) {
        require(path.size() <= kMaxStylePath, "no path is too long");
        require(style.properties.find(path).has_value(), "every path is found");
        SurfaceStyle surface;
        const size_t name = path.rfind('.') + 1;
        if (!setSurfaceProperty(surface, path.substr(name), value)) {
            require(surface == SurfaceStyle(), "what does not fit changes nothing");
        }
    }
    const std::string_view canonical = canonicalControlType(std::string_view(style.controlType));
    require(canonicalControlType(canonical) == canonical, "a canonical name is its own");
}

// Whatever a skin says of a surface, a few pixels of it are painted, small and beyond the edges of the target.
void paint(const SurfaceStyle& style, PerformanceProfile profile) {
    constexpr Rect kArea{3, -4, 21, 17};
    PixelBuffer buffer({24, 16});
    paintSurface(buffer.view(), kArea, style, profile);
    paintMaterial(buffer.view(), kArea, {100, -50}, style, profile);
    for (const Pixel pixel : buffer.pixels()) {
        const Pixel alpha = pixel >> 24;
        require((pixel >> 16 & 0xFF) <= alpha && (pixel >> 8 & 0xFF) <= alpha && (pixel & 0xFF) <= alpha,
                "pixels stay premultiplied");
    }
    hitsSurface(style, {kArea.width, kArea.height}, 5, 5);
}

void paintLooks(const SkinDefinition& skin) {
    struct Part {
        const wchar_t* type;
        const wchar_t* part;
        SurfaceState state;
    };
    constexpr Part kParts[] = {{L"button", L"surface", SurfaceState::kNormal},
                               {L"button", L"surface", SurfaceState::kFocused},
                               {L"scrollbar", L"thumb", SurfaceState::kHot}};
    for (const Part& part : kParts) {
        const SurfaceStyle style = resolveStyle(skin, part.type, L"default", part.state, part.part).surface;
        paint(style, PerformanceProfile::kBestGraphics);
        paint(scaledStyle(style, 250), PerformanceProfile::kMaximumPerformance);
    }
}

std::vector<SkinDefinition> checkCatalog(std::string_view bytes) {
    size_t styles = 0;
    size_t texts = 0;
    std::vector<SkinDefinition> skins = parseCatalog(bytes, L"source");
    for (const SkinDefinition& skin : skins) {
        require(!skin.id.empty() && !skin.name.empty() && skin.source == L"source", "a skin has names");
        require(skin.tags.size() >= 3 && skin.tags.back() == L"external", "tags end with their three");
        texts += skin.id.size() + skin.name.size() + skin.description.size();
        for (const StyleOverride& style : skin.styleOverrides) {
            checkStyle(style);
            for (const auto [path, value] : style.properties) {
                styles += path.size() + value.size();
            }
        }
    }
    require(skins.size() * 2 <= bytes.size(), "skins come from text");
    require(texts <= bytes.size(), "and so do their own");
    require(styles <= bytes.size() * kStyleBytesPerByte, "styles follow the size of the document");
    return skins;
}

}  // namespace

int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string_view bytes = fuzz::bytes(data, size);
    const std::vector<SkinDefinition> skins = checkCatalog(bytes);
    if (!skins.empty()) {
        paintLooks(skins.front());
    }
    // As parts of a skin, so that every run reaches what is behind the parser.
    const std::string part(bytes);
    for (const SkinDefinition& skin :
         checkCatalog(R"({"id": "i", "name": "n", "surface_mode": "flat", "materials": {)" + part +
                      R"(}, "styles": {"button": {"default": {"surface": {"normal": {)" + part + R"(}}, )" + part +
                      R"(}}, "scrollbar": {"default": {"thumb": {"hot": {)" + part + "}}}}}}")) {
        paintLooks(skin);
    }
    const std::wstring text = base::toWide(bytes);
    const std::wstring key = normalizeKey(text);
    require(key.find_first_of(L"_-") == std::wstring::npos, "a key has no separators");
    std::string appended;
    appendNormalizedKey(appended, bytes);
    require(base::toWide(appended) == key, "keys are the same in both encodings");
    return 0;
}
