// A pointer to a control that becomes null when the control is destroyed. Costs no allocation: the control keeps a list
// of those that point to it. The tool for the rule "after a callback, check that you are still alive".
#pragma once

namespace tavi {

class Control;

class WeakControl {
public:
    WeakControl() = default;
    explicit WeakControl(Control& control) { set(&control); }
    explicit WeakControl(Control* control) { set(control); }
    WeakControl(const WeakControl& other) { set(other.control_); }
    WeakControl& operator=(const WeakControl& other) {
        if (this != &other) {
            set(other.control_);
        }
        return *this;
    }
    ~WeakControl() { set(nullptr); }

    void set(Control* control);
    Control* get() const { return control_; }
    Control* operator->() const { return control_; }
    explicit operator bool() const { return control_ != nullptr; }

private:
    friend class Control;
    Control* control_ = nullptr;
    WeakControl* previous_ = nullptr;
    WeakControl* next_ = nullptr;
};

}  // namespace tavi
