// The pointer's picture over a control.
#pragma once

#include <cstdint>

namespace tavi {

enum class CursorShape : uint8_t { Arrow, Text, Hand, SizeHorizontal, SizeVertical };

}  // namespace tavi
