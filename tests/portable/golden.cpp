#include "golden.h"

#include <png.h>

#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <optional>

namespace tavi {
namespace {

constexpr uint32_t kFormat = PNG_FORMAT_BGRA;
constexpr Pixel kOpaque = 0xFF000000;

std::optional<PixelBuffer> readPng(const std::string& path) {
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    if (png_image_begin_read_from_file(&image, path.c_str()) == 0) {
        return std::nullopt;
    }
    image.format = kFormat;
    PixelBuffer buffer({static_cast<int>(image.width), static_cast<int>(image.height)});
    if (png_image_finish_read(&image, nullptr, buffer.pixels().data(), 0, nullptr) == 0) {
        return std::nullopt;
    }
    return buffer;
}

bool writePng(const std::string& path, const PixelBuffer& buffer) {
    std::filesystem::create_directories(std::filesystem::path(path).parent_path());
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    image.width = static_cast<uint32_t>(buffer.size().width);
    image.height = static_cast<uint32_t>(buffer.size().height);
    image.format = PNG_FORMAT_BGR;
    std::vector<uint8_t> bytes;
    for (const Pixel pixel : buffer.pixels()) {
        bytes.insert(bytes.end(), {static_cast<uint8_t>(pixel), static_cast<uint8_t>(pixel >> 8),
                                   static_cast<uint8_t>(pixel >> 16)});
    }
    return png_image_write_to_file(&image, path.c_str(), 0, bytes.data(), 0, nullptr) != 0;
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

testing::AssertionResult equalsGolden(const std::string& name, const PixelBuffer& picture, int tolerance,
                                      const GoldenFolders& folders, bool write) {
    const std::string expectedPath = folders.expected + "/" + name + ".png";
    const std::string actualPath = folders.found + "/" + name + ".actual.png";
    if (write) {
        return testing::AssertionFailure()
               << (writePng(expectedPath, picture) ? "written: " : "cannot be written: ") << expectedPath;
    }
    const std::optional<PixelBuffer> expected = readPng(expectedPath);
    if (!expected || expected->size() != picture.size()) {
        writePng(actualPath, picture);
        return testing::AssertionFailure()
               << expectedPath << (expected ? " has another size" : " cannot be read") << "; see " << actualPath;
    }
    size_t count = 0;
    const PixelBuffer shown = differences(*expected, picture, tolerance, count);
    if (count == 0) {
        return testing::AssertionSuccess();
    }
    writePng(actualPath, picture);
    writePng(folders.found + "/" + name + ".difference.png", shown);
    return testing::AssertionFailure() << count << " pixels differ from " << expectedPath << "; see " << actualPath
                                       << " and the picture of the differences beside it";
}

testing::AssertionResult equalsGolden(const std::string& name, const PixelBuffer& picture, int tolerance) {
    const char* const write = std::getenv("VELQUIN_WRITE_GOLDEN");
    return equalsGolden(name, picture, tolerance, {VELQUIN_GOLDEN, VELQUIN_GOLDEN_FOUND},
                        write != nullptr && std::strcmp(write, "1") == 0);
}

}  // namespace tavi
