#include "tavi/core/dpi.h"

#include <windows.h>

#include "base/win32/system_library.h"
#include "tavi/core/scale.h"

namespace tavi {
namespace {

base::SystemLibrary& user32() {
    static base::SystemLibrary library(L"user32.dll");
    return library;
}

// The reason why a call has failed; never 0, which would be success.
uint32_t lastError() {
    const DWORD error = GetLastError();
    return error != 0 ? error : ERROR_GEN_FAILURE;
}

std::optional<uint32_t> setPerMonitor() {
    auto* const set = user32().function<decltype(SetProcessDpiAwarenessContext)>("SetProcessDpiAwarenessContext");
    if (set == nullptr) {
        return std::nullopt;
    }
    return set(DPI_AWARENESS_CONTEXT_PER_MONITOR_AWARE_V2) ? 0 : lastError();
}

uint32_t setSystem() {
    return SetProcessDPIAware() ? 0 : lastError();
}

}  // namespace

DpiAwareness processDpiAwareness() {
    static const DpiAwareness mode = chooseDpiAwareness(setPerMonitor, setSystem);
    return mode;
}

int32_t dpiOfSystem() {
    if (auto* const get = user32().function<decltype(GetDpiForSystem)>("GetDpiForSystem")) {
        return static_cast<int32_t>(get());
    }
    const HDC screen = GetDC(nullptr);
    const int dpi = GetDeviceCaps(screen, LOGPIXELSX);
    ReleaseDC(nullptr, screen);
    return dpi > 0 ? dpi : kDesignDpi;
}

int32_t dpiOfWindow(HWND window) {
    auto* const get = user32().function<decltype(GetDpiForWindow)>("GetDpiForWindow");
    const UINT dpi = get != nullptr ? get(window) : 0;
    return dpi != 0 ? static_cast<int32_t>(dpi) : dpiOfSystem();
}

Size windowSizeFor(Size client, uint32_t style, uint32_t extendedStyle, int32_t dpi) {
    RECT rect{0, 0, client.width, client.height};
    if (auto* const adjust = user32().function<decltype(AdjustWindowRectExForDpi)>("AdjustWindowRectExForDpi")) {
        adjust(&rect, style, FALSE, extendedStyle, static_cast<UINT>(dpi));
    } else {
        AdjustWindowRectEx(&rect, style, FALSE, extendedStyle);
    }
    return {rect.right - rect.left, rect.bottom - rect.top};
}

}  // namespace tavi
