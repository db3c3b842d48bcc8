// What the fuzz targets share: the entry that libFuzzer calls, the input as text, and ending the run where a promise is
// broken.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size);

namespace fuzz {

inline void require(bool holds, const char* promise) {
    if (!holds) {
        std::fprintf(stderr, "broken: %s\n", promise);
        std::abort();
    }
}

inline std::string_view bytes(const uint8_t* data, size_t size) {
    return size == 0 ? std::string_view() : std::string_view(reinterpret_cast<const char*>(data), size);
}

// The input as wide units, ASCII bytes as themselves. A byte from 0x80 on makes one unit with the byte behind it, so
// that surrogates and all other units of 16 bits occur, too.
inline std::wstring units(std::string_view input) {
    std::wstring text;
    for (size_t i = 0; i < input.size(); ++i) {
        unsigned unit = static_cast<unsigned char>(input[i]);
        if (unit >= 0x80 && i + 1 < input.size()) {
            unit = unit << 8 | static_cast<unsigned char>(input[++i]);
        }
        text.push_back(static_cast<wchar_t>(unit));
    }
    return text;
}

// The text with a word for each `mark`: what parsers look for as a whole then occurs often enough.
inline std::wstring withWords(std::wstring text, wchar_t mark, std::wstring_view word) {
    for (size_t at = text.find(mark); at != std::wstring::npos; at = text.find(mark, at + word.size())) {
        text.replace(at, 1, word);
    }
    return text;
}

// A copy that ends where its text ends, without the terminator of a string: reading beyond it is noticed.
class Unterminated {
public:
    explicit Unterminated(std::wstring_view text) : units_(text.begin(), text.end()) {}
    std::wstring_view view() const { return {units_.data(), units_.size()}; }

private:
    std::vector<wchar_t> units_;
};

inline std::vector<std::wstring> lines(std::wstring_view text) {
    std::vector<std::wstring> out;
    for (size_t start = 0; start <= text.size();) {
        const size_t end = text.find(L'\n', start);
        out.emplace_back(text.substr(start, end - start));
        start = end == std::wstring_view::npos ? text.size() + 1 : end + 1;
    }
    return out;
}

}  // namespace fuzz
