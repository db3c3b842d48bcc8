// How long the setup waits for other programs, in milliseconds. The two for child programs are defined in
// time_limits.cpp, so that a test build can shorten them.
#pragma once

#include <cstdint>

namespace velquin::setup {

extern const uint32_t kMsiexecLimitMs;
extern const uint32_t kSchtasksLimitMs;

inline constexpr uint32_t kCloseLimitMs = 5000;        // for a copy of the product to end after WM_CLOSE
inline constexpr uint32_t kTerminateLimitMs = 1500;    // and after it was terminated
inline constexpr uint32_t kParentExitLimitMs = 15000;  // for the setup that started the uninstall worker to end

}  // namespace velquin::setup
