#include "tavi/core/sizing.h"

#include <algorithm>
#include <iterator>

namespace tavi {
namespace {

// Which sides a drag moves: -1 the near one (left, top), 1 the far one, 0 none.
struct EdgeRow {
    SizingEdge edge;
    std::wstring_view name;
    int horizontal;
    int vertical;
    HitCode hit;
    std::wstring_view hitName;
};
constexpr EdgeRow kEdges[] = {
    {SizingEdge::Left, L"WMSZ_LEFT", -1, 0, HitCode::Left, L"HTLEFT"},
    {SizingEdge::Right, L"WMSZ_RIGHT", 1, 0, HitCode::Right, L"HTRIGHT"},
    {SizingEdge::Top, L"WMSZ_TOP", 0, -1, HitCode::Top, L"HTTOP"},
    {SizingEdge::TopLeft, L"WMSZ_TOPLEFT", -1, -1, HitCode::TopLeft, L"HTTOPLEFT"},
    {SizingEdge::TopRight, L"WMSZ_TOPRIGHT", 1, -1, HitCode::TopRight, L"HTTOPRIGHT"},
    {SizingEdge::Bottom, L"WMSZ_BOTTOM", 0, 1, HitCode::Bottom, L"HTBOTTOM"},
    {SizingEdge::BottomLeft, L"WMSZ_BOTTOMLEFT", -1, 1, HitCode::BottomLeft, L"HTBOTTOMLEFT"},
    {SizingEdge::BottomRight, L"WMSZ_BOTTOMRIGHT", 1, 1, HitCode::BottomRight, L"HTBOTTOMRIGHT"},
};

// The codes of hits that are no edges.
constexpr std::pair<int, std::wstring_view> kOtherHits[] = {
    {-2, L"HTERROR"},  {-1, L"HTTRANSPARENT"}, {0, L"HTNOWHERE"},   {1, L"HTCLIENT"},
    {2, L"HTCAPTION"}, {3, L"HTSYSMENU"},      {4, L"HTGROWBOX"},   {5, L"HTMENU"},
    {6, L"HTHSCROLL"}, {7, L"HTVSCROLL"},      {8, L"HTMINBUTTON"}, {9, L"HTMAXBUTTON"},
    {18, L"HTBORDER"}, {19, L"HTOBJECT"},      {20, L"HTCLOSE"},    {21, L"HTHELP"},
};

struct Stretch {
    int64_t from;
    int64_t to;
};

// One axis of a drag. `dragged` as in EdgeRow.
Stretch constrainAxis(Stretch proposed, int dragged, int64_t minimum, Stretch work) {
    const int64_t most = std::max<int64_t>(work.to - work.from, 1);
    const int64_t size = std::clamp(proposed.to - proposed.from, std::min(minimum, most), most);
    if (dragged < 0) {
        return {proposed.to - size, proposed.to};
    }
    return {proposed.from, dragged > 0 ? proposed.from + size : proposed.to};
}

}  // namespace

std::wstring describeSizingEdge(int edge) {
    const auto row = std::ranges::find(kEdges, edge, [](const EdgeRow& each) { return static_cast<int>(each.edge); });
    return row != std::end(kEdges) ? std::wstring(row->name) : std::to_wstring(edge);
}

std::wstring describeHitCode(int code) {
    const auto row = std::ranges::find(kEdges, code, [](const EdgeRow& each) { return static_cast<int>(each.hit); });
    if (row != std::end(kEdges)) {
        return std::wstring(row->hitName);
    }
    const auto other = std::ranges::find(kOtherHits, code, [](const auto& each) { return each.first; });
    return other != std::end(kOtherHits) ? std::wstring(other->second) : std::to_wstring(code);
}

Rect constrainSizingRect(const Rect& proposed, int edge, Size minimum, const Rect& workArea) {
    const auto row = std::ranges::find(kEdges, edge, [](const EdgeRow& each) { return static_cast<int>(each.edge); });
    if (row == std::end(kEdges)) {
        return proposed;
    }
    const Stretch across =
        constrainAxis({proposed.x, proposed.right()}, row->horizontal, minimum.width, {workArea.x, workArea.right()});
    Stretch down =
        constrainAxis({proposed.y, proposed.bottom()}, row->vertical, minimum.height, {workArea.y, workArea.bottom()});
    if (row->vertical < 0) {
        // The minimum goes before: a window that hangs over the lower edge keeps its height.
        down.from = std::min(std::max<int64_t>(down.from, workArea.y),
                             down.to - std::min<int64_t>(minimum.height, std::max(workArea.height, 1)));
    }
    return rectBetween(across.from, down.from, across.to, down.to);
}

Rect fitWindowRectToMinimumAndWorkArea(const Rect& window, Size minimum, const Rect& workArea) {
    const auto fit = [](int32_t position, int32_t size, int32_t least, int32_t start, int32_t room) {
        const int32_t fitted = std::min(std::max(size, least), std::max(room, 1));
        return Stretch{std::clamp<int64_t>(position, start, int64_t{start} + std::max(room, 1) - fitted), fitted};
    };
    const Stretch across = fit(window.x, window.width, minimum.width, workArea.x, workArea.width);
    const Stretch down = fit(window.y, window.height, minimum.height, workArea.y, workArea.height);
    return {saturate(across.from), saturate(down.from), saturate(across.to), saturate(down.to)};
}

Rect centered(Size window, const Rect& on, const Rect& workArea) {
    const Rect middle{saturate(on.x + (int64_t{on.width} - window.width) / 2),
                      saturate(on.y + (int64_t{on.height} - window.height) / 2), window.width, window.height};
    return fitWindowRectToMinimumAndWorkArea(middle, {}, workArea);
}

HitCode hitTestFrame(Point inWindow, Size window, int32_t border) {
    const auto side = [](int32_t at, int32_t extent, int32_t reach) {
        return at < reach ? -1 : at >= extent - reach ? 1 : 0;
    };
    int across = side(inWindow.x, window.width, border);
    int down = side(inWindow.y, window.height, border);
    if (across != 0 || down != 0) {
        across = side(inWindow.x, window.width, border * 2);
        down = side(inWindow.y, window.height, border * 2);
    }
    // On an edge and not near a corner, the other axis counts for nothing.
    const auto row = std::ranges::find_if(
        kEdges, [&](const EdgeRow& each) { return each.horizontal == across && each.vertical == down; });
    return row != std::end(kEdges) ? row->hit : HitCode::Client;
}

}  // namespace tavi
