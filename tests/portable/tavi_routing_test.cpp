// How a panel routes the pointer and paints.
#include "tests/portable/tree_fixture.h"

namespace {

using namespace testing_tree;

// "b" in "a", with "c" painted over both.
class TaviRouting : public TaviTree {
protected:
    Probe* c = root->panel(L"c", {20, 20, 50, 50});

    Log movedTo(Point point) {
        return logOf([&] {
            PointerEvent event{.position = point};
            root->pointerMove(event);
        });
    }
    void wheelAt(Point point, bool handled) {
        WheelEvent event{.position = point};
        EXPECT_EQ(root->pointerWheel(event), handled);
    }
};

TEST_F(TaviRouting, TheLastPaintedIsOfferedFirst) {
    const Log both{L"move r (30, 31)", L"move c (10, 11)", L"move a (20, 21)", L"move b (15, 16)"};
    EXPECT_EQ(movedTo({30, 31}), both);
    EXPECT_EQ(movedTo({12, 12}), (Log{L"move r (12, 12)", L"move a (2, 2)"}));
    c->onPointer = [](Probe&) { return true; };
    EXPECT_EQ(movedTo({30, 31}), (Log{both.begin(), both.begin() + 2}));
    c->onPointer = [&](Probe&) { return a->setVisible(false), false; };
    EXPECT_FALSE(std::ranges::contains(movedTo({30, 31}), both[2])) << "hidden by the one before";
    a->setVisible(true);
    c->setEnabled(false);
    EXPECT_EQ(movedTo({30, 31}), (Log{both.begin(), both.begin() + 1})) << "what it covers gets nothing either";
    c->transparent = true;
    EXPECT_EQ(movedTo({30, 31}), (Log{both[0], both[2], both[3]}));
    c->setVisible(false);
    a->setEnabled(false);
    EXPECT_EQ(movedTo({30, 31}), (Log{both[0]}));
    root->setEnabled(false);
    PointerEvent event{.position = {30, 31}};
    EXPECT_FALSE(root->Panel::pointerPress(event));
}

TEST_F(TaviRouting, TheInnermostThatHandlesAPressHasThePointer) {
    PointerEvent event{.position = {16, 16}};
    EXPECT_FALSE(root->pointerPress(event));
    EXPECT_EQ(host.owner, nullptr);
    b->onPointer = [](Probe&) { return true; };
    EXPECT_TRUE(root->pointerPress(event));
    EXPECT_EQ(host.owner, b);
    EXPECT_EQ(event.position, (Point{16, 16}));
    host.owner = nullptr;
    b->onPointer = [&](Probe&) { return (host.owner = root.get()) != nullptr; };
    root->pointerPress(event);
    EXPECT_EQ(host.owner, root.get()) << "who took it himself keeps it";
}

TEST_F(TaviRouting, TheWheelGoesToThePointerThenToTheFocus) {
    host.focus = b;
    EXPECT_EQ(logOf([&] { wheelAt({200, 150}, false); }),
              (Log{L"wheel r (200, 150)", L"wheel a (190, 140)", L"wheel b (185, 135)"}));
    b->onPointer = [](Probe&) { return true; };
    wheelAt({200, 150}, true);
    EXPECT_EQ(logOf([&] { wheelAt({69, 69}, true); }),
              (Log{L"wheel r (69, 69)", L"wheel c (49, 49)", L"wheel a (59, 59)", L"wheel b (54, 54)"}));
    c->onPointer = b->onPointer;
    EXPECT_EQ(logOf([&] { wheelAt({69, 69}, true); }), (Log{L"wheel r (69, 69)", L"wheel c (49, 49)"}));
}

TEST_F(TaviRouting, AReleaseGoesToAllThatAreSeen) {
    a->onPointer = [](Probe&) { return true; };
    c->setEnabled(false);
    PointerEvent event{.position = {1, 1}};
    EXPECT_EQ(logOf([&] { EXPECT_TRUE(root->pointerRelease(event)); }),
              (Log{L"release r (1, 1)", L"release a (-9, -9)", L"release c (-19, -19)"}));
    c->setVisible(false);
    a->onPointer = {};
    EXPECT_EQ(logOf([&] { EXPECT_FALSE(root->pointerRelease(event)); }),
              (Log{L"release r (1, 1)", L"release a (-9, -9)", L"release b (-14, -14)"}));
}

TEST_F(TaviRouting, PaintingInOrderAndClipped) {
    const auto painted = [&](const Rect& area) {
        return logOf([&] {
            host.painted = area;
            root->paint(nullptr, {100, 0});
        });
    };
    root->setPaintHook([&](HDC, const Rect& rect) { host.log.push_back(L"hook " + describe(rect)); });
    c->onPaint = [](Probe& probe) { probe.setContours(ContourKind::Shape, {{1, 1, 1, 1}}); };
    const Log all{L"paint r (100, 0)",
                  L"hook (100, 0, 300x200)",
                  L"clip (110, 10, 100x100)",
                  L"paint a (110, 10)",
                  L"clip (115, 15, 50x50)",
                  L"paint b (115, 15)",
                  L"unclip",
                  L"unclip",
                  L"clip (120, 20, 50x50)",
                  L"paint c (120, 20)",
                  L"unclip"};
    EXPECT_EQ(painted({0, 0, 400, 200}), all);
    EXPECT_TRUE(c->contourLists()[0].empty()) << "put back";
    EXPECT_EQ(painted({110, 10, 5, 5}), (Log{all[0], all[1], all[2], all[3], all[7]}));
    b->setBounds({5, 5, 50, 0});
    c->setVisible(false);
    EXPECT_EQ(painted({0, 0, 400, 200}), (Log{all[0], all[1], all[2], all[3], all[7]}));
}

}  // namespace
