// Select boxes and their lists.
#include "tavi/controls/select_box.h"
#include "tavi/controls/select_list.h"
#include "tests/portable/popup_stand_in.h"
#include "tests/portable/window_fixture.h"

namespace {

using namespace testing_tavi;
using namespace tavi::key;

struct TaviSelectBox : TaviWindow {
    FrameStandIn frame;
    SelectBox* box = nullptr;
    Log events;

    void SetUp() override {
        TaviWindow::SetUp();
        platform.windowFrame = &frame;
        box = tree->root().add<SelectBox>(
            L"box", Rect{10, 20, 120, 32},
            std::vector<std::wstring>{L"Apple", L"Banana", L"Blueberry", L"Cherry", L"Damson", L"Elderberry", L"Fig",
                                      L"Grape", L"Hazelnut", L"Bilberry", L"New apple", L"Nectarine"});
        box->selectionChanged.connect([this](SelectionChangedEvent& event) {
            events.push_back(std::to_wstring(event.oldIndex) + L"->" + std::to_wstring(event.newIndex));
        });
        box->popupChanged.connect([this](PopupEvent& event) {
            events.push_back(event.open ? L"open" : event.dismissed ? L"dismissed" : L"chosen");
        });
        tree->setFocus(box);
    }
    SelectList& list() { return *static_cast<SelectList*>(frame.popup->content); }
    Log eventsOf(const std::function<void()>& action) {
        events.clear();
        action();
        return std::exchange(events, {});
    }
    Log pressed(std::initializer_list<uint32_t> codes) {
        return eventsOf([&] {
            for (const uint32_t code : codes) {
                key(code);
            }
        });
    }
    void typed(const std::wstring& letters) {
        for (const wchar_t letter : letters) {
            if (letter != L' ' || !key(key::kSpace)) {
                tree->textInput({std::wstring(1, letter)});
            }
        }
    }
};

TEST_F(TaviSelectBox, SelectsWithKeysWhileItIsClosed) {
    EXPECT_EQ(box->selected(), -1);
    const struct {
        uint32_t code;
        int32_t selected;
    } kSteps[] = {{kDown, 0},      {kDown, 1},  {kUp, 0},     {kUp, 0},   {kPageDown, 8},
                  {kPageDown, 11}, {kDown, 11}, {kPageUp, 3}, {kEnd, 11}, {kHome, 0}};
    for (const auto& [code, selected] : kSteps) {
        EXPECT_TRUE(key(code));
        EXPECT_EQ(box->selected(), selected) << code;
    }
    EXPECT_EQ(pressed({kHome, kDown}), (Log{L"0->1"})) << "told of changes only";
    tree->pointerWheel({.position = {20, 30}, .steps = -1});
    EXPECT_EQ(box->selected(), 2);
    std::wstring value;
    box->automationValue(value);
    EXPECT_EQ(value, L"Blueberry");
}

TEST_F(TaviSelectBox, OpensAndCloses) {
    box->select(4);
    const auto click = [&] {
        press({20, 30});
        release({20, 30});
    };
    EXPECT_EQ(eventsOf(click), (Log{L"open"}));
    EXPECT_EQ(frame.popup->request.anchor, (Rect{112, 222, 116, 28})) << "the painted field";
    EXPECT_EQ(list().hot(), 4);
    EXPECT_EQ(eventsOf(click), (Log{L"dismissed"}));
    EXPECT_EQ(frame.popup, nullptr);

    const Log kOpen{L"open"};
    EXPECT_EQ(pressed({key::kSpace}), kOpen);
    EXPECT_EQ(pressed({kDown, kDown, key::kEscape}), (Log{L"dismissed"}));
    EXPECT_EQ(box->selected(), 4) << "without a change";
    EXPECT_EQ(pressed({kF4}), kOpen);
    EXPECT_EQ(pressed({kDown, key::kReturn}), (Log{L"chosen", L"4->5"}));
    EXPECT_EQ(eventsOf([&] { key(kDown, kAlt); }), kOpen);
    EXPECT_EQ(pressed({kHome, kF4}), (Log{L"dismissed"}));
    EXPECT_EQ(pressed({key::kSpace, kHome, key::kSpace}), (Log{L"open", L"chosen", L"5->0"}));

    const auto openAnd = [&](const std::function<void()>& action) {
        box->open();
        EXPECT_TRUE(box->isOpen());
        return eventsOf(action);
    };
    const Log kDismissed{L"dismissed"};
    EXPECT_EQ(openAnd([&] { frame.popup->request.dismissed(); }), kDismissed);
    EXPECT_EQ(openAnd([&] { tree->setFocus(nullptr); }), kDismissed);
    EXPECT_EQ(openAnd([&] { box->setBounds({0, 0, 90, 32}); }), kDismissed);
    EXPECT_EQ(openAnd([&] { box->setItems({L"x", L"Apple"}); }), (Log{L"dismissed", L"0->1"})) << "keeps the item";
    EXPECT_EQ(eventsOf([&] { box->setItems({}); }), (Log{L"1->-1"}));
    box->open();
    EXPECT_FALSE(box->isOpen()) << "nothing to show";
    EXPECT_EQ(pressed({kDown, kEnd}), Log{});
}

TEST_F(TaviSelectBox, MayBeDestroyedByItsCallbacks) {
    box->open();
    box->popupChanged.connect([this](PopupEvent&) { tree->root().removeChild(*box); });
    list().setHot(3);
    frame.popup->click({30, 30});
    EXPECT_EQ(frame.popup, nullptr);
    EXPECT_EQ(tree->focused(), nullptr);
}

TEST_F(TaviSelectBox, FindsWhatIsTyped) {
    const struct {
        const wchar_t* letters;
        int32_t from;
        int32_t found;
    } kCases[] = {{L"b", -1, 1},     {L"b", 1, 2},  {L"B", 9, 1},     {L"bb", 0, 2},  {L"bbb", 0, 9},
                  {L"bl", 1, 2},     {L"bi", 1, 9}, {L"z", 3, 3},     {L"ne", 0, 10}, {L"nec", 0, 11},
                  {L"new a", 0, 10}, {L"bx", 0, 1}, {L"cherry", 0, 3}};
    for (const bool open : {false, true}) {
        for (const auto& [letters, from, found] : kCases) {
            box->close();
            box->select(from);
            if (open) {
                box->open();
            }
            typed(letters);
            EXPECT_EQ(open ? list().hot() : box->selected(), found) << testing::PrintToString(std::wstring(letters));
            ASSERT_EQ(platform.controlTimers.size(), 1U);
            const WindowTimer timer = platform.controlTimers.begin()->first;
            EXPECT_EQ(platform.controlTimers[timer], 1000);
            tree->timeOut(timer);
            EXPECT_EQ(platform.controlTimers[timer], 0);
        }
    }
}

TEST_F(TaviSelectBox, ItsListScrollsAndChooses) {
    box->select(10);
    box->open();
    EXPECT_EQ(frame.popup->size.height, 8 * kListRowHeight + 8);
    EXPECT_GE(frame.popup->size.width, 116);
    EXPECT_EQ(list().firstRow(), 3) << "the selected row is in sight";
    EXPECT_TRUE(list().rowArea(2).empty());
    key(kHome);
    EXPECT_EQ(list().firstRow(), 0);
    list().setHot(8);
    EXPECT_EQ(list().firstRow(), 1);
    const auto wheel = [&](double steps) {
        frame.popup->tree->pointerWheel({.position = {20, 20}, .steps = steps});
        return list().firstRow();
    };
    EXPECT_EQ(wheel(-1), 4);
    EXPECT_EQ(wheel(-9), 4);
    EXPECT_EQ(wheel(1), 1);
    const Rect row = list().rowArea(3);
    frame.popup->tree->pointerMove({.position = {row.x + 5, row.y + 5}});
    EXPECT_EQ(list().hot(), 3);
    key(kDown);
    frame.popup->tree->pointerMove({.position = {row.x + 5, row.y + 5}});
    EXPECT_EQ(list().hot(), 4) << "the pointer has not moved";
    EXPECT_EQ(eventsOf([&] { frame.popup->click({row.x + 5, row.y + 5}); }), (Log{L"chosen", L"10->3"}));
}

TEST_F(TaviSelectBox, IsMirrored) {
    for (const bool mirrored : {false, true}) {
        tree->setRightToLeft(mirrored);
        box->open();
        EXPECT_EQ(frame.popup->request.rightToLeft, mirrored);
        const Rect row = list().rowArea(0);
        EXPECT_EQ(row.x > list().bounds().width - row.right(), mirrored) << "the scroll bar is at the end";
        box->close();
    }
}

TEST_F(TaviSelectBox, KeepsItsSelectionInItsState) {
    box->select(7);
    ControlState state;
    box->captureState(state);
    box->select(2);
    box->restoreState(state, false);
    EXPECT_EQ(box->selected(), 7);
    for (const wchar_t* const wrong : {L"", L"x", L"99", L"-5"}) {
        state.properties.front().value = wrong;
        box->restoreState(state, false);
        EXPECT_LT(box->selected(), 12) << testing::PrintToString(std::wstring(wrong));
    }
}

}  // namespace
