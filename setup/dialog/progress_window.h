// What a person sees while a flow runs: a small window that tells what is being done, and for how long already.
#pragma once

#include <functional>

#include "setup/dialog/setup_choice.h"
#include "tavi/core/native_handles.h"

namespace velquin {
struct ProductConfig;
}

namespace velquin::setup {

// Runs `flow` on a thread of its own and shows the window until it has ended, if that takes longer than a blink; the
// window cannot be closed before, and Windows is asked not to end meanwhile. It is gone when this returns. The flow's
// exceptions end it with false, and where there is no window or no thread to be had it runs all the same.
bool runWithProgress(HINSTANCE instance, const ProductConfig& config, SetupAction action,
                     const std::function<bool()>& flow);

}  // namespace velquin::setup
