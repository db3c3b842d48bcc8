#include "tavi/core/signal.h"

#include <gtest/gtest.h>

#include <functional>
#include <random>
#include <string>
#include <vector>

#ifdef __SANITIZE_ADDRESS__
// Part of AddressSanitizer, though not every compiler brings the header that declares it.
extern "C" int __sanitizer_install_malloc_and_free_hooks(void (*allocated)(const volatile void*, size_t),
                                                         void (*freed)(const volatile void*));
#endif

namespace {

using tavi::Connection;
using tavi::ScopedConnection;
using tavi::Signal;

// A signal with the listeners a, b and c, each of which writes its name down; b then does something.
struct Listeners {
    std::unique_ptr<Signal<int>> signal = std::make_unique<Signal<int>>();
    std::vector<Connection> handles;
    std::string calls;
    int emissions = 0;

    void connect(char name, std::function<void(Listeners&)> action = {}) {
        handles.push_back(signal->connect([this, name, action = std::move(action)](int&) {
            calls += name;
            if (action) {
                action(*this);
            }
        }));
    }
    void emit() {
        int event = 0;
        ++emissions;
        if (signal) {
            signal->emit(event);
        }
    }
};

void disconnectAll(Listeners& all) {
    for (Connection& handle : all.handles) {
        handle.disconnect();
    }
}

// Runs `action` in the second emission, which runs inside the first.
auto nested(std::function<void(Listeners&)> action) {
    return [action = std::move(action)](Listeners& all) {
        if (all.emissions == 1) {
            all.emit();
        } else if (all.emissions == 2) {
            action(all);
        }
    };
}

// Single connections and disconnections are what the random actions below try.
TEST(TaviSignal, EverythingIsAllowedInsideACallback) {
    struct Case {
        const char* name;
        std::function<void(Listeners&)> action;
        const char *calls, *callsOfTheNext;
    };
    const Case cases[] = {
        {"disconnects all, twice", [](Listeners& all) { disconnectAll(all), disconnectAll(all); }, "ab", ""},
        {"drops the handles", [](Listeners& all) { all.handles.clear(); }, "abc", "abc"},
        {"destroys the signal", [](Listeners& all) { all.signal.reset(), disconnectAll(all); }, "ab", ""},
        {"disconnects all in a nested emission", nested(disconnectAll), "abab", ""},
        {"destroys the signal in a nested emission", nested([](Listeners& all) { all.signal.reset(); }), "abab", ""},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        Listeners all;
        all.connect('a');
        all.connect('b', c.action);
        all.connect('c');
        all.emit();
        EXPECT_EQ(std::exchange(all.calls, {}), c.calls);
        all.emissions += 2;
        all.emit();
        EXPECT_EQ(all.calls, c.callsOfTheNext);
        all.signal.reset();
        for (Connection& handle : all.handles) {
            EXPECT_FALSE(handle.connected());
            handle.disconnect();
        }
    }
}

TEST(TaviSignal, ACallbackMayWriteIntoTheEventAndDestroyTheOwner) {
    struct Owner {
        std::string name = "a text too long to be kept in place";
        Signal<std::string> signal;
    };
    auto owner = std::make_unique<Owner>();
    const std::string own = owner->name;
    owner->signal.connect([&](std::string& event) { event += owner->name; });
    owner->signal.connect([&owner, own](std::string& event) { event += event, owner.reset(), event += own; });
    owner->signal.connect([&](std::string& event) { event += " and beyond"; });
    std::string event = "!";
    owner->signal.emit(event);
    EXPECT_EQ(event, "!" + own + "!" + own + own);
}

TEST(TaviSignal, WhatACallbackHoldsIsReleased) {
    const auto resource = std::make_shared<int>(0);
    const auto holder = [resource](int&) {};
    const long alone = resource.use_count();
    auto signal = std::make_unique<Signal<int>>();
    Connection first = signal->connect(holder);
    const Connection second = signal->connect(holder);
    Connection third = signal->connect([&, resource](int&) {
        third.disconnect();
        EXPECT_EQ(resource.use_count(), alone + 3) << "not while it is being called";
    });
    EXPECT_EQ(resource.use_count(), alone + 3);
    int event = 0;
    signal->emit(event);
    EXPECT_EQ(resource.use_count(), alone + 2);
    first.disconnect();
    EXPECT_EQ(resource.use_count(), alone + 1) << "though the handle is still there";
    {
        const ScopedConnection scoped = signal->connect(holder);
        ScopedConnection moved = signal->connect(holder);
        moved = ScopedConnection(signal->connect(holder));
        EXPECT_EQ(resource.use_count(), alone + 3);
    }
    EXPECT_EQ(resource.use_count(), alone + 1);
    signal.reset();
    EXPECT_EQ(resource.use_count(), alone) << second.connected();
}

// A captured object may disconnect other listeners when it is destroyed, whatever it is destroyed by.
TEST(TaviSignal, AReleasedCallbackMayDisconnectOthers) {
    for (const int releasedBy : {0, 1, 2, 3}) {
        SCOPED_TRACE(releasedBy);
        auto signal = std::make_unique<Signal<int>>();
        std::vector<std::shared_ptr<ScopedConnection>> others(3);
        for (auto& other : others) {
            other = std::make_shared<ScopedConnection>();
        }
        int calls = 0;
        Connection first = signal->connect([held = others, &calls](int&) { ++calls; });
        for (auto& other : others) {
            *other = signal->connect([&](int&) { releasedBy == 2 ? first.disconnect() : signal.reset(); });
        }
        others.clear();
        int event = 0;
        releasedBy == 0 ? first.disconnect() : releasedBy == 1 ? signal.reset() : signal->emit(event);
        if (signal) {
            EXPECT_FALSE(signal->hasListeners());
            signal->emit(event);
        }
        EXPECT_EQ(calls, releasedBy >= 2 ? 1 : 0);
    }
}

TEST(TaviSignal, ManyListenersAreDestroyedOneByOne) {
    for (const bool whileEmitting : {false, true}) {
        Signal<int> signal;
        std::vector<Connection> handles;
        for (int i = 0; i < 100000; ++i) {
            handles.push_back(signal.connect([&](int& calls) {
                ++calls;
                for (Connection& handle : std::exchange(handles, {})) {
                    handle.disconnect();
                }
            }));
        }
        if (whileEmitting) {
            int calls = 0;
            signal.emit(calls);
            EXPECT_EQ(calls, 1);
            EXPECT_FALSE(signal.hasListeners());
        }
    }
}

#ifdef __SANITIZE_ADDRESS__
int allocations = 0;

TEST(TaviSignal, OneAllocationAConnectionAndNoneAnEmission) {
    ASSERT_GT(__sanitizer_install_malloc_and_free_hooks([](const volatile void*, size_t) { ++allocations; },
                                                        [](const volatile void*) {}),
              0);
    Signal<int> signal;
    allocations = 0;
    Connection connection;
    for (int i = 1; i <= 8; ++i) {
        connection = signal.connect([](int& event) { ++event; });
        EXPECT_EQ(allocations, i);
    }
    int event = 0;
    signal.emit(event);
    connection.disconnect();
    signal.emit(event);
    EXPECT_EQ(event, 15);
    EXPECT_EQ(allocations, 8);
}
#endif

// Listeners that do random things to a signal and to a list of what is connected, which has to foretell every call.
class AgainstAList {
public:
    explicit AgainstAList(unsigned seed) : random_(seed) {}

