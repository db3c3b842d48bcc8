// The plain container: it paints its visible children one over the other, each clipped to its bounds, routes the
// pointer to them, last painted first, finds controls by id and takes snapshots of what is below it.
#pragma once

#include <functional>
#include <string_view>
#include <vector>

#include "tavi/core/control.h"

namespace tavi {

class Panel : public Control {
public:
    // Paints the panel's own surface; gets the rectangle it covers on the device.
    using PaintHook = std::function<void(HDC, const Rect&)>;

    using Control::Control;

    // Called before the children are painted.
    void setPaintHook(PaintHook hook);

    // Searches depth-first, a child before its own children and those before its next sibling; ids are compared
    // exactly. The panel itself is not compared. Null when there is none.
    Control* findById(std::wstring_view id);
    const Control* findById(std::wstring_view id) const;

    // Appends an entry for every control below that has an id, in the order in which findById searches.
    void captureStateTree(std::vector<ControlState>& states) const;
    // Gives controls back the state of the entry with their id; the second control of an id gets the second entry with
    // it, and so on. Entries and controls without a partner are left alone. Returns how many were restored.
    size_t restoreStateTree(const std::vector<ControlState>& states, bool applyBounds);

    // The smallest size that keeps every visible child at its minimum.
    Size minimumContentSizeHint() const;

    void paint(HDC target, Point origin) override;
    bool pointerMove(PointerEvent& event) override;
    bool pointerPress(PointerEvent& event) override;
    bool pointerWheel(WheelEvent& event) override;
    bool pointerRelease(PointerEvent& event) override;
    void releaseCaches() override;

protected:
    void childrenChanged() override { visibleChildrenDirty_ = true; }

private:
    const std::vector<Control*>& visibleChildren();
    template <typename Event>
    bool route(Event& event, bool (InputTarget::*handler)(Event&), bool (Panel::*accepts)(Control&, Point));
    bool lies(Control& child, Point point);
    bool holdsFocus(Control& child, Point point);
    static void paintChild(Control& child, HDC target, Point origin);

    std::vector<Control*> visibleChildren_;
    bool visibleChildrenDirty_ = true;
    PaintHook paintHook_;
};

}  // namespace tavi
