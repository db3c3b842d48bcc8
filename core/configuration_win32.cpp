// The half of the configuration that asks Windows: the user's folders, and the file itself.
#include <windows.h>

#include <algorithm>
#include <span>

#include "base/text.h"
#include "base/win32/files.h"
#include "base/win32/replace_file.h"
#include "base/win32/system.h"
#include "base/windows_path.h"
#include "core/configuration.h"
#include "core/log.h"
#include "core/product_paths.h"

namespace velquin {
namespace {

constexpr wchar_t kConventionalVeraCrypt[] = LR"(C:\Program Files\VeraCrypt\VeraCrypt.exe)";
constexpr int kReadAttempts = 5;
constexpr DWORD kReadPauseMs = 40;

// The text of a file, which others may be replacing meanwhile. One that is in use is tried again.
std::optional<std::wstring> readTextFile(const std::wstring& path) {
    base::UniqueFile file;
    for (int i = 0; i < kReadAttempts && !file; ++i) {
        if (i > 0) {
            Sleep(kReadPauseMs);
        }
        file =
            base::openFile(path, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, OPEN_EXISTING);
        if (!file && GetLastError() != ERROR_SHARING_VIOLATION) {
            break;
        }
    }
    // A device or a pipe may keep a reader waiting for ever.
    if (!file || GetFileType(file.get()) != FILE_TYPE_DISK) {
        return std::nullopt;
    }
    const auto bytes = base::readAll(file.get(), kMaxConfigurationBytes);
    return bytes ? std::optional(base::decodeTextFile({reinterpret_cast<const char*>(bytes->data()), bytes->size()}))
                 : std::nullopt;
}

// Copies a file to "<path>.unread", once: what is saved afterwards must not take the copy's place.
bool setAside(const std::wstring& path) {
    return !base::fileExists(path) ||
           CopyFileW(base::extendedLengthPath(path).c_str(), base::extendedLengthPath(path + L".unread").c_str(),
                     TRUE) ||
           GetLastError() == ERROR_FILE_EXISTS;
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
    std::wstring source = path.value_or(configurationFile());
    if (!base::fileExists(source)) {
        source = userPaths().legacyConfigurationFile();
    }
    const bool there = base::fileExists(source);
    const std::optional<std::wstring> text = there ? readTextFile(source) : std::nullopt;
    defaults.unread = there && !text;
    return parseProductConfig(text.value_or(L""), std::move(defaults));
}

bool saveProductConfig(const ProductConfig& config, const std::optional<std::wstring>& path) {
    const std::wstring target = path.value_or(configurationFile());
    if (config.unread && !setAside(target)) {
        writeLogBeside(target, L"configuration not saved, the file that could not be read cannot be set aside: " +
                                   base::errorText(GetLastError()));
        return false;
    }
    const std::string text = base::toUtf8(formatProductConfig(config));
    if (!base::replaceFile(target, std::as_bytes(std::span(text)))) {
        writeLogBeside(target, L"configuration not saved: " + target + L": " + base::errorText(GetLastError()));
        return false;
    }
    return true;
}

}  // namespace velquin
