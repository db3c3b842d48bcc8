// The size and place of a window, and its frame.
#include <windows.h>

#include "tavi/core/dpi.h"
#include "tavi/core/drawing.h"
#include "tavi/core/window_native.h"

namespace tavi {
namespace {

constexpr int32_t kResizeBorder = 6;  // design pixels

MONITORINFO describeMonitor(HMONITOR monitor) {
    MONITORINFO info{};
    info.cbSize = sizeof(info);
    GetMonitorInfoW(monitor, &info);
    return info;
}

HMONITOR monitorOf(HWND window) {
    return MonitorFromWindow(window, window != nullptr ? MONITOR_DEFAULTTONEAREST : MONITOR_DEFAULTTOPRIMARY);
}

}  // namespace

Rect workAreaOf(HMONITOR monitor) {
    return fromWindows(describeMonitor(monitor).rcWork);
}

Rect workAreaOf(HWND window) {
    return workAreaOf(monitorOf(window));
}

std::optional<Rect> windowRectOf(HWND window) {
    RECT rect{};
    return window != nullptr && GetWindowRect(window, &rect) ? std::optional(fromWindows(rect)) : std::nullopt;
}

Rect WindowNative::workArea() const {
    return workAreaOf(handle_);
}

Rect WindowNative::windowRect() const {
    return windowRectOf(handle_).value_or(Rect{});
}

void WindowNative::move(const Rect& window) {
    const std::shared_ptr<WindowNative> keep = shared_from_this();
    SetWindowPos(handle_, nullptr, window.x, window.y, window.width, window.height, SWP_NOZORDER | SWP_NOACTIVATE);
}

// The window around a client area in design pixels.
Size WindowNative::windowSize(Size client, int32_t dpi) const {
    const Size device = Scale(dpi).device(client);
    return customChrome_ ? device : windowSizeFor(device, style_, extendedStyle_, dpi);
}

Size WindowNative::effectiveMinimumClientSize() {
    return larger(minimumClient_, tree_->root().minimumContentSizeHint());
}

void WindowNative::setMinimumClientSize(Size size) {
    minimumClient_ = larger(size, {});
    if (handle_ != nullptr) {
        bringIntoReach();
    }
}

// As large as its minimum at least, no larger than its work area and inside it; under the mouse it stays where it is
// held.
void WindowNative::bringIntoReach() {
    if (IsIconic(handle_) || IsZoomed(handle_)) {
        return;
    }
    const Rect now = windowRect();
    const Size minimum = windowSize(effectiveMinimumClientSize(), dpi_);
    Rect wanted = fitWindowRectToMinimumAndWorkArea(now, minimum, workArea());
    if (isDragged_) {
        wanted.x = now.x;
        wanted.y = now.y;
    }
    move(wanted);
}

void WindowNative::updateClient() {
    RECT client{};
    if (handle_ != nullptr && !IsIconic(handle_) && GetClientRect(handle_, &client)) {
        tree_->setClient({client.right, client.bottom}, dpi_);
    }
}

WindowNative::Answer WindowNative::onSize(const Message& /*message*/) {
    updateClient();
    return 0;
}

// The fields that all lines about sizes share.
std::wstring WindowNative::describeSizes() {
    RECT client{};
    GetClientRect(handle_, &client);
    const Size minimum = effectiveMinimumClientSize();
    return L" clientRect=" + describe(fromWindows(client)) + L" effectiveMinimumClientSize=" + describe(minimum) +
           L" minimumWindowTrackSize=" + describe(windowSize(minimum, dpi_));
}

WindowNative::Answer WindowNative::onSizing(const Message& message) {
    RECT& rect = *reinterpret_cast<RECT*>(message.lParam);
    const int edge = static_cast<int>(message.wParam);
    const Rect before = fromWindows(rect);
    const Rect after = constrainSizingRect(before, edge, windowSize(effectiveMinimumClientSize(), dpi_), workArea());
    rect = toWindows(after);
    if (tree_->diagnostics()) {
        writeDiagnostic(L"[Tavi diagnostic] WM_SIZING edge=" + describeSizingEdge(edge) + L" rectBefore=" +
                        describe(before) + L" rectAfter=" + describe(after) + describeSizes());
    }
    return TRUE;
}

WindowNative::Answer WindowNative::onMinMax(const Message& message) {
    MINMAXINFO& info = *reinterpret_cast<MINMAXINFO*>(message.lParam);
    const MONITORINFO monitor = describeMonitor(monitorOf(handle_));
    const Rect work = fromWindows(monitor.rcWork);
    const Size minimum = windowSize(effectiveMinimumClientSize(), dpi_);
    // The work area wins: what is larger could not be reached with the mouse.
    info.ptMinTrackSize = {std::min(minimum.width, work.width), std::min(minimum.height, work.height)};
    info.ptMaxTrackSize = {work.width, work.height};
    if (customChrome_) {
        // Windows would cover the task bar with a window that has no caption.
        info.ptMaxSize = {work.width, work.height};
        info.ptMaxPosition = {work.x - monitor.rcMonitor.left, work.y - monitor.rcMonitor.top};
    } else {
        // A maximised frame hangs over the edges by its own width.
        info.ptMaxTrackSize.x = std::max(info.ptMaxTrackSize.x, info.ptMaxSize.x);
        info.ptMaxTrackSize.y = std::max(info.ptMaxTrackSize.y, info.ptMaxSize.y);
    }
    if (tree_->diagnostics()) {
        const auto point = [](const POINT& at) { return describe(Point{at.x, at.y}); };
        writeDiagnostic(L"[Tavi diagnostic] WM_GETMINMAXINFO" + describeSizes() + L" minTrack=" +
                        point(info.ptMinTrackSize) + L" maxTrack=" + point(info.ptMaxTrackSize) + L" maxSize=" +
                        point(info.ptMaxSize) + L" maxPosition=" + point(info.ptMaxPosition));
    }
    return 0;
}

void WindowNative::resetToDefaultSize() {
    if (handle_ == nullptr) {
        return;
    }
    // A window that was minimised while it was maximised comes back maximised.
    const std::shared_ptr<WindowNative> keep = shared_from_this();
    for (int i = 0; i < 2 && (IsIconic(handle_) || IsZoomed(handle_)); ++i) {
        ShowWindow(handle_, SW_RESTORE);
    }
    const Size client = defaultClient_.positive() ? defaultClient_ : requestedClient_;
    const Size target = windowSize(client, dpi_);
    const Rect before = windowRect();
    const Rect desired = fitWindowRectToMinimumAndWorkArea({before.x, before.y, target.width, target.height},
                                                           windowSize(effectiveMinimumClientSize(), dpi_), workArea());
    if (tree_->diagnostics()) {
        RECT clientRect{};
        GetClientRect(handle_, &clientRect);
        writeDiagnostic(L"[Tavi diagnostic] Window::resetToDefaultSize currentWindow=" + describe(before) +
                        L" clientRect=" + describe(fromWindows(clientRect)) + L" defaultClientSize=" +
                        describe(client) + L" explicitMinimumClientSize=" + describe(minimumClient_) +
                        L" targetWindowSize=" + describe(target) + L" workArea=" + describe(workArea()) +
                        L" desiredWindow=" + describe(desired));
    }
    move(desired);
}

void WindowNative::centerOn(HWND other) {
    const Rect area = workAreaOf(other != nullptr ? other : handle());
    move(centered(windowRect().size(), windowRectOf(other).value_or(area), area));
}

WindowNative::Answer WindowNative::onCalcSize(const Message& /*message*/) {
    // For both forms of the message, the one at creation as well: all of the window is client area.
    return customChrome_ ? Answer(0) : std::nullopt;
}

// The keyboard's way to a menu bar: without one Alt would only take the next key away.
WindowNative::Answer WindowNative::onSystemCommand(const Message& message) {
    return customChrome_ && (message.wParam & 0xFFF0) == SC_KEYMENU && message.lParam == 0 ? Answer(0) : std::nullopt;
}

WindowNative::Answer WindowNative::onHitTest(const Message& message) {
    const Point onScreen = pointOf(message.lParam);
    const Rect window = windowRect();
    intptr_t hit = 0;
    if (customChrome_) {
        const bool sizable = (style_ & WS_THICKFRAME) != 0 && !IsZoomed(handle_);
        hit = static_cast<intptr_t>(
            hitTestFrame(onScreen - window.position(), window.size(), sizable ? Scale(dpi_).length(kResizeBorder) : 0));
    } else {
        hit = leaveToWindows(message);
    }
    if (tree_->diagnostics()) {
        POINT client{onScreen.x, onScreen.y};
        ScreenToClient(handle_, &client);
        writeDiagnostic(L"[Tavi diagnostic] WM_NCHITTEST hit=" + describeHitCode(static_cast<int>(hit)) +
                        L" cursorScreen=" + describe(onScreen) + L" cursorClient=" +
                        describe(Point{client.x, client.y}) + describeSizes());
    }
    return hit;
}

}  // namespace tavi
