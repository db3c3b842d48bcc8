#include "update/manifest.h"

#include "base/json.h"
#include "update/version.h"

namespace velquin::update {
namespace {

constexpr ManifestKey<HistoryEntry> kHistoryKeys[] = {{L"version", &HistoryEntry::version}};
constexpr wchar_t kNotesByLanguage[] = L"changes_i18n";
constexpr const wchar_t* kHistoryNames[] = {L"history", L"versions"};

const std::wstring* findString(const base::Json& object, std::wstring_view name) {
    const base::Json* value = object.find(name);
    return value != nullptr ? value->string() : nullptr;
}

template <typename Record, size_t kCount>
void readStrings(Record& record, const base::Json& object, const ManifestKey<Record> (&keys)[kCount]) {
    for (const ManifestKey<Record>& key : keys) {
        if (const std::wstring* value = findString(object, key.name)) {
            record.*key.member = *value;
        }
    }
}

void readNotes(ChangeNotes& notes, const base::Json& object) {
    readStrings(notes, object, kNotesKeys);
    const base::Json* byLanguage = object.find(kNotesByLanguage);
    const base::Json::Object* members = byLanguage != nullptr ? byLanguage->object() : nullptr;
    if (members == nullptr) {
        return;
    }
    for (const auto& [tag, text] : *members) {
        if (text.string() != nullptr) {
            notes.changesI18n.try_emplace(tag, *text.string());
        }
    }
}

// From the first of the two arrays that is there and holds something. What names no version is no entry.
void readHistory(std::vector<HistoryEntry>& history, const base::Json& manifest) {
    for (const wchar_t* name : kHistoryNames) {
        const base::Json* value = manifest.find(name);
        if (value == nullptr || value->array() == nullptr || value->array()->empty()) {
            continue;
        }
        for (const base::Json& object : *value->array()) {
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
    if (const auto manifest = base::parseJson(text)) {
        readStrings(result, *manifest, kManifestKeys);
        readNotes(result, *manifest);
        readHistory(result.history, *manifest);
    } else if (reason != nullptr) {
        *reason = manifest.error().reason + L" (at character " + std::to_wstring(manifest.error().offset) + L")";
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
