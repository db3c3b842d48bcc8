#include "localization/catalog.h"

#include <algorithm>
#include <span>

#include "base/text.h"
#include "core/configuration.h"
#include "localization/catalog_data.h"
#include "localization/languages.h"

namespace velquin {
namespace {

using namespace catalog_data;

const char* wording(std::uint32_t place) {
    return kPool + place;
}

// English wordings are ASCII, so its case is all there is.
constexpr wchar_t lowerAscii(wchar_t c) {
    return c >= L'A' && c <= L'Z' ? static_cast<wchar_t>(c + (L'a' - L'A')) : c;
}

// Below, at or above 0 as the wording stands before, at or behind `text`, both in lower case.
int compare(const char* wording, std::wstring_view text) {
    for (const wchar_t c : text) {
        const wchar_t ours = lowerAscii(static_cast<unsigned char>(*wording));
        const wchar_t theirs = lowerAscii(c);
        if (ours != theirs || ours == 0) {
            return ours == 0 || ours < theirs ? -1 : 1;
        }
        ++wording;
    }
    return *wording == '\0' ? 0 : 1;
}

const char* cell(int language, std::size_t row) {
    return wording(kCells[supportedLanguages()[static_cast<std::size_t>(language)].column][row]);
}

}  // namespace

const char* shownWording(const char* cell, int language, const char* english, const char* czech) {
    if (*cell != '\0') {
        return cell;
    }
    return primaryLanguageSubtag(languageTag(language)) == L"cs" ? czech : english;
}

std::wstring translateText(std::wstring_view englishText, std::wstring_view tag) {
    const std::span rows(kByEnglish, kWordingCount);
    const auto row = std::ranges::partition_point(rows, [englishText](std::uint16_t candidate) {
        return compare(wording(kBuiltIn[candidate].english), englishText) < 0;
    });
    if (row == rows.end() || compare(wording(kBuiltIn[*row].english), englishText) != 0) {
        return {};
    }
    return base::toWide(cell(languageOfLocale(tag), *row));
}

std::wstring localizedText(const ProductConfig& config, int textId, std::wstring_view localeName) {
    if (textId < 0 || textId >= kTextCount) {
        return {};
    }
    const auto row = static_cast<std::size_t>(textId);
    const int language = effectiveLanguageIndex(config, localeName);
    return base::toWide(
        shownWording(cell(language, row), language, wording(kBuiltIn[row].english), wording(kBuiltIn[row].czech)));
}

}  // namespace velquin
