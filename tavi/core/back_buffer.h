// The picture of a window's client area, kept between paints, and the clips while it is painted.
#pragma once

#include <vector>

#include "tavi/core/geometry.h"
#include "tavi/core/native_handles.h"

struct HBITMAP__;
struct HRGN__;

namespace tavi {

// A memory device context with a top-down DIB section of 32 bits a pixel.
class BackBuffer {
public:
    enum class Change { Kept, Made, Failed };

    BackBuffer() = default;
    BackBuffer(const BackBuffer&) = delete;
    BackBuffer& operator=(const BackBuffer&) = delete;
    ~BackBuffer() { reset(); }

    // Makes it anew when it has another size (device pixels), empty then. `like` is the device it will be copied to.
    Change fit(HDC like, Size size);
    // Null before the first `fit` and after one that failed.
    HDC target() const { return target_; }
    void copyTo(HDC window, const Rect& area) const;

private:
    void reset();

    HDC target_ = nullptr;
    HBITMAP__* bitmap_ = nullptr;
    HBITMAP__* originalBitmap_ = nullptr;
    Size size_;
};

// Nested clips of a device context. Regions are kept for the next paint.
class ClipStack {
public:
    ClipStack() = default;
    ClipStack(const ClipStack&) = delete;
    ClipStack& operator=(const ClipStack&) = delete;
    ~ClipStack();

    // Device pixels.
    void push(HDC target, const Rect& area);
    void pop(HDC target);

private:
    struct Saved {
        HRGN__* region;
        bool clipped;  // else there was no clip before
    };
    std::vector<Saved> saved_;
    size_t depth_ = 0;
    HRGN__* area_ = nullptr;
};

}  // namespace tavi
