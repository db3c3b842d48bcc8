#include "core/pending_renames.h"

#include <gtest/gtest.h>

namespace {

using Strings = std::vector<std::wstring>;

// Zero terminators are written as "|".
std::wstring stored(std::wstring text) {
    for (wchar_t& c : text) {
        c = c == L'|' ? L'\0' : c;
    }
    return text;
}

TEST(PendingRenames, ReadsPairs) {
    struct Case {
        const char* name;
        const wchar_t* stored;
        Strings strings;
    };
    const Case cases[] = {
        {"nothing", L"", {}},
        {"empty list", L"|", {}},
        {"one deletion", L"a|||", {L"a", L""}},
        {"one rename", L"a|b||", {L"a", L"b"}},
        {"several", L"a||b|c|d|||", {L"a", L"", L"b", L"c", L"d", L""}},
        {"list terminator missing", L"a|b|c||", {L"a", L"b", L"c", L""}},
        {"last target missing", L"a|b|c|", {L"a", L"b", L"c", L""}},
        {"last terminator missing, too", L"a|b|c", {L"a", L"b", L"c", L""}},
        {"rename's last terminator missing", L"a|b", {L"a", L"b"}},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(velquin::parsePendingRenames(stored(c.stored)), c.strings) << c.name;
    }
}

TEST(PendingRenames, WritesWhatItReads) {
    for (const wchar_t* text : {L"|", L"a|||", L"a|b||", L"a||b|c|d|||", L"||a|||"}) {
        EXPECT_EQ(velquin::formatPendingRenames(velquin::parsePendingRenames(stored(text))), stored(text))
            << testing::PrintToString(text);
    }
}

TEST(PendingRenames, RemovesOnlyTheDeletionsAskedFor) {
    struct Case {
        const char* name;
        Strings strings, paths, kept, removed;
    };
    const Strings mixed = {LR"(\??\C:\a)", L"", LR"(\??\C:\b)", LR"(!\??\C:\c)", LR"(\??\C:\d)", L""};
    const Case cases[] = {
        {"first", mixed, {LR"(C:\a)"}, {mixed.begin() + 2, mixed.end()}, {LR"(C:\a)"}},
        {"last, in another case", mixed, {LR"(c:\D)"}, {mixed.begin(), mixed.end() - 2}, {LR"(C:\d)"}},
        {"both, in the list's order",
         mixed,
         {LR"(C:\d)", LR"(C:\x)", LR"(C:\a)"},
         {mixed.begin() + 2, mixed.begin() + 4},
         {LR"(C:\a)", LR"(C:\d)"}},
        {"a rename stays", mixed, {LR"(C:\b)", LR"(C:\c)"}, mixed, {}},
        {"a part of a path is another path", mixed, {LR"(C:\)", LR"(C:\a\b)", L"a", L""}, mixed, {}},
        {"the same twice", {LR"(\??\C:\a)", L"", LR"(\??\C:\A)", L""}, {LR"(C:\a)"}, {}, {LR"(C:\a)", LR"(C:\A)"}},
        {"a source without its prefix", {L"a", L""}, {L"a"}, {L"a", L""}, {}},
        {"empty list", {}, {LR"(C:\a)"}, {}, {}},
    };
    for (const Case& c : cases) {
        Strings strings = c.strings;
        EXPECT_EQ(velquin::removePendingDeletes(strings, c.paths), c.removed) << c.name;
        EXPECT_EQ(strings, c.kept) << c.name;
    }
}

}  // namespace
