// The life of a window: creation, the window procedure and its table of messages, the end.
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
            {WM_SETCURSOR, &Self::onCursor},
            {WM_SETFOCUS, &Self::onFocus},
            {WM_KILLFOCUS, &Self::onFocus},
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
    if (popup_ != nullptr) {
        if (const Answer taken = tellPopup(message)) {
            return *taken;
        }
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
    if (!options.title.empty()) {
        title_ = options.title;
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
        if (options.place) {
            return *options.place;
        }
        const Size size = larger(windowSize(requestedClient_, dpi_), windowSize(effectiveMinimumClientSize(), dpi_));
        return centered(size, windowRectOf(options.owner).value_or(area), area);
    };
    const std::optional<TestDesktop> testDesktop = TestDesktop::requested();
    const Rect expected = place(workAreaOf(options.owner));
    const Point corner = testDesktop ? TestDesktop::kHiddenPlace : expected.position();
    const HWND made = CreateWindowExW(extendedStyle_, kWindowClass, title_.c_str(),
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
    // Controls that were there before it look at what it can do.
    tree_->root().notifyTree();
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
    title_ = title;
    if (handle_ != nullptr) {
        SetWindowTextW(handle_, title.c_str());
    }
}

WindowNative::Answer WindowNative::onTimer(const Message& message) {
    tree_->timeOut(static_cast<WindowTimer>(message.wParam));
    return 0;
}

WindowNative::Answer WindowNative::onEnvironment(const Message& message) {
    tree_->environmentChanged();
    if (message.number == WM_DISPLAYCHANGE && handle_ != nullptr) {
        bringIntoReach();
    }
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

}  // namespace tavi
