#include "golden.h"

#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <optional>

#include "golden_png.h"

namespace tavi {
namespace {

constexpr Pixel kOpaque = 0xFF000000;

bool write(const std::string& path, const PixelBuffer& picture) {
    std::filesystem::create_directories(std::filesystem::path(path).parent_path());
    return writeGoldenPng(path, picture);
}

int channel(Pixel pixel, int shift) {
    return static_cast<int>(pixel >> shift & 0xFF);
}

// The picture of the differences, eight times as strong as they are; how many pixels differ by more than the tolerance.
PixelBuffer differences(const PixelBuffer& a, const PixelBuffer& b, int tolerance, size_t& count) {
    PixelBuffer result(a.size());
    for (size_t i = 0; i < a.pixels().size(); ++i) {
        int largest = 0;
        Pixel shown = kOpaque;
        for (const int shift : {0, 8, 16}) {
            const int off = std::abs(channel(a.pixels()[i], shift) - channel(b.pixels()[i], shift));
            largest = std::max(largest, off);
            shown |= static_cast<Pixel>(std::min(off * 8, 255)) << shift;
        }
        result.pixels()[i] = shown;
        count += largest > tolerance ? 1U : 0U;
    }
    return result;
}

}  // namespace

testing::AssertionResult equalsGolden(const std::string& name, const PixelBuffer& picture, GoldenTolerance tolerance,
                                      const GoldenFolders& folders, bool anew) {
    const std::string expectedPath = folders.expected + "/" + name + ".png";
    const std::string actualPath = folders.found + "/" + name + ".actual.png";
    if (anew) {
        return testing::AssertionFailure()
               << (write(expectedPath, picture) ? "written: " : "cannot be written: ") << expectedPath;
    }
    const std::optional<PixelBuffer> expected = readGoldenPng(expectedPath);
    if (!expected || expected->size() != picture.size()) {
        write(actualPath, picture);
        return testing::AssertionFailure()
               << expectedPath << (expected ? " has another size" : " cannot be read") << "; see " << actualPath;
    }
    size_t count = 0;
    const PixelBuffer shown = differences(*expected, picture, tolerance.levels, count);
    if (count <= tolerance.pixels) {
        return testing::AssertionSuccess();
    }
    write(actualPath, picture);
    write(folders.found + "/" + name + ".difference.png", shown);
    return testing::AssertionFailure() << count << " pixels differ from " << expectedPath << "; see " << actualPath
                                       << " and the picture of the differences beside it";
}

testing::AssertionResult equalsGolden(const std::string& name, const PixelBuffer& picture, GoldenTolerance tolerance) {
    const char* const write = std::getenv("VELQUIN_WRITE_GOLDEN");
    return equalsGolden(name, picture, tolerance, {VELQUIN_GOLDEN, VELQUIN_GOLDEN_FOUND},
                        write != nullptr && std::strcmp(write, "1") == 0);
}

}  // namespace tavi
