// The small signs that controls draw with a pen rather than with a font: they are there whatever fonts are, and sharp
// at every scale.
#pragma once

#include <cstdint>

#include "tavi/core/geometry.h"
#include "tavi/core/native_handles.h"
#include "tavi/theme/color.h"
#include "tavi/theme/pixel_buffer.h"

namespace tavi {

enum class Glyph : uint8_t {
    kNone,
    kTick,
    kClose,
    kMinimize,
    kMaximize,
    kRestore,
    kResetSize,
    kArrowDown,
    kArrowUp,
    kArrowLeft,
    kArrowRight,
    kInformation,
    kWarning,
    kError,
    kQuestion,
};

// Draws it into the largest square in the middle of an area (device pixels).
void drawGlyph(HDC target, const Rect& area, Glyph glyph, Color color);

// The picture of one: a square of so many device pixels. Lines along the axes lie on whole pixels, the others have
// smooth edges and round ends.
PixelBuffer glyphPicture(Glyph glyph, int32_t extent, Color color);

}  // namespace tavi
