// The text field in a real window: keys and pointer as they come, the clipboard, the caret's timer.
#include <windows.h>

#include <imm.h>

#include "tavi/controls/edit_menu_texts.h"
#include "tavi/controls/text_input.h"
#include "tavi/controls/themed_button.h"
#include "tests/windows/window_support.h"

namespace {

using namespace testing_windows;

struct TextInputWin32 : testing::Test {
    Window window{kInstance};
    TextInput* field = nullptr;

    void SetUp() override {
        field = window.root().add<TextInput>(L"field", Rect{20, 20, 300, 32}, L"C:\\Program Files\\One");
        ASSERT_TRUE(window.create({.title = L"tavi text", .clientSize = {400, 100}}));
        window.show();
        SetForegroundWindow(window.handle());
        ASSERT_TRUE(pumpUntil([&] { return window.tree().focused() == field; }));
    }
    static void stroke(WORD key, bool control = false) {
        if (control) {
            sendKey(VK_CONTROL, true);
        }
        sendKey(key, true);
        sendKey(key, false);
        if (control) {
            sendKey(VK_CONTROL, false);
        }
    }
    static void type(std::wstring_view text) {
        for (const wchar_t unit : text) {
            sendKey(0, true, KEYEVENTF_UNICODE, unit);
            sendKey(0, false, KEYEVENTF_UNICODE, unit);
        }
    }
    bool becomes(const std::wstring& text) {
        return pumpUntil([&] { return field->text() == text; });
    }
};

TEST_F(TextInputWin32, TypesAndUsesTheClipboard) {
    type(L"D:\\\u017Belazny \U0001F600");
    EXPECT_TRUE(becomes(L"D:\\\u017Belazny \U0001F600")) << "the first focus selects all; " << field->editor().caret();
    stroke(VK_BACK);
    stroke(VK_BACK);
    stroke('A', true);
    stroke('X', true);
    EXPECT_TRUE(becomes(L""));
    stroke('V', true);
    stroke('V', true);
    EXPECT_TRUE(becomes(L"D:\\\u017BelaznyD:\\\u017Belazny"));
    stroke('Z', true);
    EXPECT_TRUE(becomes(L"D:\\\u017Belazny"));
    stroke(VK_BACK, true);
    EXPECT_TRUE(becomes(L"D:\\"));
    EXPECT_EQ(SendMessageW(window.handle(), WM_UNDO, 0, 0), 1);
    EXPECT_EQ(field->text(), L"D:\\\u017Belazny");
}

TEST_F(TextInputWin32, DragsAndClicks) {
    stroke(VK_HOME);
    pump(20);
    const int y = 36;
    sendMouse(window.handle(), {33, y}, MOUSEEVENTF_LEFTDOWN);
    sendMouse(window.handle(), {250, y}, 0);
    sendMouse(window.handle(), {250, y}, MOUSEEVENTF_LEFTUP);
    pump(50);
    EXPECT_EQ(field->editor().selectedText(), field->text());
    CURSORINFO cursor{sizeof(cursor), 0, nullptr, {}};
    GetCursorInfo(&cursor);
    EXPECT_EQ(cursor.hCursor, LoadCursorW(nullptr, IDC_IBEAM));
    Sleep(GetDoubleClickTime() + 50);
    for (int i = 0; i < 2; ++i) {
        sendMouse(window.handle(), {60, y}, MOUSEEVENTF_LEFTDOWN);
        sendMouse(window.handle(), {60, y}, MOUSEEVENTF_LEFTUP);
    }
    pump(50);
    EXPECT_EQ(field->editor().selectedText(), L"Program");
    sendMouse(window.handle(), {60, y}, MOUSEEVENTF_LEFTDOWN);
    sendMouse(window.handle(), {60, y}, MOUSEEVENTF_LEFTUP);
    pump(50);
    EXPECT_EQ(field->editor().selectedText(), field->text());
}

TEST_F(TextInputWin32, TheCaretBlinks) {
    stroke(VK_END);
    pump(50);
    const std::vector<uint32_t> with = pictureOf(window);
    EXPECT_TRUE(pumpUntil([&] { return pictureOf(window) != with; }));
    EXPECT_TRUE(pumpUntil([&] { return pictureOf(window) == with; }));
}

// Ctrl and Alt together are AltGr: what a keyboard writes with them is text, not a shortcut.
TEST_F(TextInputWin32, WritesWhatAltGrWrites) {
    BYTE keys[256]{};
    GetKeyboardState(keys);
    const auto hold = [&](BYTE state) {
        keys[VK_CONTROL] = keys[VK_MENU] = state;
        SetKeyboardState(keys);
    };
    stroke(VK_END);
    ASSERT_TRUE(pumpUntil([&] { return field->editor().selection().empty(); }));
    const std::wstring before = field->text();
    hold(0x80);
    for (const auto& [key, character] : {std::pair{'A', L'\u0105'}, {'Z', L'\u017C'}, {'X', L'\u017A'}}) {
        SendMessageW(window.handle(), WM_KEYDOWN, static_cast<WPARAM>(key), 1);
        SendMessageW(window.handle(), WM_CHAR, character, 1);
    }
    hold(0);
    EXPECT_EQ(field->text(), before + L"\u0105\u017C\u017A");
}

TEST_F(TextInputWin32, ReturnPressesTheDefaultButtonOnce) {
    int pressed = 0;
    auto* const button = window.root().add<ThemedButton>(L"ok", Rect{20, 60, 100, 32}, L"OK");
    button->pressed.connect([&](CommandEvent&) { ++pressed; });
    window.setDefaultControl(button);
    std::vector<std::wstring> committed;
    field->committed.connect([&](CommitEvent& event) { committed.push_back(event.text); });
    type(L"E:\\x");
    for (int held = 0; held < 3; ++held) {
        sendKey(VK_RETURN, true);
    }
    sendKey(VK_RETURN, false);
    EXPECT_TRUE(pumpUntil([&] { return pressed > 0; }));
    pump(50);
    EXPECT_EQ(pressed, 1);
    EXPECT_EQ(committed, (std::vector<std::wstring>{L"E:\\x"}));
    EXPECT_EQ(window.tree().focused(), field);
}

TEST_F(TextInputWin32, ReadOnlyItCanBeCopiedFrom) {
    const std::wstring text = field->text();
    field->setReadOnly(true);
    stroke('A', true);
    stroke('C', true);
    type(L"no");
    stroke(VK_BACK);
    stroke('X', true);
    stroke('V', true);
    pump(100);
    EXPECT_EQ(field->text(), text);
    EXPECT_EQ(window.tree().clipboardText(), text);
}

TEST_F(TextInputWin32, APointerThatRestsBesideItScrolls) {
    field->setText(L"C:\\" + std::wstring(100, L'x') + L"y");
    stroke(VK_HOME);
    pump(50);
    sendMouse(window.handle(), {40, 36}, MOUSEEVENTF_LEFTDOWN);
    sendMouse(window.handle(), {390, 36}, 0);
    EXPECT_TRUE(pumpUntil([&] { return field->editor().caret() == field->text().size(); }));
    sendMouse(window.handle(), {390, 36}, MOUSEEVENTF_LEFTUP);
    pump(50);
    EXPECT_EQ(GetCapture(), nullptr);
    EXPECT_TRUE(field->editor().selectedText().ends_with(L"xy"));
}

TEST_F(TextInputWin32, PastesALineByTheMenuOfTheKeyboard) {
    window.tree().copyText(L"D:\\one\r\n two");
    stroke('A', true);
    sendKey(VK_SHIFT, true);
    stroke(VK_F10);
    sendKey(VK_SHIFT, false);
    // "Paste" by its letter, in the language that the menu has here.
    type(editMenuTexts().paste.substr(0, 1));
    EXPECT_TRUE(becomes(L"D:\\one  two"));
    EXPECT_EQ(window.tree().focused(), field);
    type(L"!");
    EXPECT_TRUE(becomes(L"D:\\one  two!")) << "the keyboard is the field's again";
}

// The text of an input method, as its messages tell of it.
TEST_F(TextInputWin32, TheCaretStandsInWhatIsComposed) {
    stroke(VK_END);
    pump(50);
    const std::optional<Rect> before = window.tree().caretRectangle();
    window.tree().compositionChanged({L"\u3042\u3044", 2});
    const std::optional<Rect> after = window.tree().caretRectangle();
    ASSERT_TRUE(before && after);
    EXPECT_GT(after->x, before->x);
    EXPECT_EQ(after->y, before->y) << "another font does not move the line";
    EXPECT_EQ(after->height, before->height);
    COMPOSITIONFORM form{};
    const HIMC context = ImmGetContext(window.handle());
    ASSERT_NE(context, nullptr);
    SendMessageW(window.handle(), WM_IME_COMPOSITION, 0, 0);
    ASSERT_TRUE(ImmGetCompositionWindow(context, &form));
    ImmReleaseContext(window.handle(), context);
    EXPECT_EQ(form.ptCurrentPos.x, after->x);
    EXPECT_EQ(form.ptCurrentPos.y, after->y);
}

// The characters of a finished composition would arrive behind the press, in the other field.
TEST_F(TextInputWin32, WhatIsComposedIsFinishedWhereItStands) {
    auto* const other = window.root().add<TextInput>(L"other", Rect{20, 60, 300, 32}, L"");
    const auto compose = [&](std::wstring text) {
        const int32_t before = window.tree().caretRectangle()->x;
        const HIMC context = ImmGetContext(window.handle());
        const auto bytes = static_cast<DWORD>(text.size() * sizeof(wchar_t));
        EXPECT_TRUE(ImmSetCompositionStringW(context, SCS_SETSTR, text.data(), bytes, nullptr, 0));
        ImmReleaseContext(window.handle(), context);
        EXPECT_TRUE(pumpUntil([&] { return window.tree().caretRectangle()->x > before; }));
    };
    stroke(VK_END);
    pump(50);
    compose(L"\u3042\u3044");
    sendMouse(window.handle(), {100, 70}, MOUSEEVENTF_LEFTDOWN);
    sendMouse(window.handle(), {100, 70}, MOUSEEVENTF_LEFTUP);
    EXPECT_TRUE(pumpUntil([&] { return window.tree().focused() == other; }));
    pump(100);
    EXPECT_EQ(field->text(), L"C:\\Program Files\\One\u3042\u3044");
    EXPECT_EQ(other->text(), L"");
    compose(L"\u6F22");
    SendMessageW(window.handle(), WM_KILLFOCUS, 0, 0);
    EXPECT_EQ(other->text(), L"\u6F22") << "another window takes the keyboard";
}

// The wording is Windows', also in English: its "Select All" is not what stands in for a menu that is missing.
TEST(EditMenuTextsWin32, ComeFromWindows) {
    const EditMenuTexts texts = editMenuTexts();
    EXPECT_NE(texts, EditMenuTexts{}) << "the stand-in";
    for (const std::wstring& text : {texts.undo, texts.cut, texts.copy, texts.paste, texts.erase, texts.selectAll}) {
        EXPECT_FALSE(text.empty());
        EXPECT_EQ(text.find_first_of(L"&\t"), std::wstring::npos) << testing::PrintToString(text);
    }
}

}  // namespace
