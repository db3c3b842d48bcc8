// A surface's picture: all of it or a part, stretched over the surface, its borders kept at their size where the style
// names them.
#include <algorithm>
#include <array>
#include <optional>

#include "tavi/theme/surface_layers.h"

namespace tavi {
namespace {

// How the borders of a picture lie on one axis: so many of its pixels, drawn as so many of the surface's.
struct Borders {
    int before = 0;
    int behind = 0;
    double scale = 1;
};

// Where a pixel of the surface comes from: between two pixels of the picture, `weight` of 256 parts from the second.
struct Sample {
    int first = 0;
    int second = 0;
    uint32_t weight = 0;
};

// Four whole numbers, parted by commas or blanks.
std::optional<Rect> rectFrom(std::wstring_view text) {
    std::array<int, 4> numbers{};
    size_t at = 0;
    for (int& number : numbers) {
        while (at < text.size() && (text[at] == L',' || text[at] == L' ')) {
            ++at;
        }
        const size_t begin = at;
        for (; at < text.size() && text[at] >= L'0' && text[at] <= L'9'; ++at) {
            number = std::min(number * 10 + static_cast<int>(text[at] - L'0'), 1 << 24);
        }
        if (at == begin) {
            return std::nullopt;
        }
    }
    return Rect{numbers[0], numbers[1], numbers[2], numbers[3]};
}

// One axis of a picture on a surface: `count` pixels from `length` ones that start at `origin`. The borders keep their
// size as long as there is room for both.
class Axis {
public:
    Axis(int count, int origin, int length, Borders borders)
        : count_(count),
          origin_(origin),
          length_(length),
          before_(std::clamp(borders.before, 0, length)),
          behind_(std::clamp(borders.behind, 0, length - before_)) {
        const double wanted = (before_ + behind_) * borders.scale;
        squeeze_ = borders.scale * (wanted > count ? count / wanted : 1.0);
    }

    Sample at(int i) const {
        const double first = before_ * squeeze_;
        const double last = count_ - behind_ * squeeze_;
        const double centre = i + 0.5;
        // The part that the pixel lies in, and where it comes from there. No color runs over from one part into
        // another.
        int begin = before_;
        int end = length_ - behind_;
        double from = 0;
        if (centre < first) {
            begin = 0;
            end = before_;
            from = centre / squeeze_;
        } else if (centre >= last) {
            begin = length_ - behind_;
            end = length_;
            from = length_ - (count_ - centre) / squeeze_;
        } else {
            from = before_ + (centre - first) * (length_ - before_ - behind_) / (last - first);
        }
        end = std::max(end, begin + 1);
        const double place = std::clamp(from - 0.5, static_cast<double>(begin), static_cast<double>(end - 1));
        const int whole = std::min(static_cast<int>(place), length_ - 1);
        return {origin_ + whole, origin_ + std::min({whole + 1, end - 1, length_ - 1}),
                static_cast<uint32_t>((place - whole) * 256)};
    }

    std::vector<Sample> all() const {
        std::vector<Sample> samples(static_cast<size_t>(count_));
        for (int i = 0; i < count_; ++i) {
            samples[static_cast<size_t>(i)] = at(i);
        }
        return samples;
    }

private:
    int count_;
    int origin_;
    int length_;
    int before_;
    int behind_;
    double squeeze_ = 1;
};

// Both axes of a style's picture.
struct Axes {
    Axis across;
    Axis down;
};

Axes axesOf(Size size, const SurfaceStyle& style, const PixelBuffer& picture) {
    const Rect all{0, 0, picture.size().width, picture.size().height};
    const Rect named = intersection(rectFrom(style.geometry).value_or(all), all);
    const Rect part = named.empty() ? all : named;
    const NineSlice slice = style.useNineSlice ? style.nineSlice : NineSlice{};
    const double scale = std::clamp(style.scalePercent, 1, 10'000) / 100.0;
    return {Axis(size.width, part.x, part.width, {slice.left, slice.right, scale}),
            Axis(size.height, part.y, part.height, {slice.top, slice.bottom, scale})};
}

// Two channels at a time: (256 - weight) parts of a, weight parts of b.
Pixel between(Pixel a, Pixel b, uint32_t weight) {
    constexpr Pixel kPair = 0x00FF00FF;
    const Pixel even = ((a & kPair) * (256 - weight) + (b & kPair) * weight) >> 8 & kPair;
    const Pixel odd = ((a >> 8 & kPair) * (256 - weight) + (b >> 8 & kPair) * weight) & ~kPair;
    return even | odd;
}

// The picture's color between four of its pixels.
Pixel colorAt(const PixelBuffer& picture, const Sample& column, const Sample& row) {
    const Pixel* const upper = picture.row(row.first);
    const Pixel* const lower = picture.row(row.second);
    return between(between(upper[column.first], upper[column.second], column.weight),
                   between(lower[column.first], lower[column.second], column.weight), row.weight);
}

}  // namespace

void paintPicture(SurfaceRows& rows, const SurfaceStyle& style, const PixelBuffer& picture) {
    const Axes axes = axesOf({rows.width(), rows.height()}, style, picture);
    const std::vector<Sample> across = axes.across.all();
    const Span columns = rows.columns(0, 0);
    const Span visible = rows.rows(0, 0);
    if (columns.empty()) {
        return;
    }
    const int count = columns.end - columns.begin;
    std::vector<Pixel> colors(static_cast<size_t>(count));
    uint8_t* const mask = rows.maskRow(count);
    for (int y = visible.begin; y < visible.end; ++y) {
        const Sample row = axes.down.at(y);
        for (int x = columns.begin; x < columns.end; ++x) {
            colors[static_cast<size_t>(x - columns.begin)] = colorAt(picture, across[static_cast<size_t>(x)], row);
        }
        rows.coverRow(y, columns, true, mask);
        if (style.opacity < 255) {
            std::transform(mask, mask + count, mask,
                           [&](uint8_t cover) { return static_cast<uint8_t>(cover * style.opacity / 255); });
        }
        rows.kernels().blendMasked(rows.at(columns.begin, y), colors.data(), mask, static_cast<size_t>(count));
    }
}

uint8_t pictureAlpha(const SurfaceStyle& style, Size size, const PixelBuffer& picture, int x, int y) {
    const Axes axes = axesOf(size, style, picture);
    return static_cast<uint8_t>(colorAt(picture, axes.across.at(x), axes.down.at(y)) >> 24);
}

}  // namespace tavi
