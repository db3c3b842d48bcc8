// The setup's dialog in all languages at three scales, with real fonts: every caption fits its control, nothing lies on
// anything else, and all of it lies in the window.
#include <windows.h>

#include <gtest/gtest.h>

#include <algorithm>

#include "core/configuration.h"
#include "localization/catalog.h"
#include "localization/languages.h"
#include "setup/dialog/dialog_controls.h"
#include "setup/dialog/setup_style_sheet.h"
#include "tavi/controls/style_sheet.h"
#include "tavi/core/window.h"
#include "tavi/core/window_tree.h"
#include "tavi/theme/active_skin.h"

namespace {

using namespace velquin::setup;
using tavi::Rect;
using Offenders = std::vector<std::wstring>;

struct Part {
    std::wstring name;
    Rect bounds;  // of the client area
    tavi::Size needs;
};

void add(std::vector<Part>& parts, const tavi::Control* control, tavi::Size needs) {
    if (control != nullptr) {
        const tavi::Point at = control->clientOrigin();
        parts.push_back({control->id(), {at.x, at.y, control->bounds().width, control->bounds().height}, needs});
    }
}

// All that is read in the dialog, with the room that it needs.
std::vector<Part> partsOf(tavi::Panel& root, const DialogControls& controls) {
    std::vector<Part> parts;
    for (const auto& child : root.children()) {
        if (const auto* const button = child.get() == controls.browseButton() ? controls.browseButton() : nullptr) {
            add(parts, button, button->preferredSize());
        } else if (child->matchesType(L"checkbox")) {
            add(parts, child.get(), static_cast<const tavi::CheckBox&>(*child).preferredSize());
        } else if (child->matchesType(L"text")) {
            add(parts, child.get(), static_cast<const tavi::Label&>(*child).preferredSize());
        } else if (child->matchesType(L"textinput")) {
            add(parts, child.get(), {});
        }
    }
    for (const tavi::ThemedButton* const button : controls.popup().buttons()) {
        add(parts, button, button->preferredSize());
    }
    for (const wchar_t* const suffix : {L".heading", L".message"}) {
        const auto* const label =
            static_cast<const tavi::Label*>(controls.popup().findById(std::wstring(kPopupId) + suffix));
        add(parts, label, label != nullptr ? label->preferredSize(label->bounds().width) : tavi::Size{});
    }
    return parts;
}

bool overlap(const Rect& a, const Rect& b) {
    return a.x < b.right() && b.x < a.right() && a.y < b.bottom() && b.y < a.bottom();
}

Offenders offendersIn(const std::vector<Part>& parts, const Rect& window) {
    Offenders found;
    for (size_t i = 0; i < parts.size(); ++i) {
        const Part& part = parts[i];
        if (part.needs.width > part.bounds.width || part.needs.height > part.bounds.height) {
            found.push_back(part.name + L" is cut");
        }
        if (!window.contains(part.bounds) || part.bounds.y < kTitleBarHeight) {
            found.push_back(part.name + L" " + describe(part.bounds) + L" is out of the window");
        }
        for (size_t j = 0; j < i; ++j) {
            if (overlap(part.bounds, parts[j].bounds)) {
                found.push_back(part.name + L" lies on " + parts[j].name);
            }
        }
    }
    return found;
}

TEST(DialogLanguages, EveryTextHasItsRoom) {
    tavi::activateSkin(builtInSetupTheme());
    const tavi::StyleSheet sheet(setupStyleRules(), tavi::activeSkin());
    tavi::Window window(GetModuleHandleW(nullptr));
    ASSERT_TRUE(window.create({.clientSize = kDialogSize, .style = WS_POPUP, .customChrome = true}));
    Offenders offenders;
    int checked = 0;
    for (const auto& language : velquin::supportedLanguages()) {
        const std::string_view tag = language.tag;
        velquin::ProductConfig config;
        config.language.assign(tag.begin(), tag.end());
        window.tree().setRightToLeft(velquin::isRightToLeftLanguage(config.language));
        for (const bool installed : {false, true}) {
            for (const int32_t dpi : {96, 144, 192}) {
                tavi::Panel& root = window.root();
                const auto setHeight = [&](int32_t height) {
                    window.tree().setClient({kDialogSize.width * dpi / 96, height * dpi / 96}, dpi);
                };
                setHeight(kDialogSize.height);
                DialogControls controls(root, installed, {}, [&](int textId) { return localizedText(config, textId); });
                sheet.apply(root);
                const int32_t height = controls.neededHeight();
                setHeight(height);
                controls.arrange();
                const std::vector<Part> parts = partsOf(root, controls);
                checked += static_cast<int>(parts.size());
                for (const std::wstring& offender : offendersIn(parts, {0, 0, kDialogSize.width, height})) {
                    offenders.push_back(config.language + L" " + std::to_wstring(dpi) +
                                        (installed ? L" installed: " : L" new: ") + offender);
                }
                if (tag == "en-US" && dpi == 96) {
                    EXPECT_EQ(height, kDialogSize.height) << "English fits the table";
                }
                while (!root.children().empty()) {
                    root.removeChild(*root.children().front());
                }
            }
        }
    }
    EXPECT_EQ(offenders, Offenders());
    EXPECT_EQ(checked, 88 * 3 * (9 + 8)) << "all parts of both layouts";
}

}  // namespace
