// The text field in a real window: keys and pointer as they come, the clipboard, the caret's timer.
#include "tavi/controls/edit_menu_texts.h"
#include "tavi/controls/text_input.h"
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

TEST(EditMenuTextsWin32, ComeFromWindows) {
    // Their wording is Windows'; that the menu is there at all shows in what is not the default.
    const EditMenuTexts texts = editMenuTexts();
    for (const std::wstring& text : {texts.undo, texts.cut, texts.copy, texts.paste, texts.erase, texts.selectAll}) {
        EXPECT_FALSE(text.empty());
        EXPECT_EQ(text.find_first_of(L"&\t"), std::wstring::npos) << testing::PrintToString(text);
    }
}

}  // namespace
