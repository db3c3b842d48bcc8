#include "setup/dialog/dialog_layout.h"

#include <algorithm>

namespace velquin::setup {
namespace {

using tavi::Rect;

constexpr int32_t kCheckBoxGap = 24;  // between two side by side, as in the table
constexpr int32_t kLineGap = 4;       // between two one below the other
constexpr int32_t kSmallestPathInput = 200;

Rect tableRect(const DialogLayout& layout, const wchar_t* id) {
    const DialogItem* const item = findItem(layout, id);
    return item != nullptr ? item->bounds : Rect{};
}

void placeBrowse(DialogPlaces& places, const DialogMeasures& measures) {
    // It grows towards the path, which gives way: a path can be scrolled, a caption cannot.
    const int32_t room = std::max(0, places.pathInput.width - kSmallestPathInput);
    const int32_t growth = std::clamp(measures.browse.width - places.browse.width, 0, room);
    places.pathInput.width -= growth;
    places.browse.x -= growth;
    places.browse.width += growth;
    places.browse.height = std::max(places.browse.height, measures.browse.height);
    places.pathInput.height = places.browse.height;
}

void placeCheckBoxes(DialogPlaces& places, const DialogMeasures& measures) {
    Rect& first = places.startWithWindows;
    Rect& second = places.desktopShortcut;
    const int32_t end = places.browse.right();
    first.width = std::max(first.width, measures.startWithWindows.width);
    second.width = std::max(second.width, measures.desktopShortcut.width);
    first.height = second.height =
        std::max({first.height, measures.startWithWindows.height, measures.desktopShortcut.height});
    second.x = std::max(second.x, first.right() + kCheckBoxGap);
    if (second.right() > end) {
        // What was widened for nothing but the table's sake may be narrower again.
        second.width = std::max(measures.desktopShortcut.width, std::min(second.width, end - second.x));
    }
    if (second.right() > end) {
        first.width = std::min(first.width, end - first.x);
        second = {first.x, first.bottom() + kLineGap, std::min(second.width, end - first.x), first.height};
    }
}

}  // namespace

DialogPlaces placeDialog(bool installed, const DialogMeasures& measures, int32_t width) {
    const DialogLayout& layout = dialogLayout(installed);
    const int32_t wider = std::max(0, width - kDialogSize.width);
    DialogPlaces places{.label = tableRect(layout, kPathLabelId), .pathInput = tableRect(layout, kPathInputId)};
    const int32_t labelGap = places.pathInput.y - places.label.bottom();
    places.label.y = std::max(places.label.y, measures.messageBottom);
    places.pathInput.width += wider;
    places.label.width = std::clamp(measures.label.width, places.label.width, places.pathInput.width);
    places.label.height = std::max(places.label.height, measures.label.height);
    places.pathInput.y = places.label.bottom() + labelGap;
    int32_t bottom = places.pathInput.bottom();
    if (!installed) {
        places.browse = tableRect(layout, kBrowseId).offset({wider, 0});
        places.startWithWindows = tableRect(layout, kStartWithWindowsId);
        places.desktopShortcut = tableRect(layout, kDesktopShortcutId);
        const int32_t rowGap = places.startWithWindows.y - places.browse.bottom();
        places.browse.y = places.pathInput.y;
        placeBrowse(places, measures);
        places.startWithWindows.y = places.desktopShortcut.y = places.pathInput.bottom() + rowGap;
        placeCheckBoxes(places, measures);
        bottom = places.desktopShortcut.bottom();
    }
    places.reserved = bottom - measures.messageBottom;
    places.neededHeight = std::max(kDialogSize.height, bottom + measures.buttonsHeight);
    return places;
}

}  // namespace velquin::setup
