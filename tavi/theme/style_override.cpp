#include "tavi/theme/style_override.h"

#include <algorithm>

namespace tavi {

StyleProperties::Property StyleProperties::at(size_t index) const {
    const Place& place = places_[index];
    const std::wstring_view texts(texts_);
    return {texts.substr(place.begin, place.pathLength),
            texts.substr(size_t{place.begin} + place.pathLength, place.valueLength)};
}

bool StyleProperties::append(std::wstring_view path, std::wstring_view value) {
    const bool inOrder = places_.empty() || at(places_.size() - 1).path < path;
    places_.push_back({static_cast<uint32_t>(texts_.size()), static_cast<uint32_t>(path.size()),
                       static_cast<uint32_t>(value.size())});
    texts_ += path;
    texts_ += value;
    return inOrder;
}

void StyleProperties::settle() {
    const std::wstring_view texts(texts_);
    const auto path = [texts](const Place& place) { return texts.substr(place.begin, place.pathLength); };
    std::ranges::stable_sort(places_, {}, path);
    // The last of equal ones was set last.
    const auto first = std::ranges::unique(places_.rbegin(), places_.rend(), {}, path).begin();
    places_.erase(places_.begin(), first.base());
}

void StyleProperties::clear() {
    texts_.clear();
    places_.clear();
}

void StyleProperties::set(std::wstring_view path, std::wstring_view value) {
    // Both may be views into the texts, which are about to move.
    const std::wstring ownPath(path);
    const std::wstring ownValue(value);
    if (!append(ownPath, ownValue)) {
        settle();
    }
}

std::optional<std::wstring_view> StyleProperties::find(std::wstring_view path) const {
    const std::wstring_view texts(texts_);
    const auto place = std::ranges::lower_bound(
        places_, path, {}, [texts](const Place& p) { return texts.substr(p.begin, p.pathLength); });
    const auto index = static_cast<size_t>(place - places_.begin());
    return index < places_.size() && at(index).path == path ? std::optional(at(index).value) : std::nullopt;
}

bool StyleProperties::operator==(const StyleProperties& other) const {
    if (size() != other.size()) {
        return false;
    }
    for (size_t i = 0; i < size(); ++i) {
        if (at(i) != other.at(i)) {
            return false;
        }
    }
    return true;
}

}  // namespace tavi
