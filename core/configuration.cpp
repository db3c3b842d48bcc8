#include "core/configuration.h"

#include <algorithm>
#include <cwctype>
#include <unordered_map>
#include <unordered_set>

#include "base/json.h"
#include "base/json_text.h"
#include "base/text.h"
#include "base/windows_path.h"

namespace velquin {
namespace {

using base::readJsonBool;
using base::readJsonStringOr;

// The members of a struct that are kept under keys: strings and booleans. A string may have an older spelling of its
// key: it is read first, so that the present one wins, and written as well, so that older versions find it.
template <typename Record>
struct TextKey {
    const wchar_t* key;
    std::wstring Record::* member;
    const wchar_t* olderKey = nullptr;
};
template <typename Record>
struct FlagKey {
    const wchar_t* key;
    bool Record::* member;
};

constexpr wchar_t kMappings[] = L"Mappings";
constexpr wchar_t kMountOptions[] = L"MountOptions";
constexpr wchar_t kUiState[] = L"ui_state";
constexpr wchar_t kUiStateVersion[] = L"ui_state_schema_version";

// In the order of the file. The single volume stands before the mappings, which repeat its keys.
constexpr TextKey<ProductConfig> kSingleVolume[] = {
    {L"VolumePath", &ProductConfig::volumePath},
    {L"DriveLetter", &ProductConfig::driveLetter},
};
constexpr TextKey<ProductConfig> kProgram[] = {{L"VeraCryptPath", &ProductConfig::veraCryptPath}};
constexpr FlagKey<ProductConfig> kFlags[] = {
    {L"DisableHistory", &ProductConfig::disableHistory},
    {L"DisablePasswordCache", &ProductConfig::disablePasswordCache},
    {L"Suspended", &ProductConfig::suspended},
};
constexpr TextKey<ProductConfig> kSettings[] = {
    {L"UpdatedUtc", &ProductConfig::updatedUtc},
    {L"Language", &ProductConfig::language},
    {L"SkinId", &ProductConfig::skinId, L"skin_id"},
    {L"PerformanceProfile", &ProductConfig::performanceProfile, L"performance_profile"},
};
constexpr TextKey<Mapping> kMappingTexts[] = {
    {L"Name", &Mapping::name},
    {L"VolumePath", &Mapping::volumePath},
    {L"DriveLetter", &Mapping::driveLetter},
};
constexpr FlagKey<Mapping> kMappingFlags[] = {{L"Enabled", &Mapping::enabled}};

template <typename Record, size_t kCount>
void readTexts(Record& record, std::wstring_view text, const TextKey<Record> (&keys)[kCount]) {
    for (const TextKey<Record>& row : keys) {
        std::wstring& value = record.*row.member;
        if (row.olderKey != nullptr) {
            value = readJsonStringOr(text, row.olderKey, value);
        }
        value = readJsonStringOr(text, row.key, value);
    }
}

template <typename Record, size_t kCount>
void readFlags(Record& record, std::wstring_view text, const FlagKey<Record> (&keys)[kCount]) {
    for (const FlagKey<Record>& row : keys) {
        record.*row.member = readJsonBool(text, row.key, record.*row.member);
    }
}

// Shortens a list to what is kept of it. True when it was longer.
template <typename Item>
bool shorten(std::vector<Item>& list) {
    const bool tooLong = list.size() > kMaxListed;
    list.resize(std::min(list.size(), kMaxListed));
    return tooLong;
}

std::vector<Mapping> readMappings(std::wstring_view text) {
    std::vector<Mapping> mappings;
    const auto array = base::readJsonRaw(text, kMappings, L'[');
    for (const std::wstring_view element : array ? base::jsonElements(*array) : std::vector<std::wstring_view>()) {
        // One more than is kept, so that the caller sees that there are more.
        if (element.front() == L'{' && mappings.size() <= kMaxListed) {
            Mapping& mapping = mappings.emplace_back();
            readTexts(mapping, element, kMappingTexts);
            readFlags(mapping, element, kMappingFlags);
        }
    }
    return mappings;
}

// Every key that is ever looked up.
const std::vector<std::wstring_view>& allKeys() {
    static const std::vector<std::wstring_view> keys = [] {
        std::vector<std::wstring_view> all{kMappings, kMountOptions, kUiState};
        const auto add = [&all](const auto& rows) {
            for (const auto& row : rows) {
                all.emplace_back(row.key);
                if constexpr (requires { row.olderKey; }) {
                    if (row.olderKey != nullptr) {
                        all.emplace_back(row.olderKey);
                    }
                }
            }
        };
        add(kSingleVolume);
        add(kProgram);
        add(kFlags);
        add(kSettings);
        add(kMappingTexts);
        add(kMappingFlags);
        return all;
    }();
    return keys;
}

// The value in quotes. One that would read like a quoted key, as a mapping called "Language" would, gets the first
// letter of that key as an escape: every reader takes it for the same text, and a lookup passes over it.
std::wstring quoted(std::wstring_view value) {
    constexpr wchar_t kHex[] = L"0123456789abcdef";
    std::wstring text = L"\"" + base::escapeJson(value);
    // What stands between the last quote, be it the value's own, and the closing one.
    const size_t word = text.rfind(L'"') + 1;
    if (std::ranges::find(allKeys(), std::wstring_view(text).substr(word)) != allKeys().end()) {
        const auto code = static_cast<unsigned char>(text[word]);
        text.replace(word, 1, {L'\\', L'u', L'0', L'0', kHex[code >> 4], kHex[code & 0xF]});
    }
    return text + L'"';
}

std::wstring line(std::wstring_view key, std::wstring_view value) {
    std::wstring text = L",\n  \"";
    text.append(key).append(L"\": ").append(value);
    return text;
}

template <size_t kCount>
std::wstring lines(const ProductConfig& config, const TextKey<ProductConfig> (&keys)[kCount]) {
    std::wstring text;
    for (const auto& row : keys) {
        const std::wstring value = quoted(config.*row.member);
        text += line(row.key, value);
        if (row.olderKey != nullptr) {
            text += line(row.olderKey, value);
        }
    }
    return text;
}

std::wstring formatMapping(const Mapping& mapping) {
    std::wstring text;
    const auto member = [&text](const wchar_t* key, std::wstring_view value) {
        text.append(text.empty() ? L"{ \"" : L", \"").append(key).append(L"\": ").append(value);
    };
    for (const auto& row : kMappingTexts) {
        member(row.key, quoted(mapping.*row.member));
    }
    for (const auto& row : kMappingFlags) {
        member(row.key, mapping.*row.member ? L"true" : L"false");
    }
    return text + L" }";
}

std::wstring joined(const std::vector<std::wstring>& items, std::wstring_view separator) {
    std::wstring text;
    for (const std::wstring& item : items) {
        text.append(text.empty() ? L"" : separator).append(item);
    }
    return text;
}

// Gives out names that differ without regard to case, in the order in which they are asked for.
class NameGiver {
public:
    std::wstring take(const std::wstring& wanted) {
        if (taken_.insert(base::lowered(wanted)).second) {
            return wanted;
        }
        unsigned& number = numbers_.try_emplace(base::lowered(wanted), 1).first->second;
        for (;;) {
            std::wstring name = wanted + L" (" + std::to_wstring(++number) + L")";
            if (taken_.insert(base::lowered(name)).second) {
                return name;
            }
        }
    }

private:
    std::unordered_set<std::wstring> taken_;
    std::unordered_map<std::wstring, unsigned> numbers_;  // the last one given to a name
};

void trim(std::wstring& text) {
    text = std::wstring(base::trimmed(text));
}

void normalizeDriveLetter(std::wstring& letter) {
    trim(letter);
    std::ranges::transform(letter, letter.begin(),
                           [](wchar_t c) { return static_cast<wchar_t>(std::towupper(static_cast<wint_t>(c))); });
}

}  // namespace

ProductConfig parseProductConfig(std::wstring_view text, ProductConfig defaults) {
    ProductConfig config = std::move(defaults);
    readTexts(config, text, kSingleVolume);
    if (std::vector<Mapping> mappings = readMappings(text); !mappings.empty()) {
        config.origin.damaged |= shorten(mappings);
        config.mappings = std::move(mappings);
        config.origin.explicitMappings = true;
    }
    readTexts(config, text, kProgram);
    if (auto options = base::readJsonStringArray(text, kMountOptions)) {
        config.origin.damaged |= shorten(*options);
        config.mountOptions = std::move(*options);
    }
    readFlags(config, text, kFlags);
    readTexts(config, text, kSettings);
    if (const auto state = base::readJsonRaw(text, kUiState, L'{')) {
        // It is written as it stands here, so it has to be fit for a file.
        const auto document = base::parseJson(base::toUtf8(*state));
        config.uiState = document && !document->root().members().empty() ? std::wstring(*state) : L"";
    }
    normalizeMappings(config);
    return config;
}

std::wstring formatProductConfig(const ProductConfig& config) {
    std::vector<std::wstring> mappings, options;
    std::ranges::transform(config.mappings, std::back_inserter(mappings), formatMapping);
    std::ranges::transform(config.mountOptions, std::back_inserter(options), quoted);
    std::wstring text = lines(config, kSingleVolume);
    text += line(kMappings, mappings.empty() ? L"[]" : L"[\n    " + joined(mappings, L",\n    ") + L"\n  ]");
    text += lines(config, kProgram);
    text += line(kMountOptions, L"[" + joined(options, L", ") + L"]");
    for (const auto& row : kFlags) {
        text += line(row.key, config.*row.member ? L"true" : L"false");
    }
    text += lines(config, kSettings);
    text += line(kUiStateVersion, L"1");
    text += line(kUiState, config.uiState.empty() ? L"{}" : config.uiState);
    return L"{" + text.substr(1) + L"\n}\n";
}

void normalizeMappings(ProductConfig& config) {
    trim(config.volumePath);
    normalizeDriveLetter(config.driveLetter);
    if (config.mappings.empty() && (config.origin.explicitMappings || config.origin.singleVolumeListed)) {
        config.volumePath.clear();
        config.driveLetter.clear();
    } else if (config.mappings.empty() && !config.volumePath.empty()) {
        config.mappings.push_back({L"", config.volumePath, config.driveLetter, true});
        config.origin.singleVolumeListed = true;
    }
    NameGiver names;
    for (size_t i = 0; i < config.mappings.size(); ++i) {
        Mapping& mapping = config.mappings[i];
        trim(mapping.volumePath);
        normalizeDriveLetter(mapping.driveLetter);
        trim(mapping.name);
        mapping.name = names.take(!mapping.name.empty() ? mapping.name : L"Mapping " + std::to_wstring(i + 1));
    }
}

std::vector<std::wstring> veraCryptCandidates(std::wstring_view programFiles, std::wstring_view programFilesX86) {
    std::vector<std::wstring> candidates;
    for (const std::wstring_view folder : {programFiles.empty() ? LR"(C:\Program Files)" : programFiles,
                                           programFilesX86.empty() ? LR"(C:\Program Files (x86))" : programFilesX86}) {
        candidates.push_back(base::joinPath(folder, LR"(VeraCrypt\VeraCrypt.exe)"));
    }
    return candidates;
}

}  // namespace velquin
