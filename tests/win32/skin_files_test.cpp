// Skins and fonts as files beside a program: what of a folder is read, and what is there without any.
#include <algorithm>

#include "base/win32/unique_handle.h"
#include "base/windows_path.h"
#include "tavi/theme/private_fonts.h"
#include "tavi/theme/skin_catalog.h"
#include "tavi/theme/skin_registry.h"
#include "tests/win32/support.h"

namespace {

using namespace tavi;
using namespace velquin::test;
using testing::ElementsAre;
using testing::IsEmpty;

class SkinFiles : public UnitTest {};

std::string skin(const std::string& id) {
    return R"({"id": ")" + id + R"(", "name": "N"})";
}

std::vector<std::wstring> idsAndSources(const std::vector<SkinDefinition>& skins) {
    std::vector<std::wstring> found;
    for (const SkinDefinition& each : skins) {
        found.push_back(each.id + L" " + each.source);
    }
    return found;
}

TEST_F(SkinFiles, OfAFolderItsCatalogsAreLoadedInOrder) {
    writeFile(path(L"b.json"), "[" + skin("b1") + ", 7, " + skin("b2") + "]");
    writeFile(path(L"a.JSON"), "\xEF\xBB\xBF" + skin("a"));
    writeFile(path(L"c.txt"), skin("c"));
    writeFile(path(L"d.json"), "{\"skins\": [" + skin("d") + ",");
    writeFile(path(L"e.json"), "");
    writeFile(path(L"x.json\\f.json"), skin("f"));
    writeFile(path(L"\u00FC.json"), skin("g"));
    writeFile(path(L"locked.json"), skin("h"));
    const base::UniqueFile lock(
        CreateFileW(path(L"locked.json").c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr));
    ASSERT_TRUE(lock);
    EXPECT_THAT(idsAndSources(loadSkinFolder(folder_)),
                ElementsAre(L"a a.JSON", L"b1 b.json", L"b2 b.json", L"g \u00FC.json"));
    for (const std::wstring& nothing : {std::wstring(), path(L"missing"), path(L"b.json")}) {
        EXPECT_THAT(idsAndSources(loadSkinFolder(nothing)), IsEmpty());
    }
    EXPECT_THAT(idsAndSources(loadSkinFile(path(L"x.json"))), IsEmpty());
}

TEST_F(SkinFiles, TheRegistryHasTheFrameworksOwnSkinsWithoutAny) {
    setSkinFolder(path(L"missing"));
    EXPECT_TRUE(std::ranges::equal(skinRegistry().skins(), builtInSkins()));
    EXPECT_EQ(skinRegistry().find(L"nobody").theme, Theme());
    writeFile(path(L"skins\\a.json"), "[" + skin("a") + ", " + skin("b") + "]");
    const SkinRegistry loaded(loadSkinFolder(path(L"skins")));
    EXPECT_EQ(loaded.find(L"b").source, L"a.json");
    EXPECT_EQ(findSkin(path(L"skins"), L"b"), loaded.find(L"b"));
    EXPECT_FALSE(findSkin(path(L"skins"), L"nobody"));
    EXPECT_FALSE(findSkin(path(L"missing"), L"a"));
    EXPECT_EQ(loaded.find(L"nobody").id, L"a");
}

// A font that this machine has, under a family of its own. A family's name stands in a font in UTF-16 with the high
// bytes first, and this one's is as long.
std::string fontOfUnknownFamily() {
    std::string font = readFile(VELQUIN_FONT);
    const auto spread = [](std::string_view name) {
        std::string units;
        for (const char c : name) {
            units += '\0';
            units += c;
        }
        return units;
    };
    const std::string family = spread("JetBrains Mono");
    size_t at = 0;
    int names = 0;
    for (; (at = font.find(family, at)) != std::string::npos; at += family.size()) {
        font.replace(at, family.size(), spread("Velquin Testin"));
        ++names;
    }
    EXPECT_GT(names, 0);
    return font;
}

// Whether programs can select the family.
bool hasFamily(const wchar_t* family) {
    LOGFONTW wanted{};
    wanted.lfCharSet = DEFAULT_CHARSET;
    std::wstring(family).copy(wanted.lfFaceName, LF_FACESIZE - 1);
    const HDC screen = GetDC(nullptr);
    bool found = false;
    EnumFontFamiliesExW(
        screen, &wanted,
        [](const LOGFONTW*, const TEXTMETRICW*, DWORD, LPARAM result) {
            *reinterpret_cast<bool*>(result) = true;
            return 0;
        },
        reinterpret_cast<LPARAM>(&found), 0);
    ReleaseDC(nullptr, screen);
    return found;
}

TEST_F(SkinFiles, FontsOfAFolderAreThereWhileTheyAreHeld) {
    constexpr const wchar_t* kFamily = L"Velquin Testin";
    const std::string font = fontOfUnknownFamily();
    writeFile(path(L"fonts\\good.TTF"), font);
    writeFile(path(L"fonts\\broken.ttf"), "not a font");
    writeFile(path(L"fonts\\cut.otf"), font.substr(0, 100));
    writeFile(path(L"fonts\\empty.ttc"), "");
    writeFile(path(L"fonts\\good.dat"), font);
    writeFile(path(L"fonts\\below.ttf\\good.ttf"), font);
    ASSERT_FALSE(hasFamily(kFamily));
    {
        const PrivateFonts fonts(path(L"fonts"));
        EXPECT_THAT(fonts.files(), ElementsAre(path(L"fonts\\good.TTF")));
        EXPECT_TRUE(hasFamily(kFamily));
    }
    EXPECT_FALSE(hasFamily(kFamily));
    for (const std::wstring& nothing : {std::wstring(), path(L"missing"), path(L"fonts\\good.TTF")}) {
        EXPECT_THAT(PrivateFonts(nothing).files(), IsEmpty());
    }
}

}  // namespace
