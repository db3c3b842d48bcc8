#include "tavi/controls/designed_popup.h"

#include <utility>

namespace tavi {
DesignedPopup::DesignedPopup(std::wstring id, const Rect& bounds) : Panel(std::move(id), bounds) {}
void DesignedPopup::setHeading(std::wstring /*heading*/) {}
const std::wstring& DesignedPopup::heading() const {
    static const std::remove_cvref_t<const std::wstring&> kNone;
    return kNone;
}
void DesignedPopup::setMessage(std::wstring /*message*/) {}
const std::wstring& DesignedPopup::message() const {
    static const std::remove_cvref_t<const std::wstring&> kNone;
    return kNone;
}
void DesignedPopup::setBadge(std::wstring /*letter*/) {}
void DesignedPopup::setBadge(Glyph /*glyph*/) {}
ThemedButton* DesignedPopup::addButton(std::wstring /*id*/, std::wstring /*caption*/, bool /*primary*/) {
    return nullptr;
}
void DesignedPopup::setReserved(int32_t /*top*/, int32_t /*middle*/) {}
int32_t DesignedPopup::preferredHeight(int32_t /*width*/) const {
    return {};
}
DesignedPopup::Places DesignedPopup::places(Size /*size*/) const {
    return {};
}
void DesignedPopup::dismiss() {}
bool DesignedPopup::matchesType(std::wstring_view type) const {
    return type == L"popup";
}
bool DesignedPopup::activate() {
    return false;
}
void DesignedPopup::paint(HDC /*target*/, Point /*origin*/) {}
void DesignedPopup::releaseCaches() {}
void DesignedPopup::notifyTree() {}
void DesignedPopup::layoutChildren() {}

}  // namespace tavi
