#include "base/json_text.h"

#include <gtest/gtest.h>

#include "tests/portable/table.h"

namespace {

TEST(JsonText, ReadingStrings) {
    struct Case {
        const char* name;
        const wchar_t* text;
        std::optional<std::wstring> value;  // of the key "k"
    };
    const Case cases[] = {
        {"plain", LR"({"k": "v"})", L"v"},
        {"empty value", LR"({"k":""})", L""},
        {"white space and line ends", L"{\n \"k\"\t:\r\n \"v\"\n}", L"v"},
        {"first of two", LR"({"k":"one","k":"two"})", L"one"},
        {"nesting is ignored", LR"({"o":{"k":"inner"},"k":"outer"})", L"inner"},
        {"an earlier value counts as the key", LR"({"a":"k","b":"x","k":"v"})", L"x"},
        {"the next string behind a number", LR"({"k":5,"b":"x"})", L"b"},
        {"key as a part of another", LR"({"kk":"x","k":"v"})", L"v"},
        {"key without quotes", LR"({k:"v"})", std::nullopt},
        {"no key", LR"({"a":"v"})", std::nullopt},
        {"no colon", LR"({"k" "v"})", std::nullopt},
        {"text ends behind the colon", LR"({"k":)", std::nullopt},
        {"no quote", LR"({"k": 5})", std::nullopt},
        {"no closing quote", LR"({"k":"v)", std::nullopt},
        {"closing quote escaped", LR"({"k":"v\")", std::nullopt},
        {"text ends in a backslash", LR"({"k":"v\)", std::nullopt},
        {"escaped quotes", LR"({"k":"say \"hi\"","b":"x"})", LR"(say "hi")"},
        {"backslash before the closing quote", LR"({"k":"C:\\Apps\\","b":"x"})", LR"(C:\Apps\)"},
        {"escapes are resolved", LR"({"k":"a\tb\u00e9"})", L"a\tb\u00E9"},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(base::readJsonString(c.text, L"k"), c.value) << c.name;
        EXPECT_EQ(base::readJsonStringOr(c.text, L"k", L"else"), c.value.value_or(L"else")) << c.name;
    }
    EXPECT_EQ(base::readJsonString(LR"({"a:b":"v"})", L"a:b"), L"v") << "a colon in the key is not the key's";
}

TEST(JsonText, ReadingBooleans) {
    enum class Answer { isTrue, isFalse, isFallback };
    using enum Answer;
    constexpr std::pair<const wchar_t*, Answer> kCases[] = {
        {LR"({"k":true})", isTrue},
        {LR"({"k": FALSE,)", isFalse},
        {LR"({"k" : True)", isTrue},
        {L"{\"k\":\n\tfalse\n}", isFalse},
        // Eight characters are looked at, blanks among them.
        {LR"({"k":    true})", isTrue},
        {LR"({"k":     true})", isFallback},
        {LR"({"k":   false})", isFalse},
        {LR"({"k":    false})", isFallback},
        {LR"({"k":"true"})", isFallback},
        {LR"({"k":tru)", isFallback},
        {LR"({"k":)", isFallback},
        {LR"({"k" true})", isFallback},
        {LR"({"k":false,"k":true})", isFalse},
        {L"", isFallback},
    };
    for (const auto& [text, answer] : kCases) {
        for (const bool fallback : {false, true}) {
            const bool expected = answer == isFallback ? fallback : answer == isTrue;
            EXPECT_EQ(base::readJsonBool(text, L"k", fallback), expected) << testing::PrintToString(text);
        }
    }
}

TEST(JsonText, Unescaping) {
    const testing_table::Pairs pairs = {
        {L"", L""},
        {LR"(\"\\\/\b\f\n\r\t)", L"\"\\/\b\f\n\r\t"},
        {LR"(\u0041\u00E9\u20ac)", L"A\u00E9\u20AC"},
        {LR"(\ud83d\ude00\uDBFF\uDFFF)", L"\U0001F600\U0010FFFF"},
        // Half of a pair.
        {LR"(\ud83d)", L"\uFFFD"},
        {LR"(\ude00x)", L"\uFFFDx"},
        {LR"(\ud83dx\ude00)", L"\uFFFDx\uFFFD"},
        {LR"(\ud83d\u0041)", L"\uFFFDA"},
        {LR"(\ud83d\ue000\ude00\ude00)", L"\uFFFD\uE000\uFFFD\uFFFD"},
        {LR"(\ud83d\ud83d\ude00)", L"\uFFFD\U0001F600"},
        {LR"(\ud83d\ude0)", L"\uFFFD\\ude0"},
        // What is no escape stays.
        {LR"(\u12)", LR"(\u12)"},
        {LR"(\u00g0)", LR"(\u00g0)"},
        {LR"(\U0041\x41\')", LR"(\U0041\x41\')"},
        {LR"(a\)", LR"(a\)"},
        {LR"(\\u0041)", LR"(\u0041)"},
    };
    testing_table::expectEach(base::unescapeJson, pairs);
    EXPECT_EQ(base::unescapeJson(LR"(a\u0000b)"), std::wstring(L"a\0b", 3));
}

TEST(JsonText, Escaping) {
    EXPECT_EQ(base::escapeJson(L"say \"C:\\x/y\"\n"), LR"(say \"C:\\x/y\"\n)");
    EXPECT_EQ(base::escapeJson(std::wstring(L"\0\x01\x1f\x7f\b\f\r\t", 8)), L"\\u0000\\u0001\\u001f\x7f\\b\\f\\r\\t");
    EXPECT_EQ(base::escapeJson(L"\u00E9\U0001F600"), L"\u00E9\U0001F600");
}

TEST(JsonText, RandomTextSurvivesWritingAndReading) {
    testing_table::Random random(7);
    const std::wstring alphabet = std::wstring(L"\\\\\\\"\"\"/:,{}unk0ad8\n\t\b\x01\x1F\u00E9\U0001F600") + L'\0';
    for (int round = 0; round < 5000; ++round) {
        const std::wstring text = testing_table::randomText(random, alphabet, 16);
        const std::wstring escaped = base::escapeJson(text);
        ASSERT_EQ(base::unescapeJson(escaped), text) << testing::PrintToString(escaped);
        const std::wstring document = L"{\"k\": \"" + escaped + L"\", \"z\": \"\"}";
        ASSERT_EQ(base::readJsonString(document, L"k"), text) << testing::PrintToString(document);
    }
}

}  // namespace
