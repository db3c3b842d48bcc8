#include "tavi/controls/context_menu.h"

namespace tavi {

std::optional<size_t> showContextMenu(WindowFrame& /*owner*/, Point /*at*/, std::span<const MenuEntry> /*entries*/,
                                      bool /*rightToLeft*/) {
    return std::nullopt;
}

}  // namespace tavi
