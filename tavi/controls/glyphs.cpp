#include "tavi/controls/glyphs.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <span>
#include <tuple>
#include <vector>

#include "tavi/core/cache_release.h"
#include "tavi/theme/composition.h"

namespace tavi {
namespace {

struct Place {
    float x = 0;
    float y = 0;
};

// How a mark of a glyph is drawn. A frame is empty inside: it hides what was drawn there before.
enum class Draw : uint8_t { kLine, kBar, kFrame };

// A line leads through its places; a bar fills the rectangle between its first two, at least as thick as a pen; a frame
// is one a pen thick. Places are parts of the glyph's square, and so is the width of the pen.
constexpr size_t kMostPlaces = 10;
struct Mark {
    Glyph glyph;
    Draw draw;
    float pen;
    size_t count;
    std::array<Place, kMostPlaces> places;
};

constexpr float kBold = 0.1F;   // signs that are read
constexpr float kFine = 0.06F;  // those of a frame

constexpr Mark line(Glyph glyph, float pen, size_t count, const std::array<Place, kMostPlaces>& places) {
    return {glyph, Draw::kLine, pen, count, places};
}
constexpr Mark bar(Glyph glyph, float pen, Place a, Place b) {
    return {glyph, Draw::kBar, pen, 2, {a, b}};
}
constexpr Mark frame(Glyph glyph, Place a, Place b) {
    return {glyph, Draw::kFrame, kFine, 2, {a, b}};
}

// In the order of drawing.
constexpr Mark kMarks[] = {
    line(Glyph::kTick, kBold, 3, {{{0.24F, 0.52F}, {0.43F, 0.71F}, {0.77F, 0.31F}}}),
    line(Glyph::kClose, kFine, 2, {{{0.29F, 0.29F}, {0.71F, 0.71F}}}),
    line(Glyph::kClose, kFine, 2, {{{0.71F, 0.29F}, {0.29F, 0.71F}}}),
    bar(Glyph::kMinimize, kFine, {0.26F, 0.5F}, {0.74F, 0.5F}),
    frame(Glyph::kMaximize, {0.27F, 0.27F}, {0.73F, 0.73F}),
    frame(Glyph::kRestore, {0.38F, 0.25F}, {0.75F, 0.62F}),
    frame(Glyph::kRestore, {0.25F, 0.38F}, {0.62F, 0.75F}),
    // Corners around a window in their middle.
    bar(Glyph::kResetSize, kFine, {0.2F, 0.2F}, {0.38F, 0.2F}),
    bar(Glyph::kResetSize, kFine, {0.2F, 0.2F}, {0.2F, 0.38F}),
    bar(Glyph::kResetSize, kFine, {0.8F, 0.8F}, {0.62F, 0.8F}),
    bar(Glyph::kResetSize, kFine, {0.8F, 0.8F}, {0.8F, 0.62F}),
    frame(Glyph::kResetSize, {0.36F, 0.36F}, {0.64F, 0.64F}),
    line(Glyph::kArrowDown, kBold, 3, {{{0.28F, 0.4F}, {0.5F, 0.62F}, {0.72F, 0.4F}}}),
    line(Glyph::kArrowUp, kBold, 3, {{{0.28F, 0.6F}, {0.5F, 0.38F}, {0.72F, 0.6F}}}),
    line(Glyph::kArrowLeft, kBold, 3, {{{0.6F, 0.28F}, {0.38F, 0.5F}, {0.6F, 0.72F}}}),
    line(Glyph::kArrowRight, kBold, 3, {{{0.4F, 0.28F}, {0.62F, 0.5F}, {0.4F, 0.72F}}}),
    bar(Glyph::kInformation, kBold, {0.5F, 0.24F}, {0.5F, 0.32F}),
    bar(Glyph::kInformation, kBold, {0.5F, 0.42F}, {0.5F, 0.76F}),
    bar(Glyph::kWarning, kBold, {0.5F, 0.22F}, {0.5F, 0.58F}),
    bar(Glyph::kWarning, kBold, {0.5F, 0.68F}, {0.5F, 0.76F}),
    line(Glyph::kError, kBold, 2, {{{0.3F, 0.3F}, {0.7F, 0.7F}}}),
    line(Glyph::kError, kBold, 2, {{{0.7F, 0.3F}, {0.3F, 0.7F}}}),
    line(Glyph::kQuestion, kBold, 10,
         {{{0.36F, 0.37F},
           {0.38F, 0.3F},
           {0.43F, 0.255F},
           {0.5F, 0.24F},
           {0.57F, 0.255F},
           {0.62F, 0.3F},
           {0.635F, 0.37F},
           {0.61F, 0.43F},
           {0.53F, 0.49F},
           {0.5F, 0.59F}}}),
    bar(Glyph::kQuestion, kBold, {0.5F, 0.7F}, {0.5F, 0.76F}),
};

float distanceToSegment(Place p, Place a, Place b) {
    const float dx = b.x - a.x;
    const float dy = b.y - a.y;
    const float length = dx * dx + dy * dy;
    const float along = length > 0 ? std::clamp(((p.x - a.x) * dx + (p.y - a.y) * dy) / length, 0.0F, 1.0F) : 0.0F;
    return std::hypot(p.x - a.x - along * dx, p.y - a.y - along * dy);
}

// The square as opacities from 0 to 255, one a pixel.
class Pen {
public:
    explicit Pen(int32_t extent)
        : extent_(extent), opacity_(static_cast<size_t>(extent) * static_cast<size_t>(extent)) {}

