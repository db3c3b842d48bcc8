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
#include "setup/dialog/progress_steps.h"
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
constexpr int32_t kSideMargin = 24;  // of all but the title bar
// Of the dialog without the product: title, heading, message, label, field, three captions, two buttons; with it four
// buttons and no other captions.
constexpr size_t kParts[] = {10, 9};

// The small windows by their texts: the results of all actions, a folder that is refused, and what runs.
namespace text = velquin::text;
struct Box {
    int title;
    int heading;
    int message = kNoText;
    std::vector<int> captions = {};
};
const std::vector<int> kOfResults = {text::kClose};
const std::vector<int> kOfErrors = {text::kClose, text::kOpenLog};
const Box kBoxes[] = {
    {text::kInstalled, text::kInstalled, text::kOperationSucceeded, kOfResults},
    {text::kReinstalled, text::kReinstalled, text::kOperationSucceeded, kOfResults},
    {text::kRepaired, text::kRepaired, text::kOperationSucceeded, kOfResults},
    {text::kUninstalled, text::kUninstalled, text::kOperationSucceeded, kOfResults},
    {text::kInstallFailed, text::kInstallFailed, text::kOperationFailed, kOfErrors},
    {text::kRepairFailed, text::kRepairFailed, text::kOperationFailed, kOfErrors},
    {text::kUninstallFailed, text::kUninstallFailed, text::kOperationFailed, kOfErrors},
    {text::kInstallFolderInvalidTitle, text::kInstallFolderInvalidTitle, text::kInstallFolderInvalid, kOfErrors},
    {text::kSetupTitle, progressHeading(SetupAction::Install)},
    {text::kSetupTitle, progressHeading(SetupAction::Repair)},
    {text::kSetupTitle, progressHeading(SetupAction::Uninstall)},
};
// Boxes are at least as wide as the first; only ones with much to tell are wider.
constexpr int32_t kBoxWidths[] = {440, 560};

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
        if (child->matchesType(L"text") && !child->text().empty()) {
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
Lines faultsOf(const std::vector<Part>& parts, Size window) {
    Lines faults;
    for (size_t i = 0; i < parts.size(); ++i) {
        const Part& part = parts[i];
        const bool isTooLarge = part.needs.width > part.bounds.width || part.needs.height > part.bounds.height;
        if (part.isCut || isTooLarge || part.needs.width <= 0) {
            faults.push_back(part.name + L" " + describe(part.bounds) + L" is cut, it needs " +
                             describe(Rect{0, 0, part.needs.width, part.needs.height}));
        }
        // Anchored controls are kept in the window, so that one in the wrong place stands at its very edge.
        const int32_t margin = part.name == kTitleBarId ? 0 : kSideMargin;
        if (!tavi::rectBetween(margin, 0, window.width - margin, window.height).contains(part.bounds)) {
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

velquin::ProductConfig configOf(std::string_view tag) {
    velquin::ProductConfig config;
    config.language.assign(tag.begin(), tag.end());
    return config;
}

DialogControls::TextOf textsOf(std::string_view tag) {
    return [config = configOf(tag)](int textId) { return velquin::localizedText(config, textId); };
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
    // Fills it with the controls of the setup, and gives the height that all texts need.
    int32_t fill(const DialogControls::TextOf& textOf, bool installed, int32_t dpi, bool rightToLeft) {
        begin(dpi, rightToLeft);
        controls_.emplace(window_.root(), installed, SetupChoice{.installDir = kDefaultFolder}, textOf);
        addSetupChrome(window_, tavi::activeTheme(), kDialogSize.width, textOf(velquin::text::kSetupTitle));
        tavi::StyleSheet(setupStyleRules(), tavi::activeSkin()).apply(window_.root());
        const int32_t height = controls_->neededHeight();
        resize({kDialogSize.width, height}, dpi);
        controls_->arrange();
        return height;
    }
    // The same for a small window.
    int32_t fill(const DialogControls::TextOf& textOf, const Box& box, int32_t width, int32_t dpi, bool rightToLeft) {
        begin(dpi, rightToLeft);
        resize({width, width}, dpi);
        auto* const popup = window_.root().add<tavi::DesignedPopup>(L"popup", Rect{0, 0, width, 1});
        popup->setReserved(kTitleBarHeight, 0);
        popup->setHeading(textOf(box.heading));
        popup->setMessage(box.message != kNoText ? textOf(box.message) : L"");
        for (const int caption : box.captions) {
            popup->addButton(L"button " + std::to_wstring(caption), textOf(caption));
        }
        addSetupChrome(window_, tavi::activeTheme(), width, textOf(box.title))
            ->setButtonShown(tavi::CaptionButton::kMinimize, false);
        const int32_t height = popup->preferredHeight(width);
        resize({width, height}, dpi);
        popup->setBounds({0, 0, width, height});
        return height;
    }
    std::vector<Part> parts() {
        std::vector<Part> parts;
        appendParts(parts, window_.root(), isRightToLeft_);
        return parts;
    }

private:
    void begin(int32_t dpi, bool rightToLeft) {
        controls_.reset();
        while (!window_.root().children().empty()) {
            window_.root().removeChild(*window_.root().children().front());
        }
        isRightToLeft_ = rightToLeft;
        window_.tree().setRightToLeft(rightToLeft);
        resize(kDialogSize, dpi);
    }

    tavi::DialogWindow window_{GetModuleHandleW(nullptr)};
    std::optional<DialogControls> controls_;
    bool isRightToLeft_ = false;
};

TEST(DialogLanguages, EveryTextHasItsRoom) {
    Dialog dialog;
    Lines faults;
    // Scales outermost: with each, all fonts and measured texts are let go of.
    for (const int32_t dpi : kScales) {
        for (const auto& language : velquin::supportedLanguages()) {
            const DialogControls::TextOf textOf = textsOf(language.tag);
            const std::wstring tag = configOf(language.tag).language;
            const bool rightToLeft = velquin::isRightToLeftLanguage(tag);
            for (const bool installed : {false, true}) {
                const std::wstring where =
                    tag + L" " + std::to_wstring(dpi) + (installed ? L" installed: " : L" new: ");
                const int32_t height = dialog.fill(textOf, installed, dpi, rightToLeft);
                const std::vector<Part> parts = dialog.parts();
                EXPECT_EQ(parts.size(), kParts[installed ? 1 : 0]);
                for (const std::wstring& fault : faultsOf(parts, {kDialogSize.width, height})) {
                    faults.push_back(where + fault);
                }
                if (language.tag == std::string_view("en-US")) {
                    EXPECT_EQ(height, kDialogSize.height) << dpi;
                }
                if (rightToLeft) {
                    dialog.fill(textOf, installed, dpi, false);
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
            const DialogControls::TextOf textOf = textsOf(rightToLeft ? "he-IL" : "en-US");
            const int32_t height = dialog.fill(textOf, installed, 96, rightToLeft);
            const std::vector<Rect> before = placesIn(dialog.parts());
            dialog.resize(kWide, 96);
            EXPECT_EQ(faultsOf(dialog.parts(), {kWide.width, kWide.height}), Lines());
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

TEST(DialogLanguages, SmallWindowsHaveRoomForTheirTexts) {
    Dialog dialog;
    Lines faults;
    for (const auto& language : velquin::supportedLanguages()) {
        const DialogControls::TextOf textOf = textsOf(language.tag);
        const std::wstring tag = configOf(language.tag).language;
        for (const Box& box : kBoxes) {
            for (const int32_t width : kBoxWidths) {
                const int32_t height = dialog.fill(textOf, box, width, 144, velquin::isRightToLeftLanguage(tag));
                const std::vector<Part> parts = dialog.parts();
                EXPECT_EQ(parts.size(), 2 + (box.message != kNoText ? 1 : 0) + box.captions.size());
                for (const std::wstring& fault : faultsOf(parts, {width, height})) {
                    faults.push_back(tag + L" " + textOf(box.heading) + L" " + std::to_wstring(width) + L": " + fault);
                }
            }
        }
    }
    EXPECT_EQ(faults, Lines());
}

TEST(DialogLanguages, TheWindowGrowsWithItsMessage) {
    Dialog dialog;
    for (const bool installed : {false, true}) {
        const DialogControls::TextOf texts = textsOf("en-US");
        const int message = dialogLayout(installed).messageId;
        const auto repeated = [&](int count) {
            return [=](int textId) {
                std::wstring all = texts(textId);
                for (int i = 1; textId == message && i < count; ++i) {
                    all += L" " + texts(textId);
                }
                return all;
            };
        };
        // The first one uses up the free room between the parts, so that the second moves all of them alike.
        const int32_t height = dialog.fill(repeated(10), installed, 144, false);
        EXPECT_GT(height, kDialogSize.height);
        const std::vector<Part> before = dialog.parts();
        const int32_t growth = dialog.fill(repeated(20), installed, 144, false) - height;
        const std::vector<Part> after = dialog.parts();
        EXPECT_GT(growth, 0);
        EXPECT_EQ(faultsOf(after, {kDialogSize.width, height + growth}), Lines());
        ASSERT_EQ(after.size(), before.size());
        const auto old = std::ranges::find(before, L"setup.popup.message", &Part::name);
        ASSERT_NE(old, before.end());
        for (size_t i = 0; i < before.size(); ++i) {
            const bool isBelow = before[i].bounds.y >= old->bounds.bottom();
            EXPECT_EQ(after[i].bounds.y, before[i].bounds.y + (isBelow ? growth : 0));
        }
    }
}

}  // namespace
