#include "base/text.h"
#include "fuzz/fuzz_input.h"
#include "tavi/theme/control_types.h"
#include "tavi/theme/skin_reader.h"
#include "tavi/theme/surface_properties.h"

using fuzz::require;
using namespace tavi;

namespace {

void checkStyle(const StyleOverride& style) {
    require(!style.properties.empty(), "no style is empty");
    require(!style.variant.empty(), "every style has a variant");
    std::wstring_view before;
    for (size_t i = 0; i < style.properties.size(); ++i) {
        const auto [path, value] = style.properties.at(i);
        require(i == 0 || before < path, "paths are in order, each once");
        require(path.size() <= kMaxStylePath, "no path is too long");
        require(style.properties.find(path) == value, "every path is found");
        before = path;
        SurfaceStyle surface;
        const size_t name = path.rfind(L'.') + 1;
        if (!setSurfaceProperty(surface, path.substr(name), value)) {
            require(surface == SurfaceStyle(), "what does not fit changes nothing");
        }
    }
    const std::wstring_view canonical = canonicalControlType(style.controlType);
    require(canonicalControlType(canonical) == canonical, "a canonical name is its own");
}

void checkCatalog(std::string_view bytes) {
    size_t characters = 0;
    size_t texts = 0;
    const std::vector<SkinDefinition> skins = parseCatalog(bytes, L"source");
    for (const SkinDefinition& skin : skins) {
        require(!skin.id.empty() && !skin.name.empty() && skin.source == L"source", "a skin has names");
        require(skin.tags.size() >= 3 && skin.tags.back() == L"external", "tags end with their three");
        texts += skin.id.size() + skin.name.size() + skin.description.size();
        for (const StyleOverride& style : skin.styleOverrides) {
            checkStyle(style);
            for (size_t i = 0; i < style.properties.size(); ++i) {
                characters += style.properties.at(i).path.size() + style.properties.at(i).value.size();
            }
        }
    }
    require(skins.size() * 2 <= bytes.size(), "skins come from text");
    require(texts <= bytes.size(), "and so do their own");
    require(characters <= bytes.size() * kStyleCharactersPerByte, "styles follow the size of the document");
}

}  // namespace

int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string_view bytes = fuzz::bytes(data, size);
    checkCatalog(bytes);
    // As parts of a skin, so that every run reaches what is behind the parser.
    const std::string part(bytes);
    checkCatalog(R"({"id": "i", "name": "n", "styles": {"button": {"default": {)" + part + R"(}}}, "materials": {)" +
                 part + "}}");
    const std::wstring text = base::toWide(bytes);
    const std::wstring key = normalizeKey(text);
    require(key.find_first_of(L"_-") == std::wstring::npos, "a key has no separators");
    std::wstring appended;
    appendNormalizedKey(appended, bytes);
    require(appended == key, "keys are the same in both encodings");
    return 0;
}
