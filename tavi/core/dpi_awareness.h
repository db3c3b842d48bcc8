// How the process came to its DPI awareness: the decision over what Windows' functions answered.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string_view>

namespace tavi {

enum class DpiAwareness {
    PerMonitorV2 = 0,
    SystemFallback = 1,
    PreconfiguredByHost = 2,  // by a manifest, or by the program before the first window
    Unavailable = 3,
};

// "per-monitor-v2", "system-aware-fallback", "preconfigured-by-host", "unavailable".
std::wstring_view dpiAwarenessName(DpiAwareness mode);

// Each function returns 0 when it succeeded and the error otherwise; `perMonitor` nothing where Windows does not have
// it.
DpiAwareness chooseDpiAwareness(const std::function<std::optional<uint32_t>()>& perMonitor,
                                const std::function<uint32_t()>& system);

}  // namespace tavi
