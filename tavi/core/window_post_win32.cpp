// What other threads have a window do.
#include <windows.h>

#include <utility>

#include "tavi/core/window_messages.h"
#include "tavi/core/window_native.h"

namespace tavi {

bool WindowNative::post(std::function<void()> function) {
    if (GetCurrentThreadId() == thread_) {
        function();
        return true;
    }
    const std::lock_guard lock(postedLock_);
    const HWND target = handle_;
    if (target == nullptr) {
        return false;
    }
    posted_.push_back(std::move(function));
    if (!PostMessageW(target, kRunPosted, 0, 0)) {
        posted_.pop_back();
        return false;
    }
    return true;
}

// One for each message: a function may open a dialog, and what was posted after it must not wait for that to end.
WindowNative::Answer WindowNative::onPosted(const Message& /*message*/) {
    std::function<void()> function;
    {
        const std::lock_guard lock(postedLock_);
        if (posted_.empty()) {
            return 0;
        }
        function = std::move(posted_.front());
        posted_.pop_front();
    }
    function();
    return 0;
}

void WindowNative::dropPosted() {
    std::deque<std::function<void()>> dropped;
    const std::lock_guard lock(postedLock_);
    handle_ = nullptr;
    dropped.swap(posted_);
}

}  // namespace tavi
