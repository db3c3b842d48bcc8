// A top-level window that hosts one control tree. It translates messages, keeps a back buffer, knows its monitor's
// scale and work area, and leaves every decision to WindowTree.
//
//     tavi::Window window(instance);
//     window.root().add<tavi::Panel>(L"page", tavi::Rect{12, 12, 200, 100});
//     if (!window.create({.title = L"Example", .clientSize = {320, 200}})) return 1;
//     return window.run();
//
// A window belongs to the thread that created it; operations marked "any thread" hand over to it. Sizes are design
// pixels of the client area. A callback may close or destroy its own window.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "tavi/core/dpi_awareness.h"
#include "tavi/core/panel.h"

namespace tavi {

class WindowNative;
class WindowTree;

// Window styles of the Windows API: a title bar and all edges, sizable.
inline constexpr uint32_t kOverlappedStyle = 0x00CF0000;

struct WindowOptions {
    std::wstring title = {};  // empty: the one set with setTitle
    Size clientSize = {};     // an extent below 1 stands for a default
    uint32_t style = kOverlappedStyle;
    uint32_t extendedStyle = 0;
    // The controls draw the frame, too: the client area is the whole window.
    bool customChrome = false;
    HWND owner = nullptr;
    // The whole window on the screen, device pixels; else its client size counts, in the middle of its owner.
    std::optional<Rect> place = {};
};

class Window {
public:
    explicit Window(HINSTANCE instance);
    Window(const Window&) = delete;
    Window& operator=(const Window&) = delete;
    virtual ~Window();

    // Makes the window, hidden, in the middle of its owner or of the work area. False, and `handle` null, when Windows
    // refuses.
    bool create(const WindowOptions& options);
    // Null before it is created and after it was closed.
    HWND handle() const;
    const std::wstring& title() const;
    Panel& root();
    WindowTree& tree();

    void show();
    void hide();
    // Shows it and runs the thread's message loop until the window is gone. The exit code: 0, or that of WM_QUIT.
    int run();

    // Any thread.
    void close();
    void setTitle(const std::wstring& title);
    void requestRepaint();
    // Runs a function on the window's thread: at once when it is this one, before and after the window's life as well.
    // From another thread it is dropped, and the answer is false, when the window is gone by then.
    bool post(std::function<void()> function);
    // The same for a worker that may outlive the Window: false once that is gone.
    using Poster = std::function<bool(std::function<void()>)>;
    Poster poster() const;

    // What the window cannot be made smaller than; the minimum of the controls counts as well.
    void setMinimumClientSize(Size size);
    Size effectiveMinimumClientSize();
    void setDefaultClientSize(Size size);
    // Out of a minimised or maximised state, then as large as the default, within the work area.
    void resetToDefaultSize();
    // In the middle of another window, or with null of its own work area.
    void centerOn(HWND other);
    void minimize();
    void maximize();
    void restore();
    bool maximized() const;
    // Starts moving the window with the pointer, as a press on a title bar does.
    void beginMove();

    // What Return and Escape reach when nothing with the focus takes them; null for none. Not owned.
    void setDefaultControl(Control* control);
    void setCancelControl(Control* control);

    // Lines for developers: off at first, and written to the debugger where no other place is given.
    void setDiagnostics(bool on);
    void setDiagnosticSink(std::function<void(const std::wstring&)> sink);
    // Set once for the process, before its first window.
    static DpiAwareness dpiAwareness();

    // How often a paint has painted controls, and how often it only copied what was there.
    struct PaintCounts {
        uint64_t painted = 0;
        uint64_t copied = 0;
    };
    PaintCounts paintCounts() const;

protected:
    // The window exists and is still hidden.
    virtual void created() {}
    // Sees every message first. True when it was handled; then `result` is the answer.
    virtual bool handleMessage(uint32_t message, uintptr_t wParam, intptr_t lParam, intptr_t& result);
    // The person or the program wants the window closed.
    virtual void closeRequested();

    WindowNative& native() { return *native_; }

private:
    friend class WindowNative;
    std::shared_ptr<WindowNative> native_;
};

}  // namespace tavi
