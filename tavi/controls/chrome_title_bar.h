// The title bar that a window without a frame of Windows draws: its title, the caption buttons, and the area that moves
// the window.
#pragma once

#include <array>
#include <functional>
#include <string>
#include <vector>

#include "tavi/controls/label.h"
#include "tavi/controls/themed_button.h"
#include "tavi/core/panel.h"
#include "tavi/theme/theme.h"

namespace tavi {

// In the order in which they stand.
enum class CaptionButton : uint8_t { kMinimize, kMaximize, kResetSize, kClose };
inline constexpr int kCaptionButtonCount = 4;

class ChromeTitleBar : public Panel {
public:
    // The theme gives the font of the title; colors and shapes come from the active skin.
    ChromeTitleBar(std::wstring id, const Rect& bounds, std::wstring title, const Theme& theme);

    // A button was pressed or the bar was dragged. The command is this bar's id with ".minimize", ".maximize" or
    // ".restore", ".reset-size", ".close", ".drag" or ".header-action-N" behind it. Whoever consumes it does it
    // himself; else the window is minimised and so on.
    Signal<CommandEvent> command;

    void setButtonShown(CaptionButton button, bool shown);
    // One more button, left of the others (right of them where the window reads from right to left). Returns its index.
    size_t addHeaderAction(Glyph glyph, std::wstring tooltip, std::function<void()> action);
    // "minimize", "restore" while the window is maximised and "maximize" otherwise, "reset-size", "close".
    std::wstring descriptiveName(CaptionButton button) const;

    bool matchesType(std::wstring_view type) const override;
    void automationValue(std::wstring& value) const override { value = text(); }
    void paint(HDC target, Point origin) override;
    void releaseCaches() override;
    void notifyTree() override;
    void windowChanged() override;

protected:
    void textChanged() override;
    void layoutChildren() override;

private:
    class DragArea;
    bool isOffered(CaptionButton button) const;
    void run(const std::wstring& name);
    // What a double click on the bar does; nothing where the window cannot be maximised.
    void toggleMaximized();
    std::vector<ThemedButton*> placedButtons() const;
    Rect titlePlace() const;

    ControlLooks looks_{L"chrometitlebar"};
    TextFont titleFont_;
    Control* drag_ = nullptr;
    std::array<ThemedButton*, kCaptionButtonCount> buttons_ = {};
    std::array<bool, kCaptionButtonCount> wanted_ = {true, true, true, true};
    std::vector<ThemedButton*> headerActions_;
    std::vector<std::function<void()>> actions_;
    TextLayout layout_;
};

}  // namespace tavi
