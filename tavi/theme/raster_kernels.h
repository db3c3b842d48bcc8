// The loops over pixels that most of painting is spent in. Each exists twice, made from the same source: for any
// processor and for those with AVX2, chosen when the program runs. Both give the same pixels.
#pragma once

#include <cstddef>
#include <cstdint>

namespace tavi {

// Pixels are premultiplied 0xAARRGGBB. No row may overlap another.
struct RasterKernels {
    const char* name;

    // `count` times the same pixel, replacing what is there.
    void (*fill)(uint32_t* target, size_t count, uint32_t pixel);
    // The same pixel over what is there: pixel + target x (255 - alpha) / 255, rounded to the nearest.
    void (*blendColor)(uint32_t* target, size_t count, uint32_t pixel);
    // A row of pixels over what is there.
    void (*blendPixels)(uint32_t* target, const uint32_t* source, size_t count);
    // The pixel, each of its channels times the mask in 255 parts, over what is there.
    void (*blendMask)(uint32_t* target, const uint8_t* mask, size_t count, uint32_t pixel);
    // A row of pixels, each times its mask, over what is there.
    void (*blendMasked)(uint32_t* target, const uint32_t* source, const uint8_t* mask, size_t count);
    // table[position], where the position starts at `at` and grows by `step` a pixel, both in 1/65536, and stays in the
    // table.
    void (*lookUp)(uint32_t* target, size_t count, const uint32_t* table, int32_t size, int64_t at, int64_t step);
    // table[position x scale] for positions from 0 to 1; what lies outside is clamped.
    void (*lookUpAt)(uint32_t* target, const float* position, size_t count, const uint32_t* table, int32_t size);
    // Positions of gradients around a point: pixel i is (x + i) x scaleX away from it across, and as far down as the
    // last number says, which is squared for radial and not negative for diamond.
    void (*radial)(float* out, size_t count, float x, float scaleX, float squareY);
    void (*diamond)(float* out, size_t count, float x, float scaleX, float awayY);
    // The angle of ((x + i) x scaleX, y) in turns from 0 to 1, from `first` on, clockwise.
    void (*conic)(float* out, size_t count, float x, float scaleX, float y, float first);
    // A mask of `opacity` where the distance is at most `near`, falling with the square to 0 at `far`.
    void (*falloff)(uint8_t* mask, const float* distance, size_t count, float near, float far, float opacity);
    // A mask of noise from 0 to `opacity`, the same for the same pixel (x + i, y) and seed.
    void (*noise)(uint8_t* mask, size_t count, uint32_t x, uint32_t y, uint32_t seed, uint32_t opacity);
};

const RasterKernels& plainKernels();
// Only to be called where the processor has AVX2.
const RasterKernels& avx2Kernels();
bool processorHasAvx2();
// Null where the processor lacks AVX2.
const RasterKernels* fastKernels();
// The fastest of them that the processor has.
const RasterKernels& rasterKernels();

}  // namespace tavi
