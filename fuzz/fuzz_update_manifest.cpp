#include <algorithm>

#include "base/json.h"
#include "base/text.h"
#include "fuzz/fuzz_input.h"
#include "update/history.h"
#include "update/manifest.h"
#include "update/version.h"

using fuzz::require;
using namespace velquin::update;

namespace {

size_t depthOf(const base::Json& value) {
    size_t deepest = 0;
    if (value.array() != nullptr) {
        for (const base::Json& element : *value.array()) {
            deepest = std::max(deepest, depthOf(element));
        }
    } else if (value.object() != nullptr) {
        for (const auto& member : *value.object()) {
            deepest = std::max(deepest, depthOf(member.value));
            require(value.find(member.key) != nullptr, "every key is found");
        }
    } else {
        return 0;
    }
    return deepest + 1;
}

void checkDocument(std::wstring_view text) {
    const auto document = base::parseJson(text);
    if (document) {
        require(depthOf(*document) <= base::kMaxJsonDepth, "no document is too deep");
    } else {
        require(document.error().offset <= text.size() && !document.error().reason.empty(), "an error tells where");
    }
    const UpdateCheckResult result = parseUpdateManifest(text, L"1.0.188", L"page");
    require(result.ok == result.error.empty() && result.ok == !result.latestVersion.empty(), "a result or an error");
    require(!result.ok || document.has_value(), "only a document is a manifest");
    require(result.updateAvailable == (result.ok && compareVersions(result.latestVersion, L"1.0.188") > 0),
            "newer is newer");
    for (const wchar_t* language : {L"cs-CZ", L"de", L""}) {
        const std::wstring history = renderUpdateHistory(result, language);
        require(history.empty() || history.back() == L'\n', "lines are ended");
    }
}

void checkVersions(const std::wstring& a, const std::wstring& b) {
    require(compareVersions(a, b) == -compareVersions(b, a), "turned round, the order turns");
    require(compareVersions(a, a) == 0 && compareVersions(a + L".0", a + L".0.00") == 0, "zeros change nothing");
}

}  // namespace

int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string_view bytes = fuzz::bytes(data, size);
    const std::wstring text = base::toWide(bytes);
    const fuzz::Unterminated input(text);
    checkDocument(input.view());
    const std::vector<std::wstring> lines = fuzz::lines(text);
    checkVersions(lines.front(), lines.back());
    // As values of a manifest, so that every run reaches what is behind the parser.
    checkDocument(LR"({"version": "2", "changes_cs": "a", "history": [)" + text +
                  LR"(, {"version": "1", "changes": "b"}]})");
    return 0;
}
