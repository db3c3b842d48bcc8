// A window that comes to a monitor with another scale: it keeps its client size in design pixels.
#include <windows.h>

#include "tavi/core/drawing.h"
#include "tavi/core/window_native.h"

namespace tavi {

// Windows asks for the size at the new scale before it suggests a place.
WindowNative::Answer WindowNative::onGetScaledSize(const Message& message) {
    const Size size = windowSize(tree_->scale().designClient(), static_cast<int32_t>(message.wParam));
    *reinterpret_cast<SIZE*>(message.lParam) = {size.width, size.height};
    return TRUE;
}

WindowNative::Answer WindowNative::onMoveSize(const Message& message) {
    isDragged_ = message.number == WM_ENTERSIZEMOVE;
    return std::nullopt;
}

WindowNative::Answer WindowNative::onDpiChanged(const Message& message) {
    const Size client = tree_->scale().designClient();
    const int32_t before = dpi_;
    const RECT suggestion = *reinterpret_cast<const RECT*>(message.lParam);
    const Rect suggested = fromWindows(suggestion);
    const Rect windowBefore = windowRect();
    dpi_ = HIWORD(message.wParam);
    const bool ownSize = !IsZoomed(handle_) && !IsIconic(handle_);
    const Size size = ownSize ? windowSize(client, dpi_) : suggested.size();
    Rect applied{suggested.x, suggested.y, size.width, size.height};
    if (ownSize && !isDragged_) {
        // Under the mouse it stays where it is held, or it would jump back to the monitor that it comes from.
        applied = fitWindowRectToMinimumAndWorkArea(applied, {},
                                                    workAreaOf(MonitorFromRect(&suggestion, MONITOR_DEFAULTTONEAREST)));
    }
    if (tree_->diagnostics()) {
        writeDiagnostic(L"[Tavi diagnostic] WM_DPICHANGED dpi=" + std::to_wstring(before) + L"->" +
                        std::to_wstring(dpi_) + L" before=" + describe(windowBefore) + L" suggested=" +
                        describe(suggested) + L" applied=" + describe(applied));
    }
    move(applied);
    // The tree knows the new scale by now, and may have asked for another size.
    if (ownSize && applied.size() == size && windowRect() == applied) {
        // Frames do not always scale as Windows says; what counts is the client area.
        RECT now{};
        GetClientRect(handle_, &now);
        const Size wanted = Scale(dpi_).device(client);
        if (wanted != Size{now.right, now.bottom}) {
            move({applied.x, applied.y, size.width + wanted.width - now.right,
                  size.height + wanted.height - now.bottom});
        }
    }
    // Where the size in device pixels happens to stay the same no WM_SIZE follows.
    updateClient();
    return 0;
}

}  // namespace tavi
