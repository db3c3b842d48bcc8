#include "base/json.h"

#include <gtest/gtest.h>

namespace {

using base::Json;
using base::parseJson;

TEST(Json, ValuesKeepTheirKindPlaceAndOrder) {
    const auto document = parseJson(
        L"\uFEFF {\"b\": [null, true, -1.5e2, 9007199254740993, \"\\u00e9\\ud83d\\ude00\\n\", []],"
        L" \"a\": {\"b\": \"inner\"}, \"A\": false, \"a\": 2}\n");
    ASSERT_TRUE(document);
    ASSERT_EQ(document->object()->size(), 4u);
    EXPECT_EQ(document->object()->front().key, L"b");
    const Json::Array& array = *document->find(L"b")->array();
    EXPECT_FALSE(array[0].boolean() || array[0].number() || array[0].string() || array[0].array() || array[0].object());
    EXPECT_EQ(array[1].boolean(), true);
    EXPECT_EQ(array[2].number(), -150.0);
    EXPECT_EQ(array[3].number(), 9007199254740992.0) << "numbers are doubles";
    EXPECT_EQ(*array[4].string(), L"\u00E9\U0001F600\n");
    EXPECT_TRUE(array[5].array()->empty());
    EXPECT_EQ(*document->find(L"a")->find(L"b")->string(), L"inner") << "the first of two";
    EXPECT_EQ(document->find(L"A")->boolean(), false) << "case counts";
    EXPECT_EQ(document->find(L"c"), nullptr);
    EXPECT_EQ(parseJson(LR"({"changes_en": 1, "changes": 2})")->find(L"changes")->number(), 2.0);
    EXPECT_EQ(parseJson(L"18446744073709551615")->number(), 18446744073709551615.0);
    EXPECT_EQ(array[4].find(L"b"), nullptr);
}

TEST(Json, ErrorsTellWhere) {
    const std::pair<std::wstring, size_t> cases[] = {
        {L"", 0},
        {L"\uFEFF", 1},
        {L"{\"a\": 1,}", 8},
        {L"{} x", 3},
        {std::wstring(L"{} \0{}", 6), 3},
        {std::wstring(L"{\"a\0b\": 1}", 10), 1},
        {L"[\"\\ud800\"]", 1},
        {L"[1e999]", 1},
        {L"[\"open", 1},
    };
    for (const auto& [text, offset] : cases) {
        const auto result = parseJson(text);
        ASSERT_FALSE(result) << testing::PrintToString(text);
        EXPECT_GE(result.error().offset, offset) << testing::PrintToString(text);
        EXPECT_LE(result.error().offset, text.size());
        EXPECT_FALSE(result.error().reason.empty());
    }
}

TEST(Json, DepthNumberAndLengthHaveLimits) {
    const auto nested = [](size_t depth) { return std::wstring(depth, L'[') + std::wstring(depth, L']'); };
    EXPECT_TRUE(parseJson(nested(base::kMaxJsonDepth)));
    EXPECT_FALSE(parseJson(nested(base::kMaxJsonDepth + 1)));
    EXPECT_EQ(parseJson(std::wstring(1 << 20, L'[')).error().reason, L"Nested too deeply, or too many values.");
    std::wstring objects;
    for (size_t i = 0; i <= base::kMaxJsonDepth; ++i) {
        objects += L"{\"a\":";
    }
    EXPECT_EQ(parseJson(objects).error().reason, L"Nested too deeply, or too many values.");
    std::wstring many = L"[";
    for (size_t i = 0; i < base::kMaxJsonValues; ++i) {
        many += L"0,";
    }
    EXPECT_EQ(parseJson(many + L"0]").error().reason, L"Nested too deeply, or too many values.");
    many.resize(many.size() - 3);  // as many as may be, the array itself among them
    EXPECT_TRUE(parseJson(many + L"]"));
    std::wstring containers = L"[";
    for (size_t i = 0; i < base::kMaxJsonValues; ++i) {
        containers += L"[],";
    }
    EXPECT_EQ(parseJson(containers + L"0]").error().reason, L"Nested too deeply, or too many values.");
    EXPECT_TRUE(parseJson(L"1" + std::wstring(base::kMaxJsonLength - 1, L' ')));
    EXPECT_EQ(parseJson(std::wstring(base::kMaxJsonLength + 1, L' ')).error().reason, L"Longer than any document.");
}

}  // namespace
