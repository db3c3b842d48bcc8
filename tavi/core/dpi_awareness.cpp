#include "tavi/core/dpi_awareness.h"

#include <iterator>

namespace tavi {

std::wstring_view dpiAwarenessName(DpiAwareness mode) {
    constexpr std::wstring_view kNames[] = {L"per-monitor-v2", L"system-aware-fallback", L"preconfigured-by-host",
                                            L"unavailable"};
    const auto at = static_cast<size_t>(mode);
    return at < std::size(kNames) ? kNames[at] : kNames[3];
}

DpiAwareness chooseDpiAwareness(const std::function<std::optional<uint32_t>()>& perMonitor,
                                const std::function<uint32_t()>& system) {
    constexpr uint32_t kAccessDenied = 5;  // the awareness was set before and stays
    if (const std::optional<uint32_t> error = perMonitor(); error == 0U || error == kAccessDenied) {
        return *error == 0 ? DpiAwareness::PerMonitorV2 : DpiAwareness::PreconfiguredByHost;
    }
    const uint32_t error = system();
    return error == 0               ? DpiAwareness::SystemFallback
           : error == kAccessDenied ? DpiAwareness::PreconfiguredByHost
                                    : DpiAwareness::Unavailable;
}

}  // namespace tavi
