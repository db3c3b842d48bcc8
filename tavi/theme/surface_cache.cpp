#include "tavi/theme/surface_cache.h"

#include <algorithm>
#include <iterator>

#include "tavi/core/cache_release.h"
#include "tavi/theme/active_skin.h"

namespace tavi {
namespace {

// Room for a window of 3840 x 2160 with everything in it, twice.
constexpr size_t kProcessLimit = size_t{96} << 20;

// What a picture costs beside its pixels: its key, which is kept once, and the nodes that hold both.
size_t costOf(const SurfaceKey& key, const PixelBuffer& picture) {
    const size_t texts = (key.style.image.size() + key.style.geometry.size()) * sizeof(wchar_t);
    return picture.bytes() + sizeof(SurfaceKey) + texts + key.segments.size() * sizeof(Rect) + 128;
}

}  // namespace

Rect opaquePart(const PixelBuffer& picture) {
    const Size size = picture.size();
    const auto isOpaque = [](Pixel pixel) { return pixel >> 24 == 255; };
    const int middle = size.height / 2;
    if (picture.empty() || !isOpaque(picture.row(middle)[size.width / 2])) {
        return {};
    }
    int left = size.width / 2;
    int right = left + 1;
    while (left > 0 && isOpaque(picture.row(middle)[left - 1])) {
        --left;
    }
    while (right < size.width && isOpaque(picture.row(middle)[right])) {
        ++right;
    }
    const auto isRow = [&](int y) { return std::all_of(picture.row(y) + left, picture.row(y) + right, isOpaque); };
    int top = middle;
    int bottom = middle + 1;
    while (top > 0 && isRow(top - 1)) {
        --top;
    }
    while (bottom < size.height && isRow(bottom)) {
        ++bottom;
    }
    return rectBetween(left, top, right, bottom);
}

// Only what differs between the surfaces of one window is mixed in; equality looks at the rest.
size_t SurfaceKeyHash::operator()(const SurfaceKey& key) const {
    const SurfaceStyle& style = key.style;
    size_t hash = static_cast<size_t>(key.layer) << 8 | static_cast<size_t>(style.shape);
    const auto mix = [&hash](auto value) {
        hash = (hash ^ static_cast<uint32_t>(value)) * 0x9E3779B97F4A7C15U;
        hash ^= hash >> 29;
    };
    mix(key.size.width);
    mix(key.size.height);
    mix(key.windowOffset.x);
    mix(key.windowOffset.y);
    mix(style.fill);
    mix(style.border);
    mix(style.gradientStart);
    mix(style.gradientEnd);
    mix(style.opacity);
    mix(style.material);
    mix(key.segments.size());
    return hash;
}

const SurfacePicture* SurfaceCache::find(const SurfaceKey& key) {
    const auto found = entries_.find(key);
    if (found == entries_.end()) {
        ++misses_;
        return nullptr;
    }
    ++hits_;
    order_.splice(order_.end(), order_, found->second.place);
    return &found->second.picture;
}

const SurfacePicture& SurfaceCache::add(const SurfaceKey& key, PixelBuffer picture) {
    const size_t cost = costOf(key, picture);
    while (!order_.empty() && bytes_ + cost > limit_) {
        const auto oldest = entries_.find(*order_.front());
        order_.pop_front();
        bytes_ -= oldest->second.cost;
        entries_.erase(oldest);
    }
    // Placed before it is entered: what cannot be made leaves nothing behind that has no place.
    order_.push_back(nullptr);
    const auto place = std::prev(order_.end());
    try {
        const Rect opaque = opaquePart(picture);
        const auto entry = entries_.emplace(key, Entry{{std::move(picture), opaque}, place, cost}).first;
        *place = &entry->first;
        bytes_ += cost;
        return entry->second.picture;
    } catch (...) {
        order_.erase(place);
        throw;
    }
}

void SurfaceCache::clear() {
    order_.clear();
    entries_.clear();
    bytes_ = 0;
}

SurfaceCache& surfaceCache() {
    // Never destroyed, so that it outlives all who paint. Another scale or another skin needs other pictures.
    static SurfaceCache& cache = [] -> SurfaceCache& {
        auto& made = *new SurfaceCache(kProcessLimit);
        cachesReleased().connect([&made](CacheRelease&) { made.clear(); });
        skinChanged().connect([&made](SkinChange&) { made.clear(); });
        return made;
    }();
    return cache;
}

}  // namespace tavi
