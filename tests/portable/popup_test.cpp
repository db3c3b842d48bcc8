// Popups, their rows of buttons, and title bars: where the parts lie and what they do.
#include <algorithm>

#include "tavi/controls/button_row.h"
#include "tavi/controls/chrome_title_bar.h"
#include "tavi/controls/designed_popup.h"
#include "tavi/core/window_frame.h"
#include "tests/portable/window_fixture.h"

namespace {

using namespace testing_tavi;

struct RowCase {
    const char* about;
    std::vector<int32_t> preferred;
    int32_t room;
    bool rightToLeft;
    std::vector<ButtonPlace> expected;
};

TEST(ButtonRow, SharesOutTheRoom) {
    const RowCase cases[] = {
        {"nothing", {}, 400, false, {}},
        {"at the end, as wide as the minimum", {50, 60}, 400, false, {{190, 100, 0}, {300, 100, 0}}},
        {"from the right", {50, 60}, 400, true, {{110, 100, 0}, {0, 100, 0}}},
        {"about equal ones are equal", {110, 130}, 400, false, {{130, 130, 0}, {270, 130, 0}}},
        {"but not all as wide as a giant", {60, 240}, 400, false, {{50, 100, 0}, {160, 240, 0}}},
        {"nor where they would not fit any more",
         {140, 120, 120},
         400,
         false,
         {{0, 140, 0}, {150, 120, 0}, {280, 120, 0}}},
        {"full lines first", {150, 150, 150}, 400, false, {{90, 150, 0}, {250, 150, 0}, {250, 150, 1}}},
        {"lines from the right", {150, 150, 150}, 400, true, {{160, 150, 0}, {0, 150, 0}, {0, 150, 1}}},
        {"never wider than the room", {500, 50}, 80, false, {{0, 80, 0}, {0, 80, 1}}},
        {"without any room", {50}, -5, false, {{0, 0, 0}}},
    };
    for (const RowCase& each : cases) {
        EXPECT_EQ(placeButtons(each.preferred, each.room, 10, 100, each.rightToLeft) == each.expected, true)
            << each.about;
    }
}

// A window that can do what it is told, and writes down what it did.
struct FrameStandIn : WindowFrame {
    virtual ~FrameStandIn() = default;
    bool minimizes = true;
    bool maximizes = true;
    bool isMaximized = false;
    Log log;

    HWND handle() const override { return nullptr; }
    bool canMinimize() const override { return minimizes; }
    bool canMaximize() const override { return maximizes; }
    bool maximized() const override { return isMaximized; }
    void minimize() override { log.push_back(L"minimize"); }
    void maximize() override { log.push_back(L"maximize"); }
    void restore() override { log.push_back(L"restore"); }
    void resetToDefaultSize() override { log.push_back(L"reset-size"); }
    void requestClose() override { log.push_back(L"close"); }
    void beginMove() override { log.push_back(L"drag"); }
    void openSystemMenu(Point at) override { log.push_back(L"menu " + describe(at)); }
    Rect onScreen(const Rect& area) const override { return area; }
};

constexpr Size kDialog{690, 344};

struct Popup : TaviWindow {
    DesignedPopup* popup = nullptr;

