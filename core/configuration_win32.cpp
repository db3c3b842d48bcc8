// The half of the configuration that asks Windows: the user's folders, and the file itself.
#include <windows.h>

#include <algorithm>
#include <span>

#include "base/json.h"
#include "base/text.h"
#include "base/win32/files.h"
#include "base/win32/patience.h"
#include "base/win32/replace_file.h"
#include "base/win32/system.h"
#include "core/configuration.h"
#include "core/log.h"
#include "core/product_paths.h"

namespace velquin {
namespace {

constexpr wchar_t kConventionalVeraCrypt[] = LR"(C:\Program Files\VeraCrypt\VeraCrypt.exe)";

struct FileText {
    bool missing = false;
    bool damaged = false;  // it is there, but cannot be read, or is not what a whole file is
    std::wstring text;
};

// The text of a file, which others may be replacing meanwhile.
FileText readTextFile(const std::wstring& path) {
    base::UniqueFile file;
    const bool opened = base::persistently([&] {
        file =
            base::openFile(path, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, OPEN_EXISTING);
        return static_cast<bool>(file);
    });
    if (!opened) {
        // Any other reason, a network that is not there yet, say, does not mean that there are no settings.
        const bool missing = GetLastError() == ERROR_FILE_NOT_FOUND || GetLastError() == ERROR_PATH_NOT_FOUND;
        return {.missing = missing, .damaged = !missing, .text = L""};
    }
    // A device or a pipe may keep a reader waiting for ever.
    const auto bytes =
        GetFileType(file.get()) == FILE_TYPE_DISK ? base::readAll(file.get(), kMaxConfigurationBytes) : std::nullopt;
    FileText read;
    if (!bytes) {
        read.damaged = true;
        return read;
    }
    base::DecodedText decoded = base::decodeTextFile({reinterpret_cast<const char*>(bytes->data()), bytes->size()});
    read.text = std::move(decoded.text);
    // A file in another encoding is not well-formed, one that was cut off is no JSON document.
    read.damaged =
        !base::trimmed(read.text).empty() && (!decoded.isWellFormed || !base::parseJson(base::toUtf8(read.text)));
    return read;
}

}  // namespace

std::wstring detectVeraCrypt() {
    const std::vector<std::wstring> candidates = veraCryptCandidates(
        base::environmentVariable(L"ProgramFiles", L""), base::environmentVariable(L"ProgramFiles(x86)", L""));
    const auto found = std::ranges::find_if(candidates, base::fileExists);
    return found != candidates.end() ? *found : kConventionalVeraCrypt;
}

ProductConfig loadProductConfig(const std::optional<std::wstring>& path) {
    ProductConfig defaults;
    defaults.veraCryptPath = detectVeraCrypt();
    FileText file = readTextFile(path.value_or(configurationFile()));
    if (file.missing) {
        file = readTextFile(legacyConfigurationFile());
    }
    defaults.origin.damaged = file.damaged;
    return parseProductConfig(file.text, std::move(defaults));
}

bool saveProductConfig(ProductConfig& config, const std::optional<std::wstring>& path) {
    const std::wstring target = path.value_or(configurationFile());
    const auto fail = [&target](const wchar_t* step) {
        const std::wstring reason = base::errorText(GetLastError());
        writeLogBeside(target, L"configuration not saved, " + std::wstring(step) + L": " + target + L": " + reason);
        return false;
    };
    normalizeMappings(config);
    const std::string text = base::toUtf8(formatProductConfig(config));
    if (text.size() > kMaxConfigurationBytes) {
        SetLastError(ERROR_FILE_TOO_LARGE);
        return fail(L"it could not be read again");
    }
    if (config.origin.damaged && !base::keepCopy(target)) {
        return fail(L"no copy of the damaged file could be kept");
    }
    if (!base::replaceFile(target, std::as_bytes(std::span(text)))) {
        return fail(L"the file could not be replaced");
    }
    config.origin.damaged = false;
    return true;
}

}  // namespace velquin
