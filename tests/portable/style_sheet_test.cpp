// Which of a skin's styles a name stands for, and which controls get it.
#include "tavi/controls/style_sheet.h"

#include "tavi/controls/check_box.h"
#include "tavi/controls/label.h"
#include "tavi/core/panel.h"
#include "tests/portable/window_fixture.h"

namespace {

using namespace testing_tavi;

SkinDefinition skinWith(const std::vector<std::pair<std::string, std::string>>& styles) {
    SkinDefinition skin;
    for (const auto& [type, variant] : styles) {
        skin.styleOverrides.push_back({.controlType = type, .variant = variant, .properties = {}});
    }
    return skin;
}

TEST(StyleSheet, TakesTheFirstVariantThatTheSkinHas) {
    const SkinDefinition skin = skinWith({{"button", "primaryaction"}, {"button", "default"}, {"check", "default"}});
    const struct {
        StyleRule rule;
        std::wstring variant;
        bool isDerived;
    } kCases[] = {
        {{L"a", L"button", {L"primary-action", L"default"}}, L"primary-action", false},
        {{L"b", L"button", {L"own", L"Default", L"primary-action"}}, L"Default", false},
        {{L"c", L"button", {L"own", L"danger"}}, L"danger", true},
        {{L"d", L"check_box", {L"own", L"default"}}, L"default", false},  // another spelling of the skin's type
        {{L"e", L"text", {L"default"}}, L"default", true},                // of a type that it does not have
        {{L"f", L"text", {}}, L"", true},
    };
    std::vector<StyleRule> rules;
    for (const auto& each : kCases) {
        rules.push_back(each.rule);
    }
    const StyleSheet sheet(rules, skin);
    ASSERT_EQ(sheet.styles().size(), std::size(kCases));
    for (const auto& each : kCases) {
        const NamedStyle* const style = sheet.find(each.rule.name);
        ASSERT_NE(style, nullptr);
        EXPECT_EQ(style->variant, each.variant) << testing::PrintToString(each.rule.name);
        EXPECT_EQ(style->isDerived, each.isDerived) << testing::PrintToString(each.rule.name);
    }
    EXPECT_EQ(sheet.find(L"A"), nullptr);
}

TEST(StyleSheet, IsAppliedByNameAndType) {
    const TextFont small{L"", 8, 400};
    const TextFont own{L"", 20, 700};
    const StyleSheet sheet(
        std::vector<StyleRule>{{L"note", L"Text_Style", {L"muted"}, small}, {L"head", L"text", {L"title"}}}, {});
    Panel root;
    auto* const inner = root.add<Panel>(L"inner");
    const auto named = [](Control* control, const wchar_t* name) {
        Appearance appearance = control->appearance();
        appearance.styleName = name;
        control->setAppearance(std::move(appearance));
        return control;
    };
    Control* const note = named(inner->add<Label>(L"note", Rect{}, L""), L"note");
    Control* const head = inner->add<Label>(L"head", Rect{}, L"");
    head->setAppearance({.font = own});
    named(head, L"head");
    Control* const check = named(inner->add<CheckBox>(L"check", Rect{}, L""), L"note");
    Control* const other = named(inner->add<Label>(L"other", Rect{}, L""), L"danger");
    for (int time = 0; time < 2; ++time) {
        sheet.apply(root);
        EXPECT_EQ(note->appearance(), (Appearance{.styleName = L"note", .variant = L"muted", .font = small}));
        EXPECT_EQ(head->appearance(), (Appearance{.styleName = L"head", .variant = L"title", .font = own}));
        EXPECT_EQ(check->appearance(), Appearance{.styleName = L"note"});
        EXPECT_EQ(other->appearance(), Appearance{.styleName = L"danger"});
    }
}

}  // namespace
