// Where thumbs lie, and how a bar is scrolled.
#include "tavi/controls/scroll_bar.h"

#include <limits>
#include <random>

#include "tavi/theme/active_skin.h"
#include "tests/portable/drawing_stand_in.h"
#include "tests/portable/window_fixture.h"

namespace {

using namespace testing_tavi;

constexpr int64_t kHuge = std::numeric_limits<int64_t>::max();

TEST(ThumbPlace, IsTheShareThatIsSeen) {
    const struct {
        int32_t track;
        int64_t range;
        int64_t page;
        int64_t value;
        ThumbPlace place;
    } kCases[] = {
        {100, 1000, 500, 0, {0, 50}},
        {100, 1000, 500, 250, {25, 50}},
        {100, 1000, 500, 500, {50, 50}},
        {100, 1000, 500, 9999, {50, 50}},
        {100, 1000, 500, -3, {0, 50}},
        {100, 1000, 1, 999, {80, 20}},   // as small as a thumb may be
        {100, 1000, 1000, 0, {0, 100}},  // all is seen
        {100, 0, 0, 0, {0, 100}},
        {10, 1000, 100, 900, {0, 10}},  // no room for a thumb
        {-5, 1000, 100, 0, {0, 0}},
        {100, kHuge, 1, kHuge, {80, 20}},
        {100, kHuge, kHuge / 2 + 1, kHuge / 4, {25, 50}},
        {std::numeric_limits<int32_t>::max(), kHuge, kHuge - 1, 1, {0, std::numeric_limits<int32_t>::max()}},
    };
    for (const auto& each : kCases) {
        const ThumbPlace found = thumbPlace(each.track, 20, each.range, each.page, each.value);
        EXPECT_TRUE(found == each.place) << each.track << " " << each.range << ": " << found.start << " "
                                         << found.length;
    }
}

// Where pixels lie closer than values, a thumb tells its value exactly; elsewhere it stays where it was put.
TEST(ThumbPlace, LeadsBackToItsValue) {
    std::mt19937_64 random(7);
    for (int i = 0; i < 20000; ++i) {
        const auto track = static_cast<int32_t>(1 + random() % 4000);
        const auto range = static_cast<int64_t>(random() >> (1 + random() % 62));
        const auto page = static_cast<int64_t>(random() % (static_cast<uint64_t>(range) + 1));
        const auto value = static_cast<int64_t>(random() % (static_cast<uint64_t>(range - page) + 1));
        const ThumbPlace place = thumbPlace(track, 8, range, page, value);
        const int64_t back = valueOfThumb(place.start, track, 8, range, page);
        ASSERT_TRUE(place.start >= 0 && place.length >= 0 && place.start + place.length <= track);
        ASSERT_TRUE(back >= 0 && back <= range - page);
        if (track - place.length >= range - page) {
            ASSERT_EQ(back, value) << track << " " << range << " " << page;
        } else {
            ASSERT_EQ(thumbPlace(track, 8, range, page, back).start, place.start)
                << track << " " << range << " " << page;
        }
    }
}

class ScrollBars : public TaviWindow {
protected:
    SkinDefinition before = activeSkin();
    ScrollBar* bar = nullptr;
    std::vector<int64_t> values;

