// Pictures that were looked at and found good, kept in tests/golden as PNG files. Painting must go on giving them; what
// differs is written beside the build, with a picture of the differences.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "tavi/theme/pixel_buffer.h"

namespace tavi {

struct GoldenTolerance {
    int levels = 2;     // that a channel may be off
    size_t pixels = 0;  // that may be further off
};

// Compares the picture, laid on an opaque ground, with tests/golden/NAME.png: the same size, and no channel of any
// pixel further off than the tolerance. Run with the environment variable VELQUIN_WRITE_GOLDEN=1 it writes that
// file anew instead, and fails all the same, so that no test passes by it.
testing::AssertionResult equalsGolden(const std::string& name, const PixelBuffer& picture,
                                      GoldenTolerance tolerance = {});

// The same with the folders of the expected pictures and of what was found in place of the usual ones.
struct GoldenFolders {
    std::string expected;
    std::string found;
};
testing::AssertionResult equalsGolden(const std::string& name, const PixelBuffer& picture, GoldenTolerance tolerance,
                                      const GoldenFolders& folders, bool anew);

}  // namespace tavi
