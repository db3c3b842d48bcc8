#include "tavi/theme/control_types.h"

#include <string>
#include <vector>

#include "tavi/theme/normalize_key.h"
#include "tavi/theme/spelling_index.h"

namespace tavi {
namespace {

constexpr ControlTypeRow kControlTypes[] = {
    {"text textstyle", "default title muted mono danger", "Labels."},
    {"button buttons buttonstyle",
     "default secondary primary primary-action quiet success success-action warning warning-action danger "
     "danger-action",
     "Buttons."},
    {"bitmapbutton bitmapbuttons bitmap imagebutton glyphbutton", "default", "Buttons that show a picture."},
    {"panel panelstyle", "default glass raised dashboard", "Panels."},
    {"card cardstyle", "default", "Cards."},
    {"chrometitlebar chrome titlebar", "default", "The title bar that the skin draws."},
    {"statuschip status", "default info success warning danger", "Chips that tell a state."},
    {"progressbar progress", "default", "Progress bars."},
    {"chart chart2d chart3d datavisualization", "default", "Charts."},
    {"activitymetriccard activity diskactivitycard", "default", "Cards with a running figure."},
    {"media mediacontrol video audio", "default", "Pictures, video and sound."},
    {"scrollbar scroll", "default", "Scroll bars."},
    {"separator separatorstyle divider panelseparator gridseparator", "default", "Lines between groups."},
    {"checkbox check", "default", "Check boxes."},
    {"selectbox select combobox combo", "default", "Boxes to select from."},
    {"listbox hierarchicallistbox treelistbox treelist diskviewer fileviewer filelist selectionlist", "default",
     "Lists."},
    {"dateinput date calendarinput", "default", "Fields for a date."},
    {"tabstrip tabs tab", "default", "Tabs."},
    {"menubar menu windowmenu windowsmenu", "default", "Menus."},
    {"tablelist table list", "default", "Tables."},
    {"richtext helptext", "default designed-help", "Texts with marked-up parts."},
    {"textinput input edit", "default", "Fields to write in."},
    {"selectabletext", "default", "Texts that can be selected."},
    {"popup dialog", "default", "Popups and dialogs."},
    {"tooltip tooltips", "default designed-help", "Tooltips."},
    {"window", "default", "The ground of a window."},
};

struct Names {
    SpellingIndex index{kControlTypes};
    std::vector<std::string> narrow;
    std::vector<std::wstring> wide;

    Names() {
        for (const ControlTypeRow& row : kControlTypes) {
            const std::string_view name = spellings(row.names).front();
            narrow.emplace_back(name);
            wide.emplace_back(name.begin(), name.end());
        }
    }
};

const Names& names() {
    static const Names kNames;
    return kNames;
}

}  // namespace

std::span<const ControlTypeRow> controlTypes() {
    return kControlTypes;
}

std::wstring_view canonicalControlType(std::wstring_view type) {
    const auto found = names().index.find(FoldedName(type, Fold::kNormalized).text());
    return found ? std::wstring_view(names().wide[found->row]) : type;
}

std::string_view canonicalControlType(std::string_view type) {
    const auto found = names().index.find(FoldedName(type, Fold::kNormalized).text());
    return found ? std::string_view(names().narrow[found->row]) : type;
}

}  // namespace tavi
