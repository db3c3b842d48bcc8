#include "tavi/core/weak_control.h"

#include "tavi/core/control.h"

namespace tavi {

// In a file of its own, so that it is never inlined: GCC warns of the address of a local WeakControl that is kept in
// its control and does not see that the destructor takes it out again.
void WeakControl::set(Control* control) {
    if (control_ == control) {
        return;
    }
    if (control_ != nullptr) {
        (previous_ != nullptr ? previous_->next_ : control_->firstWeak_) = next_;
        if (next_ != nullptr) {
            next_->previous_ = previous_;
        }
    }
    control_ = control;
    previous_ = nullptr;
    next_ = nullptr;
    if (control != nullptr) {
        next_ = control->firstWeak_;
        if (next_ != nullptr) {
            next_->previous_ = this;
        }
        control->firstWeak_ = this;
    }
}

}  // namespace tavi
