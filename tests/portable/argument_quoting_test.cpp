#include "base/argument_quoting.h"

#include <gtest/gtest.h>

#include "tests/portable/argv_reference.h"
#include "tests/portable/table.h"

namespace {

using testing_reference::splitArguments;
using List = std::vector<std::wstring>;

TEST(ArgumentQuoting, NamedCases) {
    struct Case {
        const char* name;
        const wchar_t *argument, *quoted;
    };
    constexpr Case kCases[] = {
        {"empty", L"", LR"("")"},
        {"plain", L"--quiet", L"--quiet"},
        {"path without blanks", LR"(C:\Apps\)", LR"(C:\Apps\)"},
        {"blank", L"a b", LR"("a b")"},
        {"tab", L"a\tb", L"\"a\tb\""},
        {"other white space separates nothing", L"a\nb", L"a\nb"},
        {"embedded quote", LR"(a"b)", LR"("a\"b")"},
        {"one backslash before a quote", LR"(a\"b)", LR"("a\\\"b")"},
        {"two backslashes before a quote", LR"(a\\"b)", LR"("a\\\\\"b")"},
        {"backslash at the end", LR"(a b\)", LR"("a b\\")"},
        {"two backslashes at the end", LR"(a b\\)", LR"("a b\\\\")"},
        {"backslashes elsewhere", LR"(\a\\b c)", LR"("\a\\b c")"},
        {"quote behind a quoted blank", LR"(\ \"\)", LR"("\ \\\"\\")"},
    };
    for (const Case& c : kCases) {
        EXPECT_EQ(base::quoteArgument(c.argument), c.quoted) << c.name;
    }
}

TEST(ArgumentQuoting, JoinsWithSingleBlanks) {
    const List none;
    EXPECT_EQ(base::joinArguments(none), L"");
    const List some = {L"", L"a", L"", L"b c", L""};
    EXPECT_EQ(base::joinArguments(some), LR"("" a "" "b c" "")");
}

TEST(ArgumentQuoting, PathsAreWrappedAsTheyAre) {
    EXPECT_EQ(base::quotePath(LR"(C:\Apps\Velquin.exe)"), LR"("C:\Apps\Velquin.exe")");
    EXPECT_EQ(base::quotePath(LR"(C:\My Apps\)"), LR"("C:\My Apps\")");
}

// The round trip is worth as much as its reference, so that has cases of its own.
TEST(ArgumentQuoting, ReferenceParserFollowsTheArgvRules) {
    const std::pair<const wchar_t*, List> cases[] = {
        {L"", {}},
        {L"one  two\tthree ", {L"one", L"two", L"three"}},
        {LR"("one two" x"y z"w)", {L"one two", L"xy zw"}},
        {LR"("" a "")", {L"", L"a", L""}},
        {LR"(a\b\\c \)", {LR"(a\b\\c)", LR"(\)"}},
        {LR"(a\"b \\"c d" \\\"e)", {LR"(a"b)", LR"(\c d)", LR"(\"e)"}},
        {LR"("a b\\" c)", {LR"(a b\)", L"c"}},
        {LR"("say ""hi"" now")", {LR"(say "hi" now)"}},
        {LR"("open end)", {L"open end"}},
    };
    for (const auto& [line, arguments] : cases) {
        EXPECT_EQ(splitArguments(line), arguments) << testing::PrintToString(line);
    }
}

TEST(ArgumentQuoting, RandomListsReadBackEqual) {
    testing_table::Random random(20250203);
    for (int round = 0; round < 20000; ++round) {
        List arguments(testing_table::randomBelow(random, 6));
        for (std::wstring& argument : arguments) {
            argument = testing_table::randomText(random, L"\\\\\\\\\"\"\"  \tab-/", 12);
        }
        const std::wstring line = base::joinArguments(arguments);
        ASSERT_EQ(splitArguments(line), arguments) << testing::PrintToString(line);
    }
}

}  // namespace
