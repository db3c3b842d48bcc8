// From pixels in memory to a device context.
#pragma once

#include "tavi/core/geometry.h"
#include "tavi/core/native_handles.h"
#include "tavi/theme/pixel_buffer.h"

namespace tavi {

// Lays the picture over what the device shows, its corner at `at` (logical coordinates, one to a pixel), by its own
// alpha. Only what the device's clip lets through is copied. Draws nothing when the picture is empty or Windows has no
// memory for it. `opaque` is a part of the picture that is known to hide what lies below.
void compose(HDC target, Point at, const PixelBuffer& picture, const Rect& opaque = {});

// True when nothing drawn in the area would be seen: it is empty or outside of the device's clip.
bool isClippedAway(HDC target, const Rect& area);

}  // namespace tavi
