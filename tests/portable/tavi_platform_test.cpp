// The pure decisions behind Windows' messages: sizes, frames, translation, awareness.
#include "tavi/core/dpi_awareness.h"
#include "tavi/core/message_translation.h"
#include "tavi/core/sizing.h"
#include "tests/portable/host_stand_in.h"

namespace {

using namespace tavi;

TEST(TaviSizing, TheDraggedEdgeGivesWay) {
    const Size minimum{300, 200};
    const Rect work{0, 0, 1000, 800};
    const struct {
        SizingEdge edge;
        Rect proposed;
        Rect expected;
    } cases[] = {
        {SizingEdge::Right, {100, 100, 250, 250}, {100, 100, 300, 250}},
        {SizingEdge::Left, {150, 100, 250, 250}, {100, 100, 300, 250}},
        {SizingEdge::Top, {100, 150, 400, 150}, {100, 100, 400, 200}},
        {SizingEdge::Bottom, {100, 100, 400, 150}, {100, 100, 400, 200}},
        {SizingEdge::TopLeft, {150, 150, 250, 150}, {100, 100, 300, 200}},
        {SizingEdge::TopRight, {100, 150, 250, 150}, {100, 100, 300, 200}},
        {SizingEdge::BottomLeft, {150, 100, 250, 150}, {100, 100, 300, 200}},
        {SizingEdge::BottomRight, {100, 100, 250, 150}, {100, 100, 300, 200}},
        // An axis that is not dragged is left alone.
        {SizingEdge::Right, {100, 100, 400, 50}, {100, 100, 400, 50}},
        // Never larger than the work area, measured from the edge that stays.
        {SizingEdge::Right, {100, 100, 1500, 300}, {100, 100, 1000, 300}},
        {SizingEdge::Left, {-900, 100, 1500, 300}, {-400, 100, 1000, 300}},
        // The title bar stays reachable; the minimum goes before.
        {SizingEdge::Top, {100, -50, 400, 450}, {100, 0, 400, 400}},
        {SizingEdge::Top, {100, -250, 400, 350}, {100, -100, 400, 200}},
    };
    for (const auto& each : cases) {
        EXPECT_EQ(constrainSizingRect(each.proposed, static_cast<int>(each.edge), minimum, work), each.expected)
            << testing::PrintToString(describeSizingEdge(static_cast<int>(each.edge)));
    }
    EXPECT_EQ(constrainSizingRect({1, 2, 3, 4}, 9, minimum, work), (Rect{1, 2, 3, 4}));
    // A work area smaller than the minimum wins.
    EXPECT_EQ(constrainSizingRect({0, 0, 50, 50}, static_cast<int>(SizingEdge::BottomRight), minimum, {0, 0, 200, 100}),
              (Rect{0, 0, 200, 100}));
}

TEST(TaviSizing, WindowsStayWithinTheirWorkArea) {
    const Rect work{-1920, 40, 1920, 1000};
    const std::pair<Rect, Rect> cases[] = {
        {{-1800, 100, 500, 400}, {-1800, 100, 500, 400}}, {{100, 100, 500, 400}, {-500, 100, 500, 400}},
        {{-3000, -200, 500, 400}, {-1920, 40, 500, 400}}, {{-1800, 900, 5000, 4000}, {-1920, 40, 1920, 1000}},
        {{-1800, 100, 10, 10}, {-1800, 100, 300, 200}},
    };
    for (const auto& [window, expected] : cases) {
        EXPECT_EQ(fitWindowRectToMinimumAndWorkArea(window, {300, 200}, work), expected);
    }
    EXPECT_EQ(centered({500, 400}, {-1000, 500, 100, 100}, work), (Rect{-1200, 350, 500, 400}));
    EXPECT_EQ(centered({500, 400}, {-10, 500, 20, 20}, work), (Rect{-500, 310, 500, 400}));
}

TEST(TaviSizing, FrameOfAWindowThatDrawsItsOwn) {
    const std::pair<Point, const wchar_t*> cases[] = {
        {{0, 100}, L"HTLEFT"},       {{5, 100}, L"HTLEFT"},          {{6, 100}, L"HTCLIENT"},
        {{394, 100}, L"HTRIGHT"},    {{393, 100}, L"HTCLIENT"},      {{200, 0}, L"HTTOP"},
        {{200, 299}, L"HTBOTTOM"},   {{0, 0}, L"HTTOPLEFT"},         {{11, 5}, L"HTTOPLEFT"},
        {{11, 6}, L"HTCLIENT"},      {{5, 11}, L"HTTOPLEFT"},        {{399, 0}, L"HTTOPRIGHT"},
        {{0, 299}, L"HTBOTTOMLEFT"}, {{390, 299}, L"HTBOTTOMRIGHT"}, {{200, 150}, L"HTCLIENT"}};
    for (const auto& [point, expected] : cases) {
        EXPECT_EQ(describeHitCode(static_cast<int>(hitTestFrame(point, {400, 300}, 6))), expected)
            << testing::PrintToString(describe(point));
    }
    EXPECT_EQ(hitTestFrame({0, 0}, {400, 300}, 0), HitCode::Client);
    EXPECT_EQ(describeHitCode(2) + L" " + describeHitCode(5) + L" " + describeHitCode(21), L"HTCAPTION HTMENU HTHELP");
    EXPECT_EQ(describeHitCode(77), L"77");
    EXPECT_EQ(describeSizingEdge(7), L"WMSZ_BOTTOMLEFT");
}

TEST(TaviMessages, PointersAndWheels) {
    const auto parameter = [](int32_t x, int32_t y) {
        return static_cast<intptr_t>((static_cast<uint32_t>(y) & 0xFFFF) << 16 | (static_cast<uint32_t>(x) & 0xFFFF));
    };
    EXPECT_EQ(pointOf(parameter(-1920, -5)), (Point{-1920, -5})) << "a monitor to the left";
    struct Case {
        uint32_t number;
        uintptr_t keys;
        PointerAction action;
        PointerButton button;
        int32_t clicks;
    };
    using enum PointerAction;
    using enum PointerButton;
    constexpr Case kCases[] = {
        {message::kMouseMove, 0, Move, None, 0},        {message::kLeftDown, 0, Press, Left, 1},
        {message::kLeftUp, 0, Release, Left, 1},        {message::kLeftDouble, 0, Press, Left, 2},
        {message::kRightDown, 0, Press, Right, 1},      {message::kRightUp, 0, Release, Right, 1},
        {message::kRightDouble, 0, Press, Right, 2},    {message::kMiddleDown, 0, Press, Middle, 1},
        {message::kMiddleUp, 0, Release, Middle, 1},    {message::kMiddleDouble, 0, Press, Middle, 2},
        {message::kExtraDown, 0x10000, Press, X1, 1},   {message::kExtraUp, 0x20000, Release, X2, 1},
        {message::kExtraDouble, 0x20000, Press, X2, 2},
    };
    for (const Case& c : kCases) {
        const PointerMessage message = translatePointer(c.number, c.keys, parameter(-3, 7), false);
        EXPECT_EQ(std::tuple(message.action, message.event.button, message.event.clicks),
                  std::tuple(c.action, c.button, c.clicks))
            << std::hex << c.number;
        EXPECT_EQ(message.event.position, (Point{-3, 7}));
    }
    const PointerEvent all = translatePointer(message::kMouseMove, 0x0077, 0, true).event;
    EXPECT_EQ(all.held, heldFlag(Left) | heldFlag(Right) | heldFlag(Middle) | heldFlag(X1) | heldFlag(X2));
    EXPECT_EQ(all.modifiers, kShift | kAlt);
    EXPECT_EQ(translateWheel(message::kWheel, 0x0008, {}, false).modifiers, +kControlKey);

    EXPECT_DOUBLE_EQ(translateWheel(message::kWheel, 0xFF880000, {4, 5}, false).steps, -1.0);
    EXPECT_DOUBLE_EQ(translateWheel(message::kWheel, 0x001E0000, {4, 5}, false).steps, 0.25) << "a fine wheel";
    EXPECT_TRUE(translateWheel(message::kHorizontalWheel, 0, {}, false).horizontal);
}

TEST(TaviMessages, KeysTextAndCommands) {
    const KeyEvent held = translateKey(0x41, 0x40000003, kControlKey);
    EXPECT_EQ(held.code, 0x41U);
    EXPECT_EQ(held.repeats, 3);
    EXPECT_TRUE(held.wasDown);
    EXPECT_FALSE(translateKey(0x41, 1, 0).wasDown);
    const std::pair<uint32_t, EditCommand> commands[] = {{message::kCut, EditCommand::Cut},
                                                         {message::kCopy, EditCommand::Copy},
                                                         {message::kPaste, EditCommand::Paste},
                                                         {message::kClear, EditCommand::Clear},
                                                         {message::kUndo, EditCommand::Undo}};
    for (const auto& [number, command] : commands) {
        EXPECT_EQ(translateEditCommand(number), command);
    }
    EXPECT_EQ(translateEditCommand(message::kLeftDown), std::nullopt);

    TextAssembler assembler;
    const auto typed = [&](std::initializer_list<uintptr_t> units) {
        std::wstring all;
        for (const uintptr_t unit : units) {
            all += assembler.add(unit);
        }
        return all;
    };
    EXPECT_EQ(typed({'a', 0xE9, 0x20AC}), L"a\u00E9\u20AC");
    EXPECT_EQ(typed({0xD83D, 0xDE00}), L"\U0001F600");
    EXPECT_EQ(typed({0xD83D, 'x', 0xDE00, 'y'}), L"xy") << "half a pair is dropped";
    EXPECT_EQ(typed({1, 0x1B, 0x7F, '\b', '\t', '\r'}), L"\b\t\r");
}

TEST(TaviDpi, Awareness) {
    using Answer = std::optional<uint32_t>;
    const std::tuple<Answer, uint32_t, const wchar_t*> cases[] = {
        {0, 99, L"per-monitor-v2"},
        {5, 99, L"preconfigured-by-host"},
        {std::nullopt, 0, L"system-aware-fallback"},
        {87, 0, L"system-aware-fallback"},
        {std::nullopt, 5, L"preconfigured-by-host"},
        {87, 6, L"unavailable"},
    };
    for (const auto& [perMonitor, system, expected] : cases) {
        bool askedSystem = false;
        const DpiAwareness mode = chooseDpiAwareness([&] { return perMonitor; },
                                                     [&] {
                                                         askedSystem = true;
                                                         return system;
                                                     });
        EXPECT_EQ(dpiAwarenessName(mode), expected);
        EXPECT_EQ(askedSystem, system != 99) << "asked only when the better one is not to be had";
    }
}

}  // namespace
