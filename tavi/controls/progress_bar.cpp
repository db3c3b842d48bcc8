#include "tavi/controls/progress_bar.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace tavi {
namespace {

constexpr int32_t kStepMilliseconds = 30;
// The moving piece needs so many steps from before the bar to beyond it, and covers one part of so many of it.
constexpr int32_t kSteps = 64;
constexpr int32_t kPieceParts = 4;
constexpr int32_t kTrackInset = 2;  // of the track in its frame, design pixels

double numberOf(const std::optional<double>& share) {
    return share.value_or(-1.0);
}

// A part of the track, counted from where reading begins.
Rect partOf(const Rect& track, int32_t from, int32_t to, bool rightToLeft) {
    const int32_t begin = std::clamp(from, 0, track.width);
    const int32_t end = std::clamp(to, 0, track.width);
    return {rightToLeft ? track.right() - end : track.x + begin, track.y, end - begin, track.height};
}

}  // namespace

ProgressBar::ProgressBar(std::wstring id, const Rect& bounds) : Control(std::move(id), bounds) {}

void ProgressBar::setShare(std::optional<double> share) {
    if (share) {
        share = std::isnan(*share) ? std::nullopt : std::optional(std::clamp(*share, 0.0, 1.0));
    }
    if (share_ == share) {
        return;
    }
    const std::optional<double> before = std::exchange(share_, share);
    step_ = 0;
    if (share_) {
        run(false);
    }
    requestRepaint();
    ValueChangedEvent event{.source = this, .oldValue = numberOf(before), .newValue = numberOf(share)};
    changed.emit(event);
}

void ProgressBar::automationValue(std::wstring& value) const {
    value = share_ ? std::to_wstring(std::lround(*share_ * 100)) + L" %" : std::wstring();
}

void ProgressBar::windowChanged() {
    running_ = false;  // the window that it was in has stopped it
}

void ProgressBar::run(bool running) {
    if (window() == nullptr || running_ == running) {
        return;
    }
    running_ = running;
    window()->setControlTimer(*this, running ? kStepMilliseconds : 0, [this] { move(); });
}

void ProgressBar::move() {
    if (!shown()) {
        return run(false);
    }
    step_ = (step_ + 1) % kSteps;
    requestRepaint();
}

Rect ProgressBar::filled(const Rect& track) const {
    const bool rightToLeft = window()->rightToLeft();
    if (share_) {
        return partOf(track, 0, static_cast<int32_t>(std::lround(*share_ * track.width)), rightToLeft);
    }
    const int32_t piece = track.width / kPieceParts;
    const int32_t end = saturate(int64_t{track.width + piece} * step_ / kSteps);
    return partOf(track, end - piece, end, rightToLeft);
}

void ProgressBar::paint(HDC target, Point origin) {
    // Being painted is how it learns that it is seen, for the first time or again.
    run(!share_);
    const SurfaceState state = usable() ? SurfaceState::kNormal : SurfaceState::kDisabled;
    const Rect surface = surfaceArea(*this, origin);
    const int32_t inset = window()->scale().length(kTrackInset);
    const Rect track = insetBy(surface, inset, inset);
    looks_.paintArea(target, *this, origin, surface, state);
    looks_.paintArea(target, *this, origin, track, state, L"track");
    looks_.paintArea(target, *this, origin, filled(track), state, L"fill");
}

}  // namespace tavi
