// The setup dialog's controls as they stand in a window, with the numbers of their texts for texts.
#include "setup/dialog/dialog_controls.h"

#include "tests/portable/window_fixture.h"

namespace {

using namespace testing_tavi;
using namespace velquin::setup;

std::wstring textOf(int textId) {
    return L"<" + std::to_wstring(textId) + L">";
}

struct SetupDialogControls : TaviWindow {
    SetupChoice options{SetupAction::Close, true, false, L"C:\\P"};
    std::unique_ptr<DialogControls> controls;

    void make(bool installed) {
        tree->setClient(kDialogSize, 96);
        controls = std::make_unique<DialogControls>(tree->root(), installed, options, &textOf);
        controls->arrange();
    }
    // Each control with its place, its style, what it says and its tooltip.
    Log told() const {
        Log lines;
        for (const auto& child : tree->root().children()) {
            lines.push_back(child->id() + L" " + describe(child->bounds()) + L" " + child->appearance().styleName +
                            L" " + child->text() + L" " + child->tooltip());
        }
        return lines;
    }
    // What the popup says, and its buttons in their order.
    Log popup() const {
        const DesignedPopup& popup = controls->popup();
        Log lines{popup.badge() + L" " + popup.heading() + L" " + popup.message()};
        for (const ThemedButton* const button : popup.buttons()) {
            lines.push_back(button->id() + L" " + button->text() + L" " + button->appearance().styleName +
                            (button == &controls->primaryButton() ? L" primary" : L""));
        }
        return lines;
    }
    template <typename T>
    T& at(const wchar_t* id) const {
        return dynamic_cast<T&>(*tree->root().findById(id));
    }
};

TEST_F(SetupDialogControls, ANewProductIsAskedForItsFolderAndOptions) {
    make(false);
    EXPECT_EQ(told(),
              (Log{L"setup.popup (0, 0, 690x344) default  ", L"install-path-label (76, 188, 220x24) title <68> ",
                   L"install-path-input (76, 214, 420x32) vc-input C:\\P <69>",
                   L"install-path-browse (510, 214, 104x32) vc-button <71> <72>",
                   L"start-with-windows (76, 254, 250x28) vc-check <58> <120>",
                   L"desktop-shortcut (350, 254, 250x28) vc-check <67> <121>"}));
    EXPECT_EQ(popup(), (Log{L"V <74> <76>", L"install <63> vc-primary primary", L"close <62> vc-secondary"}));
    EXPECT_FALSE(controls->pathInput().readOnly());
    EXPECT_EQ(controls->pathInput().automationName(), L"<68>");
    EXPECT_EQ(controls->neededHeight(), kDialogSize.height);
    // The popup lies below the others and its buttons come after them.
    Log order;
    tree->setFocus(nullptr);
    for (int i = 0; i < 6; ++i) {
        key(key::kTab);
        order.push_back(focused());
    }
    EXPECT_EQ(order, (Log{L"install-path-input", L"install-path-browse", L"start-with-windows", L"desktop-shortcut",
                          L"install", L"close"}));
    // Return on a box is the primary button's.
    std::wstring chosen;
    controls->popup().chosen.connect([&](CommandEvent& event) { chosen = event.command; });
    tree->focus().setDefault(&controls->primaryButton());
    tree->setFocus(&at<CheckBox>(kDesktopShortcutId));
    key(key::kReturn);
    EXPECT_EQ(chosen, L"install");
    // Explorer copies a path in quotes.
    tree->setFocus(&controls->pathInput());
    tree->textInput({L"\"D:\\Q 1\""});
    key(key::kReturn);
    EXPECT_EQ(controls->input().installDir, L"D:\\Q 1");
    // The boxes begin as the options are, and each tells of itself.
    DialogInput input = controls->input();
    EXPECT_EQ(input.startWithWindows, true);
    EXPECT_EQ(input.desktopShortcut, false);
    at<CheckBox>(kStartWithWindowsId).setChecked(false);
    at<CheckBox>(kDesktopShortcutId).setChecked(true);
    controls->pathInput().setText(L"D:\\Q");
    input = controls->input();
    EXPECT_EQ(input.startWithWindows, false);
    EXPECT_EQ(input.desktopShortcut, true);
    EXPECT_EQ(input.installDir, L"D:\\Q");
}

TEST_F(SetupDialogControls, AnInstalledOneShowsItsFolder) {
    make(true);
    EXPECT_EQ(told(),
              (Log{L"setup.popup (0, 0, 690x344) default  ", L"install-path-label (76, 188, 220x24) title <68> ",
                   L"install-path-input (76, 214, 530x32) vc-input C:\\P <70>"}));
    EXPECT_EQ(popup(), (Log{L"! <73> <75>", L"repair <64> vc-primary primary", L"reinstall <65> vc-secondary",
                            L"uninstall <66> vc-danger", L"close <62> vc-secondary"}));
    EXPECT_TRUE(controls->pathInput().readOnly());
    EXPECT_EQ(controls->browseButton(), nullptr);
    EXPECT_EQ(controls->input().startWithWindows, std::nullopt);
    EXPECT_EQ(controls->input().desktopShortcut, std::nullopt);
}

TEST_F(SetupDialogControls, FromRightToLeftAllOfItIsMirrored) {
    tree->setRightToLeft(true);
    make(false);
    const std::pair<const wchar_t*, Rect> places[] = {{kPathLabelId, {394, 188, 220, 24}},
                                                      {kPathInputId, {194, 214, 420, 32}},
                                                      {kBrowseId, {76, 214, 104, 32}},
                                                      {kStartWithWindowsId, {364, 254, 250, 28}},
                                                      {kDesktopShortcutId, {90, 254, 250, 28}}};
    for (int times = 0; times < 2; ++times) {
        for (const auto& [id, bounds] : places) {
            EXPECT_EQ(at<Control>(id).bounds(), bounds) << testing::PrintToString(id);
        }
        EXPECT_EQ(at<Control>(kBrowseId).anchors(), kAnchorLeft | kAnchorTop);
        EXPECT_EQ(at<Control>(kPathInputId).anchors(), kAnchorLeft | kAnchorTop | kAnchorRight);
        controls->arrange();  // once more, as after a change of scale
    }
}

}  // namespace
