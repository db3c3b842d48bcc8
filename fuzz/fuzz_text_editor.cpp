// The editor of one line under arbitrary operations: each byte chooses one, the next ones its operands and its text.
#include <algorithm>

#include "fuzz/fuzz_input.h"
#include "tavi/controls/text_editor.h"

using fuzz::require;
using namespace tavi;

namespace {

class Driver {
public:
    Driver(const uint8_t* data, size_t size) : data_(data), end_(data + size) {}

    void run() {
        const std::wstring first = text();
        editor_.setText(first);
        size_t steps = 0;
        while (data_ != end_) {
            const std::wstring before = editor_.text();
            step();
            check(before);
            ++steps;
        }
        while (editor_.canUndo()) {
            editor_.undo();
        }
        require(steps > kUndoSteps || editor_.text() == first, "everything can be undone");
    }

private:
    uint8_t next() { return data_ == end_ ? uint8_t{0} : *data_++; }

    std::wstring text() {
        const auto length = std::min<size_t>(next() % 24, static_cast<size_t>(end_ - data_));
        const std::wstring units = fuzz::units(fuzz::bytes(data_, length));
        data_ += length;
        return units;
    }

    void step() {
        const uint8_t what = next();
        const auto by = static_cast<TextStep>(what / 16 % 3);
        const bool forward = (what & 64) != 0;
        const bool extend = (what & 128) != 0;
        switch (what % 10) {
            case 0:
            case 1:
                return insert();
            case 2:
                return editor_.remove(by, forward);
            case 3:
                return editor_.move(by, forward, extend);
            case 4:
                return editor_.moveTo(next(), extend);
            case 5:
                return editor_.select({next(), next()});
            case 6:
                return editor_.undo();
            case 7:
                return editor_.redo();
            case 8:
                return editor_.setMaxLength(next());
            default:
                return editor_.endTyping();
        }
    }

    void insert() {
        const size_t before = editor_.text().size();
        editor_.insert(text());
        require(editor_.text().size() <= std::max(before, editor_.maxLength()), "no more than the limit stays");
    }

    void check(const std::wstring& before) const {
        const std::wstring& now = editor_.text();
        for (const size_t at : {editor_.caret(), editor_.anchor()}) {
            require(at <= now.size() && clusterStart(now, at) == at, "positions are ends of clusters");
        }
        require(now == before || editor_.canUndo() || editor_.canRedo(), "a change can be undone");
    }

    const uint8_t* data_;
    const uint8_t* end_;
    TextEditor editor_;
};

}  // namespace

int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    Driver(data, size).run();
    return 0;
}
