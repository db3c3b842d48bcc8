// Pop-up windows that are not there: what was asked for, and a tree of its own with the content, to act on.
#pragma once

#include <memory>
#include <utility>

#include "tavi/core/window_frame.h"
#include "tests/portable/window_stand_in.h"

namespace testing_tavi {

class PopupStandIn : public tavi::PopupWindow {
public:
    // Null once it is closed.
    PopupStandIn(tavi::PopupRequest asked, PopupStandIn** place, std::function<void()> whileRunning)
        : request(std::move(asked)), place_(place), whileRunning_(std::move(whileRunning)) {
        *place_ = this;
        tree->setRightToLeft(request.rightToLeft);
        content = tree->root().addChild(std::move(request.content));
        size = request.measure();
        tree->setClient(size, 96);
        content->setBounds(size.positive() ? tavi::Rect{0, 0, size.width, size.height} : tavi::Rect{});
        tree->root().layout();
        tree->activated(true);
    }
    ~PopupStandIn() override {
        *place_ = nullptr;
        tree->close();
    }

    void runUntil(const std::function<bool()>& done) override {
        if (!done()) {
            whileRunning_();
        }
    }
    bool key(uint32_t code) { return tree->keyPress({.code = code}); }
    void click(tavi::Point at) {
        // A click may close it.
        const std::shared_ptr<PlatformStandIn> keepPlatform = platform;
        const std::shared_ptr<tavi::WindowTree> keep = tree;
        keep->pointerPress({.position = at, .button = tavi::PointerButton::Left, .held = 2});
        keep->pointerRelease({.position = at, .button = tavi::PointerButton::Left, .held = 0});
    }

    tavi::PopupRequest request;
    std::shared_ptr<PlatformStandIn> platform = std::make_shared<PlatformStandIn>();
    std::shared_ptr<tavi::WindowTree> tree = tavi::WindowTree::create(*platform);
    tavi::Control* content = nullptr;
    tavi::Size size;

private:
    PopupStandIn** place_;
    std::function<void()> whileRunning_;
};

// The frame of a window whose client area begins at (100, 200) on the screen.
class FrameStandIn : public tavi::WindowFrame {
public:
    virtual ~FrameStandIn() = default;

    PopupStandIn* popup = nullptr;       // the one that is open
    std::function<void()> whileRunning;  // what a person does while a menu handles messages

    HWND handle() const override { return nullptr; }
    bool canMinimize() const override { return false; }
    bool canMaximize() const override { return false; }
    bool maximized() const override { return false; }
    void minimize() override {}
    void maximize() override {}
    void restore() override {}
    void resetToDefaultSize() override {}
    void requestClose() override {}
    void beginMove() override {}
    void openSystemMenu(tavi::Point) override {}
    tavi::Rect onScreen(const tavi::Rect& area) const override { return area.offset({100, 200}); }
    std::unique_ptr<tavi::PopupWindow> openPopup(tavi::PopupRequest request) override {
        return std::make_unique<PopupStandIn>(std::move(request), &popup, whileRunning);
    }
};

}  // namespace testing_tavi
