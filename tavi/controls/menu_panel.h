// The content of a menu's pop-up window: rows with a caption and a shortcut, lines between groups. Mouse and keyboard
// move the hot row; a release on it, Return, Space or its first letter choose it.
#pragma once

#include <functional>
#include <optional>
#include <vector>

#include "tavi/controls/context_menu.h"
#include "tavi/controls/control_looks.h"
#include "tavi/text/text_layout.h"

namespace tavi {

inline constexpr int32_t kMenuRowHeight = 28;  // design pixels

class MenuPanel : public Control {
public:
    // Called with the index of the entry that was chosen; may destroy the menu.
    using Chosen = std::function<void(size_t)>;

    MenuPanel(std::vector<MenuEntry> entries, Chosen chosen);

    // Design pixels. Needs a window.
    Size preferredSize() const;
    std::optional<size_t> hotEntry() const { return hot_; }
    Rect entryArea(size_t index) const;

    bool matchesType(std::wstring_view type) const override { return type == L"menubar"; }
    bool acceptsFocus() const override { return true; }
    // The caption of the hot entry.
    void automationValue(std::wstring& value) const override;
    void paint(HDC target, Point origin) override;
    void releaseCaches() override;
    bool pointerMove(PointerEvent& event) override;
    bool pointerPress(PointerEvent& event) override;
    bool pointerRelease(PointerEvent& event) override;
    void inputCancelled() override { pressed_ = false; }
    void pointerLeft() override;
    bool keyPress(KeyEvent& event) override;
    bool textInput(TextInputEvent& event) override;

private:
    struct Row {
        TextLayout caption;
        TextLayout shortcut;
    };
    const std::vector<Row>& rows() const;
    bool choosable(size_t index) const;
    std::optional<size_t> entryAt(Point local) const;
    std::optional<size_t> stepFrom(std::optional<size_t> from, bool forward) const;
    void setHot(std::optional<size_t> hot);
    void choose(size_t index);
    void paintRow(HDC target, Point origin, size_t index) const;

    ControlLooks looks_{L"menubar"};
    std::vector<MenuEntry> entries_;
    Chosen chosen_;
    std::optional<size_t> hot_;
    std::optional<Point> pointer_;  // where it was last
    bool pressed_ = false;
    mutable std::vector<Row> rows_;  // empty: not measured yet
};

}  // namespace tavi
