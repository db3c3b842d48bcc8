// A node of the control tree: it owns its children, lies somewhere in its parent, paints itself and takes input. Bounds
// are design pixels relative to the parent's origin; the root's parent is the client area.
//
// Setters compare, store and declare what they invalidate. A class of controls overrides hooks (here and in
// InputTarget), almost all of which do nothing by default; docs/architecture.md lists all of them with the messages
// that call them. Controls belong to the thread of their window.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "tavi/core/appearance.h"
#include "tavi/core/contour.h"
#include "tavi/core/control_state.h"
#include "tavi/core/cursor_shape.h"
#include "tavi/core/input_target.h"
#include "tavi/core/layout.h"
#include "tavi/core/weak_control.h"
#include "tavi/core/window_host.h"

namespace tavi {

class Control : public InputTarget {
public:
    using ChildList = std::vector<std::unique_ptr<Control>>;
    using Visitor = std::function<void(Control&)>;

    explicit Control(std::wstring id = {}, const Rect& bounds = {});
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;
    ~Control() override;

    // The tree. An id is unique among siblings and may be empty. Children are in the order of their adding, which is
    // the order of painting and, where setFocusOrder says nothing else, of the focus. A parent owns its children;
    // parent and window are never owned. Any control may have children; Panel is the one that paints them and routes
    // the pointer to them.
    const std::wstring& id() const { return id_; }
    Control* parent() const { return parent_; }
    WindowHost* window() const { return window_; }
    // Whether it is `other` or below it.
    bool isWithin(const Control& other) const;
    virtual const ChildList& children() const { return children_; }
    virtual std::vector<Control*> childPointers() const;
    Control* addChild(std::unique_ptr<Control> child);
    template <typename Class, typename... Arguments>
    Class* add(Arguments&&... arguments) {
        return static_cast<Class*>(addChild(std::make_unique<Class>(std::forward<Arguments>(arguments)...)));
    }
    // Takes a child out of the tree; null when it is none of its children, or when a hook has taken it meanwhile.
    std::unique_ptr<Control> removeChild(Control& child);
    // Controls that it owns but does not lay out with its children: a list that drops down, a menu.
    const ChildList& auxiliary() const { return auxiliary_; }
    Control* addAuxiliary(std::unique_ptr<Control> control);
    std::unique_ptr<Control> releaseAuxiliary(Control& control);
    // Attaches the whole tree to a window, or detaches it with null. For windows.
    void setWindow(WindowHost* window);

    // Place. `bounds` is where layout has put it, `layoutBase` where the application did.
    const Rect& bounds() const { return bounds_; }
    const Rect& layoutBase() const { return layoutBase_; }
    Size designParentSize() const { return designParentSize_; }
    bool layoutCaptured() const { return layoutCaptured_; }
    virtual void setBounds(const Rect& bounds);
    uint32_t anchors() const { return anchors_; }
    void setAnchors(uint32_t anchors);
    const std::optional<Constraints>& constraints() const { return constraints_; }
    void setConstraints(const Constraints& constraints);
    void clearConstraints();
    bool hasMinimum() const { return hasMinimum_; }
    // Negative extents count as 0.
    void setMinimumSize(int32_t width, int32_t height);
    virtual Size minimumSize() const { return minimum_; }
    bool layoutOverlapAllowed() const { return overlapAllowed_; }
    // Whether siblings may lie on it on purpose.
    void setLayoutOverlapAllowed(bool allowed) { overlapAllowed_ = allowed; }
    // Places it inside an area of its parent's coordinates. An empty area changes nothing.
    void applyParentLayout(const Rect& parentArea);
    // Lays out its children now, once; a call from inside a pass runs another one after it. Hooks that keep changing
    // bounds are cut off after a fixed number of rounds, see kLayoutRounds and kLayoutPasses.
    void layout();
    // Where its origin lies in the client area.
    Point clientOrigin() const;
    // What its `local` rectangle covers on the device when it is painted at `origin`.
    Rect deviceRect(const Rect& local, Point origin) const;

    // State.
    bool visible() const { return visible_; }
    void setVisible(bool visible);
    bool enabled() const { return enabled_; }
    void setEnabled(bool enabled);
    // A collapsed control takes no room in its parent's minimum and no focus. Whether it is painted and hit is up to
    // `visible`, as for any other.
    bool collapsed() const { return collapsed_; }
    void setCollapsed(bool collapsed);
    // Whether it is visible, or takes input, with all its parents.
    bool shown() const;
    bool usable() const;
    const std::wstring& text() const { return text_; }
    void setText(std::wstring text);
    int32_t styleId() const { return styleId_; }
    void setStyleId(int32_t styleId);
    const Appearance& appearance() const { return details().appearance; }
    void setAppearance(Appearance appearance);
    const std::wstring& tooltip() const { return details().tooltip; }
    void setTooltip(std::wstring text) { ownDetails().tooltip = std::move(text); }
    // What the pointer looks like over it, and over what is inside it and has none of its own.
    std::optional<CursorShape> cursor() const { return details().cursor; }
    void setCursor(std::optional<CursorShape> shape) { ownDetails().cursor = shape; }
    // Where the focus comes to it among its siblings, with all that is inside it: the smaller the earlier, and in the
    // order of their adding where it is the same. For a control that lies below others and is read after them.
    int32_t focusOrder() const { return details().focusOrder; }
    void setFocusOrder(int32_t order) { ownDetails().focusOrder = order; }
    const ContourLists& contourLists() const { return details().contours; }
    // Inside of `paint` they count for that paint only.
    void setContours(ContourKind kind, std::vector<Rect> rects);
    virtual void captureState(ControlState& state) const;
    virtual void restoreState(const ControlState& state, bool applyBounds);
    // Asks the window to paint it again.
    void requestRepaint(uint32_t reason = kRepaintAppearance) const;

