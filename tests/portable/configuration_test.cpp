#include "core/configuration.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "base/json.h"
#include "base/text.h"
#include "tests/portable/table.h"

namespace {

using namespace velquin;
using testing_table::randomText;

ProductConfig parsed(std::wstring_view text) {
    ProductConfig defaults;
    defaults.veraCryptPath = L"detected";
    return parseProductConfig(text, defaults);
}

TEST(Configuration, WhatIsMissingOrUnreadableKeepsItsDefault) {
    ProductConfig defaults;
    defaults.veraCryptPath = L"detected";
    EXPECT_EQ(defaults.language, L"auto");
    EXPECT_EQ(defaults.skinId, L"verdant-ops");
    EXPECT_EQ(defaults.performanceProfile, L"balanced");
    const std::wstring deep = std::wstring(L"{\"Mappings\": ") + std::wstring(200000, L'[');
    const std::wstring unreadable[] = {
        L"",
        L"no JSON at all",
        L"{}",
        std::wstring(L"\0\0{\0", 4),
        L"\xFFFD\xD800\"\xDFFF",
        deep,
        L"{\"ui_state\": {\"a\": ",
        LR"({"Mappings": [], "MountOptions": "rm", "ui_state": [], "DisableHistory": 0, "Suspended": "true"})",
        LR"({"Mappings": [1, "x", null, []], "ui_state": { }})",
        LR"({"Language": )",
        LR"({"Language": "cut off \)",
    };
    for (const std::wstring& text : unreadable) {
        EXPECT_EQ(parsed(text), defaults) << testing::PrintToString(text.substr(0, 80));
    }
}

TEST(Configuration, AFirstOccurrenceDecidesAndThePresentSpellingWins) {
    const ProductConfig both = parsed(LR"({"SkinId": "new", "skin_id": "old", "performance_profile": "p"})");
    EXPECT_EQ(both.skinId, L"new");
    EXPECT_EQ(both.performanceProfile, L"p");
    EXPECT_EQ(parsed(LR"({"skin_id": "old", "SkinId": "new"})").skinId, L"new");
    EXPECT_EQ(parsed(LR"({"ui_state": {"Language": "de"}})").language, L"de") << "nesting does not count";
    // The single volume after the mappings is misread: the first mapping's comes first.
    const ProductConfig turned =
        parsed(LR"({"Mappings": [{"VolumePath": "C:\\a", "DriveLetter": "a"}], "VolumePath": "C:\\legacy"})");
    EXPECT_EQ(turned.volumePath, L"C:\\a");
    EXPECT_EQ(turned.mappings, (std::vector<Mapping>{{L"Mapping 1", L"C:\\a", L"A", true}}));
    EXPECT_EQ(parsed(LR"({"MountOptions": []})").mountOptions, std::vector<std::wstring>());
    EXPECT_EQ(parsed(LR"({"MountOptions": ["a]", 1, "\"b", ["c"]]})").mountOptions,
              (std::vector<std::wstring>{L"a]", L"\"b"}));
}

TEST(Configuration, TheUiStateIsHandedOnWhenItIsFitForAFile) {
    ProductConfig defaults;
    defaults.uiState = L"{\"of\": \"before\"}";
    const std::pair<const wchar_t*, const wchar_t*> cases[] = {
        {LR"({"ui_state": {"a": [1, {"b": "}"}] } })", LR"({"a": [1, {"b": "}"}] })"},
        {LR"({"ui_state": {"a": 1,}})", L""},
        {LR"({"ui_state": {a}})", L""},
        {LR"({"ui_state": { }})", L""},
        {LR"({"ui_state": []})", L"{\"of\": \"before\"}"},
    };
    for (const auto& [text, state] : cases) {
        EXPECT_EQ(parseProductConfig(text, defaults).uiState, state) << testing::PrintToString(text);
    }
}

