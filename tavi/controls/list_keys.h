// The keys that move through rows; their values are those of Windows' virtual-key codes.
#pragma once

#include <cstdint>

namespace tavi::list_key {

inline constexpr uint32_t kPageUp = 0x21;
inline constexpr uint32_t kPageDown = 0x22;
inline constexpr uint32_t kEnd = 0x23;
inline constexpr uint32_t kHome = 0x24;
inline constexpr uint32_t kUp = 0x26;
inline constexpr uint32_t kDown = 0x28;
inline constexpr uint32_t kF4 = 0x73;

}  // namespace tavi::list_key
