// A field to write one line in: caret and selection by keyboard and pointer, undo, clipboard, context menu, composition
// of input methods in place. What is done to the text is decided in TextEditor; this is the person's side of it.
#pragma once

#include <chrono>

#include "tavi/controls/control_looks.h"
#include "tavi/controls/text_editor.h"
#include "tavi/core/events.h"
#include "tavi/core/signal.h"
#include "tavi/text/text_layout.h"

namespace tavi {

class TextInput : public Control {
public:
    TextInput(std::wstring id, const Rect& bounds, std::wstring text = {});

    // Enter, or the focus has moved to another control, and the text is another one than before. A handler may refuse
    // it. Enter goes on to the window's default control unless the text was refused.
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
    void windowChanged() override { followCaret(); }
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
    void pointerEntered() override { setHot(true); }
    void pointerLeft() override { setHot(false); }
    void focusChanged(bool focused) override;

protected:
    void textChanged() override;
    void boundsChanged() override { followCaret(); }
    void appearanceChanged() override;
    void appendCustomState(ControlState& state) const override;
    void restoreCustomProperty(const StateProperty& property) override;

private:
    // What shortcuts, the context menu and Windows' messages ask for.
    enum class Action : uint8_t { kUndo, kRedo, kCut, kCopy, kPaste, kErase, kSelectAll };
    struct MenuRow;
    // What a drag selects by: where a double click began it, whole words.
    enum class DragUnit : uint8_t { kCluster, kWord, kAll };
    struct Paper;

    // The text and its states.
    bool editable() const { return !readOnly_ && usable(); }
    bool composing() const { return !composition_.text.empty(); }
    void caretMoved();
    void changed();
    bool commit();
    void setHot(bool hot);
    void showCaret();
    void blink();

    // Commands.
    bool applies(Action action) const;
    void perform(Action action);
    void paste();
    void moveAcross(bool toTheRight, bool extend);
    bool moveByKey(const KeyEvent& event);
    bool eraseByKey(const KeyEvent& event);
    bool commandByKey(const KeyEvent& event);
    bool menuByKey(const KeyEvent& event);
    void openMenu(Point at);

    // The pointer.
    int32_t countClicks(const PointerEvent& event);
    void beginDrag(const PointerEvent& event);
    void drag();
    void endDrag();

    // The line as it is shown, with what is being composed in the place of the selection. Lengths and areas are device
    // pixels, except for textArea().
    Rect textArea() const;
    std::wstring shownText() const;
    size_t shownCaret() const;
    TextFormat format(std::wstring_view text) const;
    const TextLayout& line() const;
    int32_t caretWidth() const;
    int32_t lineLeft(const Rect& room) const;
    Rect lettersIn(const Rect& room) const;
    Rect onBaseline(const Rect& room, const TextLayout& layout) const;
    Rect lineRectangle(const Rect& room) const;
    Rect caretOnDevice() const;
    Rect inDesignPixels(const Rect& device) const;
    int32_t lineX(Point local) const;
    size_t positionAt(Point local) const;
    size_t clusterUnder(Point local) const;
    void followCaret();

    // Painting.
    SurfaceState surfaceState() const;
    void paintPlaceholder(const Paper& paper);
    void paintSelection(const Paper& paper) const;
    void paintComposition(const Paper& paper) const;

    ControlLooks looks_{L"textinput"};
    TextEditor editor_;
    std::wstring settled_;  // the text that was committed last, or came from the program
    std::wstring placeholder_;
    CompositionEvent composition_;
    bool readOnly_ = false;
    bool hot_ = false;
    bool focused_ = false;
    bool paused_ = false;  // the focus went with its window and is expected back
    bool caretOn_ = true;

    bool dragging_ = false;
    DragUnit dragUnit_ = DragUnit::kCluster;
    TextRange dragFrom_;
    Point pointer_;
    int32_t clicks_ = 0;
    std::chrono::steady_clock::time_point pressed_;
    Point pressedAt_;

    int32_t scroll_ = 0;  // what of a line that is too long lies left of the room
    mutable std::wstring lineText_;
    mutable TextLayout line_;
    TextLayout placeholderLine_;
};

}  // namespace tavi
