// A window's control tree and the policies over it: where input goes, what has to be painted, when a tooltip appears,
// the debug overlay. Knows nothing of the window system but WindowPlatform, so all of it is tested without one.
//
// Always held by a shared pointer: every entry keeps the tree alive until it returns, so a callback may destroy the
// window and whatever it likes. The platform must outlive the entry that is running. Device pixels come in and go out;
// inside all is design pixels.
#pragma once

#include <memory>
#include <set>
#include <string>

#include "tavi/core/control_timers.h"
#include "tavi/core/debug_overlay.h"
#include "tavi/core/dirty_area.h"
#include "tavi/core/focus_policy.h"
#include "tavi/core/panel.h"
#include "tavi/core/pointer_policy.h"
#include "tavi/core/tooltip.h"
#include "tavi/core/window_host.h"
#include "tavi/core/window_platform.h"

namespace tavi {

class WindowTree final : public WindowHost, public std::enable_shared_from_this<WindowTree> {
    struct Key {};

public:
    WindowTree(Key, WindowPlatform& platform);
    ~WindowTree() = default;
    static std::shared_ptr<WindowTree> create(WindowPlatform& platform);

    // The panel with the id "root"; it always fills the client area.
    Panel& root() { return root_; }
    FocusPolicy& focus() { return focus_; }
    const OverlayState& overlay() const { return overlay_; }
    void setDiagnostics(bool on) { diagnostics_ = on; }
    // What is behind all controls, 0xBBGGRR.
    void setBackground(uint32_t color);
    uint32_t background() const { return background_; }

    // Which way its texts and rows run. Controls lay themselves out anew.
    void setRightToLeft(bool rightToLeft);

    // From here on the tree gets no events and asks for nothing. The window is going.
    void close();

    // The client area or its scale has changed; everything has to be painted.
    void setClient(Size device, int32_t dpi);
    // Colors, fonts or the like have changed.
    void environmentChanged();

    // Input, in device pixels of the client area.
    bool pointerMove(PointerEvent event);
    bool pointerPress(PointerEvent event);
    bool pointerRelease(PointerEvent event);
    bool pointerWheel(WheelEvent event);
    void pointerLeave();
    void pointerLost();
    bool keyPress(KeyEvent event);
    bool keyRelease(KeyEvent event);
    bool textInput(TextInputEvent event);
    bool compositionChanged(CompositionEvent event);
    bool editCommand(EditCommand command);
    // Where the focused control has its caret, in device pixels.
    std::optional<Rect> caretRectangle() const;
    // What the pointer looks like where it is.
    CursorShape cursorShape() const;
    void activated(bool active);
    void timeOut(WindowTimer timer);

    // Lets focus and hover follow what the tree has become, which calls hooks. Before a paint; inside one nothing may.
    void update();
    bool needsPaint() const { return !dirty_.empty(); }
    // Marks everything for the next paint.
    void repaintAll();
    // Paints what was gathered, nothing else, into the target. A hook that asks for more gets it with the next paint.
    // Nothing from inside a paint.
    void paint(HDC target);

    // WindowHost
    void repaint(const Rect& area, uint32_t reason) override;
    void controlChanged(Control& control) override;
    void controlLeaves(Control& control) override;
    const Scale& scale() const override { return scale_; }
    Rect paintArea() const override { return paintArea_; }
    void pushClip(HDC target, const Rect& area) override;
    void popClip(HDC target) override;
    void capturePointer(Control& control) override;
    void releasePointer() override;
    Control* pointerOwner() const override { return pointer_.owner(); }
    bool setFocus(Control* control) override;
    Control* focused() const override { return focus_.focused(); }
    Control* hovered() const override { return pointer_.hovered(); }
    void setControlTimer(Control& control, int32_t milliseconds, std::function<void()> tick) override;
    void copyText(const std::wstring& text) override { platform_.copyText(text); }
    std::wstring clipboardText() override { return platform_.clipboardText(); }
    bool rightToLeft() const override { return rightToLeft_; }
    WindowFrame* frame() override { return platform_.frame(); }
    bool diagnostics() const override { return diagnostics_ && !closed_; }
    void writeDiagnostic(const std::wstring& line) override;

private:
    template <typename Action>
    bool enter(const Action& action);
    void settle();

    WindowPlatform& platform_;
    Panel root_;
    Scale scale_;
    PointerPolicy pointer_;
    FocusPolicy focus_;
    TooltipPolicy tooltip_;
    ControlTimers timers_;
    DirtyArea dirty_;
    Rect paintArea_;
    OverlayState overlay_;
    uint32_t background_ = 0;
    bool rightToLeft_ = false;
    bool diagnostics_ = false;
    bool closed_ = false;
    bool changed_ = false;            // the tree has, since focus and hover were last looked at
    std::set<std::wstring> written_;  // lines that are not repeated
};

}  // namespace tavi
