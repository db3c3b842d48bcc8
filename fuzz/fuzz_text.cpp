#include <algorithm>

#include "base/text.h"
#include "fuzz/fuzz_input.h"

using fuzz::require;

namespace {

// By the shape of the code points, where the decoder goes by ranges of bytes.
bool isWellFormed(std::string_view text) {
    for (size_t i = 0; i < text.size();) {
        const auto lead = static_cast<unsigned char>(text[i++]);
        const int trailing = lead < 0x80 ? 0 : lead >> 5 == 6 ? 1 : lead >> 4 == 14 ? 2 : lead >> 3 == 30 ? 3 : -1;
        if (trailing < 0) {
            return false;
        }
        uint32_t value = trailing == 0 ? lead : lead & (0x3Fu >> trailing);
        for (int k = 0; k < trailing; ++k, ++i) {
            if (i == text.size() || (static_cast<unsigned char>(text[i]) & 0xC0) != 0x80) {
                return false;
            }
            value = value << 6 | (static_cast<unsigned char>(text[i]) & 0x3Fu);
        }
        constexpr uint32_t kFirst[] = {0, 0x80, 0x800, 0x10000};
        if (value < kFirst[trailing] || value > 0x10FFFF || (value >= 0xD800 && value <= 0xDFFF)) {
            return false;
        }
    }
    return true;
}

void checkDecoding(std::string_view utf8) {
    const std::wstring wide = base::toWide(utf8);
    const std::string again = base::toUtf8(wide);
    require(isWellFormed(again), "what is written is well-formed");
    require((again == utf8) == isWellFormed(utf8), "well-formed text comes back, other text does not");
    require(isWellFormed(utf8) || wide.find(L'\xFFFD') != std::wstring::npos, "ill-formed parts are marked");
    require(wide.size() <= utf8.size(), "a byte gives at most one unit");
    require(base::toWide(again) == wide, "decoded text goes both ways");
    // An ASCII character ends every sequence before it, whatever that was.
    const size_t half = utf8.size() / 2;
    require(base::toWide(std::string(utf8.substr(0, half)) + "|" + std::string(utf8.substr(half))) ==
                base::toWide(utf8.substr(0, half)) + L"|" + base::toWide(utf8.substr(half)),
            "no sequence reaches beyond an ASCII character");
}

void checkWideText(const std::wstring& text) {
    const std::string utf8 = base::toUtf8(text);
    require(isWellFormed(utf8), "any units give well-formed text");
    require(base::toUtf8(base::toWide(utf8)) == utf8, "well-formed text goes both ways");

    const std::wstring_view trimmed = base::trimmed(text);
    require(base::trimmed(trimmed) == trimmed, "trimmed text has nothing to trim");
    require(text.find(trimmed) != std::wstring::npos, "trimming keeps what is between");
    require(std::ranges::none_of(text.substr(0, text.find(trimmed)), [](wchar_t c) { return c > L' ' && c < 0x7F; }),
            "only white space is trimmed");

    const std::wstring lowered = base::lowered(text);
    require(base::lowered(lowered) == lowered, "lowered text stays");
    require(base::equalsIgnoringCase(text, lowered), "case does not count");
    require(base::endsWithIgnoringCase(text, std::wstring_view(lowered).substr(text.size() / 2)), "nor at the end");
}

}  // namespace

int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string_view input = fuzz::bytes(data, size);
    checkDecoding(input);
    checkWideText(fuzz::units(input));
    return 0;
}
