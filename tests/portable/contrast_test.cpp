#include "tavi/theme/contrast.h"

#include <gtest/gtest.h>

namespace tavi {
namespace {

TEST(Contrast, IsTheRatioOfTheLuminances) {
    constexpr Color kBlack = hexColor(0x000000);
    constexpr Color kWhite = hexColor(0xFFFFFF);
    EXPECT_DOUBLE_EQ(contrast(kBlack, kWhite), 21);
    EXPECT_DOUBLE_EQ(contrast(kWhite, kBlack), 21);
    EXPECT_DOUBLE_EQ(contrast(kWhite, kWhite), 1);
    EXPECT_NEAR(contrast(hexColor(0x777777), kWhite), 4.48, 0.01);
    EXPECT_NEAR(contrast(hexColor(0xFF0000), kBlack), 5.25, 0.01);
}

}  // namespace
}  // namespace tavi