TEST(Configuration, MappingsAreNormalised) {
    ProductConfig config;
    config.volumePath = L" C:\\old.hc\t";
    config.driveLetter = L" x ";
    normalizeMappings(config);
    EXPECT_EQ(config.driveLetter, L"X");
    const std::vector<Mapping> single{{L"Mapping 1", L"C:\\old.hc", L"X", true}};
    EXPECT_EQ(config.mappings, single);
    EXPECT_EQ(config.volumePath, L"C:\\old.hc") << "for older versions";
    // Once the last mapping has been taken away, the single volume must not come back.
    for (ProductConfig changed : {config, parsed(formatProductConfig(config))}) {
        changed.mappings.clear();
        normalizeMappings(changed);
        const ProductConfig read = parsed(formatProductConfig(changed));
        EXPECT_EQ(read.mappings, std::vector<Mapping>());
        EXPECT_EQ(read.volumePath + read.driveLetter, L"");
    }
    EXPECT_TRUE(parsed(LR"({"DriveLetter": "x"})").mappings.empty()) << "a letter alone is no volume";
    EXPECT_FALSE(parsed(LR"({"VolumePath": "C:\\a", "Mappings": []})").origin.explicitMappings);
    EXPECT_TRUE(parsed(formatProductConfig(config)).origin.explicitMappings);

    config.mappings = {{L" a ", L" C:\\1 ", L"y", false},
                       {L"A", L"C:\\1", L"Y"},
                       {L"a (2)", L"", L""},
                       {L"", L"", L""},
                       {L" ", L"", L""},
                       {L"Mapping 4", L"", L""},
                       {L"a", L"", L" zz "}};
    normalizeMappings(config);
    const std::vector<Mapping> expected{
        {L"a", L"C:\\1", L"Y", false}, {L"A (2)", L"C:\\1", L"Y"},   {L"a (2) (2)", L"", L""}, {L"Mapping 4", L"", L""},
        {L"Mapping 5", L"", L""},      {L"Mapping 4 (2)", L"", L""}, {L"a (3)", L"", L"ZZ"}};
    EXPECT_EQ(config.mappings, expected);
}

TEST(Configuration, ListsHaveALimit) {
    std::wstring many;
    for (size_t i = 0; i < kMaxListed; ++i) {
        many += i == 0 ? L"{}" : L", {}";
    }
    const auto read = [](const std::wstring& mappings) { return parsed(L"{\"Mappings\": [" + mappings + L"]}"); };
    EXPECT_FALSE(read(many).origin.damaged);
    EXPECT_TRUE(read(many + L", {}").origin.damaged);
    EXPECT_EQ(read(many + L", {}, {}").mappings.size(), kMaxListed);
    std::ranges::replace(many, L'{', L'"');
    std::ranges::replace(many, L'}', L'"');
    const ProductConfig options = parsed(L"{\"MountOptions\": [" + many + L", \"x\"]}");
    EXPECT_EQ(options.mountOptions.size(), kMaxListed);
    EXPECT_TRUE(options.origin.damaged);
}

TEST(Configuration, TheFileIsWrittenInItsOrder) {
    ProductConfig config;
    config.mappings = {{L"Work \"W\"", L"D:\\w.hc", L"w", false}, {L"", L"E:\\x", L""}};
    config.veraCryptPath = L"C:\\V\\VeraCrypt.exe";
    config.suspended = true;
    config.uiState = LR"({"window": {"normal_bounds": [1, 2]}, "other": "kept \u00e4s it is"})";
    normalizeMappings(config);
    EXPECT_EQ(formatProductConfig(config),
              LR"({
  "VolumePath": "",
  "DriveLetter": "",
  "Mappings": [
    { "Name": "Work \"W\"", "VolumePath": "D:\\w.hc", "DriveLetter": "W", "Enabled": false },
    { "Name": "Mapping 2", "VolumePath": "E:\\x", "DriveLetter": "", "Enabled": true }
  ],
  "VeraCryptPath": "C:\\V\\VeraCrypt.exe",
  "MountOptions": ["rm", "ts"],
  "DisableHistory": true,
  "DisablePasswordCache": true,
  "Suspended": true,
  "UpdatedUtc": "",
  "Language": "auto",
  "SkinId": "verdant-ops",
  "skin_id": "verdant-ops",
  "PerformanceProfile": "balanced",
  "performance_profile": "balanced",
  "ui_state_schema_version": 1,
  "ui_state": {"window": {"normal_bounds": [1, 2]}, "other": "kept \u00e4s it is"}
}
)");
    const std::wstring empty = formatProductConfig({});
    EXPECT_TRUE(empty.ends_with(L"\"ui_state\": {}\n}\n") && empty.contains(L"\"Suspended\": false"));
}

