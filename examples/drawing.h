// The colors and the text of the examples. Rectangles are device pixels.
#pragma once

#include <string>

#include "tavi/core/native_handles.h"
#include "tavi/core/scale.h"

namespace example {

using Color = uint32_t;  // 0xBBGGRR
inline constexpr Color kGround = 0x2B2320;
inline constexpr Color kPanel = 0x3D332E;
inline constexpr Color kLine = 0x5A4C45;
inline constexpr Color kAccent = 0x8A5A2C;
inline constexpr Color kAccentLight = 0xA87340;
inline constexpr Color kAccentDark = 0x6B441F;
inline constexpr Color kText = 0xF2EEEA;
inline constexpr Color kMuted = 0xB0A49C;

enum class Align { Left, Center };

// Wraps when it is aligned left; one line in the middle otherwise.
void drawText(HDC target, const tavi::Rect& area, const tavi::Scale& scale, const std::wstring& text, Color color,
              Align align);

}  // namespace example
