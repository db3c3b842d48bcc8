// Callbacks of application code attached to a control. A signal is a list of connections; a connection is one
// allocation that the signal and the handle given to the caller share, so either may outlive the other. Emitting
// allocates nothing.
//
// Inside a callback everything is allowed: connecting (the new callback is first called by the next emission),
// disconnecting any callback (it is never called again), emitting the same signal, destroying the handle, the signal or
// the control that is emitting (no further callback is called).
#pragma once

#include <memory>
#include <optional>
#include <type_traits>
#include <utility>

namespace tavi {

class SignalBase;

// What a signal and a connection's handle share.
class SignalConnectionState {
public:
    SignalConnectionState(const SignalConnectionState&) = delete;
    SignalConnectionState& operator=(const SignalConnectionState&) = delete;
    virtual ~SignalConnectionState() = default;

    bool connected() const { return signal_ != nullptr; }
    void disconnect();

protected:
    SignalConnectionState() = default;

private:
    friend class SignalBase;
    // Destroys the callback; handles may keep the rest for long.
    virtual void release() = 0;

    SignalBase* signal_ = nullptr;  // null once disconnected, or when the signal is gone
    SignalConnectionState* previous_ = nullptr;
    std::shared_ptr<SignalConnectionState> next_;
};

// The handle of one connection. Copies share it; destroying them changes nothing.
class Connection {
public:
    Connection() = default;
    explicit Connection(std::shared_ptr<SignalConnectionState> state) : state_(std::move(state)) {}

    bool connected() const { return state_ && state_->connected(); }
    // The callback is never called again. Harmless a second time, and after the signal is gone.
    void disconnect() {
        if (state_) {
            state_->disconnect();
        }
    }

private:
    std::shared_ptr<SignalConnectionState> state_;
};

// Disconnects when it is destroyed: for a listener that may be gone before the signal is.
class ScopedConnection {
public:
    ScopedConnection() = default;
    ScopedConnection(Connection connection) : connection_(std::move(connection)) {}
    ScopedConnection(ScopedConnection&& other) noexcept : connection_(std::exchange(other.connection_, {})) {}
    ScopedConnection& operator=(ScopedConnection&& other) noexcept {
        if (this != &other) {
            connection_.disconnect();
            connection_ = std::exchange(other.connection_, {});
        }
        return *this;
    }
    ~ScopedConnection() { connection_.disconnect(); }

private:
    Connection connection_;
};

// The list behind every signal, whatever its event.
class SignalBase {
public:
    SignalBase() = default;
    SignalBase(const SignalBase&) = delete;
    SignalBase& operator=(const SignalBase&) = delete;
    ~SignalBase();

    bool hasListeners() const { return first_ != nullptr; }

protected:
    void append(std::shared_ptr<SignalConnectionState> state);

    // One run over the callbacks that were connected when it began, in the order of their connecting:
    // while (SignalConnectionState* state = emission.next()) { call it }.
    class Emission {
    public:
        explicit Emission(SignalBase& signal);
        Emission(const Emission&) = delete;
        Emission& operator=(const Emission&) = delete;
        ~Emission();
        // The next connected callback; null at the end or when the signal is gone. It stays where it is until the
        // emission ends: nothing is taken from the list meanwhile, and the list of a signal that goes is kept.
        SignalConnectionState* next();

    private:
        friend class SignalBase;
        SignalBase* signal_;  // null when the signal was destroyed meanwhile
        Emission* outer_;
        SignalConnectionState* current_ = nullptr;
        SignalConnectionState* last_;
        // The list of a signal that was destroyed meanwhile: its callbacks may still be running.
        std::shared_ptr<SignalConnectionState> orphans_;
    };

private:
    friend class SignalConnectionState;
    void disconnected(SignalConnectionState& state);
    std::shared_ptr<SignalConnectionState> unlink(SignalConnectionState& state);
    void unlinkDisconnected();
    static void releaseAll(std::shared_ptr<SignalConnectionState> list);

    std::shared_ptr<SignalConnectionState> first_;
    SignalConnectionState* last_ = nullptr;
    Emission* emission_ = nullptr;  // the innermost one under way
    bool hasDisconnected_ = false;  // connections that wait in the list for the end of the emissions
};

template <typename Event>
class Signal : public SignalBase {
public:
    // Attaches a callable that takes Event&. It is destroyed when it is disconnected and not being called.
    template <typename Callback>
    Connection connect(Callback&& callback) {
        auto state = std::make_shared<Attached<std::decay_t<Callback>>>(std::forward<Callback>(callback));
        append(state);
        return Connection(std::move(state));
    }

    // Calls every callback. What one of them writes into the event is seen by the next and by the caller. Afterwards
    // this signal, and the object that owns it, may be gone.
    void emit(Event& event) {
        Emission emission(*this);
        while (SignalConnectionState* state = emission.next()) {
            static_cast<Listener*>(state)->call(event);
        }
    }

private:
    struct Listener : SignalConnectionState {
        virtual void call(Event& event) = 0;
    };

    template <typename Callback>
    struct Attached final : Listener {
        explicit Attached(Callback callable) : callback(std::move(callable)) {}
        void call(Event& event) override {
            if (callback) {
                (*callback)(event);
            }
        }
        void release() override { callback.reset(); }
        std::optional<Callback> callback;
    };
};

}  // namespace tavi
