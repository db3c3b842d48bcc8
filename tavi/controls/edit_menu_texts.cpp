#include "tavi/controls/edit_menu_texts.h"

namespace tavi {

std::wstring plainCaption(std::wstring_view item) {
    item = item.substr(0, item.find(L'\t'));
    // "(&T)" at the end stands for the access key alone.
    constexpr size_t kKeyInParentheses = 4;
    if (item.size() > kKeyInParentheses && item.ends_with(L')') &&
        item.substr(item.size() - kKeyInParentheses).starts_with(L"(&")) {
        item.remove_suffix(kKeyInParentheses);
    }
    std::wstring caption;
    for (size_t i = 0; i < item.size(); ++i) {
        // Of two in a row the second one is meant.
        i += item[i] == L'&' ? 1 : 0;
        if (i < item.size()) {
            caption += item[i];
        }
    }
    return caption;
}

}  // namespace tavi
