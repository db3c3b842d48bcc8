#include "tavi/controls/text_editor.h"

#include <algorithm>
#include <utility>

namespace tavi {
namespace {

constexpr std::wstring_view kBlanks = L"\t\n\v\f\r\u0085\u2028\u2029";

bool isControl(wchar_t c) {
    return c < L' ' || (c >= L'\x7F' && c <= L'\x9F');
}

// A change may have joined what was left and right of a position into one cluster.
size_t clusterEnd(std::wstring_view text, size_t position) {
    const size_t start = clusterStart(text, position);
    return start == position ? position : nextCluster(text, start);
}

}  // namespace

std::wstring asOneLine(std::wstring_view text) {
    std::wstring line;
    bool gap = false;
    for (const wchar_t c : text) {
        if (kBlanks.contains(c)) {
            gap = true;
        } else if (!isControl(c)) {
            if (gap && !line.empty()) {
                line += L' ';
            }
            gap = false;
            line += c;
        }
    }
    return line;
}

void TextEditor::setText(std::wstring text) {
    text_ = std::move(text);
    caret_ = anchor_ = 0;
    run_ = Run::kNone;
    undo_.clear();
    redo_.clear();
}

TextRange TextEditor::selection() const {
    return {std::min(caret_, anchor_), std::max(caret_, anchor_)};
}

std::wstring TextEditor::selectedText() const {
    const TextRange range = selection();
    return text_.substr(range.begin, range.end - range.begin);
}

void TextEditor::moveTo(size_t position, bool extend) {
    caret_ = clusterStart(text_, position);
    if (!extend) {
        anchor_ = caret_;
    }
    endTyping();
}

size_t TextEditor::stepFrom(size_t position, TextStep step, bool forward) const {
    switch (step) {
        case TextStep::kCluster:
            return forward ? nextCluster(text_, position) : previousCluster(text_, position);
        case TextStep::kWord:
            return forward ? nextWord(text_, position) : previousWord(text_, position);
        case TextStep::kEnd:
            break;
    }
    return forward ? text_.size() : 0;
}

void TextEditor::move(TextStep step, bool forward, bool extend) {
    const TextRange selected = selection();
    if (step == TextStep::kCluster && !extend && !selected.empty()) {
        moveTo(forward ? selected.end : selected.begin, false);
    } else {
        moveTo(stepFrom(caret_, step, forward), extend);
    }
}

void TextEditor::select(TextRange range) {
    moveTo(range.begin, false);
    moveTo(range.end, true);
}

void TextEditor::insert(std::wstring_view text) {
    std::wstring line = asOneLine(text);
    const TextRange selected = selection();
    const size_t kept = text_.size() - (selected.end - selected.begin);
    const size_t room = maxLength_ > kept ? maxLength_ - kept : 0;
    if (line.size() > room) {
        line.resize(clusterStart(line, room));
    }
    if (!line.empty()) {
        replace(selected, line, Run::kTyping);
    }
}

void TextEditor::remove(TextStep step, bool forward) {
    if (const TextRange selected = selection(); !selected.empty()) {
        replace(selected, {}, Run::kNone);
        return;
    }
    const size_t end = stepFrom(caret_, step, forward);
    if (end != caret_) {
        const bool inRun = step == TextStep::kCluster;
        replace({std::min(caret_, end), std::max(caret_, end)}, {},
                !inRun    ? Run::kNone
                : forward ? Run::kErasingOn
                          : Run::kErasingBack);
    }
}

void TextEditor::replace(TextRange range, std::wstring_view text, Run run) {
    remember(run);
    text_.replace(range.begin, range.end - range.begin, text);
    caret_ = anchor_ = clusterEnd(text_, range.begin + text.size());
}

void TextEditor::remember(Run run) {
    if (run == Run::kNone || run != run_) {
        if (undo_.size() == kUndoSteps) {
            undo_.erase(undo_.begin());
        }
        undo_.push_back({text_, caret_, anchor_});
    }
    redo_.clear();
    run_ = run;
}

void TextEditor::restore(std::vector<Snapshot>& from, std::vector<Snapshot>& to) {
    if (from.empty()) {
        return;
    }
    to.push_back({std::move(text_), caret_, anchor_});
    Snapshot& last = from.back();
    text_ = std::move(last.text);
    caret_ = last.caret;
    anchor_ = last.anchor;
    from.pop_back();
    endTyping();
}

void TextEditor::undo() {
    restore(undo_, redo_);
}

void TextEditor::redo() {
    restore(redo_, undo_);
}

}  // namespace tavi
