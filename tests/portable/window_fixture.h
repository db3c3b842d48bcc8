// A window's tree with a window system that is not there, and a person at it.
#pragma once

#include "tests/portable/host_stand_in.h"
#include "tests/portable/window_stand_in.h"

namespace testing_tavi {

using namespace tavi;

struct TaviWindow : testing::Test {
    PlatformStandIn platform;
    std::shared_ptr<WindowTree> tree = WindowTree::create(platform);
    Log log;

    void SetUp() override {
        tree->setClient({400, 300}, 96);
        tree->activated(true);
    }
    Probe* add(const wchar_t* id, const Rect& bounds, Panel* parent = nullptr, bool takesFocus = false) {
        auto* const probe = (parent != nullptr ? parent : &tree->root())->add<Probe>(id, bounds, &log);
        probe->takesFocus = takesFocus;
        log.clear();
        return probe;
    }
    Log taken() { return std::exchange(log, {}); }
    bool key(uint32_t code, uint32_t modifiers = 0) { return tree->keyPress({.code = code, .modifiers = modifiers}); }
    // What the platform says is held comes with every event, as Windows has it.
    void press(Point at, PointerButton button = PointerButton::Left) {
        held |= heldFlag(button);
        tree->pointerPress({.position = at, .button = button, .held = held});
    }
    void release(Point at, PointerButton button = PointerButton::Left) {
        held &= ~heldFlag(button);
        tree->pointerRelease({.position = at, .button = button, .held = held});
    }
    void move(Point at) { tree->pointerMove({.position = at, .held = held}); }
    uint32_t held = 0;
    std::wstring focused() const { return tree->focused() != nullptr ? tree->focused()->id() : L"none"; }
};

}  // namespace testing_tavi
