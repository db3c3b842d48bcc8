// The update manifest: the JSON document in which the maker announces the newest version, and what a check of it gives.
// docs/updates.md describes the document.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace velquin::update {

// What a version brought, in the languages it was written down in. Empty where nothing was.
struct ChangeNotes {
    std::wstring changes;                              // in no particular language
    std::wstring changesCs;                            // in Czech
    std::wstring changesEn;                            // in English
    std::map<std::wstring, std::wstring> changesI18n;  // by language tag

    bool operator==(const ChangeNotes&) const = default;
};

struct HistoryEntry : ChangeNotes {
    std::wstring version;

    bool operator==(const HistoryEntry&) const = default;
};

struct UpdateCheckResult : ChangeNotes {
    bool ok = false;
    std::wstring error;  // why not
    std::wstring currentVersion;
    std::wstring latestVersion;
    bool updateAvailable = false;
    // Addresses are as the manifest gives them: whoever opens one asks isHttps first.
    std::wstring releaseUrl;  // a page for people
    std::wstring setupUrl;
    std::wstring sha256;  // of the setup, hexadecimal
    std::wstring dataZipUrl;
    std::wstring dataZipSha256;
    std::wstring dataZipEntry;          // name of the file within the archive
    std::vector<HistoryEntry> history;  // earlier releases, in the order of the manifest
};

// A key whose value is a text, and the member it goes to.
template <typename Record>
struct ManifestKey {
    const char* name;
    std::wstring Record::* member;
};
inline constexpr ManifestKey<UpdateCheckResult> kManifestKeys[] = {
    {"version", &UpdateCheckResult::latestVersion},       {"release_url", &UpdateCheckResult::releaseUrl},
    {"setup_url", &UpdateCheckResult::setupUrl},          {"sha256", &UpdateCheckResult::sha256},
    {"data_zip_url", &UpdateCheckResult::dataZipUrl},     {"data_zip_sha256", &UpdateCheckResult::dataZipSha256},
    {"data_zip_entry", &UpdateCheckResult::dataZipEntry},
};
inline constexpr ManifestKey<ChangeNotes> kNotesKeys[] = {
    {"changes", &ChangeNotes::changes},
    {"changes_cs", &ChangeNotes::changesCs},
    {"changes_en", &ChangeNotes::changesEn},
};

inline constexpr wchar_t kMissingVersionError[] = L"Update manifest does not contain a version.";

// Reads a manifest. Keys count only at their own place and in their own case, the first one of duplicates; a value of
// another type than expected counts as missing. A text that is no JSON document has no version. `releasePageUrl` stands
// in for a missing "release_url". `reason`, if given, gets what is wrong with a text that is no JSON document.
UpdateCheckResult parseUpdateManifest(std::wstring_view text, std::wstring_view currentVersion,
                                      std::wstring_view releasePageUrl, std::wstring* reason = nullptr);

}  // namespace velquin::update
