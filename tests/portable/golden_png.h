// The files of expected pictures, read and written by whatever a platform has for PNG.
#pragma once

#include <optional>
#include <string>

#include "tavi/theme/pixel_buffer.h"

namespace tavi {

// Nothing when the file cannot be read.
std::optional<PixelBuffer> readGoldenPng(const std::string& path);
// Without alpha. False when it cannot be written.
bool writeGoldenPng(const std::string& path, const PixelBuffer& picture);

}  // namespace tavi
