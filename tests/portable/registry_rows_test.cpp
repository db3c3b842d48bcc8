#include "setup/registry_rows.h"

#include <gtest/gtest.h>

namespace {

using namespace velquin::setup;

TEST(RegistryRows, SizesInKib) {
    constexpr uint32_t kMax32 = 0xFFFFFFFF;
    constexpr std::pair<uint64_t, uint32_t> kCases[] = {
        {0, 0},
        {1, 1},
        {1024, 1},
        {1025, 2},
        {uint64_t{kMax32} * 1024 - 1024, kMax32 - 1},
        {uint64_t{kMax32} * 1024 + 1, kMax32},
        {UINT64_MAX, kMax32},
    };
    for (const auto& [bytes, kib] : kCases) {
        EXPECT_EQ(kibOf(bytes), kib) << bytes;
    }
    EXPECT_EQ(totalKib({1, 0, 2, 4}), 7u);
    EXPECT_EQ(totalKib({kMax32, 1, kMax32, kMax32}), kMax32);
}

}  // namespace
