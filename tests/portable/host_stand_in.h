// A window that is not there: it writes down what its controls ask of it, as a list of texts in one order.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include "tavi/core/control.h"

namespace tavi {

template <typename Value>
    requires requires(const Value& value) { describe(value); }
void PrintTo(const Value& value, std::ostream* out) {
    *out << testing::PrintToString(describe(value));
}

}  // namespace tavi

namespace testing_tavi {

using Log = std::vector<std::wstring>;

class HostStandIn : public tavi::WindowHost {
public:
    virtual ~HostStandIn() = default;

    Log log;  // "repaint 16 (0, 0, 4x3)", "changed id", "leaves id", "clip (0, 0, 4x3)", "unclip"
    Log lines;
    bool wantsLines = false;
    tavi::Rect painted;  // the area that a paint is about; set it to paint
    tavi::Control* owner = nullptr;
    tavi::Control* focus = nullptr;
    std::function<void(tavi::Control&)> onLeaves;

    Log taken() { return std::exchange(log, {}); }

    void repaint(const tavi::Rect& area, uint32_t reason) override {
        log.push_back(L"repaint " + std::to_wstring(reason) + L" " + tavi::describe(area));
    }
    void controlChanged(tavi::Control& control) override { log.push_back(L"changed " + control.id()); }
    void controlLeaves(tavi::Control& control) override {
        log.push_back(L"leaves " + control.id());
        if (onLeaves) {
            std::exchange(onLeaves, {})(control);
        }
    }
    const tavi::Scale& scale() const override { return scale_; }
    tavi::Rect paintArea() const override { return painted; }
    void pushClip(HDC, const tavi::Rect& area) override { log.push_back(L"clip " + tavi::describe(area)); }
    void popClip(HDC) override { log.push_back(L"unclip"); }
    void capturePointer(tavi::Control& control) override { owner = &control; }
    void releasePointer() override { owner = nullptr; }
    tavi::Control* pointerOwner() const override { return owner; }
    bool setFocus(tavi::Control* control) override { return (focus = control) != nullptr; }
    tavi::Control* focused() const override { return focus; }
    tavi::Control* hovered() const override { return nullptr; }
    void setControlTimer(tavi::Control&, int32_t, std::function<void()>) override {}
    void copyText(const std::wstring&) override {}
    std::wstring clipboardText() override { return {}; }
    bool rightToLeft() const override { return false; }
    tavi::WindowFrame* frame() override { return nullptr; }
    bool diagnostics() const override { return wantsLines; }
    void writeDiagnostic(const std::wstring& line) override { lines.push_back(line); }

private:
    tavi::Scale scale_;
};

}  // namespace testing_tavi
