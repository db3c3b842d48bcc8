#include "tests/portable/golden_png.h"

#include "base/text.h"
#include "tavi/theme/image.h"
#include "tools/gallery/sheet.h"

namespace tavi {

std::optional<PixelBuffer> readGoldenPng(const std::string& path) {
    return loadPicture(base::toWide(path));
}

bool writeGoldenPng(const std::string& path, const PixelBuffer& picture) {
    return gallery::savePng(base::toWide(path), picture);
}

}  // namespace tavi
