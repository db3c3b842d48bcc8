// What the setup shows, in all languages at three scales and with real fonts: every caption is whole, nothing lies on
// anything else, all of it lies in the window, and right-to-left languages see the mirror image.
#include <windows.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <optional>

#include "core/configuration.h"
#include "localization/catalog.h"
#include "localization/languages.h"
#include "setup/dialog/dialog_controls.h"
#include "setup/dialog/setup_style_sheet.h"
#include "setup/dialog/setup_window.h"
#include "tavi/controls/chrome_title_bar.h"
#include "tavi/controls/style_sheet.h"
#include "tavi/core/dialog_window.h"
#include "tavi/core/window_tree.h"
#include "tavi/theme/active_skin.h"

namespace {

using namespace velquin::setup;
using tavi::Rect;
using tavi::Size;
using Lines = std::vector<std::wstring>;

constexpr int32_t kScales[] = {96, 144, 192};
constexpr wchar_t kDefaultFolder[] = L"C:\\Program Files\\Lumora Velquin";
constexpr Size kBesideInput{16, 4};  // what a field has around its text
constexpr int32_t kTitleMargin = 16;
// Of the dialog without the product: title, heading, message, label, field, three captions, two buttons; with it four
// buttons and no other captions.
constexpr size_t kParts[] = {10, 9};

struct Part {
    std::wstring name;
    Rect bounds;  // of the client area, design pixels
    Size needs;   // for the whole text
    bool isCut = false;
};

Part partOf(const tavi::Control& control, Size needs, bool isCut = false) {
    const tavi::Point at = control.clientOrigin();
    return {control.id(), {at.x, at.y, control.bounds().width, control.bounds().height}, needs, isCut};
}

// The room between the margin and the caption buttons.
Part titleOf(const tavi::Control& bar, bool rightToLeft) {
    const tavi::Theme& theme = tavi::activeTheme();
    Rect room = bar.bounds();
    for (const auto& child : bar.children()) {
        const Rect& button = child->bounds();
        if (!child->visible() || button == bar.localBounds()) {
            continue;  // the area that drags the window lies below all of it
        }
        room = rightToLeft ? tavi::rectBetween(std::max(room.x, button.right()), room.y, room.right(), room.bottom())
                           : tavi::rectBetween(room.x, room.y, std::min(room.right(), button.x), room.bottom());
    }
    const Size needs = tavi::ControlText::needed(bar, bar.text(), {theme.uiFontFamily, theme.uiPointSize});
    return {bar.id(), room, {needs.width + kTitleMargin, needs.height}};
}

// All that is read in a window, with the room that it needs.
void appendParts(std::vector<Part>& parts, const tavi::Control& parent, bool rightToLeft) {
    for (const auto& child : parent.children()) {
        if (child->matchesType(L"chrometitlebar")) {
            parts.push_back(titleOf(*child, rightToLeft));
            continue;
        }
        if (child->matchesType(L"text")) {
            const auto& label = static_cast<const tavi::Label&>(*child);
            const bool isOfPopup = parent.matchesType(L"popup");
            parts.push_back(partOf(label, label.preferredSize(isOfPopup ? label.bounds().width : 0), label.isCut()));
        } else if (child->matchesType(L"checkbox")) {
            parts.push_back(partOf(*child, static_cast<const tavi::CheckBox&>(*child).preferredSize()));
        } else if (child->matchesType(L"button")) {
            parts.push_back(partOf(*child, static_cast<const tavi::ThemedButton&>(*child).preferredSize()));
        } else if (child->matchesType(L"textinput")) {
            const Size path = tavi::ControlText::needed(*child, kDefaultFolder, {tavi::activeTheme().uiFontFamily});
            parts.push_back(partOf(*child, {path.width + kBesideInput.width, path.height + kBesideInput.height}));
        }
        appendParts(parts, *child, rightToLeft);
    }
}

bool overlap(const Rect& a, const Rect& b) {
    return a.x < b.right() && b.x < a.right() && a.y < b.bottom() && b.y < a.bottom();
}

// What is wrong with a layout.
Lines faultsOf(const std::vector<Part>& parts, const Rect& window) {
    Lines faults;
    for (size_t i = 0; i < parts.size(); ++i) {
        const Part& part = parts[i];
        const bool isTooLarge = part.needs.width > part.bounds.width || part.needs.height > part.bounds.height;
        if (part.isCut || isTooLarge || part.needs.width <= 0) {
            faults.push_back(part.name + L" " + describe(part.bounds) + L" is cut, it needs " +
                             describe(Rect{0, 0, part.needs.width, part.needs.height}));
        }
        if (!window.contains(part.bounds)) {
            faults.push_back(part.name + L" " + describe(part.bounds) + L" is out of the window");
        }
        for (size_t j = 0; j < i; ++j) {
            if (overlap(part.bounds, parts[j].bounds)) {
                faults.push_back(part.name + L" lies on " + parts[j].name);
            }
        }
    }
    return faults;
}

std::vector<Rect> placesIn(const std::vector<Part>& parts, int32_t mirroredIn = 0) {
    std::vector<Rect> places;
    for (const Part& part : parts) {
        Rect place = part.bounds;
        place.x = mirroredIn > 0 ? mirroredIn - place.right() : place.x;
        places.push_back(place);
    }
    return places;
}

// A dialog whose client area is as large as a test says.
class Dialog {
public:
    Dialog() {
        tavi::activateSkin(builtInSetupTheme());
        EXPECT_TRUE(window_.create({.clientSize = kDialogSize, .style = WS_POPUP, .customChrome = true}));
    }

