#include "update/manifest.h"

#include "base/json.h"
#include "base/text.h"
#include "update/version.h"

namespace velquin::update {
namespace {

constexpr ManifestKey<HistoryEntry> kHistoryKeys[] = {{"version", &HistoryEntry::version}};
constexpr char kNotesByLanguage[] = "changes_i18n";
constexpr const char* kHistoryNames[] = {"history", "versions"};

template <typename Record, size_t kCount>
void readStrings(Record& record, base::Json object, const ManifestKey<Record> (&keys)[kCount]) {
    for (const ManifestKey<Record>& key : keys) {
        if (const auto value = object.find(key.name).string()) {
            record.*key.member = base::toWide(*value);
        }
    }
}

void readNotes(ChangeNotes& notes, base::Json object) {
    readStrings(notes, object, kNotesKeys);
    for (const auto [tag, value] : object.find(kNotesByLanguage).members()) {
        if (const auto text = value.string()) {
            notes.changesI18n.try_emplace(base::toWide(tag), base::toWide(*text));
        }
    }
}

// From the first of the two arrays that is there and holds something. What names no version is no entry.
void readHistory(std::vector<HistoryEntry>& history, base::Json manifest) {
    for (const char* name : kHistoryNames) {
        const base::JsonArray entries = manifest.find(name).elements();
        if (entries.empty()) {
            continue;
        }
        for (const base::Json object : entries) {
            HistoryEntry entry;
            readStrings(entry, object, kHistoryKeys);
            readNotes(entry, object);
            if (!entry.version.empty()) {
                history.push_back(std::move(entry));
            }
        }
        return;
    }
}

}  // namespace

UpdateCheckResult parseUpdateManifest(std::wstring_view text, std::wstring_view currentVersion,
                                      std::wstring_view releasePageUrl, std::wstring* reason) {
    UpdateCheckResult result;
    result.currentVersion = currentVersion;
    result.releaseUrl = releasePageUrl;
    const std::string utf8 = base::toUtf8(text);
    if (const auto manifest = base::parseJson(utf8)) {
        readStrings(result, manifest->root(), kManifestKeys);
        readNotes(result, manifest->root());
        readHistory(result.history, manifest->root());
    } else if (reason != nullptr) {
        const size_t character = base::toWide(std::string_view(utf8).substr(0, manifest.error().offset)).size();
        *reason = manifest.error().reason + L" (at character " + std::to_wstring(character) + L")";
    }
    if (result.latestVersion.empty()) {
        result.error = kMissingVersionError;
        return result;
    }
    result.ok = true;
    result.updateAvailable = compareVersions(result.latestVersion, result.currentVersion) >= 1;
    return result;
}

}  // namespace velquin::update
