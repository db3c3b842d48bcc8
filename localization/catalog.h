// The texts that people see, by id, in the language of the configuration. They are compiled into the program from
// localization/texts.toml and the files of translations; docs/translating.md tells how.
#pragma once

#include <string>
#include <string_view>

#include "localization/text_ids.h"

namespace velquin {

struct ProductConfig;

// The text of an id (text_ids.h has their names) in the language in force: its translation, or the English wording
// where there is none yet; empty for an unknown id. Placeholders such as "{path}" are left to the caller.
std::wstring localizedText(const ProductConfig& config, int textId);

// The same for a user whose locale Windows calls `localeName`.
std::wstring localizedText(const ProductConfig& config, int textId, std::wstring_view localeName);

// The translation of an English wording, compared without regard to case, into the language that findSupportedLanguage
// finds for the tag, else English. A text that was never translated comes back in English; an unknown one is empty.
std::wstring translateText(std::wstring_view englishText, std::wstring_view tag);

// Which wording of a text is shown in the supported language of this index: its cell, or, where that is empty, what is
// built in; all in UTF-8. The texts as they are compiled have no empty cells: what was never translated stands there in
// English.
const char* shownWording(const char* cell, int language, const char* english, const char* czech);

}  // namespace velquin
