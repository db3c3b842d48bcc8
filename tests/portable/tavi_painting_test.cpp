// What is painted, when, and at which scale.
#include <random>

#include "tests/portable/window_fixture.h"

namespace {

using namespace testing_tavi;

// Whatever changes, painting what was asked for gives the picture that painting everything gives, at every scale.
TEST_F(TaviWindow, PaintingWhatIsDirtyIsPaintingEverything) {
    std::mt19937 random(5);
    const auto below = [&](int32_t end) { return static_cast<int32_t>(random() % static_cast<uint32_t>(end)); };
    size_t painted = 0;
    for (const int32_t dpi : {96, 120, 144, 168, 192, 288}) {
        const Size client{200 + below(7), 150 + below(7)};
        tree = WindowTree::create(platform);
        tree->setClient(client, dpi);
        std::vector<Probe*> probes;
        for (int i = 0; i < 12; ++i) {
            Panel* const parent =
                probes.empty() || i % 3 == 0 ? &tree->root() : static_cast<Panel*>(probes[random() % probes.size()]);
            probes.push_back(
                parent->add<Probe>(std::to_wstring(i), Rect{below(60), below(50), 5 + below(70), 5 + below(60)}));
            probes.back()->setAnchors(random() % 16);
        }
        Canvas canvas(client);
        tree->pointerMove({.position = {30, 30}});
        for (int step = 0; step < 60; ++step) {
            if (step == 40) {  // with the overlay from here on
                for (const uint32_t modifiers : {+kControlKey, kControlKey | kAlt, kControlKey | kAlt, +kShift}) {
                    key(key::kF12, modifiers);
                }
            }
            Probe& probe = *probes[random() % probes.size()];
            switch (random() % 5) {
                case 0:
                    probe.setBounds({below(80) - 10, below(80) - 10, below(90), below(70)});
                    break;
                case 1:
                    probe.setVisible(!probe.visible());
                    break;
                case 2:
                    probe.setText(std::to_wstring(random() % 3));
                    break;
                case 3:
                    probe.setAnchors(random() % 16);
                    break;
                default:
                    probe.setText(probe.text());
                    probe.setBounds(probe.bounds());
            }
            const bool needed = tree->needsPaint();
            const std::vector<uint32_t> before = canvas.pixels;
            tree->paint(canvas.handle());
            EXPECT_EQ(before != canvas.pixels && !needed, false) << "painted although nothing had changed";
            painted += needed;
            EXPECT_FALSE(tree->needsPaint());
            Canvas whole(client);
            tree->repaintAll();
            tree->paint(whole.handle());
            ASSERT_EQ(canvas.pixels == whole.pixels, true) << "at " << dpi << " dpi, step " << step;
        }
    }
    EXPECT_GT(painted, 100U);
}

TEST_F(TaviWindow, OnlyWhatChangedIsAskedFor) {
    Probe* const small = add(L"small", {10, 10, 20, 10}, nullptr, true);
    Probe* const far = add(L"far", {300, 200, 20, 10}, nullptr, true);
    Canvas canvas({400, 300});
    tree->paint(canvas.handle());
    platform.scheduled.clear();
    small->setText(L"new");
    small->setText(L"newer");
    far->setText(L"new");
    const std::vector<Rect> both{{10, 10, 20, 10}, {300, 200, 20, 10}};
    const std::tuple<const char*, std::vector<Rect>, std::function<void()>> cases[] = {
        {"texts", both, [] {}},
        {"gets the focus", {both[0]}, [&] { tree->setFocus(small); }},
        {"takes the focus", both, [&] { tree->setFocus(far); }},
        {"keyboard gone", {both[1]}, [&] { tree->activated(false); }},
        {"hidden", {both[0]}, [&] { small->setVisible(false); }},
        {"nobody sees it", {}, [&] { small->setText(L"unseen"); }},
        {"background", {{0, 0, 400, 300}}, [&] { tree->setBackground(0x123456); }},
    };
    for (const auto& [name, asked, change] : cases) {
        change();
        EXPECT_EQ(std::exchange(platform.scheduled, {}), asked) << name;
        tree->paint(canvas.handle());
    }
}

TEST(TaviDirtyArea, CoversAllRequestsWithFewRectangles) {
    std::mt19937 random(7);
    for (int round = 0; round < 200; ++round) {
        DirtyArea dirty;
        std::vector<Rect> asked;
        for (int i = 0; i < 40; ++i) {
            asked.push_back({static_cast<int32_t>(random() % 500), static_cast<int32_t>(random() % 500),
                             static_cast<int32_t>(random() % 30), static_cast<int32_t>(random() % 30)});
            dirty.add(asked.back());
            ASSERT_LE(dirty.rects().size(), DirtyArea::kMostRects);
        }
        for (const Rect& rect : asked) {
            for (const Point corner : {Point{rect.x, rect.y}, Point{rect.right() - 1, rect.bottom() - 1}}) {
                EXPECT_TRUE(rect.empty() || std::ranges::any_of(dirty.rects(), [&](const Rect& each) {
                                return each.contains(corner);
                            }));
            }
        }
    }
    DirtyArea two;
    two.add({0, 0, 10, 10});
    two.add({500, 500, 10, 10});
    EXPECT_EQ(two.rects().size(), 2U) << "far apart they stay apart";
    EXPECT_FALSE(two.add({2, 2, 3, 3}));
}

TEST_F(TaviWindow, ATreeThatChangesWhileItIsPaintedIsPaintedAgain) {
    Canvas canvas({400, 300});
    Probe* const first = add(L"first", {0, 0, 50, 50});
    Probe* const late = add(L"late", {100, 0, 50, 50});
    Probe* const last = add(L"last", {200, 0, 50, 50});
    late->setVisible(false);
    tree->paint(canvas.handle());
    first->setPaintHook([&](HDC, const Rect&) { late->setVisible(true); });
    tree->repaintAll();
    tree->paint(canvas.handle());
    EXPECT_TRUE(tree->needsPaint());
    tree->paint(canvas.handle());
    EXPECT_FALSE(tree->needsPaint());
    Canvas whole({400, 300});
    tree->repaintAll();
    tree->paint(whole.handle());
    EXPECT_EQ(canvas.pixels == whole.pixels, true);
    // Hooks that take away what is being painted.
    last->setPaintHook([&](HDC, const Rect&) { last->setPaintHook({}); });
    late->setPaintHook([&](HDC, const Rect&) { tree->root().removeChild(*late); });
    first->setPaintHook([&](HDC, const Rect&) { tree->repaintAll(), tree->paint(canvas.handle()); });
    for (int i = 0; i < 3; ++i) {
        tree->repaintAll();
        tree->paint(canvas.handle());
        EXPECT_TRUE(canvas.clips.empty());
    }
}

TEST_F(TaviWindow, TheClientAreaAndItsScale) {
    std::vector<int32_t> notified;
    tree->root().setTreeNotification([&](Control& root) { notified.push_back(root.window()->scale().dpi()); });
    Probe* const box = add(L"box", {100, 100, 50, 20}, nullptr, true);
    box->setAnchors(kAnchorRight | kAnchorBottom);
    tree->setFocus(box);
    tree->setClient({600, 450}, 144);
    EXPECT_EQ(tree->root().bounds(), (Rect{0, 0, 400, 300}));
    EXPECT_EQ(box->bounds(), (Rect{100, 100, 50, 20}));
    EXPECT_EQ(focused(), L"box");
    EXPECT_TRUE(std::ranges::contains(taken(), L"box caches"));
    tree->setClient({601, 450}, 144);
    tree->setClient({600, 450}, 144);
    EXPECT_EQ(notified, std::vector<int32_t>{144}) << "only with the scale";
    platform.scheduled.clear();
    Canvas canvas({600, 450});
    tree->paint(canvas.handle());
    box->setText(L"new");
    EXPECT_EQ(platform.scheduled, (std::vector<Rect>{{150, 150, 75, 30}}));
    move({150, 150});
    EXPECT_EQ(tree->hovered(), box) << "input comes in device pixels";
    taken();
    press({220, 175});
    release({220, 175});
    EXPECT_EQ(box->at, (Point{46, 16}));
    tree->setFocus(nullptr);
    tree->pointerWheel({.position = {220, 175}, .steps = 1});
    EXPECT_EQ(taken(), (Log{L"box press", L"box release", L"box blur", L"box wheel"}));
    move({150, 150});
    move({149, 150});
    EXPECT_EQ(tree->hovered(), &tree->root());
    tree->setDiagnostics(true);
    for (int i = 0; i < 2; ++i) {
        tree->writeDiagnostic(L"[Tavi layout warning] the same");
        tree->writeDiagnostic(L"[Tavi diagnostic] Panel::minimumContentSizeHint the same");
        tree->writeDiagnostic(L"[Tavi diagnostic] each time");
    }
    EXPECT_EQ(platform.lines.size(), 4U) << "warnings and hints are written once";
}

}  // namespace
