// The Win32 half of a window, behind Window. Its methods are spread over files by job: window_life_win32 (creation and
// dispatch), window_modal_win32, window_post_win32, window_input_win32, window_ime_win32, window_sizing_win32,
// window_frame_win32, window_clipboard_win32, window_dpi_win32, window_paint_win32, window_overlay_win32,
// window_tooltip_win32, popup_window_win32.
//
// Held by a shared pointer: the window procedure keeps it for as long as it runs, so what a callback destroys is the
// Window, and this only when the last message is done.
#pragma once

#include <atomic>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "tavi/core/back_buffer.h"
#include "tavi/core/dialog_result.h"
#include "tavi/core/message_translation.h"
#include "tavi/core/sizing.h"
#include "tavi/core/tooltip_host.h"
#include "tavi/core/window.h"
#include "tavi/core/window_frame.h"
#include "tavi/core/window_tree.h"

struct HMONITOR__;

namespace tavi {

// One message's parameters; the types are those of Windows by their width.
struct Message {
    uint32_t number = 0;
    uintptr_t wParam = 0;
    intptr_t lParam = 0;
};

// Where a window lies on the screen; nothing when there is none.
std::optional<Rect> windowRectOf(HWND window);
// The work area of the monitor that the window is on; of the primary one for null.
Rect workAreaOf(HWND window);
Rect workAreaOf(HMONITOR__* monitor);

class NativePopup;

class WindowNative final : public WindowPlatform,
                           public WindowFrame,
                           public std::enable_shared_from_this<WindowNative> {
public:
    WindowNative(Window& window, HINSTANCE instance);
    WindowNative(const WindowNative&) = delete;
    WindowNative& operator=(const WindowNative&) = delete;
    ~WindowNative() = default;

    bool isModal() const { return modal_; }
    WindowTree& tree() { return *tree_; }
    bool create(const WindowOptions& options);
    // The Window is being destroyed.
    void abandon();
    // Any thread. Ends the modal loop that runs, or the next one before it begins; the first result counts.
    void endModal(DialogResult result);
    // Runs a modal loop until it is ended or the window is gone. Close when nobody ended it.
    DialogResult runModal();
    // Destroys the Win32 window; the owner that a modal loop has disabled is enabled before.
    void destroy();
    // Any thread. Runs it at once on the window's own one. False when the window is gone or refuses: it is dropped
    // then.
    bool post(std::function<void()> function);
    const std::wstring& title() const { return title_; }
    void setTitle(const std::wstring& title);
    void setEscapeCloses(bool closes) { escapeCloses_ = closes; }
    void setSink(std::function<void(const std::wstring&)> sink) { sink_ = std::move(sink); }

    void setMinimumClientSize(Size size);
    Size effectiveMinimumClientSize();
    void setDefaultClientSize(Size size) { defaultClient_ = size; }
    void centerOn(HWND other);
    Window::PaintCounts paintCounts() const { return paintCounts_; }

    // WindowPlatform
    void schedulePaint(const Rect& area) override;
    void fill(HDC target, const Rect& area, uint32_t color) override;
    void drawOverlay(HDC target, const std::vector<OverlayItem>& items) override;
    void pushClip(HDC target, const Rect& area) override;
    void popClip(HDC target) override;
    void grabPointer(bool grab) override;
    void takeKeyboard() override;
    void setTimer(WindowTimer timer, int32_t milliseconds) override;
    void showTooltip(const std::wstring& text, const Rect& anchor) override;
    void hideTooltip() override;
    void copyText(const std::wstring& text) override;
    std::wstring clipboardText() override;
    WindowFrame* frame() override { return this; }
    void writeDiagnostic(const std::wstring& line) override;
    void cancelRequested() override;

    // WindowFrame
    HWND handle() const override { return handle_; }
    bool canMinimize() const override;
    bool canMaximize() const override;
    bool maximized() const override;
    void minimize() override;
    void maximize() override;
    void restore() override;
    void resetToDefaultSize() override;
    void requestClose() override;
    void beginMove() override;
    void openSystemMenu(Point onScreen) override;
    Rect onScreen(const Rect& area) const override;
    std::unique_ptr<PopupWindow> openPopup(PopupRequest request) override;

private:
    friend struct WindowProcedure;
    friend class NativePopup;
    // A handler answers the message, or leaves it to Windows with nothing.
    using Answer = std::optional<intptr_t>;
    using Handler = Answer (WindowNative::*)(const Message&);
    struct Route {
        uint32_t message;
        Handler handler;
    };
    static const std::vector<Route>& routes();
    intptr_t dispatch(const Message& message);
    intptr_t leaveToWindows(const Message& message);

    // Life.
    Answer onClose(const Message& message);
    Answer onDestroy(const Message& message);
    Answer onPosted(const Message& message);
    Answer onTimer(const Message& message);
    Answer onEnvironment(const Message& message);
    // Input.
    Answer onPointer(const Message& message);
    Answer onWheel(const Message& message);
    Answer onPointerLeave(const Message& message);
    Answer onCaptureChanged(const Message& message);
    Answer onCancelMode(const Message& message);
    Answer onKey(const Message& message);
    Answer onCharacter(const Message& message);
    Answer onSystemCharacter(const Message& message);
    Answer onEditCommand(const Message& message);
    Answer onFocus(const Message& message);
    Answer onCursor(const Message& message);
    // Input methods.
    Answer onInputContext(const Message& message);
    Answer onCompositionStart(const Message& message);
    Answer onComposition(const Message& message);
    Answer onCompositionEnd(const Message& message);
    // What is being composed becomes text of the control that has it.
    void finishComposition() const;
    // Sizes.
    Answer onSize(const Message& message);
    Answer onSizing(const Message& message);
    Answer onMinMax(const Message& message);
    Answer onSystemCommand(const Message& message);
    // Scale.
    Answer onGetScaledSize(const Message& message);
    Answer onMoveSize(const Message& message);
    Answer onDpiChanged(const Message& message);
    Answer onCalcSize(const Message& message);
    Answer onHitTest(const Message& message);
    // Painting.
    Answer onPaint(const Message& message);
    Answer onPrintClient(const Message& message);
    Answer onEraseBackground(const Message& message);
    Answer onFramePaint(const Message& message);
    Answer onFrameActivate(const Message& message);
    // Tells the pop-up window that is open, which may take the message or be gone afterwards.
    Answer tellPopup(const Message& message);

    void disableOwner();
    void enableOwner();
    void dropPosted();
    void updateClient();
    void bringIntoReach();
    Size windowSize(Size client, int32_t dpi) const;
    Rect workArea() const;
    Rect windowRect() const;
    void move(const Rect& window);
    std::wstring describeSizes();
    bool paintBuffer(HDC like);

    Window* window_;  // null once it is gone
    HINSTANCE instance_;
    const uint32_t thread_;
    std::atomic<HWND> handle_ = nullptr;  // other threads look at it before they post
    std::shared_ptr<WindowTree> tree_;
    std::wstring title_;
    uint32_t style_ = 0;
    uint32_t extendedStyle_ = 0;
    bool customChrome_ = false;
    bool escapeCloses_ = false;
    HWND disabledOwner_ = nullptr;
    NativePopup* popup_ = nullptr;  // one at a time; not owned
    bool modal_ = false;
    std::optional<DialogResult> modalResult_;

    int32_t dpi_ = kDesignDpi;
    Size requestedClient_;
    Size minimumClient_;
    Size defaultClient_;

    bool isDragged_ = false;

    bool tracksLeave_ = false;
    bool grabs_ = false;
    bool swallowsCharacter_ = false;
    TextAssembler assembler_;
    TooltipHostWindow tooltip_;

    BackBuffer buffer_;
    ClipStack clips_;
    Window::PaintCounts paintCounts_;

    std::function<void(const std::wstring&)> sink_;
    std::mutex postedLock_;
    std::deque<std::function<void()>> posted_;
};

}  // namespace tavi