    void SetUp() override {
        TaviWindow::SetUp();
        tree->setClient({kDialog.width, kDialog.height}, 96);
        popup = tree->root().add<DesignedPopup>(L"popup", Rect{0, 0, kDialog.width, kDialog.height});
        popup->setHeading(L"Heading");
        popup->setMessage(L"A message of some words");
        popup->setReserved(42, 100);
        popup->addButton(L"yes", L"Yes", true);
        popup->addButton(L"no", L"No");
    }
    static std::vector<Rect> parts(const DesignedPopup::Places& places) {
        std::vector<Rect> all{places.badge, places.heading, places.message, places.middle};
        all.insert(all.end(), places.buttons.begin(), places.buttons.end());
        return all;
    }
};

TEST_F(Popup, LaysItsPartsOutForBothDirections) {
    const DesignedPopup::Places places = popup->places(kDialog);
    EXPECT_EQ(places.badge.x, 24);
    EXPECT_EQ(places.heading.x, 76);
    EXPECT_EQ(places.message.right(), kDialog.width - 76);
    EXPECT_EQ(places.buttons.back().right(), kDialog.width - 24);
    EXPECT_EQ(places.buttons.back().bottom(), kDialog.height - 18);
    EXPECT_EQ(places.middle.height, 100);
    EXPECT_EQ(popup->findById(L"no")->bounds(), places.buttons[1]);
    const std::vector<Rect> all = parts(places);
    for (size_t i = 0; i < all.size(); ++i) {
        EXPECT_TRUE((Rect{0, 42, kDialog.width, kDialog.height - 42}.contains(all[i]))) << i;
        for (size_t j = i + 1; j < all.size(); ++j) {
            EXPECT_TRUE(intersection(all[i], all[j]).empty()) << i << " lies on " << j;
        }
    }
    tree->setRightToLeft(true);
    const std::vector<Rect> mirrored = parts(popup->places(kDialog));
    for (size_t i = 0; i < all.size(); ++i) {
        EXPECT_EQ(mirrored[i], (Rect{kDialog.width - all[i].right(), all[i].y, all[i].width, all[i].height})) << i;
    }
    EXPECT_EQ(popup->findById(L"no")->bounds(), mirrored.back()) << "laid out anew";
}

TEST_F(Popup, SaysHowMuchItNeedsAndCutsTheMessageWhereThatIsNotThere) {
    const int32_t before = popup->preferredHeight(kDialog.width);
    std::wstring text;
    for (int i = 0; i < 200; ++i) {
        text += L"many words ";
    }
    popup->setMessage(text);
    const int32_t needed = popup->preferredHeight(kDialog.width);
    EXPECT_GT(needed, before + 50);
    EXPECT_GT(popup->preferredHeight(400), needed) << "narrower is higher";
    const auto gap = [](const DesignedPopup::Places& places) { return places.middle.y - places.message.bottom(); };
    const DesignedPopup::Places whole = popup->places({kDialog.width, needed});
    const DesignedPopup::Places cut = popup->places({kDialog.width, needed - 40});
    EXPECT_GE(gap(whole), 0);
    EXPECT_EQ(gap(cut), gap(whole));
    EXPECT_EQ(cut.message.height, whole.message.height - 40);
    EXPECT_EQ(cut.buttons.back().bottom(), whole.buttons.back().bottom() - 40);

    for (int i = 0; i < 6; ++i) {
        popup->addButton(L"more" + std::to_wstring(i), L"One more button");
    }
    EXPECT_GT(popup->preferredHeight(kDialog.width), needed) << "a second line of buttons";
}

TEST_F(Popup, ReportsButtonsAndItsDismissalOnce) {
    Log chosen;
    int dismissals = 0;
    popup->chosen.connect([&](CommandEvent& event) { chosen.push_back(event.source->id() + L" " + event.command); });
    popup->dismissed.connect([&](PopupEvent& event) { dismissals += event.dismissed ? 1 : 0; });
    tree->focus().setDefault(popup->buttons().front());
    tree->focus().setCancel(popup);
    tree->setFocus(nullptr);
    key(key::kReturn);
    const Rect no = popup->buttons()[1]->bounds();
    press({no.x + 5, no.y + 5});
    release({no.x + 5, no.y + 5});
    EXPECT_EQ(chosen, (Log{L"popup yes", L"popup no"}));
    EXPECT_EQ(dismissals, 0);
    key(key::kEscape);
    key(key::kEscape);
    popup->dismiss();
    EXPECT_EQ(dismissals, 1);
}

TEST_F(Popup, MayBeDestroyedByItsButton) {
    popup->chosen.connect([&](CommandEvent&) { tree->root().removeChild(*popup); });
    popup->buttons().front()->activate();
    EXPECT_TRUE(tree->root().children().empty());
}

struct TitleBar : TaviWindow {
    FrameStandIn frame;
    ChromeTitleBar* bar = nullptr;
    bool consumes = false;
    Log commands;

