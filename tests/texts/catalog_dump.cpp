// Prints what the compiled texts give: for each supported language and each text a record of tag, id and text, with a
// zero byte behind it.
#include <cstdio>

#include "base/text.h"
#include "core/configuration.h"
#include "localization/catalog.h"
#include "localization/languages.h"

int main() {
    velquin::ProductConfig config;
    for (int language = 0; language < static_cast<int>(velquin::supportedLanguages().size()); ++language) {
        config.language = velquin::languageTag(language);
        for (int id = 0; id < velquin::kTextCount; ++id) {
            std::printf("%s\t%d\t%s%c", base::toUtf8(config.language).c_str(), id,
                        base::toUtf8(velquin::localizedText(config, id, L"")).c_str(), 0);
        }
    }
}
