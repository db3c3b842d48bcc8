// A snapshot of what a person or a program may have changed in a control since it was built.
#pragma once

#include <string>
#include <vector>

#include "tavi/core/geometry.h"

namespace tavi {

struct StateProperty {
    std::wstring name;
    std::wstring value;

    bool operator==(const StateProperty&) const = default;
};

struct ControlState {
    std::wstring id;
    Rect bounds;
    bool visible = true;
    bool enabled = true;
    bool collapsed = false;
    std::wstring text;
    std::vector<StateProperty> properties;  // what the control's class adds

    bool operator==(const ControlState&) const = default;
};

}  // namespace tavi
