#include "tavi/controls/context_menu.h"

#include "tavi/controls/menu_panel.h"

namespace tavi {

std::optional<size_t> showContextMenu(WindowFrame& owner, Point at, std::span<const MenuEntry> entries,
                                      bool rightToLeft) {
    if (entries.empty()) {
        return std::nullopt;
    }
    bool isClosed = false;
    std::optional<size_t> result;
    auto panel = std::make_unique<MenuPanel>(std::vector(entries.begin(), entries.end()), [&](size_t index) {
        result = index;
        isClosed = true;
    });
    const MenuPanel& menu = *panel;
    const std::unique_ptr<PopupWindow> popup = owner.openPopup({.anchor = {at.x, at.y, 0, 0},
                                                                .rightToLeft = rightToLeft,
                                                                .takesKeys = true,
                                                                .content = std::move(panel),
                                                                .measure = [&] { return menu.preferredSize(); },
                                                                .dismissed = [&] { isClosed = true; }});
    if (popup != nullptr) {
        popup->runUntil([&] { return isClosed; });
    }
    return result;
}

}  // namespace tavi
