// Finds the row of a table by any of the spellings that the row has. Tables give a row's spellings as words in one
// text, the one that skins are meant to use first.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tavi {

// The spellings of a row, for range-based loops.
std::vector<std::string_view> spellings(std::string_view words);

struct Spelling {
    uint16_t row = 0;
    uint16_t rank = 0;  // its place among the spellings of the row
};

// A hash table of views: the texts stay where they are.
class SpellingIndex {
public:
    // Of a table whose rows hold their words in `names`.
    template <typename Rows>
    explicit SpellingIndex(const Rows& rows) {
        uint16_t row = 0;
        for (const auto& entry : rows) {
            add(entry.names, row++);
        }
    }
    SpellingIndex() = default;

    // A spelling that is there already keeps its row.
    void add(std::string_view words, uint16_t row);

    std::optional<Spelling> find(std::string_view name) const;
    // All spellings, in no particular order.
    std::vector<std::string_view> names() const;

private:
    struct Place {
        std::string_view name;  // empty where nothing is
        Spelling spelling;
    };
    size_t placeOf(std::string_view name) const;
    void grow();

    std::vector<Place> places_;  // a power of two of them, at most half of them taken
    size_t taken_ = 0;
};

}  // namespace tavi
