// A window with a random tree, driven by the input: each byte chooses an operation or an event, the next ones its
// operands. Hooks and callbacks do something of the same kind, too. What has to hold is that nothing touches freed
// memory, that everything ends, and that painting what is dirty leaves nothing dirty.
#include <deque>

#include "fuzz/fuzz_input.h"
#include "tests/portable/window_stand_in.h"

using fuzz::require;
using namespace tavi;
using namespace testing_tavi;

namespace {

constexpr int kMostControls = 60;
constexpr int kMostSteps = 600;

class Driver {
public:
    Driver(const uint8_t* data, size_t size) : data_(data), end_(data + size) { open(); }

    void run() {
        while (data_ != end_ && steps_ < kMostSteps) {
            step();
        }
        canvas_.clips.clear();
        tree_->update();
        tree_->paint(canvas_.handle());
        for (int i = 0; i < 3 && tree_->needsPaint(); ++i) {
            tree_->paint(canvas_.handle());
        }
        require(!tree_->needsPaint(), "a paint leaves nothing dirty");
        require(canvas_.clips.empty(), "clips are taken back");
        std::vector<ControlState> states;
        tree_->root().captureStateTree(states);
        tree_->root().restoreStateTree(states, true);
        require(tree_->focused() == nullptr || tree_->focused()->isWithin(tree_->root()), "the focus is in the tree");
    }

private:
    uint8_t next() { return data_ == end_ ? uint8_t{0} : *data_++; }
    int32_t number() {
        const int32_t value = static_cast<int8_t>(next());
        // Now and then one of the far ends.
        return value == 127 ? INT32_MAX : value == -128 ? INT32_MIN : value * 2;
    }
    Rect rect() { return {number(), number(), number(), number()}; }
    Point point() { return {number(), number()}; }

    void open() {
        tree_ = WindowTree::create(platform_);
        tree_->setDiagnostics(true);
        tree_->setClient({200, 150}, 96);
        controls_.clear();
        controls_.emplace_back(tree_->root());
    }

    Control* any() {
        std::erase_if(controls_, [](const WeakControl& each) { return !each; });
        return controls_.empty() ? nullptr : controls_[next() % controls_.size()].get();
    }

    void add() {
        Control* const parent = any();
        if (parent == nullptr || controls_.size() >= kMostControls) {
            return;
        }
        auto child = std::make_unique<Driven>(*this, std::to_wstring(next() % 8), rect());
        child->takesFocus = next() % 2 != 0;
        child->takesInput = next() % 2 != 0;
        controls_.emplace_back(*child);
        if (next() % 8 == 0) {
            parent->addAuxiliary(std::move(child));
        } else {
            parent->addChild(std::move(child));
        }
    }

    // A control whose hooks go on with the input.
    struct Driven : Probe {
        Driven(Driver& by, std::wstring name, const Rect& area) : Probe(std::move(name), area), driver(by) {
            then = [&by](const std::wstring&) { by.hook(); };
        }
        void boundsChanged() override { driver.hook(); }
        void childrenChanged() override {
            Probe::childrenChanged();
            driver.hook();
        }
        void textChanged() override { driver.hook(); }
        Driver& driver;
    };

    void hook() {
        // Not always, and not for ever.
        if (depth_ < 6 && data_ != end_ && steps_ < kMostSteps && next() % 4 == 0) {
            ++depth_;
            step();
            --depth_;
        }
    }

    void step() {
        ++steps_;
        const uint8_t what = next();
        Control* const control = any();
        const std::shared_ptr<WindowTree> tree = tree_;
        if (control == nullptr) {
            return;
        }
        switch (what % 32) {
            case 0:
            case 1:
            case 2:
                return add();
            case 3:
                if (control->parent() != nullptr) {
                    control->parent()->removeChild(*control);
                }
                return;
            case 4:
                return control->setBounds(rect());
            case 5:
                return control->setVisible(next() % 2 != 0);
            case 6:
                return control->setEnabled(next() % 2 != 0);
            case 7:
                return control->setCollapsed(next() % 2 != 0);
            case 8:
                return control->setAnchors(next());
            case 9:
                return control->setMinimumSize(number(), number());
            case 10: {
                Constraints constraints;
                const uint8_t given = next();
                std::optional<RelativeLength>* const lengths[] = {&constraints.left,    &constraints.right,
                                                                  &constraints.top,     &constraints.bottom,
                                                                  &constraints.centerX, &constraints.centerY};
                for (unsigned i = 0; i < std::size(lengths); ++i) {
                    if (given >> i & 1) {
                        *lengths[i] = RelativeLength{number() / 16.0, number()};
                    }
                }
                if (given & 64) {
                    constraints.width = number();
                }
                return control->setConstraints(constraints);
            }
            case 11:
                return control->setContours(static_cast<ContourKind>(next() % kContourKinds), {rect(), rect()});
            case 12:
                return control->setText(std::to_wstring(next() % 4));
            case 13:
                return control->layout();
            case 14:
                return control->notifyTree();
            case 15:
                tree->setFocus(control);
                return;
            case 16:
                return tree->focus().setDefault(control);
            case 17:
                held_ = next() & 6;
                tree->pointerMove({.position = point(), .held = held_});
                return;
            case 18:
                held_ |= heldFlag(PointerButton::Left);
                tree->pointerPress({.position = point(), .button = PointerButton::Left, .held = held_});
                return;
            case 19:
                held_ = 0;
                tree->pointerRelease({.position = point(), .button = PointerButton::Left});
                return;
            case 20:
                tree->pointerWheel({.position = point(), .steps = 1});
                return;
            case 21:
                tree->keyPress({.code = next(), .modifiers = next() % 8U});
                return;
            case 22:
                tree->keyPress({.code = key::kF12, .modifiers = next() % 8U});
                return;
            case 23:
                tree->textInput({L"x"});
                return;
            case 24:
                return tree->activated(next() % 2 != 0);
            case 25:
                return tree->setClient({next(), next()}, 48 + next() * 2);
            case 26:
                return tree->pointerLost();
            case 27:
                return tree->capturePointer(*control);
            case 28:
                return tree->timeOut(WindowTimer::Tooltip);
            case 29:
                return tree->paint(canvas_.handle());
            case 30:
                control->setTooltip(L"tip");
                return tree->update();
            default:
                // The window goes, and another one comes.
                if (next() % 4 == 0) {
                    tree->close();
                    open();
                }
                return;
        }
    }

    const uint8_t* data_;
    const uint8_t* end_;
    PlatformStandIn platform_;
    Canvas canvas_{{64, 48}};
    std::shared_ptr<WindowTree> tree_;
    std::vector<WeakControl> controls_;
    uint32_t held_ = 0;
    int depth_ = 0;
    int steps_ = 0;
};

}  // namespace

int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    Driver(data, size).run();
    return 0;
}
