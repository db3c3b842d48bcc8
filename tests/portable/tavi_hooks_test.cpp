// Hooks that misbehave, and layout of random trees.
#include <random>

#include "tests/portable/tree_fixture.h"

namespace {

using namespace testing_tree;

template <typename Event>
void send(Probe& root, bool (Probe::*handler)(Event&)) {
    Event event{.position = {15, 15}};
    (root.*handler)(event);
}

// Three siblings, the one in the middle destroys one of them or what they are in, out of each kind of hook.
TEST(TaviHooks, MayDestroyAnything) {
    using Trigger = std::function<void(Probe&)>;
    const std::pair<const char*, Trigger> triggers[] = {
        {"layout", [](Probe& root) { root.setBounds({0, 0, 400, 400}); }},
        {"move", [](Probe& root) { send<PointerEvent>(root, &Probe::pointerMove); }},
        {"press", [](Probe& root) { send<PointerEvent>(root, &Probe::pointerPress); }},
        {"wheel", [](Probe& root) { send<WheelEvent>(root, &Probe::pointerWheel); }},
        {"release", [](Probe& root) { send<PointerEvent>(root, &Probe::pointerRelease); }},
        {"paint", [](Probe& root) { root.paint(nullptr, {}); }},
        {"notification", [](Probe& root) { root.notifyTree(); }},
        {"restoring",
         [](Probe& root) {
             std::vector<ControlState> states;
             root.captureStateTree(states);
             for (ControlState& state : states) {
                 state = {state.id, {1, 1, 5, 5}, false, false, true, L"new", {}};
             }
             root.restoreStateTree(states, true);
         }},
        {"window", [](Probe& root) { root.setWindow(nullptr); }},
        {"leaving", [](Probe& root) { root.children().front()->removeChild(*root.findById(L"x")); }},
    };
    for (const auto& [name, trigger] : triggers) {
        for (const wchar_t each : std::wstring_view(L"xyzpXYZP")) {
            // In capitals: it is taken out of the tree but lives on.
            const bool keep = each < L'a';
            const std::wstring victim(1, keep ? each - L'A' + L'a' : each);
            SCOPED_TRACE(std::string(name) + ", " + static_cast<char>(each));
            HostStandIn host;
            host.painted = std::string_view(name) == "paint" ? Rect{0, 0, 300, 300} : Rect{};
            Probe root(L"r", {0, 0, 300, 300});
            Control* const p = root.panel(L"p", {10, 10, 200, 200});
            p->setAnchors(kAllAnchors);
            std::vector<Probe*> all;
            for (const wchar_t* const id : {L"x", L"y", L"z"}) {
                all.push_back(p->add<Probe>(id, Rect{0, 0, 20, 20}));
                all.back()->setAnchors(kAllAnchors);
                all.back()->setLayoutOverlapAllowed(true);
            }
            root.setWindow(&host);
            Log notified;
            std::unique_ptr<Control> removed;
            const auto destroy = [&] {
                if (Control* const control = root.findById(victim)) {
                    removed = control->parent()->removeChild(*control);
                    if (!keep) {
                        removed.reset();
                    }
                }
            };
            all[1]->onHook = [&](Probe&) { destroy(); };
            all[1]->onPointer = [&](Probe&) { return destroy(), false; };
            all[1]->onPaint = [&](Probe&) { destroy(); };
            all[1]->setTreeNotification([&](Control&) { destroy(); });
            if (std::string_view(name) == "leaving") {
                host.onLeaves = [&](Control&) { destroy(); };
            }
            for (Probe* const other : {all[0], all[2]}) {
                other->setTreeNotification([&](Control& control) { notified.push_back(control.id()); });
            }
            trigger(root);
            for (const wchar_t* const id : {L"x", L"y", L"z", L"p"}) {
                const bool leaves =
                    victim == id || victim == L"p" || (name == std::string_view("leaving") && *id == L'x');
                EXPECT_EQ(root.findById(id) == nullptr, leaves) << testing::PrintToString(id);
            }
            EXPECT_TRUE(!removed || removed->window() == nullptr);
            if (std::string_view(name) == "notification" && victim != L"p") {
                EXPECT_EQ(notified, victim == L"z" ? Log{L"x"} : (Log{L"x", L"z"})) << "none is left out";
            }
            std::vector<Control*> left = root.childPointers();
            for (size_t i = 0; i < left.size(); ++i) {
                EXPECT_EQ(left[i]->window(), root.window());
                std::ranges::copy(left[i]->childPointers(), std::back_inserter(left));
            }
            root.setWindow(nullptr);
        }
    }
}

TEST(TaviHooks, EndlessChangesOfBoundsAreCutOff) {
    const auto dereferenced = [](Control* control) -> Control& { return *control; };
    const auto widen = [](Control& control) {
        const Rect& old = control.bounds();
        control.setBounds({old.x, old.y, old.width + 1, old.height});
    };
    const std::pair<const char*, std::function<void(Probe&)>> cases[] = {
        {"itself", widen},
        {"parent", [&](Probe& probe) { widen(*probe.parent()); }},
        {"siblings",
         [&](Probe& probe) { std::ranges::for_each(probe.parent()->childPointers(), widen, dereferenced); }},
    };
    for (const auto& [name, action] : cases) {
        for (const bool inLayout : {false, true}) {
            SCOPED_TRACE(std::string(name) + (inLayout ? ", in layout" : ""));
            HostStandIn host;
            host.wantsLines = true;
            Probe root(L"r", {0, 0, 300, 300});
            Probe* const p = root.panel(L"p", {0, 0, 100, 100});
            int calls = 0;
            for (int i = 0; i < 3; ++i) {
                Probe* const child = p->panel(L"c", {0, i * 30, 10, 30});
                child->setAnchors(kAllAnchors);
                (inLayout ? child->onLayout : child->onHook) = [&calls, &action](Probe& probe) {
                    if (++calls < 100000) {
                        action(probe);
                    }
                };
            }
            root.setWindow(&host);
            calls = 0;
            p->setBounds({0, 0, 120, 120});
            EXPECT_GT(calls, 0);
            EXPECT_LT(calls, 3 * kLayoutRounds * kLayoutRounds * kLayoutRounds);
            EXPECT_TRUE(inLayout || std::ranges::any_of(host.lines, [](const auto& line) {
                            return line.contains(L"Control::layout unsettled");
                        }));
            calls = 0;
            p->setBounds({0, 0, 140, 140});
            EXPECT_GT(calls, 0) << "the next layout begins anew";
        }
    }
    // What no pass was left for is placed at the end.
    Probe root(L"r", {0, 0, 100, 100});
    Probe* const first = root.panel(L"first", {0, 0, 10, 10});
    Probe* const second = root.panel(L"second", {0, 50, 10, 10});
    first->onHook = [&](Probe&) {
        for (int32_t i = 0; i < 2 * kLayoutPasses; ++i) {
            second->setBounds({0, 50, 500 + i, 10});
        }
    };
    first->setBounds({0, 0, 20, 20});
    EXPECT_EQ(second->bounds(), (Rect{0, 50, 100, 10}));
}

class RandomTree {
public:
    RandomTree(unsigned seed, HostStandIn& host) : random_(seed) {
        grow(root, 3);
        root.setWindow(&host);
        root.layout();
    }