    // A track of 100 with 2 at each end, along which 96 - 24 = 72 pixels are left for 720 values.
    void make(bool vertical, bool buttons = false) {
        SkinDefinition skin = before;
        skin.shapes.scrollbar = {.buttonExtent = 10, .minThumbExtent = 24, .showButtons = buttons};
        activateSkin(skin);
        const int32_t length = buttons ? 120 : 100;
        bar =
            tree->root().add<ScrollBar>(L"bar", vertical ? Rect{20, 0, 12, length} : Rect{0, 20, length, 12}, vertical);
        bar->setRange(960, 240, 10);
        bar->changed.connect([this](ValueChangedEvent&) { values.push_back(bar->value()); });
    }
    void TearDown() override { activateSkin(before); }
    void at(int32_t along, bool vertical = true) { spot = vertical ? Point{26, along} : Point{along, 26}; }
    Point spot;
};

TEST_F(ScrollBars, FollowTheThumb) {
    for (const bool vertical : {true, false}) {
        for (const bool rightToLeft : {false, true}) {
            tree = WindowTree::create(platform);
            tree->setClient({400, 300}, 96);
            tree->setRightToLeft(rightToLeft);
            make(vertical);
            const auto place = [&](int32_t along) {
                at(!vertical && rightToLeft ? 99 - along : along, vertical);
                return spot;
            };
            press(place(12));
            move(place(48));
            EXPECT_EQ(bar->value(), 360);
            move(place(49) + (vertical ? Point{90, 0} : Point{0, 90}));  // off the bar, it still follows
            EXPECT_EQ(bar->value(), 370);
            move(place(1000));
            EXPECT_EQ(bar->value(), 720);
            release(place(60));
            move(place(12));
            EXPECT_EQ(bar->value(), 720);
        }
    }
}

// A press beside the thumb turns pages until the thumb is there, one on a button lines.
TEST_F(ScrollBars, RepeatWhileTheyArePressed) {
    make(true, true);
    const auto timer = [&] { return platform.controlTimers[WindowTimer::FirstOfControls]; };
    const auto tick = [&] { tree->timeOut(WindowTimer::FirstOfControls); };
    press({26, 80});
    EXPECT_EQ(values, (std::vector<int64_t>{230}));
    const int32_t first = timer();
    tick();
    EXPECT_TRUE(first > timer() && timer() > 0);
    for (int i = 0; i < 5; ++i) {
        tick();
    }
    EXPECT_EQ(values, (std::vector<int64_t>{230, 460}));
    release({26, 80});
    EXPECT_EQ(timer(), 0);
    values.clear();
    press({26, 5});
    tick();
    move({26, 200});  // not over the button
    tick();
    move({26, 5});
    tick();
    tree->pointerLost();
    EXPECT_EQ(timer(), 0);
    EXPECT_EQ(values, (std::vector<int64_t>{450, 440, 430}));
    held = 0;
    press({26, 115}, PointerButton::Right);
    release({26, 115}, PointerButton::Right);
    EXPECT_EQ(bar->value(), 430);
}

TEST_F(ScrollBars, TurnWithTheWheel) {
    make(true);
    const struct {
        double steps;
        bool horizontal;
        int64_t value;
        bool handled;
    } kCases[] = {
        {-1, false, 30, true}, {-0.25, false, 30, true}, {-0.25, false, 40, true},
        {1, true, 40, false},  {100, false, 0, true},    {-1e300, false, 720, true},
    };
    for (const auto& each : kCases) {
        EXPECT_EQ(tree->pointerWheel({.position = {26, 50}, .steps = each.steps, .horizontal = each.horizontal}),
                  each.handled);
        EXPECT_EQ(bar->value(), each.value) << each.steps;
    }
    ScrollBar* const flat = tree->root().add<ScrollBar>(L"flat", Rect{0, 200, 100, 12}, false);
    flat->setRange(960, 240, 10);
    for (const bool rightToLeft : {false, true}) {
        tree->setRightToLeft(rightToLeft);
        flat->setValue(100);
        tree->pointerWheel({.position = {50, 205}, .steps = 1, .horizontal = true});
        EXPECT_EQ(flat->value(), rightToLeft ? 70 : 130) << "to the right";
    }
    bar->setRange(100, 100);
    EXPECT_EQ(bar->value(), 0);
    EXPECT_FALSE(tree->pointerWheel({.position = {26, 50}, .steps = -1}));
}

TEST_F(ScrollBars, KeepTheirValueInRangeAndTellIt) {
    make(true);
    bar->setValue(9999);
    bar->setValue(720);
    bar->setRange(500, 240);
    bar->setValue(-5);
    EXPECT_EQ(values, (std::vector<int64_t>{720, 260, 0}));
    bar->setValue(130);
    EXPECT_EQ(bar->automationName(), L"50 %");
    ControlState state;
    bar->captureState(state);
    bar->setValue(3);
    bar->restoreState(state, false);
    EXPECT_EQ(bar->value(), 130);
    bar->changed.connect([this](ValueChangedEvent&) { tree->root().removeChild(*bar); });
    bar->setRange(10, 1);
    EXPECT_TRUE(tree->root().children().empty());
}

}  // namespace
