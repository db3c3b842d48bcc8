// Prints what the compiled texts give: for each supported language and each text a line with tag, id and text.
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
            std::printf("%s\t%d\t%s\n", base::toUtf8(config.language).c_str(), id,
                        base::toUtf8(velquin::localizedText(config, id, L"")).c_str());
        }
    }
}
