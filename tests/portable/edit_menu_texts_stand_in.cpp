// Where there is no Windows to ask.
#include "tavi/controls/edit_menu_texts.h"

namespace tavi {

EditMenuTexts editMenuTexts() {
    return {};
}

}  // namespace tavi
