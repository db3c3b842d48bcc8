#include "golden_png.h"

#include <png.h>

namespace tavi {

std::optional<PixelBuffer> readGoldenPng(const std::string& path) {
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    if (png_image_begin_read_from_file(&image, path.c_str()) == 0) {
        return std::nullopt;
    }
    image.format = PNG_FORMAT_BGRA;
    PixelBuffer buffer({static_cast<int>(image.width), static_cast<int>(image.height)});
    if (png_image_finish_read(&image, nullptr, buffer.pixels().data(), 0, nullptr) == 0) {
        return std::nullopt;
    }
    return buffer;
}

bool writeGoldenPng(const std::string& path, const PixelBuffer& picture) {
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    image.width = static_cast<uint32_t>(picture.size().width);
    image.height = static_cast<uint32_t>(picture.size().height);
    image.format = PNG_FORMAT_BGR;
    std::vector<uint8_t> bytes;
    for (const Pixel pixel : picture.pixels()) {
        bytes.insert(bytes.end(), {static_cast<uint8_t>(pixel), static_cast<uint8_t>(pixel >> 8),
                                   static_cast<uint8_t>(pixel >> 16)});
    }
    return png_image_write_to_file(&image, path.c_str(), 0, bytes.data(), 0, nullptr) != 0;
}

}  // namespace tavi
