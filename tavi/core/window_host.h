// What a control may ask of the window that hosts it. WindowTree implements it for real windows; tests put stand-ins in
// its place. All areas are design pixels of the window's client area.
#pragma once

#include <functional>
#include <string>

#include "tavi/core/geometry.h"
#include "tavi/core/native_handles.h"
#include "tavi/core/scale.h"

namespace tavi {

class Control;
class WindowFrame;

// Why an area has to be painted again; flags.
enum RepaintReason : uint32_t { kRepaintAppearance = 8, kRepaintGeometry = 16 };

class WindowHost {
public:
    // Gathers the area for the next paint. Never paints at once.
    virtual void repaint(const Rect& area, uint32_t reason) = 0;
    // A control's place, visibility, collapse or ability to take input has changed.
    virtual void controlChanged(Control& control) = 0;
    // The control is about to leave the tree with all below it: what points there is forgotten.
    virtual void controlLeaves(Control& control) = 0;

    // Its pixels on the device. Controls rasterise text and shapes at this scale.
    virtual const Scale& scale() const = 0;
    // The area that is being painted; empty between paints.
    virtual Rect paintArea() const = 0;
    // Until the matching popClip nothing is painted outside `area`, nor outside an earlier clip.
    virtual void pushClip(HDC target, const Rect& area) = 0;
    virtual void popClip(HDC target) = 0;

    // From now on pointer events go to `control` alone, until the last button is up or it is released.
    virtual void capturePointer(Control& control) = 0;
    virtual void releasePointer() = 0;
    // The control that has the pointer; null when none has.
    virtual Control* pointerOwner() const = 0;
    // Moves the focus; null takes it from everything. False when the control cannot have it now.
    virtual bool setFocus(Control* control) = 0;
    virtual Control* focused() const = 0;
    // The control that the pointer is over, the innermost one.
    virtual Control* hovered() const = 0;

    // Calls `tick` about every so many milliseconds until the control stops it with 0, sets another one, or leaves the
    // window. A tick may do anything, even destroy its control.
    virtual void setControlTimer(Control& control, int32_t milliseconds, std::function<void()> tick = {}) = 0;
    // The clipboard's text; empty where it has none.
    virtual void copyText(const std::wstring& text) = 0;
    virtual std::wstring clipboardText() = 0;
    // Whether its texts are in a script that is written from right to left: texts begin, and rows are laid out, there.
    virtual bool rightToLeft() const = 0;
    // The real window; null where there is none.
    virtual WindowFrame* frame() = 0;

    // Whether lines for developers are wanted; look before composing one.
    virtual bool diagnostics() const = 0;
    // Writes one line. A layout warning, or a minimum, that was written before is not repeated.
    virtual void writeDiagnostic(const std::wstring& line) = 0;

protected:
    ~WindowHost() = default;
};

}  // namespace tavi
