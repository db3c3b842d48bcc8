#include "tavi/theme/spelling_index.h"

#include <algorithm>
#include <utility>

namespace tavi {
namespace {

// Names differ at their ends and in their lengths. Those few characters tell nearly all of them apart.
size_t hashOf(std::string_view name) {
    const auto at = [name](size_t index) { return static_cast<size_t>(static_cast<unsigned char>(name[index])); };
    const size_t length = name.size();
    const size_t ends = at(0) | at(length - 1) << 8 | at(length / 2) << 16 | at(length / 4) << 24;
    const size_t mixed = (ends + length * 0x3D4D51CB) * 0x9E3779B1u;
    return mixed ^ mixed >> 15;
}

}  // namespace

std::vector<std::string_view> spellings(std::string_view words) {
    std::vector<std::string_view> found;
    while (!words.empty()) {
        const size_t end = std::min(words.find(' '), words.size());
        found.push_back(words.substr(0, end));
        words.remove_prefix(std::min(end + 1, words.size()));
    }
    return found;
}

size_t SpellingIndex::placeOf(std::string_view name) const {
    const size_t mask = places_.size() - 1;
    size_t place = hashOf(name) & mask;
    while (!places_[place].name.empty() && places_[place].name != name) {
        place = (place + 1) & mask;
    }
    return place;
}

void SpellingIndex::grow() {
    std::vector<Place> before(std::max<size_t>(places_.size() * 2, 16));
    std::swap(before, places_);
    for (const Place& place : before) {
        if (!place.name.empty()) {
            places_[placeOf(place.name)] = place;
        }
    }
}

void SpellingIndex::add(std::string_view words, uint16_t row) {
    uint16_t rank = 0;
    for (const std::string_view name : spellings(words)) {
        if (taken_ * 2 >= places_.size()) {
            grow();
        }
        Place& place = places_[placeOf(name)];
        if (place.name.empty()) {
            place = {name, {row, rank}};
            ++taken_;
        }
        ++rank;
    }
}

std::optional<Spelling> SpellingIndex::find(std::string_view name) const {
    if (name.empty() || places_.empty()) {
        return std::nullopt;
    }
    const Place& place = places_[placeOf(name)];
    return place.name.empty() ? std::nullopt : std::optional(place.spelling);
}

std::vector<std::string_view> SpellingIndex::names() const {
    std::vector<std::string_view> all;
    for (const Place& place : places_) {
        if (!place.name.empty()) {
            all.push_back(place.name);
        }
    }
    return all;
}

}  // namespace tavi
