// The life of a window: creation, the window procedure and its table, hand-over between threads, the end.
#include <windows.h>

#include <algorithm>
#include <utility>

#include "tavi/core/dpi.h"
#include "tavi/core/message_loop.h"
#include "tavi/core/test_desktop.h"
#include "tavi/core/window_messages.h"
#include "tavi/core/window_native.h"

namespace tavi {
namespace {

constexpr wchar_t kWindowClass[] = L"TaviDesignWindow";
constexpr Size kUsualClientSize{640, 400};

static_assert(message::kMouseMove == WM_MOUSEMOVE && message::kLeftDown == WM_LBUTTONDOWN &&
              message::kExtraDouble == WM_XBUTTONDBLCLK && message::kHorizontalWheel == WM_MOUSEHWHEEL &&
              message::kCut == WM_CUT && message::kUndo == WM_UNDO && key::kF12 == VK_F12 && kRunPosted == WM_APP + 1);

}  // namespace

// The one place that Windows calls; it only finds the window and keeps it alive.
struct WindowProcedure {
    static LRESULT CALLBACK run(HWND handle, UINT number, WPARAM wParam, LPARAM lParam) {
        if (number == WM_NCCREATE) {
            auto* const created = static_cast<WindowNative*>(reinterpret_cast<CREATESTRUCTW*>(lParam)->lpCreateParams);
            created->handle_ = handle;
            SetWindowLongPtrW(handle, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(created));
        }
        auto* const native = reinterpret_cast<WindowNative*>(GetWindowLongPtrW(handle, GWLP_USERDATA));
        if (native == nullptr) {
            return DefWindowProcW(handle, number, wParam, lParam);
        }
        const std::shared_ptr<WindowNative> keep = native->shared_from_this();
        return native->dispatch({number, wParam, lParam});
    }

