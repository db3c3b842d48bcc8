#include "tavi/theme/surface_drawing.h"

#include <windows.h>

#include <utility>

#include "tavi/theme/composition.h"
#include "tavi/theme/image.h"
#include "tavi/theme/performance_profile.h"
#include "tavi/theme/surface_cache.h"
#include "tavi/theme/surface_painter.h"

namespace tavi {
namespace {

// Larger surfaces than any screen's come from broken layouts or hostile skins.
constexpr int64_t kLargestSurface = int64_t{64} << 20;

bool isPaintable(const Rect& area, const Rect& outer) {
    return !area.empty() && int64_t{outer.width} * outer.height <= kLargestSurface;
}

const PixelBuffer* pictureOf(const SurfaceStyle& style) {
    return style.image.empty() ? nullptr : stylePicture(style.image);
}

bool hasMaterial(const SurfaceStyle& style) {
    return style.material != MaterialKind::kNone && style.tuning.enabled;
}

// Where the material of a surface counts from: its place in the window, if its texture follows that. Controls paint
// into the window's buffer, whose pixels are the window's, so the origins of the device context tell.
Point windowPlace(HDC target, Point point, const SurfaceStyle& style) {
    if (!hasMaterial(style) || style.tuning.uvMapping != MaterialMapping::kGlobal) {
        return {};
    }
    POINT place{point.x, point.y};
    LPtoDP(target, &place, 1);
    return {place.x, place.y};
}

// A surface in a picture with room for its margins: `paint` gets the picture and the surface's rectangle in it.
template <typename Paint>
void drawWithMargins(HDC target, const Rect& area, const SurfaceKey& key, const Paint& paint) {
    const SurfaceMargins margins = surfaceMargins(key.style);
    const Rect outer =
        rectBetween(int64_t{area.x} - margins.left, int64_t{area.y} - margins.top,
                    int64_t{area.x} + area.width + margins.right, int64_t{area.y} + area.height + margins.bottom);
    if (!isPaintable(area, outer) || isClippedAway(target, outer)) {
        return;
    }
    const SurfacePicture& kept = surfaceCache().obtain(key, [&] {
        PixelBuffer picture(outer.size());
        paint(picture.view(), Rect{margins.left, margins.top, area.width, area.height});
        return picture;
    });
    compose(target, outer.position(), kept.pixels, kept.opaque);
}

SurfaceKey keyOf(SurfaceKey::Layer layer, Size size, const SurfaceStyle& style) {
    return {.layer = layer, .profile = performanceProfile(), .size = size, .style = style};
}

}  // namespace

void drawGradientShape(HDC target, const Rect& area, const SurfaceStyle& style) {
    const SurfaceKey key = keyOf(SurfaceKey::Layer::kSurface, area.size(), style);
    drawWithMargins(target, area, key, [&](PixelView view, const Rect& inner) {
        paintSurface(view, inner, style, key.profile, pictureOf(style));
    });
}

void drawSegmentedSurface(HDC target, const std::vector<Rect>& segments, const SurfaceStyle& style) {
    const Rect area = unionOf(segments);
    SurfaceKey key = keyOf(SurfaceKey::Layer::kSegments, area.size(), style);
    for (const Rect& segment : segments) {
        if (!segment.empty()) {
            key.segments.push_back(segment.offset(Point{} - area.position()));
        }
    }
    drawWithMargins(target, area, key, [&](PixelView view, const Rect& inner) {
        std::vector<Rect> placed = key.segments;
        for (Rect& segment : placed) {
            segment = segment.offset(inner.position());
        }
        paintSegmentedSurface(view, placed, style, key.profile, pictureOf(style));
    });
}

bool drawSeamlessMaterialTextureOverlay(HDC target, const Rect& area, const SurfaceStyle& style,
                                        PerformanceProfile profile) {
    // What is clipped away is rendered all the same: the answer tells of the style, not of what is seen.
    if (!isPaintable(area, area) || !hasMaterial(style)) {
        return false;
    }
    SurfaceKey key = keyOf(SurfaceKey::Layer::kMaterial, area.size(), style);
    key.profile = profile;
    key.windowOffset = windowPlace(target, area.position(), style);
    const SurfacePicture& layer = surfaceCache().obtain(key, [&] {
        PixelBuffer picture(area.size());
        return paintMaterial(picture.view(), area.local(), key.windowOffset, style, profile) ? std::move(picture)
                                                                                             : PixelBuffer();
    });
    compose(target, area.position(), layer.pixels);
    return !layer.pixels.empty();
}

void drawAlphaShape(HDC target, const Rect& area, ButtonShape shape, Color color, uint8_t alpha) {
    if (!isPaintable(area, area) || isClippedAway(target, area)) {
        return;
    }
    SurfaceKey key{.layer = SurfaceKey::Layer::kShape, .size = area.size()};
    key.style.shape = shape;
    key.style.fill = color;
    key.style.opacity = alpha;
    const SurfacePicture& kept = surfaceCache().obtain(key, [&] {
        PixelBuffer picture(area.size());
        fillAlphaShape(picture.view(), shape, color, alpha);
        return picture;
    });
    compose(target, area.position(), kept.pixels, kept.opaque);
}

void drawSurface(HDC target, const Rect& area, const SurfaceStyle& style) {
    SurfaceKey key = keyOf(SurfaceKey::Layer::kWhole, area.size(), style);
    key.windowOffset = windowPlace(target, area.position(), style);
    drawWithMargins(target, area, key, [&](PixelView view, const Rect& inner) {
        paintSurface(view, inner, style, key.profile, pictureOf(style));
        paintMaterial(view, inner, key.windowOffset - inner.position(), style, key.profile);
    });
}

}  // namespace tavi
