// Messages of the framework's own.
#pragma once

#include <cstdint>

namespace tavi {

// WM_APP + 1: a function was posted to the window.
inline constexpr uint32_t kRunPosted = 0x8001;

}  // namespace tavi
