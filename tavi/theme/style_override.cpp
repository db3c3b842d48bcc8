#include "tavi/theme/style_override.h"

namespace tavi {

void StyleProperties::append(std::string_view path, std::string_view value) {
    const Lengths lengths{static_cast<uint32_t>(path.size()), static_cast<uint32_t>(value.size())};
    const size_t before = records_.size();
    records_.resize_and_overwrite(before + sizeof(lengths) + path.size() + value.size(), [&](char* text, size_t size) {
        char* const record = text + before;
        std::memcpy(record, &lengths, sizeof(lengths));
        path.copy(record + sizeof(lengths), path.size());
        value.copy(record + sizeof(lengths) + path.size(), value.size());
        return size;
    });
}

std::optional<std::string_view> StyleProperties::find(std::string_view path) const {
    std::optional<std::string_view> found;
    for (const Property property : *this) {
        if (property.path == path) {
            found = property.value;
        }
    }
    return found;
}

}  // namespace tavi