// Texts that are hard to read back: brackets, quotes, escapes, and the keys themselves, alone and behind a quote.
std::wstring hardText(std::mt19937& random) {
    constexpr const wchar_t* kWords[] = {L"DisableHistory",
                                         L"DisablePasswordCache",
                                         L"Suspended",
                                         L"PerformanceProfile",
                                         L"performance_profile",
                                         L"VolumePath",
                                         L"DriveLetter",
                                         L"Mappings",
                                         L"MountOptions",
                                         L"Name",
                                         L"Enabled",
                                         L"ui_state",
                                         L"skin_id",
                                         L"SkinId",
                                         L"Language",
                                         L"UpdatedUtc",
                                         L"VeraCryptPath"};
    constexpr wchar_t kAlphabet[] = L"aZ9 \\\\\"\"{}[],:/\n\x01\u00E9\U0001F600";
    const std::wstring word = kWords[random() % std::size(kWords)];
    switch (random() % 4) {
        case 0:
            return word;
        case 1:
            return randomText(random, kAlphabet, 6) + L'"' + word;
        case 2:
            return word + L'"' + randomText(random, kAlphabet, 6);
        default:
            return randomText(random, kAlphabet, 12);
    }
}

TEST(Configuration, WhatIsSavedIsLoaded) {
    std::mt19937 random(3);
    for (int round = 0; round < 1000; ++round) {
        ProductConfig config;
        for (std::wstring* text : {&config.volumePath, &config.driveLetter, &config.veraCryptPath, &config.updatedUtc,
                                   &config.language, &config.skinId, &config.performanceProfile}) {
            *text = hardText(random);
        }
        for (bool* flag : {&config.disableHistory, &config.disablePasswordCache, &config.suspended}) {
            *flag = random() % 2 == 0;
        }
        for (size_t i = random() % 4; i > 0; --i) {
            config.mappings.push_back({hardText(random), hardText(random), hardText(random), random() % 2 == 0});
        }
        config.mountOptions.resize(random() % 3);
        std::ranges::generate(config.mountOptions, [&] { return hardText(random); });
        config.uiState = random() % 2 == 0 ? LR"({"Language": ["}", {"SkinId": "x"}]})" : L"";
        normalizeMappings(config);
        const ProductConfig once = config;
        normalizeMappings(config);
        ASSERT_EQ(config, once) << "normalising again changes nothing";
        const std::wstring text = formatProductConfig(config);
        ASSERT_EQ(parsed(text), config) << base::toUtf8(text);
        ASSERT_TRUE(base::parseJson(base::toUtf8(text))) << base::toUtf8(text);
    }
}

TEST(Configuration, VeraCryptIsLookedForBelowTheProgramFolders) {
    using List = std::vector<std::wstring>;
    EXPECT_EQ(veraCryptCandidates(L"D:\\P", L"D:\\P86"),
              (List{LR"(D:\P\VeraCrypt\VeraCrypt.exe)", LR"(D:\P86\VeraCrypt\VeraCrypt.exe)"}));
    EXPECT_EQ(veraCryptCandidates(L"D:\\P", L"")[1], LR"(C:\Program Files (x86)\VeraCrypt\VeraCrypt.exe)");
    EXPECT_EQ(veraCryptCandidates(L"", L""), (List{LR"(C:\Program Files\VeraCrypt\VeraCrypt.exe)",
                                                   LR"(C:\Program Files (x86)\VeraCrypt\VeraCrypt.exe)"}));
}

}  // namespace
