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
        CompositionEvent event{text(GCS_COMPSTR)};
        if (!event.text.empty()) {
            event.caret = std::max<LONG>(compositionString()(context_, GCS_CURSORPOS, nullptr, 0), 0);
        }
        return event;
    }

    // What is composed, or, while the message tells of it, what has been finished (GCS_COMPSTR, GCS_RESULTSTR).
    std::wstring text(DWORD which) const {
        std::wstring text;
        auto* const get = compositionString();
        if (context_ != nullptr && get != nullptr) {
            const LONG bytes = get(context_, which, nullptr, 0);
            text.resize(static_cast<size_t>(std::max<LONG>(bytes, 0)) / sizeof(wchar_t));
            get(context_, which, text.data(), static_cast<DWORD>(text.size() * sizeof(wchar_t)));
        }
        return text;
    }

    // What is composed becomes text now, at once.
    void finish() const {
        auto* const notify = library().function<decltype(ImmNotifyIME)>("ImmNotifyIME");
        if (notify != nullptr && !text(GCS_COMPSTR).empty()) {
            notify(context_, NI_COMPOSITIONSTR, CPS_COMPLETE, 0);
        }
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

    static decltype(&ImmGetCompositionStringW) compositionString() {
        return library().function<decltype(ImmGetCompositionStringW)>("ImmGetCompositionStringW");
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

// What is finished is taken from the message itself: as characters, which Windows would make of it, it would come after
// the press that finished it, and so to another control.
WindowNative::Answer WindowNative::onComposition(const Message& message) {
    swallowsCharacter_ = false;
    bool handled = false;
    if ((message.lParam & GCS_RESULTSTR) != 0) {
        const std::wstring text = InputContext(handle_).text(GCS_RESULTSTR);
        tree_->compositionChanged({});
        handled = tree_->textInput({text});
    }
    if (handle_ != nullptr && (message.lParam & GCS_COMPSTR) != 0) {
        handled |= tree_->compositionChanged(InputContext(handle_).composition());
    }
    // The list of candidates follows the caret.
    if (const std::optional<Rect> caret = handle_ != nullptr ? tree_->caretRectangle() : std::nullopt) {
        InputContext(handle_).placeAt(*caret);
    }
    return handled ? Answer(0) : std::nullopt;
}

WindowNative::Answer WindowNative::onCompositionEnd(const Message& /*message*/) {
    tree_->compositionChanged({});
    return std::nullopt;
}

void WindowNative::finishComposition() const {
    InputContext(handle_).finish();
}

}  // namespace tavi
