// The thread's message loop, for windows and for modal dialogs on top of them.
#pragma once

#include <functional>
#include <optional>

namespace tavi {

// Handles messages until `done` says so after one of them. The code of WM_QUIT when that came first.
std::optional<int> pumpMessages(const std::function<bool()>& done);

}  // namespace tavi
