#include "tavi/theme/gradient.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "tavi/theme/raster_kernels.h"

namespace tavi {
namespace {

// So many that neighbours differ by half a level at most, where the colors go there and back with a stop between, too.
constexpr int kTableSize = 1024;

// A direction as shares of the axes: the position along it is offset + u x across + v x down.
struct Direction {
    double across;
    double down;
    double offset;
};
constexpr Direction kDirections[kGradientDirectionCount] = {
    {0, 1, 0}, {0, -1, 1}, {1, 0, 0}, {-1, 0, 1}, {0.5, 0.5, 0}, {-0.5, -0.5, 1}, {0.5, -0.5, 0.5}, {-0.5, 0.5, 0.5},
};

const Direction& along(GradientDirection direction) {
    return kDirections[static_cast<size_t>(direction)];
}

double sign(double value) {
    return value > 0 ? 1 : value < 0 ? -1 : 0;
}

// The point that a radial or diamond gradient starts from.
double centre(double share) {
    return 0.5 - 0.25 * sign(share);
}

// The farthest that a point of the axis is from it.
double reach(double share) {
    return 0.5 + 0.25 * std::abs(sign(share));
}

double firstTurn(const Direction& way) {
    const double turn = std::atan2(way.down, way.across) / (2 * std::numbers::pi);
    return turn < 0 ? turn + 1 : turn;
}

double folded(double position) {
    return 1 - std::abs(2 * position - 1);
}

}  // namespace

double gradientPosition(GradientKind kind, GradientDirection direction, double u, double v) {
    const Direction& way = along(direction);
    const double linear = way.offset + u * way.across + v * way.down;
    const double x = u - centre(way.across);
    const double y = v - centre(way.down);
    switch (kind) {
        case GradientKind::kReflected:
            return folded(linear);
        case GradientKind::kRadial:
            return std::hypot(x, y) / std::hypot(reach(way.across), reach(way.down));
        case GradientKind::kDiamond:
            return (std::abs(x) + std::abs(y)) / (reach(way.across) + reach(way.down));
        case GradientKind::kConic: {
            double turn = std::atan2(v - 0.5, u - 0.5) / (2 * std::numbers::pi) - firstTurn(way);
            turn -= std::floor(turn);
            return folded(turn);
        }
        case GradientKind::kLinear:
            break;
    }
    return linear;
}

Color gradientColor(const SurfaceStyle& style, double position) {
    Color from = style.gradientStart;
    Color to = style.gradientEnd;
    double share = std::clamp(position, 0.0, 1.0);
    if (style.useGradientMid) {
        const bool first = share < 0.5;
        from = first ? from : style.gradientMid;
        to = first ? style.gradientMid : to;
        share = first ? share * 2 : share * 2 - 1;
    }
    const auto channel = [share](int a, int b) { return static_cast<int>(a + (b - a) * share + 0.5); };
    return rgb(channel(redOf(from), redOf(to)), channel(greenOf(from), greenOf(to)), channel(blueOf(from), blueOf(to)));
}

GradientRows::GradientRows(const SurfaceStyle& style, int width, int height, uint8_t opacity)
    : style_(style),
      acrossX_(width > 1 ? 1.0 / (width - 1) : 0.0),
      acrossY_(height > 1 ? 1.0 / (height - 1) : 0.0),
      opacity_(opacity),
      uniform_((style.gradientKind == GradientKind::kLinear || style.gradientKind == GradientKind::kReflected) &&
               along(style.gradientDirection).across == 0) {
    if (!uniform_) {
        table_.resize(kTableSize);
        const bool folds = style.gradientKind == GradientKind::kReflected || style.gradientKind == GradientKind::kConic;
        for (int i = 0; i < kTableSize; ++i) {
            const double position = static_cast<double>(i) / (kTableSize - 1);
            table_[static_cast<size_t>(i)] =
                premultiplied(gradientColor(style, folds ? folded(position) : position), opacity);
        }
    }
}

Pixel GradientRows::rowColor(int y) const {
    return premultiplied(
        gradientColor(style_, gradientPosition(style_.gradientKind, style_.gradientDirection, 0, y * acrossY_)),
        opacity_);
}

void GradientRows::row(int y, int x, int count, Pixel* out) {
    const RasterKernels& kernels = rasterKernels();
    const Direction& way = along(style_.gradientDirection);
    const auto pixels = static_cast<size_t>(count);
    const double v = y * acrossY_;
    if (style_.gradientKind == GradientKind::kLinear || style_.gradientKind == GradientKind::kReflected) {
        const double scale = 65536.0 * (kTableSize - 1);
        const double at = way.offset + v * way.down + x * acrossX_ * way.across;
        kernels.lookUp(out, pixels, table_.data(), kTableSize, std::llround(at * scale) + 32768,
                       std::llround(acrossX_ * way.across * scale));
        return;
    }
    positions_.resize(std::max(positions_.size(), pixels));
    float* const positions = positions_.data();
    if (style_.gradientKind == GradientKind::kConic) {
        const double across = acrossX_ > 0 ? acrossX_ : 1;
        kernels.conic(positions, pixels, static_cast<float>(x - 0.5 / across), static_cast<float>(across),
                      static_cast<float>(v - 0.5), static_cast<float>(firstTurn(way)));
    } else {
        const bool isRadial = style_.gradientKind == GradientKind::kRadial;
        const double farthest =
            isRadial ? std::hypot(reach(way.across), reach(way.down)) : reach(way.across) + reach(way.down);
        const double across = acrossX_ > 0 ? acrossX_ : 1;
        const auto first = static_cast<float>(x - centre(way.across) / across);
        const auto scale = static_cast<float>(across / farthest);
        const auto away = static_cast<float>((v - centre(way.down)) / farthest);
        if (isRadial) {
            kernels.radial(positions, pixels, first, scale, away * away);
        } else {
            kernels.diamond(positions, pixels, first, scale, std::abs(away));
        }
    }
    kernels.lookUpAt(out, positions, pixels, table_.data(), kTableSize);
}

}  // namespace tavi
