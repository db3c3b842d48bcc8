#include "tavi/controls/tooltip_look.h"

namespace tavi {

void useSkinForTooltips() {}

}  // namespace tavi
