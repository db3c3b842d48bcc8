#include "base/json.h"

#include <gtest/gtest.h>

#include "base/text.h"

namespace {

using base::Json;
using base::parseJson;

TEST(Json, ValuesKeepTheirKindPlaceAndOrder) {
    const auto document = parseJson(
        "\xEF\xBB\xBF {\"b\": [null, true, -1.5e2, 9007199254740993, \"\\u00e9\\ud83d\\ude00\\n\", []],"
        " \"a\": {\"b\": \"inner\"}, \"A\": false, \"a\": 2}\n");
    ASSERT_TRUE(document);
    const Json root = document->root();
    ASSERT_EQ(root.members().size(), 4u);
    std::string keys;
    for (const auto [key, value] : root.members()) {
        keys += key;
    }
    EXPECT_EQ(keys, "baAa");
    const base::JsonArray array = *root.find("b").array();
    ASSERT_EQ(array.size(), 6u);
    EXPECT_EQ(std::distance(array.begin(), array.end()), 6);
    EXPECT_TRUE(array[0]) << "null is a value";
    EXPECT_FALSE(array[0].boolean() || array[0].number() || array[0].string() || array[0].array() || array[0].object());
    EXPECT_EQ(array[1].boolean(), true);
    EXPECT_EQ(array[2].number(), -150.0);
    EXPECT_EQ(array[3].number(), 9007199254740992.0) << "numbers are doubles";
    EXPECT_EQ(array[4].string(), "\u00E9\U0001F600\n");
    EXPECT_TRUE(array[5].array()->empty());
    EXPECT_TRUE(array[4].elements().empty() && array[4].members().empty() && root.elements().empty());
    EXPECT_EQ(root.find("a").find("b").string(), "inner") << "the first of two";
    EXPECT_EQ(root.find("A").boolean(), false) << "case counts";
    EXPECT_FALSE(root.find("c"));
    EXPECT_FALSE(root.find("c").find("d").string()) << "nothing holds nothing";
    EXPECT_FALSE(array[4].find("b"));
    const auto similar = parseJson(R"({"changes_en": 1, "changes": 2})");
    EXPECT_EQ(similar->root().find("changes").number(), 2.0);
    EXPECT_EQ(parseJson("18446744073709551615")->root().number(), 18446744073709551615.0);
    const base::JsonDocument moved = std::move(*parseJson("[\"a\"]"));
    EXPECT_EQ((*moved.root().array())[0].string(), "a") << "of a short text, which moves with its document";
}

TEST(Json, ErrorsTellWhere) {
    const std::pair<std::string, size_t> cases[] = {
        {"", 0},
        {"\xEF\xBB\xBF", 3},
        {"{\"a\": 1,}", 8},
        {"{} x", 3},
        {std::string("{} \0{}", 6), 3},
        {std::string("{} \0", 4), 3},
        {std::string("{\"a\0b\": 1}", 10), 1},
        {"[\"\\ud800\"]", 1},
        {"[1e999]", 1},
        {"[\"open", 1},
    };
    for (const auto& [text, offset] : cases) {
        const auto result = parseJson(text);
        ASSERT_FALSE(result) << testing::PrintToString(text);
        EXPECT_GE(result.error().offset, offset) << testing::PrintToString(text);
        EXPECT_LE(result.error().offset, text.size());
        EXPECT_FALSE(result.error().reason.empty());
    }
}

TEST(Json, IllFormedTextIsReplacedWhenItIsWidened) {
    const auto document = parseJson("[\"a\xC3(\", \"\xED\xA0\x80\"]");
    ASSERT_TRUE(document);
    const base::JsonArray array = *document->root().array();
    EXPECT_EQ(base::toWide(*array[0].string()), L"a\uFFFD(");
    EXPECT_EQ(base::toWide(*array[1].string()), L"\uFFFD\uFFFD\uFFFD");
}

TEST(Json, DepthNumberAndLengthHaveLimits) {
    const auto nested = [](size_t depth) { return std::string(depth, '[') + std::string(depth, ']'); };
    EXPECT_TRUE(parseJson(nested(base::kMaxJsonDepth)));
    EXPECT_FALSE(parseJson(nested(base::kMaxJsonDepth + 1)));
    EXPECT_EQ(parseJson(std::string(1 << 20, '[')).error().reason, L"Nested too deeply, or too many values.");
    std::string objects;
    for (size_t i = 0; i <= base::kMaxJsonDepth; ++i) {
        objects += "{\"a\":";
    }
    EXPECT_EQ(parseJson(objects).error().reason, L"Nested too deeply, or too many values.");
    std::string many = "[";
    for (size_t i = 0; i < base::kMaxJsonValues; ++i) {
        many += "0,";
    }
    EXPECT_EQ(parseJson(many + "0]").error().reason, L"Nested too deeply, or too many values.");
    many.resize(many.size() - 3);  // as many as may be, the array itself among them
    EXPECT_TRUE(parseJson(many + "]"));
    std::string containers = "[";
    for (size_t i = 0; i < base::kMaxJsonValues; ++i) {
        containers += "[],";
    }
    EXPECT_EQ(parseJson(containers + "0]").error().reason, L"Nested too deeply, or too many values.");
    EXPECT_TRUE(parseJson("1" + std::string(base::kMaxJsonLength - 1, ' ')));
    EXPECT_EQ(parseJson(std::string(base::kMaxJsonLength + 1, ' ')).error().reason, L"Longer than any document.");
}

}  // namespace
