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

size_t depthOf(base::Json value) {
    size_t deepest = 0;
    if (const auto elements = value.array()) {
        size_t count = 0;
        for (const base::Json element : *elements) {
            deepest = std::max(deepest, depthOf(element));
            ++count;
        }
        require(count == elements->size(), "every element is met");
    } else if (const auto members = value.object()) {
        for (const auto [key, member] : *members) {
            deepest = std::max(deepest, depthOf(member));
            require(static_cast<bool>(value.find(key)), "every key is found");
        }
    } else {
        require(value.string().has_value() + value.number().has_value() + value.boolean().has_value() <= 1, "one kind");
        return 0;
    }
    return deepest + 1;
}

void checkDocument(std::string_view utf8) {
    const auto document = base::parseJson(utf8);
    if (document) {
        require(depthOf(document->root()) <= base::kMaxJsonDepth, "no document is too deep");
        // A value takes two bytes of the text at least, and the list of them has grown by doubling.
        require(document->bytes() <= 64 + 2 * (utf8.size() + 16) + 2 * 16 * (utf8.size() / 2 + 32),
                "memory follows size");
    } else {
        require(document.error().offset <= utf8.size() && !document.error().reason.empty(), "an error tells where");
    }
}

void checkManifest(std::wstring_view text) {
    checkDocument(base::toUtf8(text));
    const UpdateCheckResult result = parseUpdateManifest(text, L"1.0.188", L"page");
    require(result.ok == result.error.empty() && result.ok == !result.latestVersion.empty(), "a result or an error");
    require(!result.ok || base::parseJson(base::toUtf8(text)).has_value(), "only a document is a manifest");
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
    checkDocument(bytes);
    checkManifest(input.view());
    const std::vector<std::wstring> lines = fuzz::lines(text);
    checkVersions(lines.front(), lines.back());
    // As values of a manifest, so that every run reaches what is behind the parser.
    checkManifest(LR"({"version": "2", "changes_cs": "a", "history": [)" + text +
                  LR"(, {"version": "1", "changes": "b"}]})");
    return 0;
}
