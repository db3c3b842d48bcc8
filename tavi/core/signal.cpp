#include "tavi/core/signal.h"

namespace tavi {

void SignalConnectionState::disconnect() {
    if (SignalBase* const signal = std::exchange(signal_, nullptr)) {
        signal->disconnected(*this);
    }
}

SignalBase::~SignalBase() {
    // All of them first: what a callback holds may disconnect others when it is released.
    for (SignalConnectionState* state = first_.get(); state != nullptr; state = state->next_.get()) {
        state->signal_ = nullptr;
    }
    Emission* outermost = nullptr;
    for (Emission* emission = emission_; emission != nullptr; emission = emission->outer_) {
        emission->signal_ = nullptr;
        outermost = emission;
    }
    if (outermost != nullptr) {
        outermost->orphans_ = std::move(first_);
    } else {
        releaseAll(std::move(first_));
    }
}

// One by one, not as a chain: destroying one may not destroy all others in its destructor.
void SignalBase::releaseAll(std::shared_ptr<SignalConnectionState> list) {
    while (list) {
        list->release();
        list = std::move(list->next_);
    }
}

void SignalBase::append(std::shared_ptr<SignalConnectionState> state) {
    SignalConnectionState* const added = state.get();
    added->signal_ = this;
    added->previous_ = last_;
    (last_ != nullptr ? last_->next_ : first_) = std::move(state);
    last_ = added;
}

void SignalBase::disconnected(SignalConnectionState& state) {
    // A running emission walks along the links, so it leaves them as they are until it ends.
    if (emission_ != nullptr) {
        hasDisconnected_ = true;
    } else {
        // The last thing here: what the callback holds may disconnect others or destroy this signal.
        unlink(state)->release();
    }
}

std::shared_ptr<SignalConnectionState> SignalBase::unlink(SignalConnectionState& state) {
    std::shared_ptr<SignalConnectionState>& link = state.previous_ != nullptr ? state.previous_->next_ : first_;
    std::shared_ptr<SignalConnectionState> removed = std::move(link);
    link = std::move(removed->next_);
    (link ? link->previous_ : last_) = removed->previous_;
    return removed;
}

void SignalBase::unlinkDisconnected() {
    hasDisconnected_ = false;
    // Kept until the list is in order again, for the same reason.
    std::shared_ptr<SignalConnectionState> removed;
    for (SignalConnectionState* state = first_.get(); state != nullptr;) {
        SignalConnectionState* const next = state->next_.get();
        if (!state->connected()) {
            std::shared_ptr<SignalConnectionState> keep = unlink(*state);
            keep->next_ = std::move(removed);
            removed = std::move(keep);
        }
        state = next;
    }
    releaseAll(std::move(removed));
}

SignalBase::Emission::Emission(SignalBase& signal) : signal_(&signal), outer_(signal.emission_), last_(signal.last_) {
    signal.emission_ = this;
}

SignalBase::Emission::~Emission() {
    if (signal_ == nullptr) {
        releaseAll(std::move(orphans_));
        return;
    }
    signal_->emission_ = outer_;
    if (outer_ == nullptr && signal_->hasDisconnected_) {
        signal_->unlinkDisconnected();
    }
}

SignalConnectionState* SignalBase::Emission::next() {
    while (signal_ != nullptr && current_ != last_) {
        current_ = current_ != nullptr ? current_->next_.get() : signal_->first_.get();
        if (current_->connected()) {
            return current_;
        }
    }
    return nullptr;
}

}  // namespace tavi
