#include "tavi/core/control_timers.h"

#include <algorithm>
#include <utility>

#include "tavi/core/control.h"

namespace tavi {

WindowTimer ControlTimers::timerOf(size_t place) {
    return static_cast<WindowTimer>(static_cast<size_t>(WindowTimer::FirstOfControls) + place);
}

void ControlTimers::stop(size_t place) {
    timers_[place].reset();
    platform_.setTimer(timerOf(place), 0);
}

void ControlTimers::set(Control& control, int32_t milliseconds, std::function<void()> tick) {
    const auto own =
        std::ranges::find_if(timers_, [&](const auto& timer) { return timer && timer->owner.get() == &control; });
    if (own != timers_.end()) {
        stop(static_cast<size_t>(own - timers_.begin()));
    }
    if (milliseconds <= 0 || !tick) {
        return;
    }
    auto made = std::make_unique<Timer>();
    made->owner.set(&control);
    made->tick = std::make_shared<const std::function<void()>>(std::move(tick));
    const auto free = std::ranges::find_if(timers_, [](const auto& timer) { return timer == nullptr; });
    const auto place = static_cast<size_t>(free - timers_.begin());
    if (free != timers_.end()) {
        *free = std::move(made);
    } else {
        timers_.push_back(std::move(made));
    }
    platform_.setTimer(timerOf(place), milliseconds);
}

void ControlTimers::timeOut(WindowTimer timer) {
    const size_t place = static_cast<size_t>(timer) - static_cast<size_t>(WindowTimer::FirstOfControls);
    if (place >= timers_.size() || timers_[place] == nullptr) {
        return;
    }
    if (!timers_[place]->owner) {
        stop(place);
        return;
    }
    const std::shared_ptr<const std::function<void()>> tick = timers_[place]->tick;
    (*tick)();
}

void ControlTimers::forget(const Control& control) {
    for (size_t place = 0; place < timers_.size(); ++place) {
        if (timers_[place] && (!timers_[place]->owner || timers_[place]->owner->isWithin(control))) {
            stop(place);
        }
    }
}

}  // namespace tavi
