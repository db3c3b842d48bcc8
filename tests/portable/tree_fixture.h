// A control tree whose panels write down what is called.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <memory>
#include <string>
#include <utility>

#include "tavi/core/panel.h"
#include "tests/portable/host_stand_in.h"

namespace testing_tree {

using namespace tavi;
using testing_tavi::HostStandIn;
using testing_tavi::Log;

// A panel that writes down which of its hooks are called and then does as the test says.
class Probe : public Panel {
public:
    explicit Probe(std::wstring id, const Rect& bounds = {}, Log* log = nullptr)
        : Panel(std::move(id), bounds), log_(log) {}

    std::function<void(Probe&)> onHook;  // any of them but those of the pointer, of painting and of children
    std::function<bool(Probe&)> onPointer;
    std::function<void(Probe&)> onPaint;
    std::function<void(Probe&)> onLayout;
    bool transparent = false;
    std::wstring value;

    using Panel::minimumSize;
    Probe* panel(std::wstring id, const Rect& bounds) { return add<Probe>(std::move(id), bounds, log_); }
    bool transparentToPointer() const override { return transparent; }
    void automationValue(std::wstring& text) const override { text = value; }
    void windowChanged() override { hook(L"window"); }
    bool pointerMove(PointerEvent& event) override {
        return pointer(L"move", event, [&] { return Panel::pointerMove(event); });
    }
    bool pointerPress(PointerEvent& event) override {
        return pointer(L"press", event, [&] { return Panel::pointerPress(event); });
    }
    bool pointerWheel(WheelEvent& event) override {
        return pointer(L"wheel", event, [&] { return Panel::pointerWheel(event); });
    }
    bool pointerRelease(PointerEvent& event) override {
        return pointer(L"release", event, [&] { return Panel::pointerRelease(event); });
    }
    void paint(HDC target, Point origin) override {
        write(L"paint", describe(origin));
        if (const auto action = onPaint) {
            return action(*this);
        }
        Panel::paint(target, origin);
    }

protected:
    void layoutChildren() override {
        write(L"layout");
        if (const auto action = onLayout) {
            action(*this);
        } else {
            Panel::layoutChildren();
        }
    }
    void boundsChanged() override { hook(L"bounds"); }
    void textChanged() override { hook(L"text"); }
    void appearanceChanged() override { hook(L"appearance"); }
    void childrenChanged() override {
        write(L"children");
        Panel::childrenChanged();
    }
    void appendCustomState(ControlState& state) const override {
        if (!value.empty()) {
            state.properties.push_back({L"value", value});
        }
    }
    void restoreCustomProperty(const StateProperty& property) override {
        hook(L"restore " + property.name);
        value = property.value;
    }

private:
    void write(std::wstring_view what, const std::wstring& more = {}) {
        if (log_ != nullptr) {
            log_->push_back(std::wstring(what) + L" " + id() + (more.empty() ? L"" : L" " + more));
        }
    }
    void hook(std::wstring_view what) {
        write(what);
        if (const auto action = onHook) {
            action(*this);
        }
    }
    template <typename Event, typename Route>
    bool pointer(std::wstring_view what, const Event& event, const Route& route) {
        const WeakControl self(*this);
        write(what, describe(event.position));
        const auto action = onPointer;
        const bool handled = action && action(*this);
        return handled || (self && route());
    }

    Log* log_;
};

inline constexpr uint32_t kAllAnchors = kAnchorLeft | kAnchorTop | kAnchorRight | kAnchorBottom;

// A root "r" in a window, with the panel "a" in it and "b" in that, which is as wide as "a" but for margins.
class TaviTree : public testing::Test {
protected:
    HostStandIn host;
    std::unique_ptr<Probe> root = std::make_unique<Probe>(L"r", Rect{0, 0, 300, 200}, &host.log);
    Probe* a = root->panel(L"a", {10, 10, 100, 100});
    Probe* b = a->panel(L"b", {5, 5, 50, 50});

    TaviTree() {
        b->setAnchors(kAllAnchors);
        root->setWindow(&host);
        root->layout();
        host.log.clear();
    }
    Log logOf(const std::function<void()>& action) {
        host.log.clear();
        action();
        return host.taken();
    }
    Log linesOf(const std::function<void()>& action) {
        host.wantsLines = true;
        action();
        return std::exchange(host.lines, {});
    }
};

}  // namespace testing_tree
