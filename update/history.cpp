#include "update/history.h"

#include <algorithm>

#include "base/text.h"

namespace velquin::update {
namespace {

std::wstring_view primaryLanguage(std::wstring_view tag) {
    return tag.substr(0, tag.find_first_of(L"-_"));
}

const std::wstring* findByTag(const ChangeNotes& notes, std::wstring_view tag) {
    const auto found = std::ranges::find_if(
        notes.changesI18n, [tag](const auto& entry) { return base::equalsIgnoringCase(entry.first, tag); });
    return found != notes.changesI18n.end() && !found->second.empty() ? &found->second : nullptr;
}

// A language that has a field of its own beside those by tag.
struct OwnField {
    const wchar_t* language;
    std::wstring ChangeNotes::* member;
};
constexpr OwnField kOwnFields[] = {{L"cs", &ChangeNotes::changesCs}, {L"en", &ChangeNotes::changesEn}};

const std::wstring* findNotes(const ChangeNotes& notes, std::wstring_view language) {
    const std::wstring_view primary = primaryLanguage(language);
    for (const OwnField& field : kOwnFields) {
        if (base::equalsIgnoringCase(primary, field.language) && !(notes.*field.member).empty()) {
            return &(notes.*field.member);
        }
    }
    const std::wstring* own = findByTag(notes, language);
    return own != nullptr ? own : findByTag(notes, primary);
}

}  // namespace

std::wstring changeNotesFor(const ChangeNotes& notes, std::wstring_view language) {
    const std::wstring* found = findNotes(notes, language);
    if (found == nullptr) {
        found = findNotes(notes, L"en");
    }
    return found != nullptr ? *found : notes.changes;
}

std::wstring renderHistory(std::span<const HistoryEntry> history, std::wstring_view language) {
    std::wstring text;
    for (const HistoryEntry& entry : history) {
        const std::wstring notes = changeNotesFor(entry, language);
        const std::wstring_view trimmed = base::trimmed(notes);
        if (!trimmed.empty()) {
            text.append(text.empty() ? L"" : L"\n").append(entry.version).append(L"\n").append(trimmed).append(L"\n");
        }
    }
    return text;
}

std::wstring renderUpdateHistory(const UpdateCheckResult& result, std::wstring_view language) {
    std::vector<HistoryEntry> all = result.history;
    const auto announced = std::ranges::find(all, result.latestVersion, &HistoryEntry::version);
    if (announced == all.end() || base::trimmed(changeNotesFor(*announced, language)).empty()) {
        all.insert(all.begin(), HistoryEntry{result, result.latestVersion});
    }
    return renderHistory(all, language);
}

}  // namespace velquin::update
