// Reads an update manifest as the update client of this version does:
//   manifest_check FILE
// Prints what is not empty of it as lines name=value, the text written as within a JSON string, then the number of
// entries in the history and the newest earlier version that would be offered this update. Exit code 1, with the reason
// on stderr, when the client would refuse the manifest; 2 when there is nothing to read.
#include <algorithm>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <string>

#include "base/json_text.h"
#include "base/text.h"
#include "core/product.h"
#include "update/address.h"
#include "update/history.h"
#include "update/manifest.h"
#include "update/self_test.h"

namespace {

using namespace velquin::update;

constexpr const wchar_t* kReaders[] = {L"cs-CZ", L"en"};

void print(const std::string& name, std::wstring_view value) {
    if (!value.empty()) {
        std::printf("%s=%s\n", name.c_str(), base::toUtf8(base::escapeJson(value)).c_str());
    }
}

void printNotes(const std::string& prefix, const ChangeNotes& notes) {
    for (const auto& key : kNotesKeys) {
        print(prefix + key.name, notes.*key.member);
    }
    for (const auto& [tag, text] : notes.changesI18n) {
        print(prefix + "changes_i18n." + base::toUtf8(tag), text);
    }
}

void printManifest(const UpdateCheckResult& manifest) {
    for (const auto& key : kManifestKeys) {
        print(key.name, manifest.*key.member);
    }
    printNotes("", manifest);
    for (size_t i = 0; i < manifest.history.size(); ++i) {
        const std::string prefix = "history." + std::to_string(i) + ".";
        print(prefix + "version", manifest.history[i].version);
        printNotes(prefix, manifest.history[i]);
    }
    std::printf("history=%zu\n", manifest.history.size());
}

// Why the client would refuse the manifest, or could not make use of it. Empty when all is well.
std::wstring problemOf(const UpdateCheckResult& manifest) {
    if (std::wstring problem = checkLiveManifest(manifest); !problem.empty()) {
        return problem;
    }
    for (const std::wstring& url : {manifest.setupUrl, manifest.dataZipUrl}) {
        if (!isHttps(url)) {
            return L"The address '" + url + L"' is not an HTTPS address.";
        }
    }
    for (const wchar_t* language : kReaders) {
        if (renderUpdateHistory(manifest, language).empty()) {
            return std::wstring(L"There is nothing to show to a reader of ") + language + L".";
        }
    }
    return L"";
}

int fail(const std::wstring& reason, int code = 1) {
    std::fprintf(stderr, "%s\n", base::toUtf8(reason).c_str());
    return code;
}

}  // namespace

int main(int count, char** arguments) {
    if (count != 2) {
        return fail(L"usage: manifest_check FILE", 2);
    }
    std::ifstream file(arguments[1], std::ios::binary);
    if (!file) {
        return fail(L"The manifest cannot be read.", 2);
    }
    const auto text = base::toWideStrict(std::string(std::istreambuf_iterator<char>(file), {}));
    if (!text) {
        return fail(L"The update manifest is not valid UTF-8 text.");
    }
    // No release page stands in: a manifest without one is to show it.
    std::wstring reason;
    const UpdateCheckResult manifest = parseUpdateManifest(*text, velquin::kVersion, L"", &reason);
    if (!manifest.ok) {
        return fail(reason.empty() ? manifest.error : reason);
    }
    printManifest(manifest);
    const auto earlier = std::ranges::find_if(
        manifest.history, [&](const HistoryEntry& entry) { return entry.version != manifest.latestVersion; });
    if (earlier != manifest.history.end() && parseUpdateManifest(*text, earlier->version, L"").updateAvailable) {
        print("offered_to", earlier->version);
    }
    const std::wstring problem = problemOf(manifest);
    return problem.empty() ? 0 : fail(problem);
}
