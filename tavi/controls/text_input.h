// A field to write one line in.
#pragma once

#include "tavi/controls/control_looks.h"
#include "tavi/controls/text_editor.h"
#include "tavi/core/events.h"
#include "tavi/core/signal.h"
#include "tavi/text/text_layout.h"

namespace tavi {

class TextInput : public Control {
public:
    TextInput(std::wstring id, const Rect& bounds, std::wstring text = {});

    // Enter, or the focus has left and the text is another one than before. A handler may refuse it.
    Signal<CommitEvent> committed;
    // The person has changed the text; it stands in text().
    Signal<CommandEvent> edited;

    bool readOnly() const { return readOnly_; }
    void setReadOnly(bool readOnly);
    // Shown while there is no text.
    void setPlaceholder(std::wstring text);
    void setMaxLength(size_t length) { editor_.setMaxLength(length); }
    const TextEditor& editor() const { return editor_; }
    void selectAll();

    bool matchesType(std::wstring_view type) const override;
    bool acceptsFocus() const override { return true; }
    std::optional<Rect> caretRectangle() const override;
    void automationValue(std::wstring& value) const override { value = text(); }
    void paint(HDC target, Point origin) override;
    void releaseCaches() override;
    bool pointerMove(PointerEvent& event) override;
    bool pointerPress(PointerEvent& event) override;
    bool pointerRelease(PointerEvent& event) override;
    bool keyPress(KeyEvent& event) override;
    bool textInput(TextInputEvent& event) override;
    bool compositionChanged(CompositionEvent& event) override;
    bool editCommand(EditCommand command) override;
    void inputCancelled() override;
    void pointerEntered() override;
    void pointerLeft() override;
    void focusChanged(bool focused) override;

protected:
    void textChanged() override;
    void boundsChanged() override;
    void appearanceChanged() override;
    void appendCustomState(ControlState& state) const override;
    void restoreCustomProperty(const StateProperty& property) override;

private:
    ControlLooks looks_{L"textinput"};
    TextEditor editor_;
    bool readOnly_ = false;
};

}  // namespace tavi