    void SetUp() override {
        TaviWindow::SetUp();
        platform.windowFrame = &frame;
        bar = tree->root().add<ChromeTitleBar>(L"bar", Rect{0, 0, 400, 42}, L"Title", Theme{});
        bar->command.connect([this](CommandEvent& event) {
            commands.push_back(event.command);
            event.consumed = consumes;
        });
    }
    void click(Control& control) {
        const Rect at = control.bounds();
        press({at.x + 5, at.y + at.height / 2});
        release({at.x + 5, at.y + at.height / 2});
    }
    // The ids of the buttons that are shown, from left to right.
    std::vector<std::wstring> shown() const {
        std::vector<const Control*> buttons;
        for (const auto& child : bar->children()) {
            if (child->visible() && child->id() != L"chrome-drag") {
                buttons.push_back(child.get());
            }
        }
        std::ranges::sort(buttons, {}, [](const Control* button) { return button->bounds().x; });
        std::vector<std::wstring> ids;
        for (const Control* const button : buttons) {
            ids.push_back(button->id().substr(7));
        }
        return ids;
    }
};

TEST_F(TitleBar, ShowsWhatTheWindowCanDoInTheOrderOfReading) {
    EXPECT_EQ(shown(), (Log{L"minimize", L"maximize", L"reset-size", L"close"}));
    EXPECT_EQ(bar->addHeaderAction(Glyph::kQuestion, L"help", [] {}), 0U);
    EXPECT_EQ(bar->addHeaderAction(Glyph::kArrowDown, L"more", [] {}), 1U);
    frame.maximizes = false;
    tree->root().notifyTree();
    EXPECT_EQ(shown(), (Log{L"header-action-0", L"header-action-1", L"minimize", L"close"}));
    bar->setButtonShown(CaptionButton::kMinimize, false);
    tree->setRightToLeft(true);
    EXPECT_EQ(shown(), (Log{L"close", L"header-action-1", L"header-action-0"}));
    EXPECT_FALSE(focusable(*bar->findById(L"chrome-close")));
}

TEST_F(TitleBar, RunsItsCommandsUnlessSomebodyElseDoes) {
    int actions = 0;
    bar->addHeaderAction(Glyph::kQuestion, L"help", [&] { ++actions; });
    const wchar_t* const ids[] = {L"chrome-minimize", L"chrome-maximize", L"chrome-reset-size",
                                  L"chrome-close",    L"chrome-drag",     L"chrome-header-action-0"};
    const Log wanted = {L"bar.minimize", L"bar.maximize", L"bar.reset-size",
                        L"bar.close",    L"bar.drag",     L"bar.header-action-0"};
    for (consumes = true;; consumes = false) {
        for (const wchar_t* const id : ids) {
            click(*bar->findById(id));
        }
        EXPECT_EQ(std::exchange(commands, {}), wanted);
        EXPECT_EQ(frame.log, consumes ? Log{} : (Log{L"minimize", L"maximize", L"reset-size", L"close", L"drag"}));
        EXPECT_EQ(actions, consumes ? 0 : 1);
        if (!consumes) {
            break;
        }
    }
}

TEST_F(TitleBar, RestoresAWindowThatIsMaximized) {
    const auto doubleClick = [&] {
        tree->pointerPress({.position = {100, 20}, .button = PointerButton::Left, .held = 2, .clicks = 2});
        tree->pointerRelease({.position = {100, 20}, .button = PointerButton::Left});
    };
    doubleClick();
    frame.isMaximized = true;
    EXPECT_EQ(bar->descriptiveName(CaptionButton::kMaximize), L"restore");
    bar->setBounds({0, 0, 500, 42});
    EXPECT_EQ(bar->findById(L"chrome-maximize")->automationName(), L"restore");
    doubleClick();
    frame.maximizes = false;
    doubleClick();
    EXPECT_EQ(commands, (Log{L"bar.maximize", L"bar.restore"}));
    EXPECT_EQ(frame.log, (Log{L"maximize", L"restore"}));
}

TEST_F(TitleBar, OpensTheMenuOfTheWindowByTheOtherButton) {
    bar->setBounds({0, 60, 400, 42});
    const auto rightClick = [&](Point from, Point to) {
        tree->pointerPress({.position = from, .button = PointerButton::Right, .clicks = 1});
        tree->pointerRelease({.position = to, .button = PointerButton::Right});
    };
    rightClick({100, 80}, {100, 120});
    EXPECT_EQ(frame.log, Log{});
    rightClick({100, 80}, {101, 81});
    EXPECT_EQ(frame.log, Log{L"menu (101, 81)"});
}

TEST_F(TitleBar, MayBeDestroyedByItsCommand) {
    bar->command.connect([&](CommandEvent&) { tree->root().removeChild(*bar); });
    click(*bar->findById(L"chrome-minimize"));
    EXPECT_TRUE(tree->root().children().empty());
    EXPECT_EQ(frame.log, Log{}) << "who takes the bar away has done it";
}

}  // namespace
