#include "base/argument_quoting.h"

#include <gtest/gtest.h>

#include "tests/portable/argv_reference.h"
#include "tests/portable/table.h"

namespace {

using testing_reference::splitArguments;
using List = std::vector<std::wstring>;

TEST(ArgumentQuoting, OnlyWhatNeedsQuotesGetsThem) {
    const testing_table::Pairs pairs = {
        {L"", LR"("")"},
        {L"--quiet", L"--quiet"},
        {LR"(C:\Apps\)", LR"(C:\Apps\)"},
        {L"a\nb", L"a\nb"},
        {L"a\tb", L"\"a\tb\""},
        {LR"(a"b)", LR"("a\"b")"},
        {LR"(a\\"b)", LR"("a\\\\\"b")"},
        {LR"(\a\\b c\)", LR"("\a\\b c\\")"},
    };
    testing_table::expectEach(base::quoteArgument, pairs);
    EXPECT_EQ(base::quotePath(LR"(C:\Apps\)"), LR"("C:\Apps\")") << "Windows itself splits this one";
}

// The round trip is worth as much as its reference, so that has cases of its own.
TEST(ArgumentQuoting, ReferenceParserFollowsTheArgvRules) {
    const std::pair<const wchar_t*, List> cases[] = {
        {L"", {}},
        {LR"("one two"  x"y z"w "" )", {L"one two", L"xy zw", L""}},
        {LR"(a\b\\c \)", {LR"(a\b\\c)", LR"(\)"}},
        {LR"(a\"b \\"c d" \\\"e)", {LR"(a"b)", LR"(\c d)", LR"(\"e)"}},
        {LR"("say ""hi"" now" "open end)", {LR"(say "hi" now)", L"open end"}},
    };
    for (const auto& [line, arguments] : cases) {
        EXPECT_EQ(splitArguments(line), arguments) << testing::PrintToString(line);
    }
}

TEST(ArgumentQuoting, RandomListsReadBackEqual) {
    std::mt19937 random(20250203);
    for (int round = 0; round < 20000; ++round) {
        List arguments(random() % 6);
        for (std::wstring& argument : arguments) {
            argument = testing_table::randomText(random, L"\\\\\\\\\"\"\"  \tab-/", 12);
        }
        const std::wstring line = base::joinArguments(arguments);
        ASSERT_EQ(splitArguments(line), arguments) << testing::PrintToString(line);
    }
}

}  // namespace
