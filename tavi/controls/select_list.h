// The content of a select box's pop-up window: its items as rows of equal height, as many as there is room for, and a
// scroll bar for the others. The hot row is the one that would be chosen; mouse and select box move it.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "tavi/controls/control_looks.h"
#include "tavi/controls/scroll_bar.h"
#include "tavi/core/panel.h"
#include "tavi/text/text_layout.h"

namespace tavi {

inline constexpr int32_t kListRowHeight = 28;  // design pixels
inline constexpr int32_t kMostListRows = 8;

class SelectList : public Panel {
public:
    // Called with the index of the item that was chosen; may destroy the list.
    using Chosen = std::function<void(int32_t)>;

    SelectList(std::vector<std::wstring> items, int32_t selected, Chosen chosen);

    // At least as wide as the select box, design pixels. Needs a window.
    Size preferredSize(int32_t least) const;
    int32_t hot() const { return hot_; }  // -1 for none
    // Scrolls it into sight.
    void setHot(int32_t index);
    int32_t rowsInSight() const;
    int32_t firstRow() const { return first_; }
    // Where a row is painted; empty when it is out of sight.
    Rect rowArea(int32_t index) const;

    bool matchesType(std::wstring_view type) const override { return type == L"selectbox"; }
    void automationValue(std::wstring& value) const override;
    void paint(HDC target, Point origin) override;
    void releaseCaches() override;
    bool pointerMove(PointerEvent& event) override;
    bool pointerPress(PointerEvent& event) override;
    bool pointerRelease(PointerEvent& event) override;
    bool pointerWheel(WheelEvent& event) override;
    void inputCancelled() override { pressed_ = false; }

protected:
    void layoutChildren() override;

private:
    int32_t count() const { return static_cast<int32_t>(items_.size()); }
    int32_t rowAt(Point local) const;
    void scrollTo(int64_t first);
    const TextLayout& layoutFor(int32_t index, int32_t deviceWidth) const;
    void paintRow(HDC target, Point origin, int32_t index) const;

    ControlLooks looks_{L"selectbox"};
    std::vector<std::wstring> items_;
    int32_t selected_;
    int32_t hot_;
    int32_t first_ = 0;
    Chosen chosen_;
    ScrollBar* bar_ = nullptr;      // a child
    std::optional<Point> pointer_;  // where it was last
    bool pressed_ = false;
    mutable std::map<int32_t, TextLayout> layouts_;  // of the rows that were painted
};

}  // namespace tavi
