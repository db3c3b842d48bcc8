#include "tavi/theme/active_skin.h"

#include <gtest/gtest.h>

#include <set>

#include "tavi/theme/private_fonts.h"
#include "tavi/theme/skin_registry.h"

namespace {

using namespace tavi;

SkinDefinition skinOf(const wchar_t* id, const wchar_t* name) {
    SkinDefinition skin;
    skin.id = id;
    skin.name = name;
    return skin;
}

TEST(SkinRegistry, FindsTheFirstOfAnIdAndAlwaysSomething) {
    const SkinRegistry registry({skinOf(L"a", L"1"), skinOf(L"b", L"2"), skinOf(L"a", L"3")});
    EXPECT_EQ(registry.find(L"a").name, L"1");
    EXPECT_EQ(registry.find(L"b").name, L"2");
    EXPECT_EQ(registry.find(L"A").name, L"1") << "unknown: the first of all";
    EXPECT_EQ(registry.skins().size(), 3 + builtInSkins().size());
    EXPECT_EQ(registry.find(builtInSkins().back().id).name, builtInSkins().back().name);
    const SkinRegistry empty({});
    const SkinDefinition& fallback = empty.find(L"verdant-ops");
    EXPECT_EQ(fallback.theme, Theme());
    EXPECT_EQ(fallback.surfaceMode, SurfaceMode::kSculpted3d);
    EXPECT_TRUE(fallback.styleOverrides.empty());
}

TEST(SkinRegistry, BuiltInSkinsCanBeToldApart) {
    std::set<std::wstring> ids;
    std::set<std::wstring> names;
    for (const SkinDefinition& skin : builtInSkins()) {
        ids.insert(skin.id);
        names.insert(skin.name);
    }
    EXPECT_EQ(ids.size(), builtInSkins().size());
    EXPECT_EQ(names.size(), builtInSkins().size());
    EXPECT_FALSE(ids.contains(L"") || names.contains(L""));
}

TEST(ActiveSkin, IsReplacedAsAWholeAndTellsWhenItIsInPlace) {
    const SkinDefinition before = activeSkin();
    const SkinDefinition* place = &activeSkin();
    const Theme* theme = &activeTheme();
    const uint64_t generation = skinGeneration();
    SkinDefinition next = skinOf(L"next", L"Next");
    next.theme.accent = 0x123456;
    std::vector<std::wstring> seen;
    ScopedConnection connection = skinChanged().connect([&](SkinChange& change) {
        EXPECT_EQ(change.generation, skinGeneration());
        seen.push_back(activeSkin().id);
        if (seen.size() == 1) {
            activateSkin(skinOf(L"nested", L""));
        }
    });
    activateSkin(next);
    EXPECT_EQ(seen, (std::vector<std::wstring>{L"next", L"nested"}));
    EXPECT_EQ(skinGeneration(), generation + 2);
    EXPECT_EQ(activeTheme(), Theme());
    activateSkin(next);
    activateSkin(activeSkin());
    EXPECT_EQ(activeSkin(), next) << "from itself, too";
    EXPECT_TRUE(place == &activeSkin() && theme == &activeTheme()) << "controls keep references";
    connection = {};
    activateSkin(before);
    EXPECT_EQ(seen.size(), 4u);
}

TEST(PrivateFonts, AreChosenByTheirExtension) {
    for (const wchar_t* name : {L"a.ttf", L"A.OTF", L"b.c.Ttc", L"x.otc"}) {
        EXPECT_TRUE(isFontFile(name)) << testing::PrintToString(name);
    }
    for (const wchar_t* name : {L"a.fon", L"ttf", L".ttf", L"a.ttf.txt", L"", L"a.woff2", L"attf"}) {
        EXPECT_FALSE(isFontFile(name)) << testing::PrintToString(name);
    }
}

}  // namespace
