#include "update/self_test.h"

#include <algorithm>

#include "core/product.h"
#include "update/history.h"

namespace velquin::update {
namespace {

constexpr wchar_t kSampleVersion[] = L"9999.9999.35";
constexpr wchar_t kOlderVersion[] = L"9999.9999.33";
constexpr wchar_t kDataEntry[] = L"update-data.json";

struct Expected {
    std::wstring UpdateCheckResult::* member;
    const wchar_t* value;
};
constexpr Expected kSampleFields[] = {
    {&UpdateCheckResult::latestVersion, kSampleVersion},
    {&UpdateCheckResult::releaseUrl, L"https://updates.example/sample"},
    {&UpdateCheckResult::setupUrl, L"https://updates.example/sample/VelquinSetup.exe"},
    {&UpdateCheckResult::sha256, L"0123456789ABCDEF0123456789ABCDEF0123456789ABCDEF0123456789ABCDEF"},
    {&UpdateCheckResult::dataZipUrl, L"https://updates.example/sample/update-data.zip"},
    {&UpdateCheckResult::dataZipSha256, L"FEDCBA9876543210FEDCBA9876543210FEDCBA9876543210FEDCBA9876543210"},
    {&UpdateCheckResult::dataZipEntry, kDataEntry},
};

// The text holds all parts, in this order.
bool holdsInOrder(std::wstring_view text, std::initializer_list<std::wstring_view> parts) {
    size_t from = 0;
    return std::ranges::all_of(parts, [&](std::wstring_view part) {
        const size_t found = text.find(part, from);
        from = found + part.size();
        return found != std::wstring_view::npos;
    });
}

}  // namespace

const wchar_t kSampleManifest[] =
    LR"({
  "version": "9999.9999.35",
  "release_url": "https://updates.example/sample",
  "setup_url": "https://updates.example/sample/VelquinSetup.exe",
  "sha256": "0123456789ABCDEF0123456789ABCDEF0123456789ABCDEF0123456789ABCDEF",
  "data_zip_url": "https://updates.example/sample/update-data.zip",
  "data_zip_sha256": "FEDCBA9876543210FEDCBA9876543210FEDCBA9876543210FEDCBA9876543210",
  "data_zip_entry": "update-data.json",
  "changes": "Newest notes.",
  "changes_cs": "Nejnov\u011bj\u0161\u00ed zm\u011bny.",
  "changes_en": "Newest changes.",
  "changes_i18n": {"fr": "Derniers changements."},
  "history": [
    {"version": "9999.9999.34", "changes_cs": "Star\u0161\u00ed zm\u011bny.", "changes_en": "Older changes."},
    {"version": "9999.9999.33", "changes": "First notes."}
  ]
})";

const wchar_t* checkSampleManifest(std::wstring_view manifest) {
    const UpdateCheckResult newer = parseUpdateManifest(manifest, kOlderVersion, L"");
    if (!newer.ok || !newer.updateAvailable) {
        return L"Parsed update manifest did not report the expected available update.";
    }
    if (std::ranges::any_of(kSampleFields, [&](const Expected& field) { return newer.*field.member != field.value; })) {
        return L"Parsed update manifest fields do not match the expected values.";
    }
    if (parseUpdateManifest(manifest, newer.latestVersion, L"").updateAvailable) {
        return L"Parsed current manifest incorrectly reported an available update.";
    }
    if (!holdsInOrder(renderUpdateHistory(newer, L"cs-CZ"), {kSampleVersion, L"Nejnovější změny.", L"9999.9999.34",
                                                             L"Starší změny.", L"9999.9999.33", L"First notes."})) {
        return L"Czech update changes text did not include the expected version entries.";
    }
    if (!holdsInOrder(renderUpdateHistory(newer, L"de-DE"), {kSampleVersion, L"Newest changes.", L"9999.9999.34",
                                                             L"Older changes.", L"9999.9999.33", L"First notes."})) {
        return L"Localized update history fallback did not include the expected entries.";
    }
    return nullptr;
}

std::wstring checkLiveManifest(const UpdateCheckResult& manifest) {
    if (manifest.latestVersion != kVersion) {
        return L"Live update manifest version " + manifest.latestVersion + L" does not match app version " + kVersion +
               L".";
    }
    if (manifest.history.empty()) {
        return L"Live update manifest history is empty.";
    }
    if (manifest.dataZipEntry != kDataEntry) {
        return L"Live update manifest data_zip_entry does not name update-data.json.";
    }
    if (renderHistory(manifest.history, L"cs-CZ").empty()) {
        return L"Live update manifest history cannot be rendered for the Czech locale.";
    }
    return L"";
}

}  // namespace velquin::update
