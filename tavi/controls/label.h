// A text that is read: one line with an ellipsis, or lines broken at words. It begins as far inside of the bounds as
// the surfaces of other controls do, so that texts, fields and buttons with the same edges stand in line.
#pragma once

#include "tavi/controls/control_looks.h"
#include "tavi/controls/control_text.h"

namespace tavi {

class Label : public Control {
public:
    Label(std::wstring id, const Rect& bounds, std::wstring text);

    void setFit(TextFit fit);
    void setAlign(TextAlign align, TextVertical vertical = TextVertical::kCenter);
    // Larger than the style's font by so many points, and of another weight (0: the style's). For headings.
    void setFontChange(int morePoints, int weight);

    // What the text needs, design pixels: `width` is the room for lines that are broken, 0 for any. Needs a window.
    Size preferredSize(int32_t width = 0) const;
    // Whether an ellipsis stands for a part of it.
    bool isCut() const;

    bool matchesType(std::wstring_view type) const override { return type == L"text"; }
    // A label that explains itself is met by the pointer, so that its tooltip can appear.
    bool transparentToPointer() const override { return tooltip().empty(); }
    void automationValue(std::wstring& value) const override { value = text(); }
    void paint(HDC target, Point origin) override;
    void releaseCaches() override;

private:
    TextFont font() const;
    const TextLayout& fitted(const Rect& room) const;
    // What the text may cover on the device.
    Rect room(Point origin) const;

    ControlLooks looks_{L"text"};
    mutable ControlText lines_;
    TextFit fit_ = TextFit::kEllipsis;
    TextAlign align_ = TextAlign::kStart;
    TextVertical vertical_ = TextVertical::kCenter;
    int morePoints_ = 0;
    int weight_ = 0;
};

}  // namespace tavi
