#include "tavi/theme/raster_kernels.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <vector>

#include "tavi/theme/pixel_buffer.h"

namespace tavi {
namespace {

uint32_t byPart(uint32_t value, uint32_t part) {
    return (value * part * 2 + 255) / 510;  // to the nearest
}

Pixel reference(Pixel source, uint32_t mask, Pixel target) {
    Pixel result = 0;
    const uint32_t alpha = byPart(source >> 24, mask);
    for (int shift = 0; shift < 32; shift += 8) {
        result |= (byPart(source >> shift & 255, mask) + byPart(target >> shift & 255, 255 - alpha)) << shift;
    }
    return result;
}

class RasterKernelsTest : public testing::TestWithParam<const RasterKernels*> {
protected:
    Pixel pixel() { return premultiplied(random_() & 0xFFFFFF, static_cast<uint8_t>(random_())); }
    std::vector<Pixel> row(size_t count) {
        std::vector<Pixel> pixels(count);
        std::ranges::generate(pixels, [&] { return pixel(); });
        return pixels;
    }

    std::mt19937 random_{3};
};

// Every length up to several groups, at every offset to the alignment of a group; the pixel behind stays.
TEST_P(RasterKernelsTest, BlendByTheFormula) {
    const RasterKernels& kernels = *GetParam();
    for (size_t count = 0; count < 40; ++count) {
        const size_t offset = count % 9;
        const std::vector<Pixel> before = row(count + offset + 1);
        const std::vector<Pixel> source = row(count + 1);
        std::vector<uint8_t> mask(count + 1);
        std::ranges::generate(mask, [&] { return static_cast<uint8_t>(random_() % 3 == 0 ? 0 : random_()); });
        const Pixel color = pixel();
        const auto check = [&](const char* what, const auto& blend, const auto& expected) {
            std::vector<Pixel> target = before;
            blend(target.data() + offset);
            for (size_t i = 0; i < target.size(); ++i) {
                const bool painted = i >= offset && i < offset + count;
                ASSERT_EQ(target[i], painted ? expected(i - offset, before[i]) : before[i])
                    << what << " " << count << " " << i;
            }
        };
        check("fill", [&](Pixel* at) { kernels.fill(at, count, color); }, [&](size_t, Pixel) { return color; });
        check(
            "color", [&](Pixel* at) { kernels.blendColor(at, count, color); },
            [&](size_t, Pixel was) { return reference(color, 255, was); });
        check(
            "pixels", [&](Pixel* at) { kernels.blendPixels(at, source.data(), count); },
            [&](size_t i, Pixel was) { return reference(source[i], 255, was); });
        check(
            "mask", [&](Pixel* at) { kernels.blendMask(at, mask.data(), count, color); },
            [&](size_t i, Pixel was) { return reference(color, mask[i], was); });
        check(
            "masked", [&](Pixel* at) { kernels.blendMasked(at, source.data(), mask.data(), count); },
            [&](size_t i, Pixel was) { return reference(source[i], mask[i], was); });
    }
}

TEST_P(RasterKernelsTest, PositionsStayInTheTable) {
    const Pixel table[] = {10, 20, 30, 40};
    Pixel out[6] = {};
    GetParam()->lookUp(out, 6, table, 4, -65536, 65536);
    EXPECT_EQ(std::vector<Pixel>(out, out + 6), (std::vector<Pixel>{10, 10, 20, 30, 40, 40}));
    const float positions[] = {-3.0F, 0.0F, 0.34F, 0.66F, 1.0F, 9.0F};
    GetParam()->lookUpAt(out, positions, 6, table, 4);
    EXPECT_EQ(std::vector<Pixel>(out, out + 6), (std::vector<Pixel>{10, 10, 20, 30, 40, 40}));
}

// The same picture on every processor.
TEST_P(RasterKernelsTest, EqualThePlainOnes) {
    const RasterKernels& kernels = *GetParam();
    const RasterKernels& plain = plainKernels();
    constexpr size_t kCount = 203;
    std::vector<float> ours(kCount);
    std::vector<float> theirs(kCount);
    std::vector<uint8_t> mask(kCount);
    std::vector<uint8_t> plainMask(kCount);
    for (int round = 0; round < 50; ++round) {
        const float x = static_cast<float>(round) * 7.3F - 150;
        kernels.radial(ours.data(), kCount, x, 0.02F, 0.3F);
        plain.radial(theirs.data(), kCount, x, 0.02F, 0.3F);
        EXPECT_EQ(ours, theirs);
        kernels.diamond(ours.data(), kCount, x, 0.02F, 0.3F);
        plain.diamond(theirs.data(), kCount, x, 0.02F, 0.3F);
        EXPECT_EQ(ours, theirs);
        kernels.conic(ours.data(), kCount, x, 0.02F, x * 0.01F, 0.25F);
        plain.conic(theirs.data(), kCount, x, 0.02F, x * 0.01F, 0.25F);
        EXPECT_EQ(ours, theirs);
        kernels.falloff(mask.data(), ours.data(), kCount, -0.5F, 3, 200);
        plain.falloff(plainMask.data(), ours.data(), kCount, -0.5F, 3, 200);
        EXPECT_EQ(mask, plainMask);
        kernels.noise(mask.data(), kCount, 5, static_cast<uint32_t>(round), 9, 255);
        plain.noise(plainMask.data(), kCount, 5, static_cast<uint32_t>(round), 9, 255);
        EXPECT_EQ(mask, plainMask);
    }
}

std::vector<const RasterKernels*> allKernels() {
    std::vector<const RasterKernels*> all{&plainKernels()};
    if (fastKernels() != nullptr) {
        all.push_back(fastKernels());
    }
    return all;
}

INSTANTIATE_TEST_SUITE_P(All, RasterKernelsTest, testing::ValuesIn(allKernels()),
                         [](const auto& param) { return std::string(param.param->name); });

}  // namespace
}  // namespace tavi
