// Reads the skins of a catalog. Nothing in a catalog is an error: what the reader does not know or what does not fit is
// left at its default, and whoever wants to hear of it gives a listener.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/json.h"
#include "tavi/theme/skin_definition.h"
#include "tavi/theme/skin_values.h"

namespace tavi {

// Where the reader is in a skin: a key, and the place that its object stands at.
struct SkinPlace {
    const SkinPlace* around = nullptr;  // null for the skin itself
    std::string_view key;
};

// Hears of what the reader passes over. Places are valid during the call.
class SkinReadListener {
public:
    // No table has the key. `known` finds the keys that the section has.
    virtual void unknownKey(const SkinPlace& place, base::Json value, const SpellingIndex& known) = 0;
    // Another spelling of the same key counts.
    virtual void secondSpelling(const SkinPlace& place, base::Json value) = 0;
    // The value is none of those that the key takes.
    virtual void unfitValue(const SkinPlace& place, base::Json value, ValueType expected) = 0;
    // The value is of another kind than the reader wants here: `expected` says which, as in "an object".
    virtual void wrongKind(const SkinPlace& place, base::Json value, std::string_view expected) = 0;

protected:
    ~SkinReadListener() = default;
};

// No path that a control reads is nearly as long, in bytes.
inline constexpr size_t kMaxStylePath = 256;
// How many bytes the paths and values of all styles may have for each byte of their document. Paths repeat the keys
// around them, so a small document could make very many.
inline constexpr size_t kStyleBytesPerByte = 8;

// What the skins of one document share while they are read.
struct SkinReading {
    size_t styleBytes = static_cast<size_t>(-1);  // that may still be kept
    SkinReadListener* listener = nullptr;
};

// One skin. Nothing for a value that is no object and for one without an id or a name.
std::optional<SkinDefinition> parseSkin(base::Json value, SkinReading& reading);

// The values of a document that are skins: the elements of an array, or of the array "skins" of an object, or the value
// of its key "skin", or the object itself.
std::vector<base::Json> skinsOf(base::Json root);

// All skins of a catalog's document that can be read, in its order. `source` is the name of its file.
std::vector<SkinDefinition> parseSkins(const base::JsonDocument& document, std::wstring_view source,
                                       SkinReadListener* listener = nullptr);
// The same from the bytes of the file, which are UTF-8; none when they are no JSON document.
std::vector<SkinDefinition> parseCatalog(std::string_view utf8, std::wstring_view source);

}  // namespace tavi
