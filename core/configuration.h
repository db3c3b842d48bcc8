// The product's per-user configuration file, velquin.json, which the tray utility and the setup share: its fields, its
// text form, and reading and writing the file. docs/configuration.md describes the file.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace velquin {

// One configured volume.
struct Mapping {
    std::wstring name;         // for people only
    std::wstring volumePath;   // a VeraCrypt container or device
    std::wstring driveLetter;  // "X"
    bool enabled = true;       // mount at sign-in

    bool operator==(const Mapping&) const = default;
};

struct ProductConfig {
    // A single volume, as the first versions kept it.
    std::wstring volumePath;
    std::wstring driveLetter;

    std::vector<Mapping> mappings;
    std::wstring veraCryptPath;
    std::vector<std::wstring> mountOptions{L"rm", L"ts"};  // words of VeraCrypt's /mountoption
    bool disableHistory = true;
    bool disablePasswordCache = true;
    bool suspended = false;
    std::wstring updatedUtc;  // as utcTimeStamp() gives it
    std::wstring language = L"auto";
    std::wstring skinId = L"verdant-ops";
    std::wstring performanceProfile = L"balanced";
    // The saved window and control state: a JSON object as it is written in the file, empty for none. Whoever does not
    // know what is in it hands it on as it is.
    std::wstring uiState;

    // How it came about; no part of its value.
    struct Origin {
        bool explicitMappings = false;    // the file has a list of mappings, and not an empty one
        bool singleVolumeListed = false;  // the single volume was turned into a mapping
        bool damaged = false;             // the file could not be read, or not all of it: saving keeps a copy first
        bool operator==(const Origin&) const { return true; }
    };
    Origin origin;

    bool operator==(const ProductConfig&) const = default;
};

// More mappings, or mount options, than this are not read; the origin then counts as damaged.
inline constexpr size_t kMaxListed = 1000;

// Reads the text of a configuration file. What is missing or unreadable in it stays as it is in `defaults`.
ProductConfig parseProductConfig(std::wstring_view text, ProductConfig defaults);

// The text of the file of a normalised configuration. Keys are looked up by their first occurrence in
// the whole text, so their order matters, and no value is written so that it reads like a quoted key.
std::wstring formatProductConfig(const ProductConfig& config);

// Runs at the end of every reading and before every saving. Trims the texts of the mappings, upper-cases drive letters,
// turns a single volume into the mapping "Mapping 1", and gives each mapping a name of its own; no mapping is ever
// dropped. When the last mapping has been taken away, the single volume goes, too, lest it come back.
void normalizeMappings(ProductConfig& config);

// Where VeraCrypt.exe is looked for, in this order. Each argument is the value of the environment variable of that
// name, empty where it is unset.
std::vector<std::wstring> veraCryptCandidates(std::wstring_view programFiles, std::wstring_view programFilesX86);

// The first candidate that exists, else the conventional place.
std::wstring detectVeraCrypt();

// A larger file is neither read nor written.
inline constexpr size_t kMaxConfigurationBytes = size_t{1} << 20;

// Reads the configuration from `path`, or from the user's own file. Where that does not exist, the file of the
// product's former name in the user's data folder is read instead, whatever the path. A file in use is waited for,
// about a second. Never fails: every problem leaves defaults in place.
ProductConfig loadProductConfig(const std::optional<std::wstring>& path = std::nullopt);

// Normalises the configuration and writes it to `path`, or to the user's own file, which at every moment holds the old
// text or the new one. Of a damaged file a copy is kept first, "<path>.kept". False, with a line in the log beside it,
// when the file stayed the old one.
bool saveProductConfig(ProductConfig& config, const std::optional<std::wstring>& path = std::nullopt);

}  // namespace velquin
