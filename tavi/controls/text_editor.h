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

// How many steps can be undone; the oldest is forgotten first.
inline constexpr size_t kUndoSteps = 100;

// A text as it fits into one line: what breaks lines and tabs become one blank between other characters and nothing at
// the ends; all other control characters are left out.
std::wstring asOneLine(std::wstring_view text);

class TextEditor {
public:
    const std::wstring& text() const { return text_; }
    // From the program: what was typed can no longer be undone, and the caret stands at the beginning.
    void setText(std::wstring text);

    size_t caret() const { return caret_; }
    // The selection's other end; the caret when nothing is selected.
    size_t anchor() const { return anchor_; }
    TextRange selection() const;
    std::wstring selectedText() const;

    // To the beginning of the cluster that `position` lies in.
    void moveTo(size_t position, bool extend);
    // Without `extend` a cluster's step off a selection ends at the selection's edge.
    void move(TextStep step, bool forward, bool extend);
    // With the caret at the end of the range.
    void select(TextRange range);
    void selectAll() { select({0, text_.size()}); }

    // In the place of the selection, as one line. Of what does not fit into maxLength() units only whole clusters stay;
    // where nothing does, nothing changes. Insertions that follow one another are one step to undo.
    void insert(std::wstring_view text);
    // The selection; without one what lies between the caret and a step away.
    void remove(TextStep step, bool forward);

    bool canUndo() const { return !undo_.empty(); }
    bool canRedo() const { return !redo_.empty(); }
    void undo();
    void redo();
    // What was typed until now is one step to undo, what follows another.
    void endTyping() { run_ = Run::kNone; }

    size_t maxLength() const { return maxLength_; }
    // For what is inserted from now on.
    void setMaxLength(size_t length) { maxLength_ = length; }

private:
    // Changes of one kind that follow one another and are undone together.
    enum class Run : uint8_t { kNone, kTyping, kErasingBack, kErasingOn };
    struct Snapshot {
        std::wstring text;
        size_t caret = 0;
        size_t anchor = 0;
    };
    size_t stepFrom(size_t position, TextStep step, bool forward) const;
    void replace(TextRange range, std::wstring_view text, Run run);
    void remember(Run run);
    void restore(std::vector<Snapshot>& from, std::vector<Snapshot>& to);

    std::wstring text_;
    size_t caret_ = 0;
    size_t anchor_ = 0;
    size_t maxLength_ = 32767;
    Run run_ = Run::kNone;
    std::vector<Snapshot> undo_;
    std::vector<Snapshot> redo_;
};

}  // namespace tavi
