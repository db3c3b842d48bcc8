// The time, for measuring.
#pragma once

#include <chrono>

namespace bench {

// Microseconds since some moment; never set back.
inline long long microseconds() {
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration_cast<std::chrono::microseconds>(now).count();
}

}  // namespace bench
