#include "core/pending_renames.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

using Strings = std::vector<std::wstring>;

TEST(PendingRenames, PairsAreReadAndWrittenBack) {
    struct Case {
        std::wstring stored;  // with "|" for the terminators
        Strings strings;
        bool whole;
    };
    const Case cases[] = {
        {L"", {}, false},
        {L"|", {}, true},
        {L"a|||", {L"a", L""}, true},
        {L"a||b|c|d|||", {L"a", L"", L"b", L"c", L"d", L""}, true},
        // Some of the last terminators are missing.
        {L"a|b|c||", {L"a", L"b", L"c", L""}, false},
        {L"a|b|c", {L"a", L"b", L"c", L""}, false},
        {L"a|b", {L"a", L"b"}, false},
    };
    for (Case c : cases) {
        SCOPED_TRACE(testing::PrintToString(c.stored));
        std::ranges::replace(c.stored, L'|', L'\0');
        EXPECT_EQ(velquin::parsePendingRenames(c.stored), c.strings);
        const std::wstring written = velquin::formatPendingRenames(c.strings);
        EXPECT_TRUE(written.starts_with(c.stored));
        EXPECT_EQ(written == c.stored, c.whole);
    }
}

TEST(PendingRenames, OnlyTheDeletionsAskedForAreRemoved) {
    struct Case {
        const char* name;
        Strings strings, paths, kept, removed;
    };
    const Strings mixed = {LR"(\??\C:\a)", L"", LR"(\??\C:\b)", LR"(!\??\C:\c)", LR"(\??\C:\d)", L""};
    const Case cases[] = {
        {"one in another case", mixed, {LR"(c:\D)"}, {mixed.begin(), mixed.end() - 2}, {LR"(C:\d)"}},
        {"two, in the list's order",
         mixed,
         {LR"(C:\d)", LR"(C:\x)", LR"(C:\a)"},
         {mixed.begin() + 2, mixed.begin() + 4},
         {LR"(C:\a)", LR"(C:\d)"}},
        {"renames and parts of paths stay", mixed, {LR"(C:\b)", LR"(C:\c)", LR"(C:\)", LR"(C:\a\b)", L""}, mixed, {}},
        {"the same twice", {LR"(\??\C:\a)", L"", LR"(\??\C:\A)", L""}, {LR"(C:\a)"}, {}, {LR"(C:\a)", LR"(C:\A)"}},
        {"a source without its prefix", {L"a", L""}, {L"a"}, {L"a", L""}, {}},
    };
    for (const Case& c : cases) {
        Strings strings = c.strings;
        EXPECT_EQ(velquin::removePendingDeletes(strings, c.paths), c.removed) << c.name;
        EXPECT_EQ(strings, c.kept) << c.name;
    }
}

}  // namespace