    Probe root{L"r", {0, 0, 400, 300}};
    std::vector<Control*> all;

    int32_t number(int32_t from, int32_t to) {
        return from + static_cast<int32_t>(random_() % static_cast<uint32_t>(to - from));
    }

private:
    std::optional<RelativeLength> length() {
        return random_() % 4 ? std::nullopt : std::optional(RelativeLength{number(-20, 130) / 100.0, number(-20, 20)});
    }
    std::optional<int32_t> fixed() { return random_() % 4 ? std::nullopt : std::optional(number(-5, 120)); }
    void grow(Control& parent, int depth) {
        for (int i = depth == 0 ? 0 : number(0, 5); i > 0; --i) {
            Control* const child =
                parent.add<Probe>(L"", Rect{number(-10, 200), number(-10, 200), number(0, 200), number(0, 200)});
            all.push_back(child);
            child->setAnchors(static_cast<uint32_t>(random_() % 16));
            if (random_() % 3 == 0) {
                child->setConstraints({length(), length(), length(), length(), length(), length(), fixed(), fixed()});
            }
            if (random_() % 3 == 0) {
                child->setMinimumSize(number(-5, 150), number(-5, 150));
            }
            grow(*child, depth - 1);
        }
    }

    std::mt19937 random_;
};

TEST(TaviTreeProperty, LayoutIsStable) {
    for (unsigned seed = 0; seed < 300; ++seed) {
        SCOPED_TRACE(seed);
        HostStandIn host;
        RandomTree tree(seed, host);
        std::vector<Rect> first;
        for (const Control* const control : tree.all) {
            first.push_back(control->bounds());
        }
        for (int round = 0; round < 4; ++round) {
            const bool back = round == 3;
            tree.root.setBounds(back ? Rect{0, 0, 400, 300} : Rect{0, 0, tree.number(1, 900), tree.number(1, 900)});
            for (size_t i = 0; i < tree.all.size(); ++i) {
                const Rect area = tree.all[i]->parent()->localBounds();
                const Rect& bounds = tree.all[i]->bounds();
                ASSERT_TRUE(area.empty() || (bounds.x >= 0 && bounds.y >= 0 && bounds.right() <= area.width &&
                                             bounds.bottom() <= area.height));
                ASSERT_TRUE(!back || area.empty() || bounds == first[i]);
            }
            host.log.clear();
            tree.root.layout();
            ASSERT_EQ(host.log, Log{});
        }
    }
}

}  // namespace
