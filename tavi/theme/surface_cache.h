// Painted surfaces, kept for the next paint: a window repaints far more often than its surfaces change. The least
// recently used ones go when a bound in bytes is reached. Belongs to the UI thread; nothing in it is locked.
#pragma once

#include <cstddef>
#include <list>
#include <unordered_map>
#include <utility>
#include <vector>

#include "tavi/theme/pixel_buffer.h"
#include "tavi/theme/surface_style.h"

namespace tavi {

// Everything that the pixels of a painted surface depend on. Keys are compared by value: two surfaces never share
// pixels because of a hash.
struct SurfaceKey {
    // Whole: the surface with its material.
    enum class Layer : uint8_t { kShape, kSurface, kMaterial, kSegments, kWhole };

    Layer layer = Layer::kSurface;
    PerformanceProfile profile = PerformanceProfile::kBalanced;
    Size size = {};           // device pixels, without the margins of shadow and glow
    Point windowOffset = {};  // of the surface in its window; left at 0 unless the texture follows the window
    SurfaceStyle style = {};
    std::vector<Rect> segments = {};  // relative to their common corner

    bool operator==(const SurfaceKey&) const = default;
};

struct SurfaceKeyHash {
    size_t operator()(const SurfaceKey& key) const;
};

// A rectangle of the picture whose pixels are all opaque, the larger the better: the columns that the middle row has
// opaque around its middle, and the rows next to it that have all of them so. Empty when the middle is translucent.
Rect opaquePart(const PixelBuffer& picture);

struct SurfacePicture {
    PixelBuffer pixels;
    Rect opaque;  // see opaquePart
};

class SurfaceCache {
public:
    // `limit` bounds the bytes of pixels and keys. The newest picture stays even when it alone exceeds it.
    explicit SurfaceCache(size_t limit) : limit_(limit) {}
    SurfaceCache(const SurfaceCache&) = delete;
    SurfaceCache& operator=(const SurfaceCache&) = delete;

    // The kept picture, or that which `render` makes (a function from nothing to PixelBuffer), kept from now on. Empty
    // pictures are kept as well: they tell that there is nothing to draw. The reference is valid until the next call.
    template <typename Render>
    const SurfacePicture& obtain(const SurfaceKey& key, const Render& render) {
        const SurfacePicture* const kept = find(key);
        return kept != nullptr ? *kept : add(key, render());
    }

    // Forgets all pictures: another skin or scale needs others. The counters stay.
    void clear();

    size_t bytes() const { return bytes_; }
    size_t count() const { return entries_.size(); }
    size_t hits() const { return hits_; }
    size_t misses() const { return misses_; }

private:
    using Order = std::list<const SurfaceKey*>;  // the least recently used first
    struct Entry {
        SurfacePicture picture;
        Order::iterator place;
        size_t cost = 0;
    };

    const SurfacePicture* find(const SurfaceKey& key);
    const SurfacePicture& add(const SurfaceKey& key, PixelBuffer picture);

    size_t limit_;
    size_t bytes_ = 0;
    size_t hits_ = 0;
    size_t misses_ = 0;
    std::unordered_map<SurfaceKey, Entry, SurfaceKeyHash> entries_;
    Order order_;
};

// The cache of this process, which all painting of surfaces shares.
SurfaceCache& surfaceCache();

}  // namespace tavi
