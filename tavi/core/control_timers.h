// The timers of a window's controls, one for each control that has set one.
#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "tavi/core/weak_control.h"
#include "tavi/core/window_platform.h"

namespace tavi {

class ControlTimers {
public:
    explicit ControlTimers(WindowPlatform& platform) : platform_(platform) {}

    // Starts the control's timer anew, or stops it with 0 ms.
    void set(Control& control, int32_t milliseconds, std::function<void()> tick);
    // One of them has run out.
    void timeOut(WindowTimer timer);
    // The control leaves the tree with all below it.
    void forget(const Control& control);

private:
    struct Timer {
        WeakControl owner;
        std::shared_ptr<const std::function<void()>> tick;  // held while it runs: it may set another one
    };
    static WindowTimer timerOf(size_t place);
    void stop(size_t place);

    WindowPlatform& platform_;
    std::vector<std::unique_ptr<Timer>> timers_;  // null: a place that is free
};

}  // namespace tavi
