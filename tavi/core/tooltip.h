// When a tooltip appears and where. The window system shows it (WindowPlatform); this decides.
#pragma once

#include "tavi/core/control.h"
#include "tavi/core/window_platform.h"

namespace tavi {

// How long the pointer rests on a control before its tooltip appears, and how soon another one follows one that is
// shown.
inline constexpr int32_t kTooltipDelay = 500;      // ms
inline constexpr int32_t kNextTooltipDelay = 100;  // ms
inline constexpr int32_t kTooltipDistance = 4;     // design pixels from its anchor

struct TooltipPlace {
    Rect bounds;
    Rect before;  // before it was clamped
    int32_t lowestX = 0;
    int32_t highestX = 0;
    int32_t lowestY = 0;
    int32_t highestY = 0;
    bool clamped() const { return bounds != before; }
};

// Below its anchor and aligned with the side where reading begins; above where there is no room below; then moved into
// `within`, whose near edges count when it is larger. All in pixels of the screen.
TooltipPlace placeTooltip(const Rect& anchor, Size size, const Rect& within, int32_t distance, bool rightToLeft);

// The warning about a tooltip that was moved.
std::wstring reportTooltipClamp(const Rect& anchor, Size size, const TooltipPlace& place, const Rect& within);

// The nearest of a control and its parents that has a tooltip; null for none.
Control* tooltipOwner(Control* hovered);

class TooltipPolicy {
public:
    explicit TooltipPolicy(WindowPlatform& platform) : platform_(platform) {}

    // The pointer is over this control now; null for none.
    void hover(Control* hovered);
    // A press, a key, the wheel, the loss of the window's activation: gone until the pointer is over another control.
    void dismiss();
    // The timer has run out.
    void timeOut(const Scale& scale);

private:
    enum class State { Idle, Waiting, Shown, Dismissed };
    void hide();

    WindowPlatform& platform_;
    State state_ = State::Idle;
    WeakControl owner_;
};

}  // namespace tavi
