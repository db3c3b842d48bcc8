#include "tavi/theme/skin_keys.h"

namespace tavi {
namespace {

constexpr ShapeKey kShapeKeys[] = {
    {"window", &ShapeSet::window, "Windows."},
    {"panel", &ShapeSet::panel, "Panels."},
    {"chrome titlebar title_bar", &ShapeSet::chrome, "The title bar that the skin draws."},
    {"status_chip statusChip", &ShapeSet::statusChip, "Chips that tell a state."},
    {"status_badge statusBadge", &ShapeSet::statusBadge, "Badges with a count or a sign."},
    {"checkbox check_box", &ShapeSet::checkbox, "The box of a check box."},
    {"selectbox select_box", &ShapeSet::selectbox, "Boxes to select from."},
    {"selectbox_arrow selectBoxArrow select_arrow selectArrow", &ShapeSet::selectboxArrow, "The arrow of such a box."},
    {"selectbox_dropdown selectBoxDropdown select_dropdown selectDropdown", &ShapeSet::selectboxDropdown,
     "The list that opens below it."},
    {"listbox list_box", &ShapeSet::listbox, "Lists."},
    {"listbox_row listBoxRow list_box_row", &ShapeSet::listboxRow, "A row of a list."},
    {"listbox_selected_row listBoxSelectedRow list_box_selected_row", &ShapeSet::listboxSelectedRow,
     "The selected row of a list."},
    {"listbox_selected_rail listBoxSelectedRail list_box_selected_rail", &ShapeSet::listboxSelectedRail,
     "The rail that marks the selected row."},
    {"tab_item tabItem", &ShapeSet::tabItem, "Tabs."},
    {"menu_bar menuBar menubar menu", &ShapeSet::menuBar, "Menu bars."},
    {"menu_item menuItem menuBarItem menu_bar_item", &ShapeSet::menuItem, "The entries of a menu bar."},
    {"menu_popup menuPopup menu_dropdown menuDropdown", &ShapeSet::menuPopup, "Menus that have opened."},
    {"menu_popup_item menuPopupItem submenu_item submenuItem", &ShapeSet::menuPopupItem, "Their entries."},
    {"rich_text richText", &ShapeSet::richText, "Texts with marked-up parts."},
    {"rich_text_icon richTextIcon", &ShapeSet::richTextIcon, "The icon beside such a text."},
    {"text_input textInput input", &ShapeSet::textInput, "Fields to write in."},
    {"text_input_attachment textInputAttachment attachment", &ShapeSet::textInputAttachment,
     "The button at the end of a field."},
    {"selectable_text selectableText", &ShapeSet::selectableText, "Texts that can be selected."},
    {"tooltip", &ShapeSet::tooltip, "Tooltips."},
    {"tooltip_rail tooltipRail", &ShapeSet::tooltipRail, "The rail at the side of a tooltip."},
    {"tooltip_icon tooltipIcon", &ShapeSet::tooltipIcon, "The icon of a tooltip."},
};

constexpr ShapeKey kButtonParts[] = {
    {"primary primary_button primaryButton", &ShapeSet::buttonPrimary, "Buttons that are the way on."},
    {"secondary default secondary_button secondaryButton", &ShapeSet::buttonSecondary, "All other buttons."},
};
constexpr ShapeKey kCardParts[] = {
    {"surface body shape", &ShapeSet::cardSurface, "The card itself."},
    {"header title", &ShapeSet::cardHeader, "Its header."},
};
constexpr ShapeKey kProgressParts[] = {
    {"frame surface", &ShapeSet::progressFrame, "The frame around the bar."},
    {"track rail", &ShapeSet::progressTrack, "What the bar runs in."},
    {"fill value", &ShapeSet::progressFill, "The bar."},
};
constexpr ShapeKey kTableParts[] = {
    {"surface body", &ShapeSet::tableSurface, "The table itself."},
    {"header", &ShapeSet::tableHeader, "Its header."},
    {"selected_row selectedRow", &ShapeSet::tableSelectedRow, "The selected row."},
    {"selected_rail selectedRail rail", &ShapeSet::tableSelectedRail, "The rail that marks it."},
};
constexpr ShapeKey kTableListboxParts[] = {
    {"surface body", &ShapeSet::tableListboxSurface, "The list itself."},
    {"selected_row", &ShapeSet::tableListboxSelectedRow, "The selected row."},
    {"selected_rail rail", &ShapeSet::tableListboxSelectedRail, "The rail that marks it."},
};
constexpr ShapeKey kPopupParts[] = {
    {"surface body", &ShapeSet::popupSurface, "The popup itself."},
    {"header", &ShapeSet::popupHeader, "Its header."},
    {"icon", &ShapeSet::popupIcon, "Its icon."},
};
constexpr ShapeKey kScrollbarParts[] = {
    {"track rail track_shape trackShape", &ScrollBarShapes::track, "What the thumb runs in."},
    {"thumb handle thumb_shape thumbShape", &ScrollBarShapes::thumb, "The thumb."},
    {"button buttons button_shape buttonShape", &ScrollBarShapes::button, "The buttons at the ends."},
    {"button_extent buttonExtent", &ScrollBarShapes::buttonExtent, "The length of a button, in pixels."},
    {"min_thumb_extent minThumbExtent", &ScrollBarShapes::minThumbExtent, "The least length of the thumb, in pixels."},
    {"track_padding trackPadding", &ScrollBarShapes::trackPadding, "What stays free around the thumb, in pixels."},
    {"track_thickness trackThickness", &ScrollBarShapes::trackThickness, "The width of the bar, in pixels."},
    {"thumb_thickness thumbThickness", &ScrollBarShapes::thumbThickness, "The width of the thumb, in pixels."},
    {"show_buttons showButtons", &ScrollBarShapes::showButtons, "Whether there are buttons at the ends."},
};

constexpr ShapeGroup kShapeGroups[] = {
    {"button buttons", "", true, kButtonParts, "Buttons. A shape in place of the object is that of both."},
    {"card", "", true, kCardParts, "Cards. A shape in place of the object is that of both."},
    {"progress progress_bar progressBar", "", false, kProgressParts, "Progress bars."},
    {"table table_list tableList", "", false, kTableParts, "Tables."},
    {"listbox list_box", "table", false, kTableListboxParts, "Lists within a table."},
    {"popup dialog", "", false, kPopupParts, "Popups and dialogs."},
    {"scrollbar scroll_bar", "", false, kScrollbarParts, "Scroll bars."},
};

}  // namespace

std::span<const ShapeKey> shapeKeys() {
    return kShapeKeys;
}

std::span<const ShapeGroup> shapeGroups() {
    return kShapeGroups;
}

}  // namespace tavi
