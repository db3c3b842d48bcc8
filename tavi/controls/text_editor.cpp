#include "tavi/controls/text_editor.h"

#include <utility>

namespace tavi {

void TextEditor::setText(std::wstring text) {
    text_ = std::move(text);
}

}  // namespace tavi
