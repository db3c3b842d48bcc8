// How far something has come, or that it is still going on.
#pragma once

#include <optional>

#include "tavi/controls/control_looks.h"
#include "tavi/core/events.h"
#include "tavi/core/signal.h"

namespace tavi {

class ProgressBar : public Control {
public:
    ProgressBar(std::wstring id, const Rect& bounds);

    // The share has changed. Without one it counts as -1.
    Signal<ValueChangedEvent> changed;

    // From 0 to 1; nothing while nobody knows: then a piece of the bar moves along it for as long as it is shown.
    std::optional<double> share() const { return share_; }
    // What is beyond these counts as the nearer of them, what is not a number as nothing.
    void setShare(std::optional<double> share);

    bool matchesType(std::wstring_view type) const override { return type == L"progressbar"; }
    // "42 %", or nothing.
    void automationValue(std::wstring& value) const override;
    void paint(HDC target, Point origin) override;
    void releaseCaches() override { looks_.forget(); }
    void windowChanged() override;

private:
    void move();
    void run(bool running);
    Rect filled(const Rect& track) const;

    ControlLooks looks_{L"progressbar"};
    std::optional<double> share_;
    bool running_ = false;  // the timer of the movement
    int32_t step_ = 0;      // of the movement
};

}  // namespace tavi
