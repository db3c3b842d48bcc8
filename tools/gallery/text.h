// Words on a device context.
#pragma once

#include <string_view>

#include "tavi/core/geometry.h"
#include "tavi/core/native_handles.h"
#include "tavi/theme/theme.h"

struct HFONT__;

namespace gallery {

enum class Face : uint8_t { kUi, kTitle, kMono };
inline constexpr int kFaceCount = 3;
enum class Align : uint8_t { kLeft, kCentre, kWrapped };

// A font of a theme at a scale in percent. The caller deletes it.
HFONT__* makeFont(const tavi::Theme& theme, Face face, int percent);

// One line, centred on its height and cut with dots where it is too long, or lines broken at words. `inset` keeps it
// away from the left and the right.
void drawText(HDC target, const tavi::Rect& area, HFONT__* font, tavi::Color color, std::wstring_view text, Align align,
              int inset);

}  // namespace gallery
