// What a change of a control sets off, finding, snapshots, diagnostics.
#include "tests/portable/tree_fixture.h"

namespace {

using namespace testing_tree;

TEST_F(TaviTree, EffectsComeInOrderAndOnlyOnce) {
    const Log none;
    const std::pair<std::function<void()>, Log> changes[] = {
        {[&] { a->setBounds({20, 10, 200, 100}); },
         {L"repaint 16 (10, 10, 100x100)", L"bounds a", L"layout a", L"repaint 16 (25, 15, 50x50)", L"bounds b",
          L"layout b", L"changed b", L"repaint 16 (25, 15, 150x50)", L"layout r", L"changed a",
          L"repaint 16 (20, 10, 200x100)"}},
        {[&] { a->setEnabled(false); }, {L"repaint 8 (20, 10, 200x100)", L"changed a"}},
        {[&] { a->setText(L"x"); }, {L"repaint 8 (20, 10, 200x100)", L"text a"}},
        {[&] { a->setStyleId(2); }, {L"repaint 8 (20, 10, 200x100)", L"appearance a"}},
        {[&] { a->setAppearance({.styleName = L"s", .textColor = 1}); },
         {L"repaint 8 (20, 10, 200x100)", L"appearance a"}},
        {[&] { a->setCollapsed(true); }, {L"layout r", L"changed a"}},
        {[&] { b->setConstraints({.width = 150}); }, {L"layout a"}},
        {[&] { b->clearConstraints(); }, {L"layout a"}},
        {[&] { b->setMinimumSize(-1, 20); }, {L"layout a"}},
        {[&] { a->setVisible(false); },
         {L"repaint 16 (20, 10, 200x100)", L"children r", L"layout r", L"changed a", L"repaint 16 (20, 10, 200x100)"}},
        {[&] { b->setText(L"hidden"); }, {L"text b"}},
        {[&] { a->setVisible(true); },
         {L"repaint 16 (20, 10, 200x100)", L"children r", L"layout r", L"changed a", L"repaint 16 (20, 10, 200x100)"}},
    };
    for (const auto& [change, effects] : changes) {
        EXPECT_EQ(logOf(change), effects);
        EXPECT_EQ(logOf(change), none);
    }
    EXPECT_EQ(b->minimumSize(), (Size{0, 20}));
    EXPECT_TRUE(b->hasMinimum());
    EXPECT_EQ(logOf([&] { root->panel(L"c", {1, 2, 3, 4}); }),
              (Log{L"window c", L"children r", L"layout r", L"changed c", L"repaint 16 (1, 2, 3x4)"}));
    std::unique_ptr<Control> removed;
    EXPECT_EQ(
        logOf([&] { removed = root->removeChild(*a); }),
        (Log{L"repaint 16 (20, 10, 200x100)", L"leaves a", L"children r", L"window a", L"window b", L"layout r"}));
    EXPECT_EQ(removed->parent(), nullptr);
    EXPECT_EQ(b->window(), nullptr);
    EXPECT_EQ(logOf([&] { removed->setBounds({}), root->removeChild(*removed); }), (Log{L"bounds a", L"layout a"}));
    Control* const list = root->addAuxiliary(std::make_unique<Probe>(L"list", Rect{500, 500, 9, 9}, &host.log));
    list->setTreeNotification([&](Control&) { host.log.push_back(L"notified"); });
    EXPECT_EQ(logOf([&] { root->layout(), root->notifyTree(), root->releaseAuxiliary(*list); }),
              (Log{L"layout r", L"notified", L"leaves list", L"window list"}));
}

TEST_F(TaviTree, LayoutStartsFromWhatTheApplicationSetLast) {
    const auto widthIn = [&](int32_t extent) {
        root->setBounds({0, 0, extent, 200});
        return a->bounds().width;
    };
    a->setAnchors(kAnchorLeft | kAnchorRight);
    EXPECT_EQ(widthIn(400), 200);
    a->setBounds({20, 10, 100, 100});
    EXPECT_EQ(widthIn(500), 200);
    EXPECT_EQ(widthIn(50), 0);
    EXPECT_EQ(widthIn(400), 100);
    EXPECT_EQ(a->layoutBase(), (Rect{20, 10, 100, 100}));
}

TEST_F(TaviTree, ControlsAreFoundInPreOrder) {
    Probe* const later = root->panel(L"b", {});
    b->panel(L"b", {});
    Control* const unnamed = root->add<Control>();
    Control* const inside = unnamed->add<Control>(L"inside");
    EXPECT_EQ(root->findById(L"b"), b);
    EXPECT_EQ(std::as_const(*root).findById(L"inside"), inside);
    EXPECT_EQ(root->findById(L"B"), nullptr);
    EXPECT_EQ(root->findById(L"r"), nullptr) << "it does not find itself";
    EXPECT_EQ(root->childPointers(), (std::vector<Control*>{a, later, unnamed}));
}

TEST_F(TaviTree, StateComesBackToWhatIsStillThere) {
    Probe* const second = root->add<Control>()->add<Probe>(L"b");
    Probe* const gone = root->panel(L"gone", {});
    second->value = L"42";
    second->setText(L"second");
    b->setCollapsed(true);
    a->setEnabled(false);
    gone->setVisible(false);
    std::vector<ControlState> states;
    root->captureStateTree(states);
    Log ids;
    for (const ControlState& state : states) {
        ids.push_back(state.id);
    }
    ASSERT_EQ(ids, (Log{L"a", L"b", L"b", L"gone"}));
    const std::vector<StateProperty> properties{{L"value", L"42"}};
    EXPECT_EQ(states[2], (ControlState{L"b", {}, true, true, false, L"second", properties}));
    EXPECT_EQ(states[0], (ControlState{L"a", a->bounds(), true, false, false, {}, {}}));

    root->removeChild(*gone);
    second->value.clear();
    second->setText(L"");
    b->setCollapsed(false);
    a->setEnabled(true);
    a->setBounds({0, 0, 7, 7});
    Probe* const third = root->panel(L"b", {});
    third->setText(L"third");
    EXPECT_EQ(root->restoreStateTree(states, false), 3U);
    EXPECT_EQ(second->text() + second->value + third->text(), L"second42third");
    EXPECT_TRUE(b->collapsed());
    EXPECT_FALSE(a->enabled());
    EXPECT_EQ(a->bounds(), (Rect{0, 0, 7, 7}));
    EXPECT_EQ(root->restoreStateTree(states, true), 3U);
    EXPECT_EQ(a->bounds(), (Rect{10, 10, 100, 100}));
}

TEST_F(TaviTree, DiagnosticLines) {
    const Log clamp{
        L"[Tavi diagnostic] Control::applyParentLayout clamp control=b parentArea=(0, 0, 100x100) "
        L"beforeClamp=(5, 5, 50x50) minimum=60x20 anchors=Left,Top,Right,Bottom clamped=width afterClamp=(5, 5, "
        L"60x50)"};
    EXPECT_EQ(linesOf([&] { b->setMinimumSize(60, 20); }), clamp);
    const Log fit{
        L"[Tavi diagnostic] Control::applyParentLayout clamp control=b parentArea=(0, 0, 50x40) "
        L"beforeClamp=(5, 5, 0x-10) minimum=60x20 anchors=Left,Top,Right,Bottom clamped=width,height "
        L"afterClamp=(5, 5, 60x20)",
        L"[Tavi diagnostic] Control::applyParentLayout parent-fit control=b parentArea=(0, 0, 50x40) "
        L"beforeFit=(5, 5, 60x20) afterFit=(0, 5, 50x20) fitted=width minimumCannotFit=width"};
    EXPECT_EQ(linesOf([&] { a->setBounds({10, 10, 50, 40}); }), fit);
    const Log overlap{
        L"[Tavi layout warning] sibling overlap parent=r first=a firstBounds=(10, 10, 50x40) second=c "
        L"secondBounds=(50, 40, 50x50) overlap=(50, 40, 10x10). Use non-overlapping layout geometry; mark an "
        L"intentional overlay with Control::setLayoutOverlapAllowed(true)."};
    EXPECT_EQ(linesOf([&] { root->panel(L"c", {50, 40, 50, 50}); }), overlap);
    EXPECT_EQ(linesOf([&] { a->setLayoutOverlapAllowed(true), root->layout(); }), Log{});
    a->setLayoutOverlapAllowed(false);
    EXPECT_EQ(linesOf([&] { a->setCollapsed(true); }), Log{});
    root->findById(L"c")->setMinimumSize(4, 3);
    const Log hint{
        L"[Tavi diagnostic] Panel::minimumContentSizeHint panel=r child=c visible=true needed=54x43 hint=54x43"};
    EXPECT_EQ(linesOf([&] { root->minimumContentSizeHint(); }), hint) << "nothing of a, which is collapsed";
    a->setCollapsed(false);
    a->setAnchors(kAnchorLeft | kAnchorRight | kAnchorBottom);
    const Size needed = root->minimumContentSizeHint();
    root->setBounds({0, 0, 500, 400});
    EXPECT_EQ(root->minimumContentSizeHint(), needed) << "wherever the layout has moved it";
    EXPECT_GT(needed.width, 54);
}

TEST_F(TaviTree, ChildrenAreFittedIntoAContour) {
    // The upper right corner is cut off.
    a->setContours(ContourKind::Shape, {{0, 0, 30, 20}, {0, 20, 100, 40}, {0, 60, 100, 40}});
    EXPECT_EQ(a->contours(ContourKind::Hit), (std::vector<Rect>{{0, 0, 30, 20}, {0, 20, 100, 80}}));
    EXPECT_EQ(a->shapeBounds(), (Rect{0, 0, 100, 100}));
    EXPECT_EQ(b->bounds(), (Rect{5, 20, 50, 50}));
    b->setMinimumSize(50, 1);
    const Log line{
        L"[Tavi diagnostic] Control::layoutChildren contour-fit parent=a control=b parentArea=(0, 0, 100x100) "
        L"beforeFit=(5, 5, 50x50) afterFit=(0, 5, 30x50) minimumCannotFit=width"};
    EXPECT_EQ(linesOf([&] { a->setContours(ContourKind::Content, {{0, 0, 30, 90}}); }), line);
    EXPECT_FALSE(a->hitTest({30, 10}));
    EXPECT_TRUE(a->hitTest({30, 20}));
}

TEST_F(TaviTree, AutomationName) {
    using Text = const wchar_t*;
    constexpr std::tuple<Text, Text, Text, Text> kCases[] = {
        {L"name", L"value", L"text", L"name"}, {L"", L"value", L"value and more", L"value and more"},
        {L"", L"value", L"", L"value"},        {L"", L"value", L"text", L"value\ntext"},
        {L"", L"", L"text", L"text"},          {L"", L"", L"", L"a"},
    };
    for (const auto& [name, value, text, expected] : kCases) {
        a->setAutomationName(name);
        a->value = value;
        a->setAutomationText(text);
        EXPECT_EQ(a->automationName(), expected);
    }
}

}  // namespace
