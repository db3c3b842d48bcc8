#include "localization/languages.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <random>
#include <set>

#include "base/text.h"
#include "core/configuration.h"
#include "localization/catalog.h"
#include "tests/portable/table.h"

namespace {

using testing_table::expectEach;
using velquin::findSupportedLanguage;
using velquin::languageTag;
using velquin::localizedText;
using velquin::normalizeLanguageTag;
using velquin::primaryLanguageSubtag;
using velquin::supportedLanguages;
using velquin::translateText;

int languageCount() {
    return static_cast<int>(supportedLanguages().size());
}

std::wstring foundTag(std::wstring_view tag) {
    const int index = findSupportedLanguage(tag);
    return index < 0 ? L"none" : languageTag(index);
}

velquin::ProductConfig configured(std::wstring_view language) {
    velquin::ProductConfig config;
    config.language = language;
    return config;
}

std::wstring shouted(std::wstring text) {
    std::ranges::transform(text, text.begin(),
                           [](wchar_t c) { return c >= L'a' && c <= L'z' ? static_cast<wchar_t>(c - 32) : c; });
    return text;
}

TEST(Language, TagsAreNormalised) {
    expectEach(normalizeLanguageTag,
               {{L" \tDE_at\r\n", L"de-at"},
                {L"zh_HK", L"zh-tw"},
                {L"SR-Latn-CS", L"sr-latn-rs"},
                {L"sr_cyrl_cs", L"sr-cyrl-rs"},
                {L"zh-hk-x", L"zh-hk-x"},
                {L"nb-NO", L"nb-no"},
                {L"a b", L"a b"},
                {L"", L""},
                {L"\x65E5-THAT-IS-LONGER-THAN-ANY-OF-OURS", L"\x65E5-that-is-longer-than-any-of-ours"}});
    expectEach(primaryLanguageSubtag, {{L"zh-HK", L"zh"},
                                       {L"nb-NO", L"no"},
                                       {L"NN", L"no"},
                                       {L"sr_Latn_RS", L"sr"},
                                       {L"fil", L"fil"},
                                       {L"nbx-NO", L"nbx"},
                                       {L"-de", L""},
                                       {L"", L""}});
}

TEST(Language, ATagFindsItselfElseTheFirstOfItsPrimarySubtag) {
    expectEach(foundTag, {{L"en-GB", L"en-GB"},
                          {L"en-AU", L"en-US"},
                          {L"fr-BE", L"fr-CA"},
                          {L"es-AR", L"es-MX"},
                          {L"pt-AO", L"pt-BR"},
                          {L"zh-SG", L"zh-CN"},
                          {L"zh-HK", L"zh-TW"},
                          {L"sr-Cyrl-ME", L"sr-Latn-RS"},
                          {L"sr-Latn-CS", L"sr-Latn-RS"},
                          {L"sr-Cyrl-CS", L"sr-Cyrl-RS"},
                          {L"no", L"nb-NO"},
                          {L"nn-NO", L"nn-NO"},
                          {L"nn-XX", L"nb-NO"},
                          {L"ca-ES-valenciana", L"ca-ES"},
                          {L"chr", L"chr-CHER-US"},
                          {L" de_at ", L"de-DE"},
                          {L"quz", L"quz-PE"},
                          {L"qu-PE", L"none"},
                          {L"fi-FI-and-on", L"fi-FI"},
                          {L"xx-YY", L"none"},
                          {L"f", L"none"},
                          {L"auto", L"none"},
                          {L"", L"none"},
                          {L"-", L"none"},
                          {std::wstring(L"de\0-DE", 6), L"none"}});
    for (int i = 0; i < languageCount(); ++i) {
        const std::wstring tag = languageTag(i);
        std::wstring underscored = shouted(tag);
        std::ranges::replace(underscored, L'-', L'_');
        for (const std::wstring& spelling : {tag, underscored, base::lowered(tag), L"\t" + underscored + L" "}) {
            EXPECT_EQ(foundTag(spelling), tag);
            EXPECT_EQ(velquin::canonicalLanguageSetting(spelling), tag);
        }
    }
}

TEST(Language, TheOrderDecidesWhatATagFindsAndStaysAsItIs) {
    std::wstring tags;
    for (int i = 0; i < languageCount(); ++i) {
        tags += languageTag(i) + L" ";
    }
    EXPECT_EQ(tags,
              L"ar-SA eu-ES bg-BG ca-ES zh-CN zh-TW hr-HR cs-CZ da-DK nl-NL en-US en-GB et-EE fi-FI fr-CA "
              L"fr-FR gl-ES de-DE el-GR he-IL hu-HU id-ID it-IT ja-JP ko-KR lv-LV lt-LT nb-NO pl-PL pt-BR "
              L"pt-PT ro-RO ru-RU sr-Latn-RS sk-SK sl-SI es-MX es-ES sv-SE th-TH tr-TR uk-UA vi-VN af-ZA "
              L"sq-AL am-ET hy-AM as-IN az-Latn-AZ be-BY bn-IN bs-Latn-BA chr-CHER-US fil-PH ka-GE gu-IN "
              L"hi-IN is-IS ga-IE kn-IN kk-KZ km-KH kok-IN lo-LA lb-LU mk-MK ms-MY ml-IN mt-MT mi-NZ mr-IN "
              L"ne-NP nn-NO or-IN fa-IR pa-IN quz-PE gd-GB sr-Cyrl-BA sr-Cyrl-RS ta-IN tt-RU te-IN ur-PK "
              L"ug-CN uz-Latn-UZ ca-ES-valencia cy-GB ");
}

// The same by the plainest means, without the keys that the lookup compares.
int foundPlainly(std::wstring_view tag) {
    for (const auto function : {normalizeLanguageTag, primaryLanguageSubtag}) {
        const std::wstring wanted = function(tag);
        for (int i = 0; i < languageCount(); ++i) {
            if (function(languageTag(i)) == wanted) {
                return i;
            }
        }
    }
    return -1;
}

TEST(Language, RandomTagsEndInASupportedLanguageOrAuto) {
    std::mt19937 random(2);
    std::set<std::wstring> seen;
    for (int i = 0; i < 2000; ++i) {
        // Mostly a supported tag with some of its characters changed.
        std::wstring tag = languageTag(static_cast<int>(random() % supportedLanguages().size()));
        for (unsigned changes = random() % 4; changes > 0; --changes) {
            constexpr std::wstring_view kCharacters = L"abdehnorsz-_ AT\x130\xFFFD";
            tag.replace(random() % tag.size(), random() % 3, 1, kCharacters[random() % kCharacters.size()]);
        }
        EXPECT_EQ(findSupportedLanguage(tag), foundPlainly(tag)) << testing::PrintToString(tag);
        EXPECT_EQ(normalizeLanguageTag(normalizeLanguageTag(tag)), normalizeLanguageTag(tag));
        const std::wstring setting = velquin::canonicalLanguageSetting(tag);
        EXPECT_EQ(velquin::canonicalLanguageSetting(setting), setting);
        EXPECT_EQ(setting == L"auto", findSupportedLanguage(tag) < 0) << testing::PrintToString(tag);
        seen.insert(setting);
    }
    EXPECT_EQ(static_cast<int>(seen.size()), languageCount() + 1);
}

TEST(Language, TheSettingCountsBeforeTheLocaleOfWindows) {
    struct Case {
        const wchar_t* setting;
        const wchar_t* canonical;
        const wchar_t* locale;
        const wchar_t* effective;
    };
    constexpr Case kCases[] = {
        {L"auto", L"auto", L"pt-AO", L"pt-BR"},
        {L" AUTO\t", L"auto", L"nn-NO", L"nn-NO"},
        {L"", L"auto", L"sr-Latn-CS", L"sr-Latn-RS"},
        {L"xx-YY", L"auto", L"de-AT", L"de-DE"},
        {L"auto", L"auto", L"", L"en-US"},
        {L"auto", L"auto", L"tlh-KX", L"en-US"},
        {L"auto", L"auto", L"auto", L"en-US"},
        {L"de_at", L"de-DE", L"cs-CZ", L"de-DE"},
        {L"auto-x", L"auto", L"ja-JP", L"ja-JP"},
    };
    for (const Case& c : kCases) {
        EXPECT_EQ(velquin::canonicalLanguageSetting(c.setting), c.canonical) << c.setting;
        EXPECT_EQ(languageTag(velquin::effectiveLanguageIndex(configured(c.setting), c.locale)), c.effective)
            << c.setting;
    }
}

TEST(Catalog, AnIdGivesTheTextOfTheLanguageInForce) {
    const auto text = [](const wchar_t* language, int id) { return localizedText(configured(language), id, L"ja-JP"); };
    EXPECT_EQ(text(L"en-GB", velquin::text::kBrowse), L"Browse");
    EXPECT_EQ(text(L"en-US", velquin::text::kRepair), L"Repair");
    EXPECT_EQ(text(L"en-US", velquin::text::kClose), L"Close");
    EXPECT_EQ(text(L"de-AT", velquin::text::kUninstall), L"Deinstallieren");
    EXPECT_EQ(text(L"cs", velquin::text::kTrayActiveSuffix), L" aktivn\xED");
    EXPECT_EQ(text(L"auto", velquin::text::kClose), text(L"ja-JP", velquin::text::kClose));
    EXPECT_EQ(text(L"nn-NO", velquin::text::kClose), text(L"nb-NO", velquin::text::kClose));
    EXPECT_NE(text(L"sr-Latn-RS", velquin::text::kClose), text(L"sr-Cyrl-RS", velquin::text::kClose));
    for (int language = 0; language < languageCount(); ++language) {
        const velquin::ProductConfig config = configured(languageTag(language));
        for (const int unknown : {-1, velquin::kTextCount, INT_MIN, INT_MAX}) {
            EXPECT_EQ(localizedText(config, unknown, L"en-US"), L"");
        }
        // The same wording has the same translation, whichever id asks for it.
        EXPECT_EQ(localizedText(config, velquin::text::kBrowse, L""),
                  localizedText(config, velquin::text::kBrowseInstallFolder, L""));
        for (int id = 0; id < velquin::kTextCount; ++id) {
            const std::wstring english = localizedText(configured(L"en-US"), id, L"");
            EXPECT_NE(english, L"");
            EXPECT_EQ(localizedText(config, id, L""), translateText(shouted(english), languageTag(language))) << id;
        }
    }
}

TEST(Language, SomeAreWrittenFromRightToLeft) {
    std::wstring found;
    for (int language = 0; language < languageCount(); ++language) {
        found += velquin::isRightToLeftLanguage(languageTag(language)) ? languageTag(language) + L" " : L"";
    }
    EXPECT_EQ(found, L"ar-SA he-IL fa-IR ur-PK ug-CN ");
    EXPECT_TRUE(velquin::isRightToLeftLanguage(L" AR_eg"));
    EXPECT_FALSE(velquin::isRightToLeftLanguage(L"arn-CL"));
    EXPECT_FALSE(velquin::isRightToLeftLanguage(L""));
}

TEST(Catalog, AnEmptyCellIsFilledFromWhatIsBuiltIn) {
    const int czech = findSupportedLanguage(L"cs");
    const int german = findSupportedLanguage(L"de");
    EXPECT_STREQ(velquin::shownWording("cell", czech, "english", "czech"), "cell");
    EXPECT_STREQ(velquin::shownWording("", czech, "english", "czech"), "czech");
    EXPECT_STREQ(velquin::shownWording("", german, "english", "czech"), "english");
}

TEST(Catalog, AWordingIsFoundWithoutRegardToCase) {
    const std::wstring german = translateText(L"Install", L"de-DE");
    EXPECT_EQ(german, L"Installieren");
    EXPECT_EQ(translateText(L"iNSTALL", L"DE_ch"), german);
    EXPECT_EQ(translateText(L"Install", L"xx"), L"Install") << "an unknown language gets English";
    for (const std::wstring& unknown :
         {std::wstring(), std::wstring(L"Instal"), std::wstring(L"Install "), std::wstring(L"Install\0", 8),
          std::wstring(L"\x130nstall"), std::wstring(L"~")}) {
        EXPECT_EQ(translateText(unknown, L"de-DE"), L"") << testing::PrintToString(unknown);
    }
}

}  // namespace
