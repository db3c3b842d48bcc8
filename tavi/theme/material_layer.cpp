#include "tavi/theme/material_layer.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <utility>
#include <vector>

#include "tavi/theme/material_setup.h"

namespace tavi::material {
namespace {

// What kernels may read and write beyond the end of a row: a sample on each side, and what fills up the last lanes.
constexpr int kPadding = 24;
constexpr int kFields = 5;

// Bevels of the surface's own edges: how near one is, 1 at it.
float edgeNearness(int64_t distance) {
    constexpr float kReach = 3.0f;
    const float near = 1.0f - static_cast<float>(std::clamp<int64_t>(distance, 0, 8)) / kReach;
    return near > 0.0f ? near * near : 0.0f;
}

// Renders the samples of a grid, row by row from the top. Rows of samples are computed once; a row of pixels reads
// three.
class SampleRows {
public:
    SampleRows(const MaterialRequest& request, const Grid& grid, const Kernels& kernels)
        : request_(request),
          grid_(grid),
          kernels_(kernels),
          setup_(setupOf(request, grid.step)),
          mapping_(mappingOf(request)) {
        const auto length = static_cast<size_t>(grid.columns) + kPadding;
        numbers_.resize(length * (4 + 3 * kFields));
        pixels_.resize(length);
        float* next = numbers_.data();
        const auto take = [&] { return std::exchange(next, next + length); };
        x_ = take();
        u_ = take();
        edgeX_ = take();
        wearX_ = take();
        for (Row& row : ring_) {
            row = {grid.columns + 2, x_, u_, 0, 0, take(), take(), take(), take(), take()};
        }
        placeColumns();
        sampleRow(-1);
        sampleRow(0);
    }

    // The pixels of the next row, valid until the next call.
    const Pixel* next() {
        sampleRow(row_ + 1);
        const Row& current = ringRow(row_);
        const bool local = isLocal();
        const int64_t y = grid_.originY + int64_t{row_} * grid_.step;
        const float top = local ? edgeNearness(y) : 0.0f;
        const float bottom = local ? edgeNearness(request_.size.height - 1 - y) : 0.0f;
        kernels_.shade(setup_, {current, ringRow(row_ - 1).height, ringRow(row_ + 1).height, edgeX_, wearX_,
                                (bottom - top) * setup_.lightY * setup_.rim, std::max(top, bottom), pixels_.data()});
        ++row_;
        return pixels_.data();
    }

private:
    bool isLocal() const { return request_.profile.uvMapping == MaterialMapping::kLocal; }
    Row& ringRow(int row) { return ring_[static_cast<size_t>(row + 3) % 3]; }

    void placeColumns() {
        for (int i = 0; i < grid_.columns + kPadding; ++i) {
            const int64_t x = grid_.originX + int64_t{i - 1} * grid_.step;
            x_[i] = static_cast<float>(mirroredModulo(x + mapping_.offsetX, mapping_.periodX));
            u_[i] = std::min(1.0f, x_[i] * mapping_.inverseX);
        }
        for (int i = 0; i < grid_.columns + kPadding; ++i) {
            const int64_t x = grid_.originX + int64_t{i} * grid_.step;
            const float left = isLocal() ? edgeNearness(x) : 0.0f;
            const float right = isLocal() ? edgeNearness(request_.size.width - 1 - x) : 0.0f;
            edgeX_[i] = (right - left) * setup_.lightX * setup_.rim;
            wearX_[i] = std::max(left, right);
        }
    }

    void sampleRow(int number) {
        Row& row = ringRow(number);
        const int64_t y = grid_.originY + int64_t{number} * grid_.step;
        row.y = static_cast<float>(mirroredModulo(y + mapping_.offsetY, mapping_.periodY));
        row.v = std::min(1.0f, row.y * mapping_.inverseY);
        kernels_.begin(setup_, row);
        kernels_.optics[static_cast<size_t>(setup_.optics)](setup_, row);
        if (!setup_.textured) {
            return;
        }
        kernels_.blobs(setup_, row);
        kernels_.patterns[static_cast<size_t>(setup_.pattern)](setup_, row);
        kernels_.tooling[static_cast<size_t>(setup_.tooling)](setup_, row);
    }

    const MaterialRequest& request_;
    const Grid grid_;
    const Kernels& kernels_;
    const Setup setup_;
    const Mapping mapping_;
    std::vector<float> numbers_;
    std::vector<Pixel> pixels_;
    float* x_ = nullptr;
    float* u_ = nullptr;
    float* edgeX_ = nullptr;
    float* wearX_ = nullptr;
    std::array<Row, 3> ring_;
    int row_ = 0;
};

// Half of the sum of each channel, rounded up.
Pixel averaged(Pixel a, Pixel b) {
    return (a | b) - (((a ^ b) >> 1) & 0x7F7F7F7F);
}

// A row of samples at every second pixel, enlarged: pixels between two samples are their average.
void enlargeRow(const Pixel* samples, int margin, int width, Pixel* out) {
    for (int x = 0; x < width; ++x) {
        const int place = x + margin;
        out[x] = (place & 1) == 0 ? samples[place / 2] : averaged(samples[place / 2], samples[place / 2 + 1]);
    }
}

void renderEnlarged(SampleRows& rows, const Grid& grid, PixelView target) {
    const auto width = static_cast<size_t>(target.width);
    std::vector<Pixel> upper(width);
    std::vector<Pixel> lower(width);
    enlargeRow(rows.next(), grid.marginX, target.width, upper.data());
    enlargeRow(rows.next(), grid.marginX, target.width, lower.data());
    for (int y = 0; y < target.height; ++y) {
        const int place = y + grid.marginY;
        if (place > 1 && (place & 1) == 0) {
            upper.swap(lower);
            enlargeRow(rows.next(), grid.marginX, target.width, lower.data());
        }
        Pixel* out = target.row(y);
        if ((place & 1) == 0) {
            std::copy(upper.begin(), upper.end(), out);
        } else {
            std::transform(upper.begin(), upper.end(), lower.begin(), out, averaged);
        }
    }
}

}  // namespace

void renderLayer(const MaterialRequest& request, const Kernels& kernels, int step, PixelView target) {
    const Grid grid = gridOf(request, step);
    SampleRows rows(request, grid, kernels);
    if (step != 1) {
        renderEnlarged(rows, grid, target);
        return;
    }
    for (int y = 0; y < target.height; ++y) {
        std::copy_n(rows.next(), target.width, target.row(y));
    }
}

}  // namespace tavi::material
