// A designed panel that tells something and asks for an answer: a badge, a heading, a message and a row of buttons. It
// is the content of dialogs and of message boxes.
//
// It lays its parts out for the language and the scale of its window: all of them are measured first, and
// preferredHeight() says how much the message and the buttons need.
#pragma once

#include <string>
#include <vector>

#include "tavi/controls/label.h"
#include "tavi/controls/themed_button.h"
#include "tavi/core/panel.h"

namespace tavi {

// Design pixels above and below what is reserved between message and buttons.
inline constexpr int32_t kPopupMiddleGap = 6;

class DesignedPopup : public Panel {
public:
    DesignedPopup(std::wstring id, const Rect& bounds);

    // A button was pressed; the command is its id.
    Signal<CommandEvent> chosen;
    // It was closed without a button: Escape, where it is the window's cancel control, or dismiss(). Once for ever.
    Signal<PopupEvent> dismissed;

    void setHeading(std::wstring heading);
    const std::wstring& heading() const;
    void setMessage(std::wstring message);
    const std::wstring& message() const;
    // A letter or a sign in the badge; a painted one instead.
    void setBadge(std::wstring letter);
    const std::wstring& badge() const { return badge_; }
    void setBadge(Glyph glyph);
    // In the order in which they are read. The primary one is the default: it looks so, and the caller makes it the
    // window's default control. Returns the button, which it owns; its style name can be changed.
    ThemedButton* addButton(std::wstring id, std::wstring caption, bool primary = false);
    const std::vector<ThemedButton*>& buttons() const { return buttons_; }
    // Design pixels kept free at the top for a title bar, and right above the buttons for controls of others, which may
    // be children of the popup.
    void setReserved(int32_t top, int32_t middle);

    // What it needs at a width, design pixels. Needs a window.
    int32_t preferredHeight(int32_t width) const;
    // Where its parts lie at a size, for whoever puts controls between them. The message is cut where there is less
    // room than all of it needs. Needs a window.
    struct Places {
        Rect badge;
        Rect heading;
        Rect message;
        Rect middle;  // what is reserved between message and buttons
        std::vector<Rect> buttons;
        int32_t height = 0;  // that all of it needs
    };
    Places places(Size size) const;

    void dismiss();

    bool matchesType(std::wstring_view type) const override;
    void automationValue(std::wstring& value) const override { value = heading() + L"\n" + message(); }
    bool activate() override;
    void paint(HDC target, Point origin) override;
    void releaseCaches() override;
    void notifyTree() override;
    void windowChanged() override;

protected:
    void layoutChildren() override;

private:
    bool fillsWindow() const;
    void paintBadge(HDC target, Point origin);

    ControlLooks looks_{L"popup"};
    Label* heading_ = nullptr;
    Label* message_ = nullptr;
    std::wstring badge_;
    Glyph badgeGlyph_ = Glyph::kNone;
    Rect badgePlace_;
    TextLayout badgeLayout_;
    std::vector<ThemedButton*> buttons_;
    int32_t reservedTop_ = 0;
    int32_t reservedMiddle_ = 0;
    bool isDismissed_ = false;
};

}  // namespace tavi
