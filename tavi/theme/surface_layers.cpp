#include "tavi/theme/surface_layers.h"

#include <algorithm>
#include <cstdlib>

namespace tavi {
namespace {

// Multiplies the mask by what `cover` leaves: 255 - cover for what lies outside of the outline.
void leaveOutside(uint8_t* mask, const uint8_t* cover, int count) {
    for (int i = 0; i < count; ++i) {
        mask[i] = static_cast<uint8_t>(mask[i] * (255 - cover[i]) / 255);
    }
}

void keepInside(uint8_t* mask, const uint8_t* cover, int count) {
    for (int i = 0; i < count; ++i) {
        mask[i] = static_cast<uint8_t>(mask[i] * cover[i] / 255);
    }
}

// What a ring or a shadow looks like at a distance: calls `shade(distances, count, mask)` for the parts of each row
// that are not wholly inside the outline, and blends the color where the mask says so.
template <typename Shade>
void aroundOutline(SurfaceRows& rows, const SurfaceMargins& margins, Point offset, Color color, uint8_t opacity,
                   const Shade& shade) {
    const Span columns = rows.columns(margins.left, margins.right);
    const Span visible = rows.rows(margins.top, margins.bottom);
    const int room = std::max(columns.end - columns.begin, 0);
    std::vector<uint8_t> cover(static_cast<size_t>(room));
    const Pixel pixel = premultiplied(color, 255);
    for (int y = visible.begin; y < visible.end; ++y) {
        const bool beside = y < 0 || y >= rows.height();
        const Span full = beside ? Span{} : intersection(columns, rows.fullSpan(y, false));
        const Span parts[] = {{columns.begin, full.empty() ? columns.end : full.begin},
                              {full.empty() ? columns.end : full.end, columns.end}};
        for (const Span& part : parts) {
            if (part.empty()) {
                continue;
            }
            const int count = part.end - part.begin;
            float* const distances = rows.distanceRow(count);
            uint8_t* const mask = rows.maskRow(count);
            rows.outline().distances(part.begin - offset.x, y - offset.y, count, distances, true);
            shade(distances, static_cast<size_t>(count), mask, opacity);
            if (!beside) {
                rows.coverRow(y, part, false, cover.data());
                leaveOutside(mask, cover.data(), count);
            }
            rows.kernels().blendMask(rows.at(part.begin, y), mask, static_cast<size_t>(count), pixel);
        }
    }
}

SurfaceMargins evenMargins(int width) {
    return {width, width, width, width};
}

uint8_t both(uint8_t a, uint8_t b) {
    return static_cast<uint8_t>(a * b / 255);
}

}  // namespace

int shadowBlur(const SurfaceStyle& style) {
    const int offset = std::max(std::abs(style.shadowOffsetX), std::abs(style.shadowOffsetY));
    const int reach = std::max(style.shadowReach, 1);
    return std::clamp(3 * offset, std::min(4, reach), reach);
}

void paintShadow(SurfaceRows& rows, const SurfaceStyle& style) {
    const int blur = shadowBlur(style);
    const Point offset{style.shadowOffsetX, style.shadowOffsetY};
    const SurfaceMargins margins{std::max(blur - offset.x, 0), std::max(blur - offset.y, 0),
                                 std::max(blur + offset.x, 0), std::max(blur + offset.y, 0)};
    aroundOutline(rows, margins, offset, style.shadow, both(style.shadowOpacity, style.opacity),
                  [&](const float* distances, size_t count, uint8_t* mask, uint8_t opacity) {
                      const auto reach = static_cast<float>(blur);
                      rows.kernels().falloff(mask, distances, count, -reach / 2, reach, opacity);
                  });
}

void paintGlow(SurfaceRows& rows, const SurfaceStyle& style) {
    aroundOutline(rows, evenMargins(style.glowRadius), {}, style.glow, both(style.glowOpacity, style.opacity),
                  [&](const float* distances, size_t count, uint8_t* mask, uint8_t opacity) {
                      rows.kernels().falloff(mask, distances, count, -0.5F, static_cast<float>(style.glowRadius),
                                             opacity);
                  });
}

void paintOutline(SurfaceRows& rows, const SurfaceStyle& style) {
    const auto width = static_cast<float>(style.outlineWidth);
    aroundOutline(rows, evenMargins(style.outlineWidth), {}, style.outline, style.opacity,
                  [width](const float* distances, size_t count, uint8_t* mask, uint8_t opacity) {
                      for (size_t i = 0; i < count; ++i) {
                          const float covered = std::clamp(0.5F - (distances[i] - width), 0.0F, 1.0F);
                          mask[i] = static_cast<uint8_t>(static_cast<int>(covered * opacity + 0.5F));
                      }
                  });
}

void paintNoise(SurfaceRows& rows, const SurfaceStyle& style) {
    const Span columns = rows.columns(0, 0);
    const Span visible = rows.rows(0, 0);
    const int count = columns.end - columns.begin;
    if (count <= 0) {
        return;
    }
    std::vector<uint8_t> cover(static_cast<size_t>(count));
    uint8_t* const mask = rows.maskRow(count);
    for (int y = visible.begin; y < visible.end; ++y) {
        rows.kernels().noise(mask, static_cast<size_t>(count), static_cast<uint32_t>(columns.begin),
                             static_cast<uint32_t>(y), static_cast<uint32_t>(style.noiseSeed),
                             both(style.noiseOpacity, style.opacity));
        rows.coverRow(y, columns, true, cover.data());
        keepInside(mask, cover.data(), count);
        rows.kernels().blendMask(rows.at(columns.begin, y), mask, static_cast<size_t>(count),
                                 premultiplied(style.noise, 255));
    }
}

// Light falls from above: the shadow of the rim lies deeper at the top, by the outline moved down by a third of the
// size.
void paintInnerShadow(SurfaceRows& rows, const SurfaceStyle& style) {
    const int size = style.tuning.innerShadowSize;
    const int down = size / 3;
    const Span columns = rows.columns(0, 0);
    const Span visible = rows.rows(0, 0);
    std::vector<uint8_t> cover(static_cast<size_t>(std::max(columns.end - columns.begin, 0)));
    const uint8_t opacity = both(style.tuning.innerShadow, style.opacity);
    const Pixel pixel = premultiplied(style.innerShadowColor, 255);
    for (int y = visible.begin; y < visible.end; ++y) {
        const Span deep = intersection(columns, rows.outline().deepSpan(y - down, static_cast<float>(size)));
        const Span parts[] = {{columns.begin, deep.empty() ? columns.end : deep.begin},
                              {deep.empty() ? columns.end : deep.end, columns.end}};
        for (const Span& part : parts) {
            if (part.empty()) {
                continue;
            }
            const int count = part.end - part.begin;
            float* const depths = rows.distanceRow(count);
            uint8_t* const mask = rows.maskRow(count);
            rows.outline().distances(part.begin, y - down, count, depths, true);
            std::transform(depths, depths + count, depths, [](float distance) { return -distance; });
            rows.kernels().falloff(mask, depths, static_cast<size_t>(count), 0, static_cast<float>(size), opacity);
            rows.coverRow(y, part, true, cover.data());
            keepInside(mask, cover.data(), count);
            rows.kernels().blendMask(rows.at(part.begin, y), mask, static_cast<size_t>(count), pixel);
        }
    }
}

void paintLayer(SurfaceRows& rows, const PixelBuffer& layer) {
    const Span columns = rows.columns(0, 0);
    const Span visible = rows.rows(0, 0);
    const int count = columns.end - columns.begin;
    if (count <= 0) {
        return;
    }
    uint8_t* const mask = rows.maskRow(count);
    for (int y = visible.begin; y < visible.end; ++y) {
        const Span full = intersection(columns, rows.fullSpan(y, true));
        const Pixel* const source = layer.row(y) + columns.begin;
        if (full == columns) {
            rows.kernels().blendPixels(rows.at(columns.begin, y), source, static_cast<size_t>(count));
        } else {
            rows.coverRow(y, columns, true, mask);
            rows.kernels().blendMasked(rows.at(columns.begin, y), source, mask, static_cast<size_t>(count));
        }
    }
}

}  // namespace tavi
