#include "base/json_text.h"
#include "base/text.h"
#include "core/configuration.h"
#include "fuzz/fuzz_input.h"

using fuzz::require;
using velquin::ProductConfig;

namespace {

void checkBrackets(std::wstring_view text) {
    for (const wchar_t open : {L'[', L'{'}) {
        const auto raw = base::readJsonRaw(text, L"Mappings", open);
        if (!raw) {
            continue;
        }
        require(raw->size() >= 2 && raw->front() == open, "it begins with its bracket");
        require(raw->back() == L']' || raw->back() == L'}', "and ends with one");
        require(raw->data() >= text.data() && raw->data() + raw->size() <= text.data() + text.size(),
                "within the text");
        size_t total = 0;
        for (const std::wstring_view element : base::jsonElements(*raw)) {
            require(!element.empty() && base::trimmed(element) == element, "elements are trimmed");
            total += element.size();
        }
        require(total <= raw->size(), "no element counts twice");
    }
}

}  // namespace

// The input is the file. Its lines, read once more, are the texts of a configuration that is saved.
int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::wstring text = base::decodeTextFile(fuzz::bytes(data, size)).text;
    const fuzz::Unterminated input(text);
    checkBrackets(input.view());
    const ProductConfig config = velquin::parseProductConfig(input.view(), {});
    ProductConfig again = config;
    velquin::normalizeMappings(again);
    require(again == config, "what was read is normal");
    require(config.mappings.size() <= velquin::kMaxListed, "lists have a limit");
    const std::wstring saved = velquin::formatProductConfig(config);
    require(velquin::parseProductConfig(saved, {}) == config, "what is saved is read");

    ProductConfig made;
    for (const std::wstring& line : fuzz::lines(fuzz::withWords(text, L'~', L"Language"))) {
        if (made.mappings.size() == velquin::kMaxListed) {
            break;
        }
        made.mappings.push_back({line, line, line, true});
        made.mountOptions.push_back(line);
        made.language = made.veraCryptPath = line;
    }
    velquin::normalizeMappings(made);
    require(velquin::parseProductConfig(velquin::formatProductConfig(made), {}) == made, "whatever texts it holds");
    return 0;
}
