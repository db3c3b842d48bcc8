// The menu of Windows' own text fields lies in user32.dll, its items numbered by the messages that they send.
#include <windows.h>

#include <iterator>
#include <memory>
#include <type_traits>

#include "tavi/controls/edit_menu_texts.h"

namespace tavi {
namespace {

struct MenuCloser {
    void operator()(HMENU menu) const { DestroyMenu(menu); }
};
using OwnedMenu = std::unique_ptr<std::remove_pointer_t<HMENU>, MenuCloser>;

constexpr struct {
    UINT message;
    std::wstring EditMenuTexts::* text;
} kItems[] = {{EM_UNDO, &EditMenuTexts::undo},   {WM_CUT, &EditMenuTexts::cut},
              {WM_COPY, &EditMenuTexts::copy},   {WM_PASTE, &EditMenuTexts::paste},
              {WM_CLEAR, &EditMenuTexts::erase}, {EM_SETSEL, &EditMenuTexts::selectAll}};

// False when one of the items is missing.
bool readItems(HMENU menu, EditMenuTexts& texts) {
    constexpr int kLongest = 128;
    for (const auto& item : kItems) {
        wchar_t text[kLongest]{};
        const int length = GetMenuStringW(menu, item.message, text, kLongest, MF_BYCOMMAND);
        const std::wstring caption = plainCaption({text, static_cast<size_t>(length > 0 ? length : 0)});
        if (caption.empty()) {
            return false;
        }
        texts.*item.text = caption;
    }
    return true;
}

}  // namespace

EditMenuTexts editMenuTexts() {
    // By number in Windows, by name in Wine.
    const wchar_t* const names[] = {MAKEINTRESOURCEW(1), L"EDITMENU"};
    for (const wchar_t* const name : names) {
        const OwnedMenu menu(LoadMenuW(GetModuleHandleW(L"user32.dll"), name));
        EditMenuTexts texts;
        if (menu && readItems(menu.get(), texts)) {
            return texts;
        }
    }
    return {};
}

}  // namespace tavi
