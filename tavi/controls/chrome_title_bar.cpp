#include "tavi/controls/chrome_title_bar.h"

#include <utility>

namespace tavi {
ChromeTitleBar::ChromeTitleBar(std::wstring id, const Rect& bounds, std::wstring title, const Theme& /*theme*/)
    : Panel(std::move(id), bounds) {
    setText(std::move(title));
}
void ChromeTitleBar::setButtonShown(CaptionButton /*button*/, bool /*shown*/) {}
size_t ChromeTitleBar::addHeaderAction(Glyph /*glyph*/, std::wstring /*tooltip*/, std::function<void()> /*action*/) {
    return {};
}
std::wstring ChromeTitleBar::descriptiveName(CaptionButton /*button*/) const {
    return {};
}
bool ChromeTitleBar::matchesType(std::wstring_view type) const {
    return type == L"chrometitlebar";
}
void ChromeTitleBar::paint(HDC /*target*/, Point /*origin*/) {}
void ChromeTitleBar::releaseCaches() {}
void ChromeTitleBar::notifyTree() {}
void ChromeTitleBar::textChanged() {}
void ChromeTitleBar::layoutChildren() {}
void ChromeTitleBar::run(const std::wstring& /*name*/) {}

}  // namespace tavi
