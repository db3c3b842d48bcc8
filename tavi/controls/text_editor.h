// What a one-line editor does to its text: caret and selection, typing, deleting, undo and redo. Pure: it knows no
// window and no fonts. Positions count units of wchar_t and are always ends of clusters (tavi/text/clusters.h).
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "tavi/text/clusters.h"

namespace tavi {

enum class TextStep : uint8_t { kCluster, kWord, kEnd };

class TextEditor {
public:
    const std::wstring& text() const { return text_; }
    // From the program: what was typed can no longer be undone.
    void setText(std::wstring text);

    size_t caret() const { return caret_; }
    // The selection's other end; the caret when nothing is selected.
    size_t anchor() const { return anchor_; }
    TextRange selection() const;
    std::wstring selectedText() const;

    void moveTo(size_t position, bool extend);
    void move(TextStep step, bool forward, bool extend);
    void select(TextRange range);
    void selectAll() { select({0, text_.size()}); }

    // In the place of the selection. What breaks lines is left out; no more than maxLength() units stay.
    void insert(std::wstring_view text);
    // The selection; without one what lies between the caret and a step away.
    void remove(TextStep step, bool forward);

    bool canUndo() const { return !undo_.empty(); }
    bool canRedo() const { return !redo_.empty(); }
    void undo();
    void redo();
    // What was typed until now is one step to undo, what follows another.
    void endTyping() { typing_ = false; }

    size_t maxLength() const { return maxLength_; }
    void setMaxLength(size_t length) { maxLength_ = length; }

private:
    struct Snapshot {
        std::wstring text;
        size_t caret = 0;
        size_t anchor = 0;
    };
    void remember(bool typing);
    void restore(std::vector<Snapshot>& from, std::vector<Snapshot>& to);

    std::wstring text_;
    size_t caret_ = 0;
    size_t anchor_ = 0;
    size_t maxLength_ = 32767;
    bool typing_ = false;
    std::vector<Snapshot> undo_;
    std::vector<Snapshot> redo_;
};

}  // namespace tavi
