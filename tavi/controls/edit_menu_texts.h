// What the context menu of a text field says.
#pragma once

#include <string>
#include <string_view>

namespace tavi {

struct EditMenuTexts {
    std::wstring undo = L"Undo";
    std::wstring cut = L"Cut";
    std::wstring copy = L"Copy";
    std::wstring paste = L"Paste";
    std::wstring erase = L"Delete";
    std::wstring selectAll = L"Select all";

    bool operator==(const EditMenuTexts&) const = default;
};

// In the language of Windows, from its own menu for text fields; in English where that cannot be read in full.
EditMenuTexts editMenuTexts();

// A menu item's text without the mark of its access key ("Cu&t"; "...(&T)", as it is usual in East Asia) and
// without the shortcut behind a tab.
std::wstring plainCaption(std::wstring_view item);

}  // namespace tavi
