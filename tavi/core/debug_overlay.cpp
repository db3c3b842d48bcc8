#include "tavi/core/debug_overlay.h"

#include <iterator>

namespace tavi {
namespace {

constexpr std::wstring_view kHelpLine =
    L"F12 flame source | Ctrl+F12 toggle | Ctrl+Alt+F12 mode | Shift+F12 ids | Ctrl+Shift+F12 content | Alt+F12 "
    L"contours";
constexpr const wchar_t* kModeNames[kOverlayModes] = {L"bounds", L"hot", L"layout"};
constexpr int32_t kLineHeight = 16;

// 0xBBGGRR
constexpr uint32_t kBoundsColor = 0x00C8FF;
constexpr uint32_t kHotColor = 0x4040FF;
constexpr uint32_t kBaseColor = 0xFF80FF;
constexpr uint32_t kContentColor = 0x80FF80;
constexpr uint32_t kContourColors[kContourKinds] = {0xFFFF40, 0x40FFC0, 0xFF8040};
constexpr uint32_t kTextColor = 0xFFFFFF;

struct KeyRow {
    uint32_t modifiers;
    OverlayAction action;
    bool OverlayState::* toggles;  // null: see pressOverlayKey
};
constexpr KeyRow kKeys[] = {
    {kControlKey, OverlayAction::Repaint, &OverlayState::on},
    {kControlKey | kAlt, OverlayAction::Repaint, nullptr},
    {kShift, OverlayAction::Repaint, &OverlayState::ids},
    {kControlKey | kShift, OverlayAction::Repaint, &OverlayState::content},
    {kAlt, OverlayAction::Repaint, &OverlayState::contours},
    {kNoModifier, OverlayAction::CopyContext, nullptr},
};

std::wstring_view nameOf(const Control& control) {
    return control.id().empty() ? std::wstring_view(L"(anonymous)") : std::wstring_view(control.id());
}

std::wstring_view onOff(bool on) {
    return on ? L"on" : L"off";
}

void frame(std::vector<OverlayItem>& items, const Rect& area, uint32_t color) {
    if (!area.empty()) {
        items.push_back({OverlayItem::Kind::Frame, area, color, {}});
    }
}

void addControl(Control& control, Point origin, const OverlayState& state, const Control* hot, bool withChildren,
                std::vector<OverlayItem>& items) {
    const Rect area = control.localBounds().offset(origin);
    if (state.mode == OverlayMode::Layout && control.parent() != nullptr && control.layoutBase() != control.bounds()) {
        frame(items, control.layoutBase().offset(origin - control.bounds().position()), kBaseColor);
    }
    frame(items, area, &control == hot ? kHotColor : kBoundsColor);
    if (state.content) {
        frame(items, control.contentRectangle().offset(origin), kContentColor);
    }
    for (size_t kind = 0; state.contours && kind < kContourKinds; ++kind) {
        for (const Rect& rect : control.contourLists()[kind]) {
            frame(items, rect.offset(origin), kContourColors[kind]);
        }
    }
    if (state.ids && !control.id().empty() && !area.empty()) {
        items.push_back({OverlayItem::Kind::Text, area, kTextColor, control.id()});
    }
    for (const auto& child : control.children()) {
        if (withChildren && child && child->visible()) {
            addControl(*child, origin + child->bounds().position(), state, hot, true, items);
        }
    }
}

}  // namespace

OverlayAction pressOverlayKey(OverlayState& state, const KeyEvent& event) {
    if (event.code != key::kF12 || event.wasDown) {
        return OverlayAction::None;
    }
    for (const KeyRow& row : kKeys) {
        if (row.modifiers != event.modifiers || (!state.on && row.toggles != &OverlayState::on)) {
            continue;
        }
        if (row.toggles != nullptr) {
            state.*row.toggles = !(state.*row.toggles);
        } else if (row.action == OverlayAction::Repaint) {
            state.mode = static_cast<OverlayMode>((static_cast<int>(state.mode) + 1) % kOverlayModes);
        }
        return row.action;
    }
    return OverlayAction::None;
}

std::wstring overlayStatusLine(const OverlayState& state, Point cursor, const Control* hot) {
    std::wstring line = L"Ctrl+F12 UI debug | mode=";
    line.append(kModeNames[static_cast<int>(state.mode)]).append(L" | ids=").append(onOff(state.ids));
    line.append(L" | content=").append(onOff(state.content)).append(L" | contours=").append(onOff(state.contours));
    line.append(L" | cursor ").append(describe(cursor)).append(L" | hot=");
    return line.append(hot != nullptr ? nameOf(*hot) : L"none");
}

std::wstring debugContext(const Control* hot, Point cursor) {
    std::wstring text = L"Tavi debug context";
    const auto line = [&](std::wstring_view key, std::wstring_view value) {
        text.append(L"\r\n").append(key).append(L"=").append(value);
    };
    line(L"cursor", describe(cursor));
    if (hot == nullptr) {
        line(L"control", L"none");
        return text;
    }
    std::wstring path;
    for (const Control* each = hot; each != nullptr; each = each->parent()) {
        path.insert(0, path.empty() ? std::wstring(nameOf(*each)) : std::wstring(nameOf(*each)) + L"/");
    }
    const std::pair<std::wstring_view, bool> flags[] = {{L"visible", hot->visible()},
                                                        {L"enabled", hot->enabled()},
                                                        {L"collapsed", hot->collapsed()},
                                                        {L"constraints", hot->constraints().has_value()},
                                                        {L"takes focus", hot->acceptsFocus()}};
    line(L"control", path);
    line(L"bounds", describe(hot->bounds()));
    line(L"client", describe(hot->localBounds().offset(hot->clientOrigin())));
    line(L"layoutBase", describe(hot->layoutBase()));
    line(L"designParentSize", describe(hot->designParentSize()));
    line(L"anchors", describeAnchors(hot->anchors()));
    line(L"minimum", describe(hot->minimumSize()));
    line(L"contentRectangle", describe(hot->contentRectangle()));
    line(L"styleId", std::to_wstring(hot->styleId()));
    line(L"styleName", hot->appearance().styleName);
    line(L"text", hot->text());
    line(L"children", std::to_wstring(hot->children().size()));
    for (const auto& [name, set] : flags) {
        line(name, set ? L"yes" : L"no");
    }
    return text;
}

std::vector<OverlayItem> overlayPicture(Panel& root, const OverlayState& state, Point cursor, Control* hot) {
    std::vector<OverlayItem> items;
    if (!state.on) {
        return items;
    }
    if (state.mode == OverlayMode::Hot) {
        for (Control* each = hot; each != nullptr; each = each->parent()) {
            addControl(*each, each->clientOrigin(), state, hot, false, items);
        }
    } else {
        addControl(root, root.bounds().position(), state, hot, true, items);
    }
    const Rect client = root.bounds();
    const std::wstring lines[] = {overlayStatusLine(state, cursor, hot), std::wstring(kHelpLine)};
    int64_t y = int64_t{client.bottom()} - static_cast<int64_t>(std::size(lines)) * kLineHeight;
    for (const std::wstring& line : lines) {
        items.push_back(
            {OverlayItem::Kind::Text, {client.x, saturate(y), client.width, kLineHeight}, kTextColor, line});
        y += kLineHeight;
    }
    return items;
}

}  // namespace tavi
