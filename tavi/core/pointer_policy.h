// The pointer in a window: which control it is over, and which one has it to itself while a button is held. Points are
// design pixels of the client area.
#pragma once

#include <vector>

#include "tavi/core/panel.h"
#include "tavi/core/window_platform.h"

namespace tavi {

// The innermost visible control at a point, disabled ones included; `root` itself when nothing in it is there. Null
// outside of it.
Control* controlAt(Control& root, Point point);

class PointerPolicy {
public:
    PointerPolicy(Panel& root, WindowPlatform& platform) : root_(root), platform_(platform) {}

    // The innermost control that the pointer is over; while one has captured it, that one or none.
    Control* hovered() const { return hoverPath_.empty() ? nullptr : hoverPath_.back().get(); }
    Control* owner() const { return owner_.get(); }
    Point position() const { return position_; }
    bool inside() const { return inside_; }

    bool move(PointerEvent& event);
    bool press(PointerEvent& event);
    bool release(PointerEvent& event);
    bool wheel(WheelEvent& event);
    // The pointer has left the window.
    void leave();
    // The window has lost the pointer to somebody else: what is under way ends without an effect.
    void lose();
    // Nothing happens while no button is down.
    void capture(Control& control);
    void releaseCapture();
    // The tree has changed under the pointer. A control that was disabled or hidden loses what it had captured.
    void refresh();
    // A control leaves the tree with all below it.
    void forget(const Control& control);

private:
    template <typename Event>
    bool deliver(Event& event, bool (InputTarget::*handler)(Event&));
    std::vector<WeakControl> pathUnderPointer() const;
    void hover();
    void follow(const PointerEvent& event);
    void cancelOwner();

    Panel& root_;
    WindowPlatform& platform_;
    Point position_;
    bool inside_ = false;
    uint32_t held_ = 0;  // the buttons that are down
    bool grabbing_ = false;
    WeakControl owner_;
    std::vector<WeakControl> hoverPath_;  // from the root to the innermost control
    std::vector<WeakControl> entered_;    // those of it that were told: disabled ones are not
};

}  // namespace tavi
