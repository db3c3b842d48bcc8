// How a dialog ended.
#pragma once

namespace tavi {

enum class DialogResult {
    None = 0,
    Ok = 1,
    Cancel = 2,
    Yes = 3,
    No = 4,
    Close = 5,  // closed without a button: the title bar, Alt+F4, Escape, the end of the program
};

}  // namespace tavi
