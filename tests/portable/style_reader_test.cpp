// Reading the styles of skins, and choosing the files that skins are read from.
#include <gtest/gtest.h>

#include "base/text.h"
#include "tavi/theme/skin_catalog.h"
#include "tavi/theme/skin_reader.h"
#include "tests/portable/skin_texts.h"

namespace {

using namespace tavi;
using testing_tavi::member;
using testing_tavi::object;
using testing_tavi::read;
using testing_tavi::skinWith;

using Pairs = std::vector<std::pair<std::string, std::string>>;

Pairs propertiesOf(const StyleOverride& style) {
    Pairs pairs;
    for (const auto [path, value] : style.properties) {
        pairs.emplace_back(path, value);
    }
    return pairs;
}

// The properties of the only style.
Pairs flattened(const std::string& style) {
    const SkinDefinition skin = skinWith(R"("styles": {"button": {"default": )" + style + "}}");
    return skin.styleOverrides.empty() ? Pairs() : propertiesOf(skin.styleOverrides.front());
}

TEST(SkinStyles, StylesAndVariantsBecomeOneListInTheirOrder) {
    const SkinDefinition skin = skinWith(
        R"("control_variants": {"card": {"x": {"a": 1}}}, "style_overrides": {"Check_Box": {"": {"a": 2}, "Primary-Action":
           {"a": 3}, "none": {"b": {}}}, "panel": {"glass": {"a": 4}}, "bad": 1})");
    const std::tuple<std::string, std::string, std::string> expected[] = {
        {"checkbox", "default", "2"}, {"checkbox", "Primary-Action", "3"}, {"panel", "glass", "4"}, {"card", "x", "1"}};
    ASSERT_EQ(skin.styleOverrides.size(), std::size(expected));
    for (size_t i = 0; i < std::size(expected); ++i) {
        const StyleOverride& style = skin.styleOverrides[i];
        EXPECT_EQ(std::tuple(style.controlType, style.variant, propertiesOf(style).front().second), expected[i]);
    }
}

TEST(SkinStyles, ObjectsBecomePathsInTheirOrder) {
    const std::pair<std::string, Pairs> cases[] = {
        {R"({"surface": {"normal": {"gradient_start": "#3A2C1C"}}})", {{"surface.normal.gradientstart", "#3A2C1C"}}},
        {R"({"dropdownScrollbarWidth": 12, "B": {"z": true, " A-b ": false}, "a": 1.5})",
         {{"dropdownscrollbarwidth", "12"}, {"b.z", "true"}, {"b.ab", "false"}, {"a", "1.5"}}},
        {R"({"gone": null, "list": [1], "empty": {}})", {}},
        {R"({"a": "t\u00e9xt\ud83d\ude00", "": {"": 1}})", {{"a", "t\u00E9xt\U0001F600"}, {".", "1"}}},
        {R"({"\u00e9_T\u00e9": 1, "a b": 2, "a.b": 3})", {{"\u00E9t\u00E9", "1"}, {"a b", "2"}, {"a.b", "3"}}},
        {R"({"n": -0.0, "o": 1e20, "p": -12345678901, "q": 0.1})",
         {{"n", "0"}, {"o", "1e+20"}, {"p", "-12345678901"}, {"q", "0.1"}}},
    };
    for (const auto& [style, expected] : cases) {
        EXPECT_EQ(flattened(style), expected) << style;
    }
}

TEST(SkinStyles, OfEqualPathsTheLastCounts) {
    const std::tuple<std::string, std::string, std::string> cases[] = {
        {R"({"a_b": 1, "aB": 2, "ab": {"c": 3}})", "ab", "2"},
        {R"({"x": {"a": 1}, "y": 2, "X": {"a": 3, "b": 4}})", "x.a", "3"},
        {R"({"a": {"b": 1}, "a.b": 2})", "a.b", "2"},
        {R"({"a.b": 2, "a": {"b": 1}})", "a.b", "1"},
    };
    for (const auto& [style, path, expected] : cases) {
        const SkinDefinition skin = skinWith(R"("styles": {"button": {"default": )" + style + "}}");
        EXPECT_EQ(skin.styleOverrides.front().properties.find(path), expected) << style;
    }
}

TEST(SkinStyles, LongPathsAndTooMuchOfAllAreLeftOut) {
    const std::string fits(kMaxStylePath - 2, 'k');
    EXPECT_EQ(flattened(object(member("a", object(member(fits, "1"))))).size(), 1u);
    EXPECT_EQ(flattened(object(member("a", object(member(fits + "k", "1"))))).size(), 0u);
    // A key that stands over many short ones would make far more text than the document has.
    std::string many;
    for (int i = 0; i < 2000; ++i) {
        many += (i > 0 ? "," : "") + member(std::to_string(i), "1");
    }
    const std::string document = R"({"id": "i", "name": "n", "styles": {"button": {"default": )" +
                                 object(member(std::string(100, 'k'), object(many))) + "}}}";
    const auto skins = read(document);
    size_t characters = 0;
    for (const auto& [path, value] : propertiesOf(skins.front().styleOverrides.front())) {
        characters += path.size() + value.size();
    }
    EXPECT_LE(characters, document.size() * 8);
    EXPECT_GT(characters, document.size() * 8 - 300) << "as many as may be";
}

TEST(SkinStyles, PropertiesAreFoundAndCompared) {
    StyleProperties properties;
    EXPECT_TRUE(properties.empty());
    EXPECT_EQ(properties.find(""), std::nullopt);
    for (const std::string path : {"m", "", "m.n"}) {
        properties.append(path, path + "!");
    }
    EXPECT_EQ(properties.find("m"), "m!");
    EXPECT_EQ(properties.find(""), "!");
    EXPECT_EQ(properties.find("m.n"), "m.n!");
    EXPECT_EQ(properties.find("m."), std::nullopt);
    StyleProperties other = properties;
    EXPECT_EQ(properties, other);
    other.append("m", "");
    EXPECT_NE(properties, other);
    EXPECT_EQ(other.find("m"), "");
    other.clear();
    EXPECT_EQ(other, StyleProperties());
}

TEST(SkinCatalog, TheFilesOfAFolderAreChosenAndOrderedByTheirNames) {
    EXPECT_EQ(
        catalogFiles({L"b.json", L"c.txt", L"a.JSON", L".json", L"json", L"d.json.bak", L"01-x.json", L"00-y.json"}),
        (std::vector<std::wstring>{L"00-y.json", L"01-x.json", L"a.JSON", L"b.json"}));
    EXPECT_TRUE(catalogFiles({}).empty());
}

}  // namespace