    void draw(const Mark& mark) {
        const int32_t thickness = std::max(1, static_cast<int32_t>(std::lround(mark.pen * scale())));
        switch (mark.draw) {
            case Draw::kLine:
                return line(std::span(mark.places).first(mark.count), mark.pen * scale());
            case Draw::kBar:
                return fill(rectangle(mark.places[0], mark.places[1], thickness), 255);
            case Draw::kFrame: {
                const Rect outer = rectangle(mark.places[0], mark.places[1], thickness);
                fill(outer, 255);
                return fill(rectBetween(outer.x + thickness, outer.y + thickness, outer.right() - thickness,
                                        outer.bottom() - thickness),
                            0);
            }
        }
    }
    const std::vector<uint8_t>& opacity() const { return opacity_; }

private:
    float scale() const { return static_cast<float>(extent_); }

    // From and to whole pixels. What is thinner than the pen gets its thickness, as even as it can be around the
    // middle.
    std::pair<int32_t, int32_t> edges(float a, float b, int32_t thickness) const {
        const float from = std::min(a, b) * scale();
        const float to = std::max(a, b) * scale();
        const int32_t length = std::max(thickness, static_cast<int32_t>(std::lround(to - from)));
        const auto begin = static_cast<int32_t>(std::lround((from + to - static_cast<float>(length)) / 2));
        return {std::clamp(begin, 0, extent_), std::clamp(begin + length, 0, extent_)};
    }
    Rect rectangle(Place a, Place b, int32_t thickness) const {
        const auto [left, right] = edges(a.x, b.x, thickness);
        const auto [top, bottom] = edges(a.y, b.y, thickness);
        return rectBetween(left, top, right, bottom);
    }
    void fill(const Rect& area, uint8_t opacity) {
        for (int32_t y = area.y; y < area.bottom(); ++y) {
            std::ranges::fill(std::span(opacity_).subspan(at(area.x, y), static_cast<size_t>(area.width)), opacity);
        }
    }
    void line(std::span<const Place> places, float width) {
        for (int32_t y = 0; y < extent_; ++y) {
            for (int32_t x = 0; x < extent_; ++x) {
                const Place centre{static_cast<float>(x) + 0.5F, static_cast<float>(y) + 0.5F};
                float distance = width + 1;
                for (size_t i = 1; i < places.size(); ++i) {
                    distance = std::min(distance, distanceToSegment(centre, scaled(places[i - 1]), scaled(places[i])));
                }
                const float coverage = std::clamp(width / 2 - distance + 0.5F, 0.0F, 1.0F);
                uint8_t& opacity = opacity_[at(x, y)];
                opacity = std::max(opacity, static_cast<uint8_t>(std::lround(coverage * 255)));
            }
        }
    }
    Place scaled(Place place) const { return {place.x * scale(), place.y * scale()}; }
    size_t at(int32_t x, int32_t y) const {
        return static_cast<size_t>(y) * static_cast<size_t>(extent_) + static_cast<size_t>(x);
    }

    int32_t extent_;
    std::vector<uint8_t> opacity_;
};

// Pictures of glyphs that were drawn before: a window has a handful, each in the colors of its states.
class GlyphCache {
public:
    const PixelBuffer& obtain(Glyph glyph, int32_t extent, Color color) {
        const auto key = std::tuple(glyph, extent, color);
        if (const auto kept = pictures_.find(key); kept != pictures_.end()) {
            return kept->second;
        }
        if (pictures_.size() >= kMost) {
            pictures_.clear();
        }
        return pictures_.emplace(key, glyphPicture(glyph, extent, color)).first->second;
    }

private:
    static constexpr size_t kMost = 100;
    std::map<std::tuple<Glyph, int32_t, Color>, PixelBuffer> pictures_;
    ScopedConnection release_ = cachesReleased().connect([this](CacheRelease&) { pictures_.clear(); });
};

GlyphCache& glyphCache() {
    static GlyphCache cache;
    return cache;
}

}  // namespace

PixelBuffer glyphPicture(Glyph glyph, int32_t extent, Color color) {
    PixelBuffer picture(Size{extent, extent});
    if (picture.empty()) {
        return picture;
    }
    Pen pen(extent);
    for (const Mark& mark : kMarks) {
        if (mark.glyph == glyph) {
            pen.draw(mark);
        }
    }
    std::ranges::transform(pen.opacity(), picture.pixels().begin(),
                           [color](uint8_t opacity) { return premultiplied(color, opacity); });
    return picture;
}

void drawGlyph(HDC target, const Rect& area, Glyph glyph, Color color) {
    const int32_t extent = std::min(area.width, area.height);
    const Point at{area.x + (area.width - extent) / 2, area.y + (area.height - extent) / 2};
    if (glyph != Glyph::kNone && extent > 0 && !isClippedAway(target, {at.x, at.y, extent, extent})) {
        compose(target, at, glyphCache().obtain(glyph, extent, color));
    }
}

}  // namespace tavi
