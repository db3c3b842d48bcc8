// The history of versions as text for people, in their language.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "update/manifest.h"

namespace velquin::update {

// The notes for a reader of `language`, a tag such as "cs-CZ", compared without regard to case: Czech ones for Czech,
// for others their own (of the whole tag, else of its language alone), else English ones, else those in no particular
// language. Empty when there are none at all.
std::wstring changeNotesFor(const ChangeNotes& notes, std::wstring_view language);

// Each version that has notes as a line with its number and the notes below it, with an empty line between two
// versions. Lines end with a line feed.
std::wstring renderHistory(std::span<const HistoryEntry> history, std::wstring_view language);

// The same of the announced version, unless the history holds its notes, and the history.
std::wstring renderUpdateHistory(const UpdateCheckResult& result, std::wstring_view language);

}  // namespace velquin::update
