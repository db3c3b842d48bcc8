// A text that is read: one line with an ellipsis, or lines broken at words.
#pragma once

#include "tavi/controls/control_looks.h"
#include "tavi/text/text_layout.h"

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

    bool matchesType(std::wstring_view type) const override;
    bool transparentToPointer() const override { return tooltip().empty(); }
    void automationValue(std::wstring& value) const override { value = text(); }
    void paint(HDC target, Point origin) override;
    void releaseCaches() override;

protected:
    void textChanged() override;
    void appearanceChanged() override;

private:
    TextFormat format(int32_t deviceWidth) const;
    const TextLayout& layoutFor(int32_t deviceWidth) const;

    ControlLooks looks_{L"text"};
    TextFit fit_ = TextFit::kEllipsis;
    TextAlign align_ = TextAlign::kStart;
    TextVertical vertical_ = TextVertical::kCenter;
    int morePoints_ = 0;
    int weight_ = 0;
    mutable TextLayout layout_;
    mutable bool measured_ = false;
};

}  // namespace tavi
