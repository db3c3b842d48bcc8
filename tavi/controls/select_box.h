// A field that shows one of some items, and a list of them that drops down.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "tavi/controls/control_looks.h"
#include "tavi/core/events.h"
#include "tavi/core/signal.h"
#include "tavi/text/text_layout.h"

namespace tavi {

class SelectBox : public Control {
public:
    SelectBox(std::wstring id, const Rect& bounds, std::vector<std::wstring> items = {});
    ~SelectBox() override;

    Signal<SelectionChangedEvent> selectionChanged;
    Signal<PopupEvent> popupChanged;

    const std::vector<std::wstring>& items() const { return items_; }
    // Keeps the selection where there still is such an item.
    void setItems(std::vector<std::wstring> items);
    int32_t selected() const { return selected_; }  // -1 for none
    // Out of range: none.
    void select(int32_t index);
    bool isOpen() const;
    void open();
    void close(bool dismissed = true);

    bool matchesType(std::wstring_view type) const override;
    bool acceptsFocus() const override { return true; }
    void automationValue(std::wstring& value) const override;
    void paint(HDC target, Point origin) override;
    void releaseCaches() override;
    bool pointerPress(PointerEvent& event) override;
    bool pointerWheel(WheelEvent& event) override;
    bool keyPress(KeyEvent& event) override;
    bool textInput(TextInputEvent& event) override;
    bool activate() override;
    void pointerEntered() override;
    void pointerLeft() override;
    void focusChanged(bool focused) override;
    void windowChanged() override;

protected:
    void boundsChanged() override;
    void appearanceChanged() override;
    void appendCustomState(ControlState& state) const override;
    void restoreCustomProperty(const StateProperty& property) override;

private:
    struct DropDown;

    // Moves the hot row of the open list, else the selection.
    void moveTo(int32_t index);
    int32_t current() const;
    std::optional<int32_t> target(uint32_t code) const;
    void choose(int32_t index);
    void toggle();
    void type(const std::wstring& characters);
    Rect fieldArea() const;
    Rect arrowArea() const;

    ControlLooks looks_{L"selectbox"};
    std::vector<std::wstring> items_;
    int32_t selected_ = -1;
    bool focused_ = false;
    bool hot_ = false;
    std::unique_ptr<DropDown> dropDown_;
    std::wstring typed_;  // the beginning of an item, as it is being typed
    mutable TextLayout layout_;
    mutable bool measured_ = false;
    mutable int32_t measuredWidth_ = 0;
};

}  // namespace tavi
