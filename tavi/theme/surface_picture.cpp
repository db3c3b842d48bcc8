// A surface's picture: all of it or a part, stretched over the surface, its borders kept at their size where the style
// names them.
#include <algorithm>
#include <array>
#include <optional>

#include "tavi/theme/surface_layers.h"

namespace tavi {
namespace {

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

// The samples of one axis: `count` pixels from `length` ones that start at `origin`. The first `before` and the last
// `behind` of them keep their size as long as there is room for both.
std::vector<Sample> samples(int count, int origin, int length, int before, int behind) {
    before = std::clamp(before, 0, length);
    behind = std::clamp(behind, 0, length - before);
    const int borders = before + behind;
    const double squeeze = borders > count ? static_cast<double>(count) / borders : 1.0;
    const double first = before * squeeze;
    const double last = count - behind * squeeze;
    std::vector<Sample> result(static_cast<size_t>(count));
    for (int i = 0; i < count; ++i) {
        const double centre = i + 0.5;
        double from = 0;
        if (centre < first) {
            from = centre / squeeze;
        } else if (centre >= last) {
            from = length - (count - centre) / squeeze;
        } else {
            from = before + (centre - first) * (length - borders) / (last - first);
        }
        const double at = std::clamp(from - 0.5, 0.0, static_cast<double>(length - 1));
        const int whole = static_cast<int>(at);
        result[static_cast<size_t>(i)] = {origin + whole, origin + std::min(whole + 1, length - 1),
                                          static_cast<uint32_t>((at - whole) * 256)};
    }
    return result;
}

// Two channels at a time: (256 - weight) parts of a, weight parts of b.
Pixel between(Pixel a, Pixel b, uint32_t weight) {
    constexpr Pixel kPair = 0x00FF00FF;
    const Pixel even = ((a & kPair) * (256 - weight) + (b & kPair) * weight) >> 8 & kPair;
    const Pixel odd = ((a >> 8 & kPair) * (256 - weight) + (b >> 8 & kPair) * weight) & ~kPair;
    return even | odd;
}

}  // namespace

void paintPicture(SurfaceRows& rows, const SurfaceStyle& style, const PixelBuffer& picture) {
    const Rect all{0, 0, picture.size().width, picture.size().height};
    const Rect named = intersection(rectFrom(style.geometry).value_or(all), all);
    const Rect part = named.empty() ? all : named;
    const NineSlice slice = style.useNineSlice ? style.nineSlice : NineSlice{};
    const std::vector<Sample> across = samples(rows.width(), part.x, part.width, slice.left, slice.right);
    const std::vector<Sample> down = samples(rows.height(), part.y, part.height, slice.top, slice.bottom);
    const Span columns = rows.columns(0, 0);
    const Span visible = rows.rows(0, 0);
    if (columns.empty()) {
        return;
    }
    const int count = columns.end - columns.begin;
    std::vector<Pixel> colors(static_cast<size_t>(count));
    uint8_t* const mask = rows.maskRow(count);
    for (int y = visible.begin; y < visible.end; ++y) {
        const Sample& row = down[static_cast<size_t>(y)];
        const Pixel* const upper = picture.row(row.first);
        const Pixel* const lower = picture.row(row.second);
        for (int x = columns.begin; x < columns.end; ++x) {
            const Sample& column = across[static_cast<size_t>(x)];
            colors[static_cast<size_t>(x - columns.begin)] =
                between(between(upper[column.first], upper[column.second], column.weight),
                        between(lower[column.first], lower[column.second], column.weight), row.weight);
        }
        rows.coverRow(y, columns, true, mask);
        if (style.opacity < 255) {
            std::transform(mask, mask + count, mask,
                           [&](uint8_t cover) { return static_cast<uint8_t>(cover * style.opacity / 255); });
        }
        rows.kernels().blendMasked(rows.at(columns.begin, y), colors.data(), mask, static_cast<size_t>(count));
    }
}

}  // namespace tavi
