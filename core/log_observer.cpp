// Who reads the setup log's lines while they are written.
#include <memory>
#include <mutex>
#include <utility>

#include "core/log.h"

namespace velquin {
namespace {

struct Shared {
    std::mutex turn;
    std::shared_ptr<const LogObserver> observer;
};

Shared& shared() {
    static Shared state;
    return state;
}

}  // namespace

void setLogObserver(LogObserver observer) {
    auto next = observer ? std::make_shared<const LogObserver>(std::move(observer)) : nullptr;
    // `next` is older than the lock, so the observer before is destroyed after it: it may hold anything.
    const std::lock_guard<std::mutex> lock(shared().turn);
    shared().observer.swap(next);
}

void tellLogObserver(std::wstring_view text) {
    std::shared_ptr<const LogObserver> observer;
    {
        const std::lock_guard<std::mutex> lock(shared().turn);
        observer = shared().observer;
    }
    if (observer) {
        (*observer)(text);
    }
}

}  // namespace velquin
