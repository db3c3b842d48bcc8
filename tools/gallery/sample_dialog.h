// A dialog as this program's are, with the most usual controls in their states, painted in a skin's look. It shows what
// a skin makes of it all and is what a full frame is measured with; nothing in it can be operated.
#pragma once

#include <memory>
#include <vector>

#include "tavi/core/geometry.h"
#include "tavi/core/native_handles.h"
#include "tavi/theme/skin_definition.h"

namespace gallery {

// Design pixels.
inline constexpr tavi::Size kSampleSize{690, 344};

// Styles and fonts are resolved once, so a paint is only painting.
class SampleDialog {
public:
    // `percent` is the scale, 100 at 96 dots an inch.
    explicit SampleDialog(const tavi::SkinDefinition& skin, int percent = 100);
    ~SampleDialog();
    SampleDialog(const SampleDialog&) = delete;
    SampleDialog& operator=(const SampleDialog&) = delete;

    // Device pixels.
    tavi::Size size() const;
    // Paints all of it, its corner at the origin.
    void paint(HDC target) const;

private:
    struct Look;
    struct Fonts;

    int percent_;
    tavi::Color ground_;
    std::vector<Look> looks_;
    std::unique_ptr<Fonts> fonts_;
};

}  // namespace gallery
