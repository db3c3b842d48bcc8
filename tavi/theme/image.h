// The pictures that skins name: PNG, BMP and JPEG files, read once into premultiplied pixels and kept. Belongs to the
// UI thread.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "tavi/theme/pixel_buffer.h"

namespace tavi {

// The most pixels that a picture may have.
inline constexpr int64_t kPicturePixelLimit = int64_t{64} << 20;

// True for a name that stays inside the folder it is looked up in: relative, without "..", without a drive, a stream or
// a device's name. Skins come from anywhere.
bool isSafePictureName(std::wstring_view name);

// The first picture of a file. Nothing when it cannot be read, is no PNG, BMP or JPEG, or is larger than the limit.
std::optional<PixelBuffer> loadPicture(const std::wstring& path);

// Where skins' pictures are looked up, empty for nowhere. Forgets the pictures that were read.
void setPictureFolder(std::wstring folder);

// The picture that a style names ("image"), or null when it names none, the name is not safe or the picture cannot be
// read. Valid until the next call.
const PixelBuffer* stylePicture(std::wstring_view name);

}  // namespace tavi
