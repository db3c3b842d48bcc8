// Time limits for a variant of the setup that waits only briefly for other programs.
#include "setup/time_limits.h"

namespace velquin::setup {

const uint32_t kMsiexecLimitMs = 1500;
const uint32_t kSchtasksLimitMs = 1500;

}  // namespace velquin::setup
