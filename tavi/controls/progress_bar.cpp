#include "tavi/controls/progress_bar.h"

#include <utility>

namespace tavi {
ProgressBar::ProgressBar(std::wstring id, const Rect& bounds) : Control(std::move(id), bounds) {}
void ProgressBar::setShare(std::optional<double> /*share*/) {}
bool ProgressBar::matchesType(std::wstring_view type) const {
    return type == L"progressbar";
}
void ProgressBar::automationValue(std::wstring& /*value*/) const {}
void ProgressBar::paint(HDC /*target*/, Point /*origin*/) {}
void ProgressBar::releaseCaches() {}
void ProgressBar::windowChanged() {}
void ProgressBar::animate() {}

}  // namespace tavi
