#include "surface_reference.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "tavi/theme/gradient.h"
#include "tavi/theme/shape.h"
#include "tavi/theme/surface_layers.h"

namespace tavi {
namespace {

// Premultiplied channels from 0 to 1: blue, green, red, alpha.
using Channels = std::array<double, 4>;

Channels colorOf(Color color, double alpha) {
    return {blueOf(color) / 255.0 * alpha, greenOf(color) / 255.0 * alpha, redOf(color) / 255.0 * alpha, alpha};
}

Channels sum(const Channels& a, const Channels& b) {
    return {a[0] + b[0], a[1] + b[1], a[2] + b[2], a[3] + b[3]};
}

Channels times(const Channels& a, double factor) {
    return {a[0] * factor, a[1] * factor, a[2] * factor, a[3] * factor};
}

void lay(Channels& target, const Channels& source) {
    target = sum(source, times(target, 1 - source[3]));
}

// The falloff of shadows and glows: whole at `near`, by the square of what is left to nothing at `far`.
double falloff(double distance, double near, double far) {
    const double left = std::clamp((far - distance) / (far - near), 0.0, 1.0);
    return left * left;
}

double softDistance(const ShapeOutline& outline, int x, int y) {
    float distance = 0;
    outline.distances(x, y, 1, &distance, true);
    return distance;
}

// The grain of a pixel: the same hash, in one expression.
double grain(int x, int y, int seed) {
    uint32_t hash = static_cast<uint32_t>(x) * 0xC2B2AE3DU ^ static_cast<uint32_t>(y) * 0x9E3779B1U ^
                    static_cast<uint32_t>(seed) * 0x85EBCA77U;
    hash = (hash ^ hash >> 15) * 0x2C1B3C6DU;
    hash = (hash ^ hash >> 12) * 0x297A2D39U;
    hash ^= hash >> 15;
    return (hash >> 24) / 255.0;
}

class Reference {
public:
    Reference(const SurfaceStyle& style, const Rect& area)
        : style_(style), area_(area), outline_(style.shape, area.width, area.height), opacity_(style.opacity / 255.0) {}

    void paint(Channels& target, int x, int y) const {
        const double all = outline_.coverage(x, y) / 255.0;
        const double distance = outline_.distance(x, y);
        const double inner = style_.drawBorder ? std::clamp(0.5 - distance - style_.borderWidth, 0.0, all) : all;
        if (style_.showShadow) {
            const double blur = shadowBlur(style_);
            const double away = softDistance(outline_, x - style_.shadowOffsetX, y - style_.shadowOffsetY);
            around(target, style_.shadow, style_.shadowOpacity / 255.0 * falloff(away, -blur / 2, blur) * (1 - all));
        }
        if (style_.showGlow && style_.glowRadius > 0) {
            const double share = falloff(softDistance(outline_, x, y), -0.5, style_.glowRadius);
            around(target, style_.glow, style_.glowOpacity / 255.0 * share * (1 - all));
        }
        lay(target, sum(times(body(x, y), inner), times(colorOf(style_.border, opacity_), all - inner)));
        if (style_.useNoise) {
            around(target, style_.noise, grain(x, y, style_.noiseSeed) * style_.noiseOpacity / 255.0 * inner);
        }
        const int depth = style_.tuning.innerShadowSize;
        if (style_.showInnerShadow && depth > 0) {
            const double share = falloff(-softDistance(outline_, x, y - depth / 3), 0, depth);
            around(target, style_.innerShadowColor, style_.tuning.innerShadow / 255.0 * share * inner);
        }
        if (style_.showOutline && style_.outlineWidth > 0) {
            const double ring = std::clamp(0.5 - (softDistance(outline_, x, y) - style_.outlineWidth), 0.0, 1.0);
            around(target, style_.outline, ring * (1 - all));
        }
    }

private:
    void around(Channels& target, Color color, double alpha) const { lay(target, colorOf(color, alpha * opacity_)); }

    Channels body(int x, int y) const {
        if (!style_.drawFill) {
            return {};
        }
        if (!style_.useGradient) {
            return colorOf(style_.fill, opacity_);
        }
        const double u = area_.width > 1 ? static_cast<double>(x) / (area_.width - 1) : 0;
        const double v = area_.height > 1 ? static_cast<double>(y) / (area_.height - 1) : 0;
        return colorOf(gradientColor(style_, gradientPosition(style_.gradientKind, style_.gradientDirection, u, v)),
                       opacity_);
    }

    const SurfaceStyle& style_;
    Rect area_;
    ShapeOutline outline_;
    double opacity_;
};

}  // namespace

void paintReference(PixelView target, const Rect& area, const SurfaceStyle& style) {
    const Reference reference(style, area);
    for (int y = 0; y < target.height; ++y) {
        for (int x = 0; x < target.width; ++x) {
            Pixel& pixel = target.row(y)[x];
            Channels channels{};
            for (size_t i = 0; i < channels.size(); ++i) {
                channels[i] = (pixel >> (8 * i) & 0xFF) / 255.0;
            }
            reference.paint(channels, x - area.x, y - area.y);
            pixel = 0;
            for (size_t i = 0; i < channels.size(); ++i) {
                pixel |= static_cast<Pixel>(std::clamp(channels[i], 0.0, 1.0) * 255 + 0.5) << (8 * i);
            }
        }
    }
}

}  // namespace tavi
