// The texts that were laid out last: a caption that is asked for again, as each paint of a window does, is not shaped a
// second time.
#pragma once

#include <algorithm>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "tavi/core/cache_release.h"
#include "tavi/text/text_layout.h"

namespace tavi {

// For the thread of the windows. `Data` is what a layout shares.
template <typename Data>
class LayoutCache {
public:
    LayoutCache() : connection_(cachesReleased().connect([this](const CacheRelease&) { entries_.clear(); })) {}

    template <typename Make>
    std::shared_ptr<Data> find(std::wstring_view text, const TextFormat& format, Make make) {
        const auto found = std::ranges::find_if(
            entries_, [&](const Entry& entry) { return entry.text == text && entry.format == format; });
        if (found != entries_.end()) {
            std::rotate(entries_.begin(), found, found + 1);
            return entries_.front().data;
        }
        std::shared_ptr<Data> data = make();
        if (text.size() <= kLongestText) {
            entries_.resize(std::min(entries_.size(), kMostEntries - 1));
            entries_.insert(entries_.begin(), Entry{std::wstring(text), format, data});
        }
        return data;
    }

private:
    // More than a large dialog has; texts that are longer are not captions.
    static constexpr size_t kMostEntries = 128;
    static constexpr size_t kLongestText = 1024;

    struct Entry {
        std::wstring text;
        TextFormat format;
        std::shared_ptr<Data> data;
    };
    std::vector<Entry> entries_;  // the latest first
    ScopedConnection connection_;
};

template <typename Data>
LayoutCache<Data>& keptLayouts() {
    static LayoutCache<Data> cache;
    return cache;
}

}  // namespace tavi
