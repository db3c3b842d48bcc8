// Fill, gradient and border: the part of a surface that every one has, and most of the pixels of it.
#include <algorithm>
#include <optional>

#include "tavi/theme/gradient.h"
#include "tavi/theme/surface_layers.h"

namespace tavi {
namespace {

// `part` of 255 of a premultiplied pixel, each channel rounded to the nearest.
Pixel share(Pixel pixel, int part) {
    Pixel result = 0;
    for (int shift = 0; shift < 32; shift += 8) {
        const Pixel product = (pixel >> shift & 0xFF) * static_cast<Pixel>(part) + 128;
        result |= (product + (product >> 8)) >> 8 << shift;
    }
    return result;
}

// Channels of the sum never exceed 255: the two cover different parts of the pixel.
Pixel joined(Pixel a, Pixel b) {
    Pixel result = 0;
    for (int shift = 0; shift < 32; shift += 8) {
        result |= std::min<Pixel>((a >> shift & 0xFF) + (b >> shift & 0xFF), 255) << shift;
    }
    return result;
}

class Body {
public:
    Body(SurfaceRows& rows, const SurfaceStyle& style)
        : rows_(rows),
          columns_(rows.columns(0, 0)),
          straight_(straightRows(rows)),
          border_(rows.border() > 0 ? premultiplied(style.border, style.opacity) : 0),
          fill_(style.drawFill ? premultiplied(style.fill, style.opacity) : 0),
          gradient_(gradientOf(rows, style)) {}

    // Rows of one color that nothing parts in the target are as good as one long row.
    bool wholeAtOnce() {
        const Span visible = rows_.rows(0, 0);
        const bool plain = rows_.border() == 0 && !gradient_ && straight_.begin <= visible.begin &&
                           straight_.end >= visible.end && rows_.stride() == columns_.end - columns_.begin;
        if (plain) {
            blendColor(rows_.at(columns_.begin, visible.begin),
                       static_cast<size_t>(rows_.stride()) * static_cast<size_t>(visible.end - visible.begin), fill_);
        }
        return plain;
    }

    void row(int y) {
        if (y >= straight_.begin && y < straight_.end) {
            straightRow(y);
        } else {
            bentRow(y);
        }
    }

private:
    static std::optional<GradientRows> gradientOf(const SurfaceRows& rows, const SurfaceStyle& style) {
        if (!style.drawFill || !style.useGradient) {
            return std::nullopt;
        }
        return GradientRows(style, rows.width(), rows.height(), style.opacity);
    }

    // The rows in which the outline is the surface's own sides and the border runs straight along them.
    static Span straightRows(const SurfaceRows& rows) {
        const Span straight = rows.outline().straightRows();
        const Span without = {std::max(straight.begin, rows.border()),
                              std::min(straight.end, rows.height() - rows.border())};
        // Around a corner the border is as wide as elsewhere, and so is its inner edge bent farther along.
        const int bent = straight.begin > 0 ? rows.border() : 0;
        return {without.begin + bent, without.end - bent};
    }

    void straightRow(int y) {
        if (gradient_ && gradient_->uniform()) {
            fill_ = gradient_->rowColor(y);
        }
        const Span inner = intersection(columns_, Span{rows_.border(), rows_.width() - rows_.border()});
        if (inner.empty()) {
            side(columns_, y);
            return;
        }
        side({columns_.begin, inner.begin}, y);
        middle(inner, y, false);
        side({inner.end, columns_.end}, y);
    }

    void side(Span span, int y) {
        if (!span.empty()) {
            blendColor(rows_.at(span.begin, y), static_cast<size_t>(span.end - span.begin), border_);
        }
    }

    void bentRow(int y) {
        const bool inBorder = y < rows_.border() || y >= rows_.height() - rows_.border();
        if (gradient_ && gradient_->uniform()) {
            fill_ = gradient_->rowColor(y);
        }
        // Without an inside, the row's middle is border through and through.
        const Span full = intersection(columns_, rows_.fullSpan(y, !inBorder));
        if (full.empty()) {
            edge(columns_, y);
            return;
        }
        edge({columns_.begin, full.begin}, y);
        middle(full, y, inBorder);
        edge({full.end, columns_.end}, y);
    }

    void middle(Span span, int y, bool inBorder) {
        const auto count = static_cast<size_t>(span.end - span.begin);
        Pixel* const target = rows_.at(span.begin, y);
        if (!inBorder && gradient_ && !gradient_->uniform()) {
            blendRow(target, gradientRow(*gradient_, span, y), count);
        } else {
            blendColor(target, count, inBorder ? border_ : fill_);
        }
    }

    void blendRow(Pixel* target, const Pixel* source, size_t count) {
        if (source[0] >> 24 == 255) {  // the opacity is the same all over a gradient
            std::copy(source, source + count, target);
        } else {
            rows_.kernels().blendPixels(target, source, count);
        }
    }

    void blendColor(Pixel* target, size_t count, Pixel pixel) {
        if (pixel >> 24 == 255) {
            rows_.kernels().fill(target, count, pixel);
        } else if (pixel != 0) {
            rows_.kernels().blendColor(target, count, pixel);
        }
    }

    const Pixel* gradientRow(GradientRows& gradient, Span span, int y) {
        colors_.resize(std::max(colors_.size(), static_cast<size_t>(span.end - span.begin)));
        gradient.row(y, span.begin, span.end - span.begin, colors_.data());
        return colors_.data();
    }

    // Pixels near the outline, one by one.
    void edge(Span span, int y) {
        if (span.empty()) {
            return;
        }
        const int count = span.end - span.begin;
        float* const distances = rows_.distanceRow(count);
        rows_.outline().distances(span.begin, y, count, distances);
        const Pixel* const colors = gradient_ && !gradient_->uniform() ? gradientRow(*gradient_, span, y) : nullptr;
        Pixel* const target = rows_.at(span.begin, y);
        for (int i = 0; i < count; ++i) {
            const SurfaceRows::Cover cover = rows_.cover(distances[i], span.begin + i, y);
            if (cover.all > 0) {
                const Pixel source = joined(share(colors != nullptr ? colors[i] : fill_, cover.inner),
                                            share(border_, cover.all - cover.inner));
                target[i] = joined(source, share(target[i], 255 - static_cast<int>(source >> 24)));
            }
        }
    }

    SurfaceRows& rows_;
    Span columns_;
    Span straight_;
    Pixel border_;
    Pixel fill_;
    std::optional<GradientRows> gradient_;
    std::vector<Pixel> colors_;
};

}  // namespace

void paintBody(SurfaceRows& rows, const SurfaceStyle& style) {
    Body body(rows, style);
    const Span visible = rows.rows(0, 0);
    if (visible.empty() || rows.columns(0, 0).empty() || body.wholeAtOnce()) {
        return;
    }
    for (int y = visible.begin; y < visible.end; ++y) {
        body.row(y);
    }
}

}  // namespace tavi
