#include <gtest/gtest.h>

#include "core/product.h"
#include "tests/portable/table.h"
#include "update/address.h"
#include "update/history.h"
#include "update/manifest.h"
#include "update/self_test.h"
#include "update/version.h"

namespace {

using namespace velquin::update;

TEST(Update, VersionsAreOrdered) {
    const std::tuple<const wchar_t*, const wchar_t*, int> cases[] = {
        {L"1.0", L"1.0.0", 0},
        {L"1.0.10", L"1.0.9", 1},
        {L"1.0.188", L"1.0.189", -1},
        {L"1.0.188", L"1.1", -1},
        {L"1.0.188.0", L"1.0.188", 0},
        {L"1..2", L"1.2", 0},
        {L".1", L"1", 0},
        {L"1.2.", L"1.2", 0},
        {L"1.2.3-beta", L"1.2.3", 0},
        {L"1.2-3", L"1.2", 0},
        {L"v9.9", L"0.0.1", -1},
        {L"", L"0", 0},
        {L" 1", L"0", 0},
        {L"1.007", L"1.7", 0},
        // Beyond any integer type, and digits of another script.
        {L"1.99999999999999999999999999999998", L"1.99999999999999999999999999999999", -1},
        {L"18446744073709551616", L"1", 1},
        {L"\u0662.0", L"1", -1},
    };
    for (const auto& [a, b, order] : cases) {
        EXPECT_EQ(compareVersions(a, b), order) << testing::PrintToString(std::pair(a, b));
        EXPECT_EQ(compareVersions(b, a), -order) << testing::PrintToString(std::pair(a, b));
    }
    std::mt19937 random(11);
    for (int i = 0; i < 20000; ++i) {
        const std::wstring v[3] = {testing_table::randomText(random, L"0129..-", 6),
                                   testing_table::randomText(random, L"0129..-", 6),
                                   testing_table::randomText(random, L"0129..-", 6)};
        EXPECT_EQ(compareVersions(v[0], v[0]), 0);
        if (compareVersions(v[0], v[1]) <= 0 && compareVersions(v[1], v[2]) <= 0) {
            EXPECT_LE(compareVersions(v[0], v[2]), 0) << testing::PrintToString(v);
        }
    }
}

TEST(Update, AddressesGetANewQueryEachTime) {
    EXPECT_EQ(buildCacheBustedUrl(L"https://h/u.json", L"1.2", 77), L"https://h/u.json?vlqn_cb=1.2-77");
    EXPECT_EQ(buildCacheBustedUrl(L"https://h/u?a=b", L"", UINT64_MAX),
              std::wstring(L"https://h/u?a=b&vlqn_cb=") + velquin::kVersion + L"-18446744073709551615");
    EXPECT_EQ(buildCacheBustedUrl(L"https://h/?a/b", L"1", 7), L"https://h/?a/b&vlqn_cb=1-7");
    EXPECT_EQ(buildCacheBustedUrl(L"", L"1.2", 77), L"");
    const std::wstring url = kManifestUrl;
    EXPECT_TRUE(isHttps(url) && url.ends_with(L"/apps/velquin/update.json")) << "of the build's own host";
    EXPECT_EQ(url.substr(0, url.rfind(L'/')), kReleasePageUrl);
    EXPECT_TRUE(isHttps(L"HTTPS://h"));
    for (const wchar_t* other : {L"http://h", L"httpsx://h", L"https", L" https://h", L""}) {
        EXPECT_FALSE(isHttps(other));
    }
}

TEST(Update, AManifestIsReadByPlaceCaseAndKind) {
    struct Case {
        const char* name;
        const wchar_t* text;
        const wchar_t* version;  // null: refused
        const wchar_t* notes = L"";
    };
    const Case cases[] = {
        {"plain", LR"({"version": "1.0.189", "changes": "new"})", L"1.0.189", L"new"},
        {"byte-order mark", L"\uFEFF{\"version\": \"2\"}", L"2"},
        {"history before the version", LR"({"history": [{"version": "1", "changes": "old"}], "version": "2"})", L"2"},
        {"unknown keys", LR"({"x": {"version": "9"}, "y": [[]], "version": "2", "z": null})", L"2"},
        {"first of duplicates", LR"({"version": "2", "version": "3", "changes": "a", "changes": "b"})", L"2", L"a"},
        {"another case", LR"({"Version": "2", "VERSION": "2"})", nullptr},
        {"a number", LR"({"version": 2})", nullptr},
        {"in the history only", LR"({"history": [{"version": "2"}]})", nullptr},
        {"empty", LR"({"version": ""})", nullptr},
        {"an array", LR"([{"version": "2"}])", nullptr},
        {"cut short", LR"({"version": "2", "chan)", nullptr},
        {"no text", L"", nullptr},
        {"a page", L"<!doctype html><title>\"version\": \"2\"</title>", nullptr},
    };
    for (const Case& c : cases) {
        const UpdateCheckResult result = parseUpdateManifest(c.text, L"1.0.188", L"page");
        EXPECT_EQ(result.ok, c.version != nullptr) << c.name;
        EXPECT_EQ(result.latestVersion, c.version != nullptr ? c.version : L"") << c.name;
        EXPECT_EQ(result.error, c.version != nullptr ? L"" : L"Update manifest does not contain a version.") << c.name;
        EXPECT_EQ(result.changes, c.notes) << c.name;
        EXPECT_EQ(result.releaseUrl, L"page") << c.name;
        EXPECT_EQ(result.currentVersion, L"1.0.188") << c.name;
        EXPECT_EQ(result.updateAvailable, result.ok) << c.name;
    }
    std::wstring reason;
    parseUpdateManifest(L"{\"version\": \"2\" ", L"1", L"", &reason);
    EXPECT_TRUE(reason.ends_with(L"(at character 16)")) << testing::PrintToString(reason);
    EXPECT_FALSE(parseUpdateManifest(LR"({"version": "v2.0"})", L"1.0.188", L"").updateAvailable);
}

TEST(Update, AHistoryOfAnyShapeGivesItsEntries) {
    const std::wstring entry =
        LR"({"version": "1", "changes_cs": "c", "changes_i18n": {"de": "d", "fr": 1, "de": "x"}})";
    const std::pair<std::wstring, size_t> cases[] = {
        {LR"("history": [)" + entry + L"]", 1},
        {LR"("versions": [)" + entry + L"," + entry + L"]", 2},
        {LR"("versions": [)" + entry + LR"(], "history": [])", 1},
        {LR"("versions": [)" + entry + LR"(], "history": {"version": "1"})", 1},
        {LR"("history": [1, null, "1", [], {}, {"version": 1}, )" + entry + L"]", 1},
        {LR"("history": "none", "changes_i18n": ["de"])", 0},
    };
    for (const auto& [text, count] : cases) {
        const auto result = parseUpdateManifest(LR"({"version": "2", )" + text + L"}", L"1", L"");
        ASSERT_TRUE(result.ok);
        ASSERT_EQ(result.history.size(), count) << testing::PrintToString(text);
        for (const HistoryEntry& read : result.history) {
            EXPECT_EQ(read.version, L"1");
            EXPECT_EQ(read.changesCs, L"c");
            EXPECT_EQ(read.changesI18n, (std::map<std::wstring, std::wstring>{{L"de", L"d"}}));
        }
    }
}

TEST(Update, NotesAreChosenByLanguage) {
    ChangeNotes all{L"any", L"cs", L"en", {{L"de", L"de"}, {L"pt-BR", L"pt-BR"}, {L"cs", L"not this"}, {L"fr", L""}}};
    const std::pair<const wchar_t*, const wchar_t*> cases[] = {
        {L"cs-CZ", L"cs"}, {L"CS", L"cs"},    {L"en-GB", L"en"}, {L"de-AT", L"de"}, {L"pt-br", L"pt-BR"},
        {L"pt", L"en"},    {L"fr-FR", L"en"}, {L"", L"en"},      {L"csb", L"en"},   {L"de_DE", L"de"},
    };
    for (const auto& [language, notes] : cases) {
        EXPECT_EQ(changeNotesFor(all, language), notes) << testing::PrintToString(language);
    }
    all.changesEn.clear();
    EXPECT_EQ(changeNotesFor(all, L"ja"), L"any");
    all.changesCs.clear();
    EXPECT_EQ(changeNotesFor(all, L"cs"), L"not this") << "by its tag, where its own field is empty";
    all.changesI18n[L"en"] = L"en by tag";
    EXPECT_EQ(changeNotesFor(all, L"ja"), L"en by tag");
}

TEST(Update, TheHistoryIsRenderedWithTheNewestFirstAndNothingTwice) {
    UpdateCheckResult result;
    result.latestVersion = L"3";
    result.changesEn = L"\n- three\n";
    result.history = {{{L"", L"- dva", L"- two", {}}, L"2"}, {{}, L"1.5"}, {{L"- one", L"", L"", {}}, L"1"}};
    EXPECT_EQ(renderUpdateHistory(result, L"cs-CZ"), L"3\n- three\n\n2\n- dva\n\n1\n- one\n");
    result.history.insert(result.history.begin(), {{L"", L"", L"- three again", {}}, L"3"});
    EXPECT_EQ(renderUpdateHistory(result, L"en"), L"3\n- three again\n\n2\n- two\n\n1\n- one\n");
    result.history.front().changesEn = L" ";
    EXPECT_EQ(renderUpdateHistory(result, L"en"), L"3\n- three\n\n2\n- two\n\n1\n- one\n");
    EXPECT_EQ(renderUpdateHistory({}, L"en"), L"");
}

TEST(Update, TheSelfTestNoticesWhatGoesWrong) {
    const std::wstring sample = kSampleManifest;
    EXPECT_EQ(checkSampleManifest(sample), nullptr);
    const std::tuple<const wchar_t*, const wchar_t*, const wchar_t*> faults[] = {
        {L"9999.9999.35", L"9999.9999.33", L"Parsed update manifest did not report the expected available update."},
        {L"\"version\"", L"\"Version\"", L"Parsed update manifest did not report the expected available update."},
        {L"\"release_url\"", L"\"release\"", L"Parsed update manifest fields do not match the expected values."},
        {L"Nejnov\\u011b", L"Nejnove", L"Czech update changes text did not include the expected version entries."},
        {L"First notes", L"Notes", L"Czech update changes text did not include the expected version entries."},
        {L"FEDC", L"FEDD", L"Parsed update manifest fields do not match the expected values."},
        {L"update-data.json", L"other.json", L"Parsed update manifest fields do not match the expected values."},
        {L"Star\\u0161", L"Stars", L"Czech update changes text did not include the expected version entries."},
        {L"Older changes", L"Changes", L"Localized update history fallback did not include the expected entries."},
        {L"\"fr\"", L"\"de\"", L"Localized update history fallback did not include the expected entries."},
    };
    for (const auto& [from, to, error] : faults) {
        std::wstring text = sample;
        text.replace(text.find(from), std::wcslen(from), to);
        const wchar_t* found = checkSampleManifest(text);
        EXPECT_EQ(found != nullptr ? std::wstring(found) : L"", error);
    }

    UpdateCheckResult live;
    live.latestVersion = velquin::kVersion;
    live.dataZipEntry = L"update-data.json";
    live.changesEn = L"notes of its own";
    live.history = {{{L"", L"", L"older", {}}, L"1"}};
    EXPECT_EQ(checkLiveManifest(live), L"");
    const auto errorWith = [live](auto change) {
        UpdateCheckResult changed = live;
        change(changed);
        return checkLiveManifest(changed);
    };
    const std::wstring own = velquin::kVersion;
    for (const std::wstring& other : {std::wstring(L"1.0.1"), own + L".0"}) {
        EXPECT_EQ(errorWith([&](auto& m) { m.latestVersion = other; }),
                  L"Live update manifest version " + other + L" does not match app version " + own + L".");
    }
    EXPECT_EQ(errorWith([](auto& m) { m.history[0] = {{L"", L"jen česky", L"", {}}, L"1"}; }), L"");
    EXPECT_EQ(errorWith([](auto& m) { m.history.clear(); }), L"Live update manifest history is empty.");
    EXPECT_EQ(errorWith([](auto& m) { m.dataZipEntry = L"x/update-data.json"; }),
              L"Live update manifest data_zip_entry does not name update-data.json.");
    EXPECT_EQ(errorWith([](auto& m) { m.history[0].changesEn = L" \n"; }),
              L"Live update manifest history cannot be rendered for the Czech locale.");
}

// What a server may send to keep a client busy ends with a result or an error.
TEST(Update, HostileManifestsAreAnswered) {
    const size_t large = size_t{1} << 20;
    const std::wstring blanks(large, L' ');
    EXPECT_TRUE(parseUpdateManifest(blanks + LR"({"version": "2"})" + blanks, L"1", L"").ok);
    EXPECT_FALSE(parseUpdateManifest(blanks, L"1", L"").ok);
    EXPECT_FALSE(parseUpdateManifest(LR"({"version": "2", "history": )" + std::wstring(large, L'['), L"1", L"").ok);
    EXPECT_TRUE(parseUpdateManifest(LR"({"version": ")" + std::wstring(large, L'1') + LR"("})", L"1", L"").ok);
    std::wstring many = LR"({"version": "2", "history": [)";
    for (int i = 0; i < 20000; ++i) {
        many += LR"({"version":"1"},)";
    }
    EXPECT_EQ(parseUpdateManifest(many + L"0]}", L"1", L"").history.size(), 20000u);
}

}  // namespace
