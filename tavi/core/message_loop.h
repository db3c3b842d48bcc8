// The thread's message loop, for windows and for modal dialogs on top of them.
#pragma once

#include <functional>
#include <optional>

namespace tavi {

// Handles messages until `done` says so, before the first or after one of them. The code of WM_QUIT when that came
// first.
std::optional<int> pumpMessages(const std::function<bool()>& done);

// Has the loop of this thread look at `done` again. A message that was sent, not posted, does not end its waiting.
void wakeMessageLoop();

}  // namespace tavi
