// Input methods: what is being composed goes to the focused control, the method's own window beside its caret.
#include <windows.h>

#include <imm.h>

#include "base/win32/system_library.h"
#include "tavi/core/window_native.h"

namespace tavi {
namespace {

// The input context of a window, for one message.
class InputContext {
public:
    explicit InputContext(HWND window) : window_(window) {
        auto* const get = library().function<decltype(ImmGetContext)>("ImmGetContext");
        context_ = get != nullptr ? get(window) : nullptr;
    }
    InputContext(const InputContext&) = delete;
    InputContext& operator=(const InputContext&) = delete;
    ~InputContext() {
        auto* const release = library().function<decltype(ImmReleaseContext)>("ImmReleaseContext");
        if (context_ != nullptr && release != nullptr) {
            release(window_, context_);
        }
    }

    CompositionEvent composition() const {
        CompositionEvent event;
        auto* const get = library().function<decltype(ImmGetCompositionStringW)>("ImmGetCompositionStringW");
        if (context_ == nullptr || get == nullptr) {
            return event;
        }
        const LONG bytes = get(context_, GCS_COMPSTR, nullptr, 0);
        if (bytes > 0) {
            event.text.resize(static_cast<size_t>(bytes) / sizeof(wchar_t));
            get(context_, GCS_COMPSTR, event.text.data(), static_cast<DWORD>(bytes));
            event.caret = std::max<LONG>(get(context_, GCS_CURSORPOS, nullptr, 0), 0);
        }
        return event;
    }

    void placeAt(const Rect& caret) const {
        auto* const place = library().function<decltype(ImmSetCompositionWindow)>("ImmSetCompositionWindow");
        if (context_ != nullptr && place != nullptr) {
            COMPOSITIONFORM form{};
            form.dwStyle = CFS_POINT;
            form.ptCurrentPos = {caret.x, caret.y};
            place(context_, &form);
        }
        auto* const placeList = library().function<decltype(ImmSetCandidateWindow)>("ImmSetCandidateWindow");
        if (context_ != nullptr && placeList != nullptr) {
            CANDIDATEFORM form{};
            form.dwStyle = CFS_EXCLUDE;
            form.ptCurrentPos = {caret.x, caret.bottom()};
            form.rcArea = {caret.x, caret.y, caret.right(), caret.bottom()};
            placeList(context_, &form);
        }
    }

private:
    static base::SystemLibrary& library() {
        static base::SystemLibrary imm(L"imm32.dll");
        return imm;
    }

    HWND window_;
    HIMC context_ = nullptr;
};

}  // namespace

// A control that has a caret shows the composition itself, so Windows shall not show it a second time.
WindowNative::Answer WindowNative::onInputContext(const Message& message) {
    const bool showsItself = tree_->caretRectangle().has_value();
    const intptr_t shown = message.lParam & ~(showsItself ? intptr_t{ISC_SHOWUICOMPOSITIONWINDOW} : 0);
    return leaveToWindows({message.number, message.wParam, shown});
}

WindowNative::Answer WindowNative::onCompositionStart(const Message& /*message*/) {
    if (const std::optional<Rect> caret = tree_->caretRectangle()) {
        InputContext(handle_).placeAt(*caret);
    }
    return std::nullopt;
}

WindowNative::Answer WindowNative::onComposition(const Message& message) {
    swallowsCharacter_ = false;
    const bool handled =
        (message.lParam & GCS_COMPSTR) != 0 && tree_->compositionChanged(InputContext(handle_).composition());
    // The list of candidates follows the caret.
    if (const std::optional<Rect> caret = handle_ != nullptr ? tree_->caretRectangle() : std::nullopt) {
        InputContext(handle_).placeAt(*caret);
    }
    // What is finished comes as characters; Windows makes them.
    return handled && (message.lParam & GCS_RESULTSTR) == 0 ? Answer(0) : std::nullopt;
}

WindowNative::Answer WindowNative::onCompositionEnd(const Message& /*message*/) {
    tree_->compositionChanged({});
    return std::nullopt;
}

}  // namespace tavi
