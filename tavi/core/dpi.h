// Scale of monitors and windows, by the functions that this Windows has: newer ones are looked up at run time.
#pragma once

#include "tavi/core/dpi_awareness.h"
#include "tavi/core/geometry.h"
#include "tavi/core/native_handles.h"

namespace tavi {

// Sets the awareness of the process the first time it is called.
DpiAwareness processDpiAwareness();

int32_t dpiOfWindow(HWND window);
int32_t dpiOfSystem();

// The window size for a client size at a scale, both in device pixels.
Size windowSizeFor(Size client, uint32_t style, uint32_t extendedStyle, int32_t dpi);

}  // namespace tavi
