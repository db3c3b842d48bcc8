// The editor of one line: a script of operations against the text it leaves, and what holds after any operations.
#include <algorithm>
#include <functional>

#include "tavi/controls/edit_menu_texts.h"
#include "tavi/controls/text_editor.h"
#include "tests/portable/table.h"

namespace {

using namespace tavi;
using Step = std::function<void(TextEditor&)>;

// The text with the caret as '|' and the selection's other end as '^'.
std::wstring picture(const TextEditor& editor) {
    std::wstring text = editor.text();
    const bool ahead = editor.anchor() > editor.caret();
    if (editor.anchor() != editor.caret() && ahead) {
        text.insert(editor.anchor(), 1, L'^');
    }
    text.insert(editor.caret(), 1, L'|');
    if (editor.anchor() != editor.caret() && !ahead) {
        text.insert(editor.anchor(), 1, L'^');
    }
    return text;
}

Step move(TextStep step, bool forward, bool extend = false) {
    return [=](TextEditor& editor) { editor.move(step, forward, extend); };
}
Step remove(TextStep step, bool forward) {
    return [=](TextEditor& editor) { editor.remove(step, forward); };
}
Step type(std::wstring text) {
    return [=](TextEditor& editor) {
        for (const wchar_t c : text) {
            editor.insert({&c, 1});
        }
    };
}
Step insert(std::wstring text) {
    return [=](TextEditor& editor) { editor.insert(text); };
}
Step at(size_t position, bool extend = false) {
    return [=](TextEditor& editor) { editor.moveTo(position, extend); };
}
const Step kUndo = [](TextEditor& editor) { editor.undo(); };
const Step kRedo = [](TextEditor& editor) { editor.redo(); };
const Step kAll = [](TextEditor& editor) { editor.selectAll(); };
constexpr auto kCluster = TextStep::kCluster;
constexpr auto kWord = TextStep::kWord;
constexpr auto kEnd = TextStep::kEnd;

TEST(TextEditor, DoesWhatIsAsked) {
    const struct {
        std::wstring text;
        std::vector<Step> steps;
        std::wstring left;
    } rows[] = {
        {L"abc", {}, L"|abc"},
        {L"abc", {move(kCluster, true), move(kCluster, true, true)}, L"a^b|c"},
        {L"abc", {kAll, move(kCluster, false)}, L"|abc"},
        {L"abc", {kAll, move(kCluster, true)}, L"abc|"},
        {L"abc", {at(1), at(2, true), move(kEnd, false, true)}, L"|a^bc"},
        {L"one two", {move(kWord, true), move(kWord, true, true)}, L"one ^two|"},
        {L"one two", {kAll, move(kWord, false)}, L"one |two"},
        {L"abc", {at(99)}, L"abc|"},
        {L"ae\u0301b", {at(2)}, L"a|e\u0301b"},
        {L"ae\u0301b", {at(1), move(kCluster, true)}, L"ae\u0301|b"},
        {L"ae\u0301b", {at(3), remove(kCluster, false)}, L"a|b"},
        {L"abc", {at(1), at(2, true), type(L"xy")}, L"axy|c"},
        {L"abc", {at(1), remove(kCluster, true)}, L"a|c"},
        {L"one two", {at(7), remove(kWord, false)}, L"one |"},
        {L"one two", {remove(kWord, true)}, L"|two"},
        {L"abc", {kAll, remove(kWord, true)}, L"|"},
        {L"abc", {remove(kCluster, false)}, L"|abc"},
        {L"\u0301", {insert(L"a")}, L"a\u0301|"},
        // Undo.
        {L"", {type(L"abc"), kUndo}, L"|"},
        {L"", {type(L"abc"), kUndo, kUndo, kRedo, kRedo}, L"abc|"},
        {L"", {type(L"ab"), move(kCluster, false), type(L"cd"), kUndo}, L"a|b"},
        {L"", {type(L"ab"), [](TextEditor& e) { e.endTyping(); }, insert(L"cd"), kUndo}, L"ab|"},
        {L"", {type(L"ab"), remove(kCluster, false), kUndo}, L"ab|"},
        {L"abcd", {at(4), remove(kCluster, false), remove(kCluster, false), kUndo}, L"abcd|"},
        {L"abc", {at(1), at(3, true), type(L"x"), kUndo}, L"a^bc|"},
        {L"", {type(L"ab"), kUndo, type(L"c"), kRedo}, L"c|"},
        {L"abc", {remove(kCluster, false), kUndo}, L"|abc"},
        {L"", {type(L"abc"), [](TextEditor& e) { e.setText(L"x"); }, kUndo}, L"|x"},
    };
    for (const auto& row : rows) {
        TextEditor editor;
        editor.setText(row.text);
        for (const Step& step : row.steps) {
            step(editor);
        }
        EXPECT_EQ(picture(editor), row.left) << "from " << testing::PrintToString(row.text);
    }
}

TEST(TextEditor, TakesOneLineOfWholeClusters) {
    testing_table::expectEach(asOneLine, {{L"C:\\Folder\r\n", L"C:\\Folder"},
                                          {L"\n\ta\tb\r\n\r\nc", L"a b c"},
                                          {L"a\u2028b\u0085", L"a b"},
                                          {L"\x1b[1m\x7f\x9f", L"[1m"},
                                          {L" a ", L" a "},
                                          {L"\r\n", L""}});
    const struct {
        size_t limit;
        std::wstring inserted;
        std::wstring left;
    } rows[] = {{4, L"xyz", L"axy|d"}, {4, L"xe\u0301", L"ax|d"}, {2, L"xyz", L"a^bc|d"}, {3, L"e\u0301", L"a^bc|d"}};
    for (const auto& row : rows) {
        TextEditor editor;
        editor.setText(L"abcd");
        editor.select({1, 3});
        editor.setMaxLength(row.limit);
        editor.insert(row.inserted);
        EXPECT_EQ(picture(editor), row.left) << row.limit << " " << testing::PrintToString(row.inserted);
    }
}

TEST(TextEditor, ForgetsTheOldestSteps) {
    TextEditor editor;
    for (size_t i = 0; i < kUndoSteps + 5; ++i) {
        editor.insert(L"x");
        editor.endTyping();
    }
    while (editor.canUndo()) {
        editor.undo();
    }
    EXPECT_EQ(editor.text(), L"xxxxx");
}

TEST(TextEditor, HoldsWhatItPromisesAfterAnyOperations) {
    std::mt19937 random(7);
    for (int round = 0; round < 200; ++round) {
        constexpr wchar_t kAlphabet[] = L"ab \u0301\u200D\u0627\u0E33\u1100\u1161\u094D\u0915\n";
        TextEditor editor;
        const std::wstring first = asOneLine(testing_table::randomText(random, kAlphabet, 12));
        editor.setText(first);
        const auto isEnd = [&](size_t at) {
            return at <= editor.text().size() && clusterStart(editor.text(), at) == at;
        };
        for (int i = 0; i < 60; ++i) {
            const auto step = static_cast<TextStep>(random() % 3);
            const bool forward = random() % 2 != 0;
            switch (random() % 8) {
                case 0:
                case 1:
                case 2:
                    editor.insert(testing_table::randomText(random, kAlphabet, 3));
                    break;
                case 3:
                    editor.remove(step, forward);
                    break;
                case 4:
                    editor.moveTo(random() % 20, forward);
                    break;
                case 5:
                    editor.undo();
                    break;
                case 6:
                    editor.redo();
                    break;
                default:
                    editor.move(step, forward, random() % 2 != 0);
            }
            ASSERT_TRUE(isEnd(editor.caret()) && isEnd(editor.anchor())) << testing::PrintToString(picture(editor));
        }
        while (editor.canRedo()) {
            editor.redo();
        }
        const std::wstring last = editor.text();
        while (editor.canUndo()) {
            editor.undo();
        }
        EXPECT_EQ(editor.text(), first);
        while (editor.canRedo()) {
            editor.redo();
        }
        EXPECT_EQ(editor.text(), last);
    }
}

TEST(EditMenuTexts, LoseTheirKeys) {
    testing_table::expectEach(plainCaption, {{L"Cu&t\tCtrl+X", L"Cut"},
                                             {L"\u5207\u308A(&T)", L"\u5207\u308A"},
                                             {L"Cut && run", L"Cut & run"},
                                             {L"(&T)", L"(T)"},
                                             {L"Odd&", L"Odd"},
                                             {L"", L""}});
}

}  // namespace