    void resize(Size size, int32_t dpi) {
        window_.tree().setClient({size.width * dpi / 96, size.height * dpi / 96}, dpi);
    }
    // Fills it for a language, and gives the height that all texts need.
    int32_t fill(const velquin::ProductConfig& config, bool installed, int32_t dpi, bool rightToLeft) {
        tavi::Panel& root = window_.root();
        controls_.reset();
        while (!root.children().empty()) {
            root.removeChild(*root.children().front());
        }
        isRightToLeft_ = rightToLeft;
        window_.tree().setRightToLeft(rightToLeft);
        resize(kDialogSize, dpi);
        const auto textOf = [&](int textId) { return localizedText(config, textId); };
        controls_.emplace(root, installed, SetupChoice{.installDir = kDefaultFolder}, textOf);
        addSetupChrome(window_, tavi::activeTheme(), kDialogSize.width, textOf(velquin::text::kSetupTitle));
        tavi::StyleSheet(setupStyleRules(), tavi::activeSkin()).apply(root);
        const int32_t height = controls_->neededHeight();
        resize({kDialogSize.width, height}, dpi);
        controls_->arrange();
        return height;
    }
    std::vector<Part> parts() {
        std::vector<Part> parts;
        appendParts(parts, window_.root(), isRightToLeft_);
        return parts;
    }

private:
    tavi::DialogWindow window_{GetModuleHandleW(nullptr)};
    std::optional<DialogControls> controls_;
    bool isRightToLeft_ = false;
};

// Wine takes many seconds for each text in the scripts of India and Ceylon: too long for all dialogs in them.
bool isSlowToShape(std::string_view tag) {
    constexpr std::string_view kSlow[] = {"as", "bn", "gu", "hi", "kn", "ml", "mr", "ne", "or", "pa", "si", "ta", "te"};
    return std::ranges::find(kSlow, tag.substr(0, tag.find('-'))) != std::end(kSlow);
}

velquin::ProductConfig configOf(std::string_view tag) {
    velquin::ProductConfig config;
    config.language.assign(tag.begin(), tag.end());
    return config;
}

TEST(DialogLanguages, EveryTextHasItsRoom) {
    Dialog dialog;
    Lines faults;
    // Scales outermost: with each, all fonts and measured texts are let go of.
    for (const int32_t dpi : kScales) {
        for (const auto& language : velquin::supportedLanguages()) {
            if (isSlowToShape(language.tag)) {
                continue;
            }
            const velquin::ProductConfig config = configOf(language.tag);
            const bool rightToLeft = velquin::isRightToLeftLanguage(config.language);
            for (const bool installed : {false, true}) {
                const std::wstring where =
                    config.language + L" " + std::to_wstring(dpi) + (installed ? L" installed: " : L" new: ");
                const int32_t height = dialog.fill(config, installed, dpi, rightToLeft);
                const std::vector<Part> parts = dialog.parts();
                EXPECT_EQ(parts.size(), kParts[installed ? 1 : 0]);
                for (const std::wstring& fault : faultsOf(parts, {0, 0, kDialogSize.width, height})) {
                    faults.push_back(where + fault);
                }
                if (language.tag == std::string_view("en-US")) {
                    EXPECT_EQ(height, kDialogSize.height) << dpi;
                }
                if (rightToLeft) {
                    dialog.fill(config, installed, dpi, false);
                    if (placesIn(parts) != placesIn(dialog.parts(), kDialogSize.width)) {
                        faults.push_back(where + L"is not the mirror image");
                    }
                }
            }
        }
    }
    EXPECT_EQ(faults, Lines());
}

TEST(DialogLanguages, WindowsOfAnySizeKeepTheirOrder) {
    Dialog dialog;
    constexpr Size kWide{900, 500};
    for (const bool rightToLeft : {false, true}) {
        for (const bool installed : {false, true}) {
            const velquin::ProductConfig config = configOf(rightToLeft ? "he-IL" : "en-US");
            const int32_t height = dialog.fill(config, installed, 96, rightToLeft);
            const std::vector<Rect> before = placesIn(dialog.parts());
            dialog.resize(kWide, 96);
            EXPECT_EQ(faultsOf(dialog.parts(), {0, 0, kWide.width, kWide.height}), Lines());
            for (const Part& part : dialog.parts()) {
                if (part.name == kTitleBarId) {
                    EXPECT_GT(part.bounds.width, kDialogSize.width) << "the title bar stretches";
                } else if (part.name == L"close") {
                    EXPECT_EQ(kWide.height - part.bounds.bottom(), 18) << "buttons keep at the bottom";
                    EXPECT_EQ(rightToLeft ? part.bounds.x : kWide.width - part.bounds.right(), 24);
                }
            }
            dialog.resize({kDialogSize.width, height}, 96);
            EXPECT_EQ(placesIn(dialog.parts()), before);
        }
    }
}

}  // namespace
