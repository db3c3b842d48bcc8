#include "tavi/theme/surface_painter.h"

#include <algorithm>
#include <cstdlib>

#include "tavi/theme/material_texture.h"
#include "tavi/theme/paint_limits.h"
#include "tavi/theme/surface_layers.h"

namespace tavi {
namespace {

// A surface farther away or larger than this is no window's; the arithmetic of the layers stays in its numbers.
constexpr int kFarthest = 1 << 20;
// The largest layer of a material, in pixels: twice the largest screen.
constexpr int64_t kLargestLayer = int64_t{1} << 26;

bool paintable(const Rect& area) {
    return !area.empty() && area.width <= kFarthest && area.height <= kFarthest && std::abs(area.x) <= kFarthest &&
           std::abs(area.y) <= kFarthest;
}

int borderOf(const SurfaceStyle& style) {
    return style.drawBorder ? std::clamp(style.borderWidth, 0, 64) : 0;
}

// Lengths that a skin may have written as anything.
void boundLengths(SurfaceStyle& style) {
    constexpr int kLongest = 256;
    for (int* const length : {&style.shadowOffsetX, &style.shadowOffsetY}) {
        *length = std::clamp(*length, -kLongest, kLongest);
    }
    for (int* const length : {&style.glowRadius, &style.outlineWidth, &style.tuning.innerShadowSize}) {
        *length = std::clamp(*length, 0, kLongest);
    }
}

SurfaceStyle asPainted(const SurfaceStyle& given, Size size, PerformanceProfile profile) {
    SurfaceStyle style = given;
    boundLengths(style);
    limitStyle(style, size, profile);
    return style;
}

}  // namespace

SurfaceMargins surfaceMargins(const SurfaceStyle& given) {
    SurfaceStyle style = given;
    boundLengths(style);
    const int around = std::max(style.showGlow ? style.glowRadius : 0, style.showOutline ? style.outlineWidth : 0);
    SurfaceMargins margins{around, around, around, around};
    if (style.showShadow) {
        const int blur = shadowBlur(style);
        margins.left = std::max(margins.left, blur - style.shadowOffsetX);
        margins.top = std::max(margins.top, blur - style.shadowOffsetY);
        margins.right = std::max(margins.right, blur + style.shadowOffsetX);
        margins.bottom = std::max(margins.bottom, blur + style.shadowOffsetY);
    }
    return margins;
}

void paintSurface(PixelView target, const Rect& area, const SurfaceStyle& given, PerformanceProfile profile,
                  const PixelBuffer* picture) {
    if (!paintable(area)) {
        return;
    }
    const SurfaceStyle style = asPainted(given, area.size(), profile);
    SurfaceRows rows(target, area, style.shape, borderOf(style));
    if (style.showShadow) {
        paintShadow(rows, style);
    }
    if (style.showGlow && style.glowRadius > 0) {
        paintGlow(rows, style);
    }
    paintBody(rows, style);
    if (picture != nullptr && !picture->empty()) {
        paintPicture(rows, style, *picture);
    }
    if (style.useNoise && style.noiseOpacity > 0) {
        paintNoise(rows, style);
    }
    if (style.showInnerShadow && style.tuning.innerShadowSize > 0) {
        paintInnerShadow(rows, style);
    }
    if (style.showOutline && style.outlineWidth > 0) {
        paintOutline(rows, style);
    }
}

void paintSegmentedSurface(PixelView target, const std::vector<Rect>& segments, const SurfaceStyle& style,
                           PerformanceProfile profile, const PixelBuffer* picture) {
    const Rect whole = unionOf(segments);
    if (!paintable(whole)) {
        return;
    }
    const SurfaceMargins margins = surfaceMargins(style);
    const Rect reached = intersection({0, 0, target.width, target.height},
                                      rectBetween(whole.x - margins.left, whole.y - margins.top,
                                                  whole.right() + margins.right, whole.bottom() + margins.bottom));
    if (reached.empty()) {
        return;
    }
    PixelBuffer layer(reached.size());
    paintSurface(layer.view(), whole.offset({-reached.x, -reached.y}), style, profile, picture);
    const auto blend = [&](const Rect& part) {
        const Rect visible = intersection(part, reached);
        for (int y = visible.y; y < visible.bottom(); ++y) {
            rasterKernels().blendPixels(target.row(y) + visible.x, layer.row(y - reached.y) + (visible.x - reached.x),
                                        static_cast<size_t>(visible.width));
        }
    };
    blend(rectBetween(reached.x, reached.y, reached.right(), whole.y));
    blend(rectBetween(reached.x, whole.bottom(), reached.right(), reached.bottom()));
    blend(rectBetween(reached.x, whole.y, whole.x, whole.bottom()));
    blend(rectBetween(whole.right(), whole.y, reached.right(), whole.bottom()));
    std::vector<Rect> ordered = segments;
    std::ranges::sort(ordered, {}, &Rect::x);
    for (int y = std::max(whole.y, reached.y); y < std::min(whole.bottom(), reached.bottom()); ++y) {
        int done = whole.x;  // segments that overlap are painted once
        for (const Rect& segment : ordered) {
            if (!segment.empty() && y >= segment.y && y < segment.bottom()) {
                blend(rectBetween(std::max(segment.x, done), y, segment.right(), int64_t{y} + 1));
                done = std::max(done, segment.right());
            }
        }
    }
}

bool paintMaterial(PixelView target, const Rect& area, Point windowOffset, const SurfaceStyle& given,
                   PerformanceProfile profile) {
    if (!paintable(area) || int64_t{area.width} * area.height > kLargestLayer) {
        return false;
    }
    const SurfaceStyle style = asPainted(given, area.size(), profile);
    SurfaceRows rows(target, area, style.shape, borderOf(style));
    if (rows.columns(0, 0).empty() || rows.rows(0, 0).empty()) {
        return false;
    }
    PixelBuffer layer(area.size());
    const MaterialRequest request{
        .kind = style.material,
        .profile = style.tuning,
        .surfaceBase = style.useGradient ? mixed(style.gradientStart, style.gradientEnd, 128) : style.fill,
        .size = area.size(),
        .windowOffset = windowOffset + area.position(),
        .gradientDirection = style.gradientDirection,
        .noiseSeed = style.noiseSeed,
        .opacity = style.opacity,
        .performance = profile,
    };
    if (!renderMaterialTexture(request, layer.view())) {
        return false;
    }
    paintLayer(rows, layer);
    return true;
}

void fillAlphaShape(PixelView target, ButtonShape shape, Color color, uint8_t alpha) {
    const ShapeOutline outline(shape, target.width, target.height);
    const Pixel pixel = premultiplied(color, alpha);
    const RasterKernels& kernels = rasterKernels();
    for (int y = 0; y < target.height; ++y) {
        const Span inside = outline.insideSpan(y);
        Pixel* const row = target.row(y);
        kernels.fill(row, static_cast<size_t>(inside.begin), 0);
        kernels.fill(row + inside.begin, static_cast<size_t>(inside.end - inside.begin), pixel);
        kernels.fill(row + inside.end, static_cast<size_t>(target.width - inside.end), 0);
    }
}

bool hitsSurface(const SurfaceStyle& style, Size size, int x, int y, const PixelBuffer* picture) {
    if (x < 0 || y < 0 || x >= size.width || y >= size.height) {
        return false;
    }
    const bool asksPicture = style.useSkinAlphaHitTest && picture != nullptr && !picture->empty();
    const uint8_t covered = asksPicture ? pictureAlpha(style, size, *picture, x, y)
                                        : ShapeOutline(style.shape, size.width, size.height).coverage(x, y);
    return covered >= std::max<uint8_t>(style.alphaThreshold, 1);
}

}  // namespace tavi
