#include "setup/time_limits.h"

namespace velquin::setup {

const uint32_t kMsiexecLimitMs = 600000;
const uint32_t kSchtasksLimitMs = 30000;

}  // namespace velquin::setup