    static bool registerClass(HINSTANCE instance) {
        WNDCLASSEXW description{};
        description.cbSize = sizeof(description);
        description.style = CS_DBLCLKS;
        description.lpfnWndProc = run;
        description.hInstance = instance;
        description.hCursor = LoadCursorW(nullptr, IDC_ARROW);
        description.lpszClassName = kWindowClass;
        static const bool registered = RegisterClassExW(&description) != 0;
        return registered;
    }
};

WindowNative::WindowNative(Window& window, HINSTANCE instance)
    : window_(&window), instance_(instance), thread_(GetCurrentThreadId()), tree_(WindowTree::create(*this)) {}

const std::vector<WindowNative::Route>& WindowNative::routes() {
    using Self = WindowNative;
    static const std::vector<Route> table = [] {
        std::vector<Route> rows = {
            {WM_CLOSE, &Self::onClose},
            {WM_DESTROY, &Self::onDestroy},
            {kRunPosted, &Self::onPosted},
            {WM_TIMER, &Self::onTimer},
            {WM_SETTINGCHANGE, &Self::onEnvironment},
            {WM_SYSCOLORCHANGE, &Self::onEnvironment},
            {WM_FONTCHANGE, &Self::onEnvironment},
            {WM_DISPLAYCHANGE, &Self::onEnvironment},
            {WM_MOUSEWHEEL, &Self::onWheel},
            {WM_MOUSEHWHEEL, &Self::onWheel},
            {WM_MOUSELEAVE, &Self::onPointerLeave},
            {WM_CAPTURECHANGED, &Self::onCaptureChanged},
            {WM_CANCELMODE, &Self::onCancelMode},
            {WM_KEYDOWN, &Self::onKey},
            {WM_SYSKEYDOWN, &Self::onKey},
            {WM_KEYUP, &Self::onKey},
            {WM_SYSKEYUP, &Self::onKey},
            {WM_CHAR, &Self::onCharacter},
            {WM_SYSCHAR, &Self::onSystemCharacter},
            {WM_SETFOCUS, &Self::onFocus},
            {WM_KILLFOCUS, &Self::onFocus},
            {WM_ACTIVATE, &Self::onActivate},
            {WM_IME_SETCONTEXT, &Self::onInputContext},
            {WM_IME_STARTCOMPOSITION, &Self::onCompositionStart},
            {WM_IME_COMPOSITION, &Self::onComposition},
            {WM_IME_ENDCOMPOSITION, &Self::onCompositionEnd},
            {WM_SIZE, &Self::onSize},
            {WM_SIZING, &Self::onSizing},
            {WM_GETMINMAXINFO, &Self::onMinMax},
            {WM_SYSCOMMAND, &Self::onSystemCommand},
            {WM_GETDPISCALEDSIZE, &Self::onGetScaledSize},
            {WM_ENTERSIZEMOVE, &Self::onMoveSize},
            {WM_EXITSIZEMOVE, &Self::onMoveSize},
            {WM_DPICHANGED, &Self::onDpiChanged},
            {WM_NCCALCSIZE, &Self::onCalcSize},
            {WM_NCHITTEST, &Self::onHitTest},
            {WM_PAINT, &Self::onPaint},
            {WM_PRINTCLIENT, &Self::onPrintClient},
            {WM_ERASEBKGND, &Self::onEraseBackground},
            {WM_NCPAINT, &Self::onFramePaint},
            {WM_NCACTIVATE, &Self::onFrameActivate},
        };
        for (uint32_t number = WM_MOUSEMOVE; number <= WM_XBUTTONDBLCLK; ++number) {
            if (number != WM_MOUSEWHEEL) {
                rows.push_back({number, &Self::onPointer});
            }
        }
        for (uint32_t number = WM_CUT; number <= WM_UNDO; ++number) {
            rows.push_back({number, &Self::onEditCommand});
        }
        std::ranges::sort(rows, {}, &Route::message);
        return rows;
    }();
    return table;
}

intptr_t WindowNative::dispatch(const Message& message) {
    if (intptr_t result = 0;
        window_ != nullptr && window_->handleMessage(message.number, message.wParam, message.lParam, result)) {
        return result;
    }
    const auto row = std::ranges::lower_bound(routes(), message.number, {}, &Route::message);
    if (row != routes().end() && row->message == message.number) {
        if (const Answer answer = (this->*row->handler)(message)) {
            return *answer;
        }
    }
    return leaveToWindows(message);
}

intptr_t WindowNative::leaveToWindows(const Message& message) {
    return handle_ != nullptr ? DefWindowProcW(handle_, message.number, message.wParam, message.lParam) : 0;
}

bool WindowNative::create(const WindowOptions& options) {
    const DpiAwareness awareness = processDpiAwareness();
    if (tree_->diagnostics()) {
        writeDiagnostic(L"[Tavi diagnostic] Tavi DPI awareness mode=" + std::wstring(dpiAwarenessName(awareness)));
    }
    if (handle_ != nullptr || window_ == nullptr || !WindowProcedure::registerClass(instance_)) {
        return false;
    }
    style_ = options.style;
    extendedStyle_ = options.extendedStyle;
    customChrome_ = options.customChrome;
    dpi_ = options.owner != nullptr ? dpiOfWindow(options.owner) : dpiOfSystem();
    const Size usual =
        larger(defaultClient_.positive() ? defaultClient_ : kUsualClientSize, effectiveMinimumClientSize());
    requestedClient_ = {options.clientSize.width > 0 ? options.clientSize.width : usual.width,
                        options.clientSize.height > 0 ? options.clientSize.height : usual.height};
    // In the middle of its owner, else of the monitor's work area, as large as its minimum at least.
    const auto place = [&](const Rect& area) {
        const Size size = larger(windowSize(requestedClient_, dpi_), windowSize(effectiveMinimumClientSize(), dpi_));
        return centered(size, windowRectOf(options.owner).value_or(area), area);
    };
    const std::optional<TestDesktop> testDesktop = TestDesktop::requested();
    const Rect expected = place(workAreaOf(options.owner));
    const Point corner = testDesktop ? TestDesktop::kHiddenPlace : expected.position();
    const HWND made = CreateWindowExW(extendedStyle_, kWindowClass, options.title.c_str(),
                                      testDesktop ? TestDesktop::placingStyle(style_) : style_, corner.x, corner.y,
                                      expected.width, expected.height, options.owner, nullptr, instance_, this);
    if (made == nullptr) {
        handle_ = nullptr;
        return false;
    }
    // Only now is it known for certain which monitor it is on.
    dpi_ = dpiOfWindow(made);
    const Rect intended = place(workAreaOf(testDesktop ? options.owner : made));
    if (testDesktop) {
        testDesktop->place(made);
        SetWindowLongPtrW(made, GWL_STYLE, static_cast<LONG_PTR>(style_ | WS_VISIBLE));
        SetWindowPos(made, nullptr, intended.x, intended.y, intended.width, intended.height,
                     SWP_NOZORDER | SWP_NOACTIVATE | SWP_FRAMECHANGED | SWP_NOOWNERZORDER);
        ShowWindow(made, SW_HIDE);
    } else if (windowRectOf(made) != intended) {
        move(intended);
    }
    updateClient();
    if (window_ != nullptr) {
        window_->created();
    }
    return handle_ != nullptr;
}

void WindowNative::abandon() {
    window_ = nullptr;
    tree_->close();
    destroy();
}

void WindowNative::destroy() {
    enableOwner();
    if (handle_ != nullptr) {
        DestroyWindow(handle_);
    }
}

WindowNative::Answer WindowNative::onClose(const Message& /*message*/) {
    if (window_ != nullptr) {
        window_->closeRequested();
    }
    return 0;
}

WindowNative::Answer WindowNative::onDestroy(const Message& /*message*/) {
    enableOwner();
    tooltip_.close();
    tree_->pointerLost();
    tree_->activated(false);
    SetWindowLongPtrW(handle_, GWLP_USERDATA, 0);
    dropPosted();
    wakeMessageLoop();
    return 0;
}

void WindowNative::setTitle(const std::wstring& title) {
    SetWindowTextW(handle_, title.c_str());
}

WindowNative::Answer WindowNative::onTimer(const Message& message) {
    tree_->timeOut(static_cast<WindowTimer>(message.wParam));
    return 0;
}

WindowNative::Answer WindowNative::onEnvironment(const Message& /*message*/) {
    tree_->environmentChanged();
    return std::nullopt;
}

void WindowNative::setTimer(WindowTimer timer, int32_t milliseconds) {
    if (handle_ != nullptr && milliseconds > 0) {
        SetTimer(handle_, static_cast<UINT_PTR>(timer), static_cast<UINT>(milliseconds), nullptr);
    } else if (handle_ != nullptr) {
        KillTimer(handle_, static_cast<UINT_PTR>(timer));
    }
}

void WindowNative::writeDiagnostic(const std::wstring& line) {
    if (sink_) {
        sink_(line);
    } else {
        OutputDebugStringW((line + L"\n").c_str());
    }
}

void WindowNative::cancelRequested() {
    if (escapeCloses_ && window_ != nullptr) {
        window_->closeRequested();
    }
}

Window::Window(HINSTANCE instance) : native_(std::make_shared<WindowNative>(*this, instance)) {}

Window::~Window() {
    native_->abandon();
}

bool Window::create(const WindowOptions& options) {
    const std::shared_ptr<WindowNative> keep = native_;
    return keep->create(options);
}

HWND Window::handle() const {
    return native_->handle();
}

Panel& Window::root() {
    return native_->tree().root();
}

WindowTree& Window::tree() {
    return native_->tree();
}

void Window::show() {
    const std::shared_ptr<WindowNative> keep = native_;
    ShowWindow(keep->handle(), SW_SHOW);
    if (keep->handle() != nullptr) {
        UpdateWindow(keep->handle());
    }
}

void Window::hide() {
    ShowWindow(handle(), SW_HIDE);
}

int Window::run() {
    const std::shared_ptr<WindowNative> keep = native_;
    show();
    const std::optional<int> quit = pumpMessages([&] { return keep->handle() == nullptr; });
    return quit.value_or(0);
}

bool Window::post(std::function<void()> function) {
    const std::shared_ptr<WindowNative> keep = native_;
    return keep->post(std::move(function));
}

Window::Poster Window::poster() const {
    return [native = std::weak_ptr(native_)](std::function<void()> function) {
        const std::shared_ptr<WindowNative> keep = native.lock();
        return keep != nullptr && keep->handle() != nullptr && keep->post(std::move(function));
    };
}

void Window::close() {
    // By a message of its own even here: whoever calls it may be in the middle of something.
    if (const HWND target = handle()) {
        PostMessageW(target, WM_CLOSE, 0, 0);
    }
}

void Window::setTitle(const std::wstring& title) {
    const std::shared_ptr<WindowNative> native = native_;
    post([native, title] { native->setTitle(title); });
}

void Window::requestRepaint() {
    const std::shared_ptr<WindowNative> native = native_;
    post([native] { native->tree().repaintAll(); });
}

void Window::setDefaultControl(Control* control) {
    tree().focus().setDefault(control);
}

void Window::setCancelControl(Control* control) {
    tree().focus().setCancel(control);
}

void Window::setDiagnostics(bool on) {
    tree().setDiagnostics(on);
}

void Window::setDiagnosticSink(std::function<void(const std::wstring&)> sink) {
    native_->setSink(std::move(sink));
}

DpiAwareness Window::dpiAwareness() {
    return processDpiAwareness();
}

Window::PaintCounts Window::paintCounts() const {
    return native_->paintCounts();
}

bool Window::handleMessage(uint32_t /*message*/, uintptr_t /*wParam*/, intptr_t /*lParam*/, intptr_t& /*result*/) {
    return false;
}

void Window::closeRequested() {
    native_->destroy();
}

void Window::setMinimumClientSize(Size size) {
    native_->setMinimumClientSize(size);
}

Size Window::effectiveMinimumClientSize() {
    return native_->effectiveMinimumClientSize();
}

void Window::setDefaultClientSize(Size size) {
    native_->setDefaultClientSize(size);
}

void Window::resetToDefaultSize() {
    native_->resetToDefaultSize();
}

void Window::centerOn(HWND other) {
    native_->centerOn(other);
}

void Window::minimize() {
    ShowWindow(handle(), SW_MINIMIZE);
}

void Window::maximize() {
    ShowWindow(handle(), SW_MAXIMIZE);
}

void Window::restore() {
    ShowWindow(handle(), SW_RESTORE);
}

bool Window::maximized() const {
    return IsZoomed(handle()) != FALSE;
}

void Window::beginMove() {
    ReleaseCapture();
    SendMessageW(handle(), WM_NCLBUTTONDOWN, HTCAPTION, 0);
}

}  // namespace tavi
