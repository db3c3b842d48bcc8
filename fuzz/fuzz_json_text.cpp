#include <algorithm>

#include "base/json_text.h"
#include "fuzz/fuzz_input.h"

using fuzz::require;

namespace {

void checkLookups(std::wstring_view text, const std::wstring& key) {
    const auto value = base::readJsonString(text, key);
    require(!value || text.find(L'"' + key + L'"') < text.rfind(L'"'), "a value needs its key before it");
    require(base::readJsonStringOr(text, key, L"else") == value.value_or(L"else"), "the fallback only stands in");

    const bool orTrue = base::readJsonBool(text, key, true);
    const bool orFalse = base::readJsonBool(text, key, false);
    require(orTrue || !orFalse, "the fallback is not turned round");
    const size_t found = text.find(L'"' + key + L'"');
    require(orTrue != orFalse || (found != std::wstring::npos && text.find(L':', found) != std::wstring::npos),
            "a decided value needs its key and a colon");
}

void checkWriting(const std::wstring& text) {
    const std::wstring escaped = base::escapeJson(text);
    require(base::unescapeJson(escaped) == text, "escaped text comes back");
    require(std::ranges::none_of(escaped, [](wchar_t c) { return c >= 0 && c < L' '; }), "no bare control characters");

    const std::wstring document = L"{\"first\": \"" + escaped + L"\", \"second\": \"x\"}";
    require(base::readJsonString(document, L"first") == text, "a written value is read");
    if (text.find(L"second") == std::wstring::npos) {
        require(base::readJsonString(document, L"second") == L"x", "and ends where it ends");
    }
}

}  // namespace

// The first line of the input is the key, all of it the text.
int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::wstring text = fuzz::units(fuzz::bytes(data, size));
    const fuzz::Unterminated input(text);
    checkLookups(input.view(), fuzz::lines(text).front());
    checkLookups(input.view(), L"k");
    checkWriting(text);
    require(base::unescapeJson(input.view()).size() <= text.size(), "no escape is shorter than its character");
    return 0;
}
