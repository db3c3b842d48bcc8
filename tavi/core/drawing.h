// The flat things that need no skin: grounds, frames. Rectangles are device pixels, colors 0xBBGGRR.
#pragma once

#include "tavi/core/geometry.h"
#include "tavi/core/native_handles.h"

struct tagRECT;  // NOLINT(readability-identifier-naming): the name is that of Windows

namespace tavi {

void fillRect(HDC target, const Rect& area, uint32_t color);
// One device pixel wide, inside the area.
void frameRect(HDC target, const Rect& area, uint32_t color);

// Windows' form of a rectangle and back.
tagRECT toWindows(const Rect& rect);
Rect fromWindows(const tagRECT& rect);

}  // namespace tavi
