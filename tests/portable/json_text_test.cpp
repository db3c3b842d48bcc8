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
        {"white space and line ends", L"{\n \"k\"\t:\r\n \"v\"\n}", L"v"},
        {"empty value", LR"({"k":""})", L""},
        {"first of two", LR"({"k":"one","k":"two"})", L"one"},
        {"nesting is ignored", LR"({"o":{"k":"inner"},"k":"outer"})", L"inner"},
        {"an earlier value counts as the key", LR"({"a":"k","b":"x","k":"v"})", L"x"},
        {"the next string behind a number", LR"({"k":5,"b":"x"})", L"b"},
        {"text ends behind the colon", LR"({"k":)", std::nullopt},
        {"closing quote escaped", LR"({"k":"v\")", std::nullopt},
        {"text ends in a backslash", LR"({"k":"v\)", std::nullopt},
        {"escaped quotes", LR"({"k":"say \"hi\"","b":"x"})", LR"(say "hi")"},
        {"backslash before the closing quote", LR"({"k":"C:\\Apps\\","b":"x"})", LR"(C:\Apps\)"},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(base::readJsonString(c.text, L"k"), c.value) << c.name;
        EXPECT_EQ(base::readJsonStringOr(c.text, L"k", L"else"), c.value.value_or(L"else")) << c.name;
    }
}

TEST(JsonText, ReadingBooleans) {
    constexpr std::pair<const wchar_t*, std::optional<bool>> kCases[] = {
        {LR"({"k" : True)", true},
        {L"{\"k\":\n\tFALSE\n}", false},
        {LR"({"k":false,"k":true})", false},
        // Eight characters are looked at, blanks among them.
        {LR"({"k":    true})", true},
        {LR"({"k":     true})", std::nullopt},
        {LR"({"k":"true"})", std::nullopt},
        {LR"({"k":)", std::nullopt},
    };
    for (const auto& [text, value] : kCases) {
        for (const bool fallback : {false, true}) {
            EXPECT_EQ(base::readJsonBool(text, L"k", fallback), value.value_or(fallback))
                << testing::PrintToString(text);
        }
    }
}

TEST(JsonText, ReadingWhatStandsInBrackets) {
    const std::tuple<const wchar_t*, wchar_t, std::optional<std::wstring_view>> cases[] = {
        {LR"({"k": {"a": [1, {"b": "}"}]} , "z": {}})", L'{', LR"({"a": [1, {"b": "}"}]})"},
        {LR"({"k" :[ "]\"]", [ ] ]})", L'[', LR"([ "]\"]", [ ] ])"},
        {LR"({"k": [1, "z": {})", L'[', std::nullopt},
        {LR"({"k": ["open]})", L'[', std::nullopt},
        {LR"({"k": null, "z": []})", L'[', std::nullopt},
        {LR"({"k": {}})", L'[', std::nullopt},
        {LR"({"k": )", L'{', std::nullopt},
        {LR"({"z": []})", L'[', std::nullopt},
    };
    for (const auto& [text, open, raw] : cases) {
        EXPECT_EQ(base::readJsonRaw(text, L"k", open), raw) << testing::PrintToString(text);
    }
    EXPECT_EQ(base::jsonElements(LR"([ 1 ,"a,]", {"b": [1, 2]} [x],, null ])"),
              (std::vector<std::wstring_view>{L"1", LR"("a,]")", LR"({"b": [1, 2]} [x])", L"null"}));
    EXPECT_TRUE(base::jsonElements(L"[ ]").empty());
    EXPECT_EQ(base::readJsonStringArray(LR"({"k": ["a\nb", 1, ["c"], "d" "e", "", "f\\"]})", L"k"),
              (std::vector<std::wstring>{L"a\nb", L"", L"f\\"}));
    EXPECT_EQ(base::readJsonStringArray(LR"({"k": "a"})", L"k"), std::nullopt);
}

TEST(JsonText, Escapes) {
    const testing_table::Pairs pairs = {
        {LR"(\"\\\/\b\f\n\r\t)", L"\"\\/\b\f\n\r\t"},
        {LR"(\u0041\u00E9\u20ac)", L"A\u00E9\u20AC"},
        {LR"(\ud83d\ude00\uDBFF\uDFFF)", L"\U0001F600\U0010FFFF"},
        // Half of a pair.
        {LR"(\ud83d)", L"\uFFFD"},
        {LR"(\ud83d\ud83d\ude00)", L"\uFFFD\U0001F600"},
        {LR"(\ud83d\ude0)", L"\uFFFD\\ude0"},
        {LR"(\udc00\udc00)", L"\uFFFD\uFFFD"},
        {LR"(\u1)", LR"(\u1)"},
        // What is no escape stays.
        {LR"(\u12)", LR"(\u12)"},
        {LR"(\u00g0\U0041\x41\'a\)", LR"(\u00g0\U0041\x41\'a\)"},
        {LR"(\\u0041)", LR"(\u0041)"},
    };
    testing_table::expectEach(base::unescapeJson, pairs);
    EXPECT_EQ(base::escapeJson(std::wstring(L"\0\x1f\x7f\"\\/\b\f\n\r\t\u00E9", 12)),
              L"\\u0000\\u001f\x7f\\\"\\\\/\\b\\f\\n\\r\\t\u00E9");
}

TEST(JsonText, RandomTextSurvivesWritingAndReading) {
    std::mt19937 random(7);
    const std::wstring alphabet = std::wstring(L"\\\\\\\"\"\"/:,{}unk0ad8\n\t\b\x01\x1F\u00E9\U0001F600") + L'\0';
    for (int round = 0; round < 5000; ++round) {
        const std::wstring text = testing_table::randomText(random, alphabet, 16);
        const std::wstring document = L"{\"k\": \"" + base::escapeJson(text) + L"\", \"z\": \"\"}";
        ASSERT_EQ(base::readJsonString(document, L"k"), text) << testing::PrintToString(document);
    }
}

}  // namespace