    // UI Automation.
    void setAutomationText(std::wstring text) { ownDetails().automationText = std::move(text); }
    void setAutomationName(std::wstring name) { ownDetails().automationName = std::move(name); }
    void setAutomationExtra(std::wstring text) { ownDetails().automationExtra = std::move(text); }
    const std::wstring& automationExtra() const { return details().automationExtra; }
    virtual std::wstring automationText() const { return details().automationText; }
    // The value that a screen reader reads: a caption, a state.
    virtual void automationValue(std::wstring& value) const { value.clear(); }
    // The name given, else value and text, else the id.
    std::wstring automationName() const;

    // Geometry hooks, all in local coordinates.
    virtual Rect localBounds() const { return bounds_.local(); }
    // Where its children may lie.
    virtual Rect contentRectangle() const { return localBounds(); }
    virtual Rect shapeBounds() const { return unionOf(contours(ContourKind::Shape)); }
    virtual Rect contentBounds() const { return unionOf(contours(ContourKind::Content)); }
    virtual std::vector<Rect> contours(ContourKind kind) const;
    // The part beside which its tooltip stands; none for the whole control.
    virtual std::optional<Rect> tooltipAnchor() const { return std::nullopt; }
    // Whether a point meets it: inside its bounds and, where it has one, its hit contour.
    bool hitTest(Point local) const;

    // Class hooks.
    // Whether styles for this type of control ("button", "label", …) apply to it.
    virtual bool matchesType(std::wstring_view /*type*/) const { return false; }
    // The pointer passes through to what lies below it. WM_MOUSEMOVE and all presses.
    virtual bool transparentToPointer() const { return false; }
    // It was attached to a window or detached from it. Creation and destruction of the window.
    virtual void windowChanged() {}
    // Lets go of what can be computed anew. WM_DPICHANGED, WM_DISPLAYCHANGE, a new skin.
    virtual void releaseCaches() {}
    // The same for it and everything below.
    void releaseTreeCaches();
    // Paints it; `origin` is where its own origin lies in the target, in design pixels (deviceRect maps from there).
    // WM_PAINT.
    virtual void paint(HDC /*target*/, Point /*origin*/) {}
    // Something outside has changed that any control may depend on: scale, system colors, fonts, skin. Calls the
    // callback set with setTreeNotification, then the same for everything below. WM_DPICHANGED, WM_SETTINGCHANGE,
    // WM_SYSCOLORCHANGE, WM_FONTCHANGE.
    virtual void notifyTree();
    void setTreeNotification(Visitor callback) { ownDetails().treeNotification = std::move(callback); }

protected:
    // Places every child in the local bounds, inside the content contour where there is one. WM_SIZE.
    virtual void layoutChildren();
    virtual void textChanged() {}
    virtual void boundsChanged() {}
    virtual void appearanceChanged() {}
    virtual void appendCustomState(ControlState& /*state*/) const {}
    virtual void restoreCustomProperty(const StateProperty& /*property*/) {}
    // A child was added, removed, shown or hidden.
    virtual void childrenChanged() {}

private:
    class LayoutScope;
    // What most controls do not have. Apart, so that a pass over many controls reads less memory.
    struct Details {
        ContourLists contours;
        std::wstring tooltip;
        Appearance appearance;
        std::wstring automationText;
        std::wstring automationName;
        std::wstring automationExtra;
        Visitor treeNotification;
        std::optional<CursorShape> cursor;
        int32_t focusOrder = 0;
    };
    const Details& details() const;
    Details& ownDetails();

    friend class WeakControl;
    friend class Panel;
    void place(const Rect& parentArea, const std::vector<Rect>& contour);
    void changeBounds(const Rect& bounds, bool isBase);
    void reportPlacing(const Rect& parentArea, const LayoutResult& result, const ContourFit& fit) const;
    void reportOverlaps() const;
    bool afterBoundsChanged();
    bool adopt(ChildList& list, std::unique_ptr<Control> control);
    std::unique_ptr<Control> release(ChildList& list, Control& control);
    template <typename Visit>
    void visitOwned(const ChildList& first, const ChildList& second, const Visit& visit);
    void layoutParent();
    void tellWindow();
    void repaintIfParentsShown(uint32_t reason) const;

    std::wstring id_;
    Rect bounds_;
    Rect layoutBase_;
    Size designParentSize_;
    uint32_t anchors_ = kAnchorLeft | kAnchorTop;
    Size minimum_;
    std::optional<Constraints> constraints_;
    int32_t styleId_ = 0;
    bool hasMinimum_ = false;
    bool layoutCaptured_ = false;
    bool visible_ = true;
    bool collapsed_ = false;
    bool enabled_ = true;
    bool overlapAllowed_ = false;
    bool inLayout_ = false;
    bool layoutAgain_ = false;
    bool inBoundsChanged_ = false;
    bool boundsChangedAgain_ = false;
    uint8_t boundsRounds_ = 0;  // calls of boundsChanged,
    uint8_t passes_ = 0;        // and passes over the children in the layout numbered so:
    uint64_t layoutNumber_ = 0;
    Control* parent_ = nullptr;
    WindowHost* window_ = nullptr;
    WeakControl* firstWeak_ = nullptr;
    ChildList children_;
    ChildList auxiliary_;
    std::wstring text_;
    std::unique_ptr<Details> details_;
};

// How often, within one layout, a control's boundsChanged is called before its last bounds are kept as they are, and
// how often its children are placed before they are once more at the very end.
inline constexpr int kLayoutRounds = 8;
inline constexpr int kLayoutPasses = 64;

}  // namespace tavi