    void act() {
        const size_t choice = random_() % 8;
        if (choice < 3) {
            connect();
        } else if (choice < 6 && !listeners_.empty()) {
            Listener& listener = listeners_[random_() % listeners_.size()];
            listener.connection.disconnect();
            listener.connected = false;
        } else if (emissions_.size() < 4) {
            emit();
        }
    }

private:
    struct Listener {
        Connection connection;
        bool connected = true;
    };
    struct Emission {
        size_t next, end;
    };

    void connect() {
        const size_t number = listeners_.size();
        listeners_.push_back({signal_.connect([this, number](int&) { called(number); })});
    }
    void emit() {
        int event = 0;
        emissions_.push_back({0, listeners_.size()});
        signal_.emit(event);
        EXPECT_EQ(foretold(), emissions_.back().end) << "not called";
        emissions_.pop_back();
    }
    size_t foretold() {
        Emission& emission = emissions_.back();
        while (emission.next < emission.end && !listeners_[emission.next].connected) {
            ++emission.next;
        }
        return emission.next;
    }
    void called(size_t number) {
        EXPECT_EQ(foretold(), number);
        emissions_.back().next = number + 1;
        if (random_() % 4 == 0 && ++actionsInside_ < 200) {
            act();
        }
    }

    std::mt19937 random_;
    int actionsInside_ = 0;
    Signal<int> signal_;
    std::vector<Listener> listeners_;
    std::vector<Emission> emissions_;
};

TEST(TaviSignal, RandomActionsAgainstAList) {
    for (unsigned seed = 0; seed < 300 && !HasFailure(); ++seed) {
        AgainstAList both(seed);
        for (int i = 0; i < 100; ++i) {
            both.act();
        }
    }
}

}  // namespace
