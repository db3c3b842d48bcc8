#include "base/text.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <cstring>
#include <cwctype>
#include <iterator>

namespace base {
namespace {

constexpr char32_t kReplacement = 0xFFFD;

// wchar_t may be signed or unsigned and 16 or 32 bits wide; a unit is its bits.
char32_t unitAt(std::wstring_view text, size_t index) {
    if constexpr (sizeof(wchar_t) == 2) {
        return static_cast<char16_t>(text[index]);
    } else {
        return static_cast<char32_t>(text[index]);
    }
}

void appendUtf8(std::string& out, char32_t c) {
    const auto byte = [&out](char32_t value) { out.push_back(static_cast<char>(static_cast<unsigned char>(value))); };
    if (c < 0x80) {
        byte(c);
    } else if (c < 0x800) {
        byte(0xC0 | (c >> 6));
        byte(0x80 | (c & 0x3F));
    } else if (c < 0x10000) {
        byte(0xE0 | (c >> 12));
        byte(0x80 | ((c >> 6) & 0x3F));
        byte(0x80 | (c & 0x3F));
    } else {
        byte(0xF0 | (c >> 18));
        byte(0x80 | ((c >> 12) & 0x3F));
        byte(0x80 | ((c >> 6) & 0x3F));
        byte(0x80 | (c & 0x3F));
    }
}

// Writes the units of a code point in the platform's wide encoding, at most two, and gives their number.
size_t putCodePoint(wchar_t* out, char32_t codePoint) {
    if constexpr (sizeof(wchar_t) == 2) {
        if (codePoint >= 0x10000) {
            out[0] = static_cast<wchar_t>(0xD800 + ((codePoint - 0x10000) >> 10));
            out[1] = static_cast<wchar_t>(0xDC00 + ((codePoint - 0x10000) & 0x3FF));
            return 2;
        }
    }
    out[0] = static_cast<wchar_t>(codePoint);
    return 1;
}

// The well-formed sequences of the Unicode standard, table 3-7: lead bytes and the range of the byte that follows them.
struct LeadRange {
    unsigned char first, last;
    int trailing;
    unsigned char secondFirst, secondLast;
};
constexpr LeadRange kLeadRanges[] = {
    {0xC2, 0xDF, 1, 0x80, 0xBF}, {0xE0, 0xE0, 2, 0xA0, 0xBF}, {0xE1, 0xEC, 2, 0x80, 0xBF}, {0xED, 0xED, 2, 0x80, 0x9F},
    {0xEE, 0xEF, 2, 0x80, 0xBF}, {0xF0, 0xF0, 3, 0x90, 0xBF}, {0xF1, 0xF3, 3, 0x80, 0xBF}, {0xF4, 0xF4, 3, 0x80, 0x8F},
};

// The row of kLeadRanges for each byte; behind the last one for a byte that begins no sequence of several.
constexpr auto kRowOfLead = [] {
    std::array<unsigned char, 256> rows{};
    for (size_t byte = 0; byte < rows.size(); ++byte) {
        const auto* row = std::ranges::find_if(
            kLeadRanges, [byte](const LeadRange& range) { return byte >= range.first && byte <= range.last; });
        rows[byte] = static_cast<unsigned char>(row - kLeadRanges);
    }
    return rows;
}();

// Decodes the code point at `index`, which is none of ASCII, and moves it behind what it read. Nothing for an
// ill-formed part.
std::optional<char32_t> decodeUtf8(std::string_view text, size_t& index) {
    const auto lead = static_cast<unsigned char>(text[index++]);
    const size_t row = kRowOfLead[lead];
    if (row == std::size(kLeadRanges)) {
        return std::nullopt;
    }
    const LeadRange& range = kLeadRanges[row];
    char32_t value = lead & (0x3Fu >> range.trailing);
    for (int i = 0; i < range.trailing; ++i) {
        const unsigned char low = i == 0 ? range.secondFirst : 0x80;
        const unsigned char high = i == 0 ? range.secondLast : 0xBF;
        if (index >= text.size()) {
            return std::nullopt;
        }
        const auto next = static_cast<unsigned char>(text[index]);
        if (next < low || next > high) {
            return std::nullopt;
        }
        value = (value << 6) | (next & 0x3Fu);
        ++index;
    }
    return value;
}

bool isAscii(char c) {
    return static_cast<unsigned char>(c) < 0x80;
}

// Where the characters of ASCII from `index` on end, looked for by eights.
size_t asciiEnd(std::string_view text, size_t index) {
    static_assert(std::endian::native == std::endian::little, "the first byte is the lowest");
    std::uint64_t bytes;
    for (; text.size() - index >= sizeof(bytes); index += sizeof(bytes)) {
        std::memcpy(&bytes, text.data() + index, sizeof(bytes));
        if ((bytes & 0x8080808080808080u) != 0) {
            return index + static_cast<size_t>(std::countr_zero(bytes & 0x8080808080808080u)) / 8;
        }
    }
    while (index < text.size() && isAscii(text[index])) {
        ++index;
    }
    return index;
}

// Decodes UTF-8 with U+FFFD for each ill-formed part, and counts these. Most text comes in runs of ASCII, which are
// copied at once.
std::wstring decodeAll(std::string_view utf8, size_t& illFormed) {
    std::wstring text;
    // No code point has more units than bytes.
    text.resize_and_overwrite(utf8.size(), [&](wchar_t* buffer, size_t) {
        wchar_t* out = buffer;
        for (size_t i = 0; i < utf8.size();) {
            const size_t end = asciiEnd(utf8, i);
            out = std::ranges::copy(utf8.substr(i, end - i), out).out;
            for (i = end; i < utf8.size() && !isAscii(utf8[i]);) {
                const auto codePoint = decodeUtf8(utf8, i);
                illFormed += codePoint ? 0 : 1;
                out += putCodePoint(out, codePoint.value_or(kReplacement));
            }
        }
        return static_cast<size_t>(out - buffer);
    });
    return text;
}

DecodedText decodeUtf16(std::string_view bytes, bool bigEndian) {
    const size_t count = bytes.size() / 2;
    const auto unit = [bytes, bigEndian](size_t i) -> char32_t {
        const auto first = static_cast<unsigned char>(bytes[2 * i]);
        const auto second = static_cast<unsigned char>(bytes[2 * i + 1]);
        return static_cast<char32_t>(bigEndian ? first << 8 | second : second << 8 | first);
    };
    // A unit at the end that lacks its second byte is dropped.
    DecodedText decoded{.text = L"", .isWellFormed = bytes.size() % 2 == 0};
    decoded.text.reserve(count);
    for (size_t i = 0; i < count; ++i) {
        const char32_t c = unit(i);
        if (isHighSurrogate(c) && i + 1 < count && isLowSurrogate(unit(i + 1))) {
            appendCodePoint(decoded.text, joinSurrogates(c, unit(++i)));
        } else {
            const bool isHalf = isHighSurrogate(c) || isLowSurrogate(c);
            appendCodePoint(decoded.text, isHalf ? kReplacement : c);
            decoded.isWellFormed = decoded.isWellFormed && !isHalf;
        }
    }
    return decoded;
}

}  // namespace

std::string toUtf8(std::wstring_view text) {
    std::string out;
    out.reserve(text.size());
    for (size_t i = 0; i < text.size(); ++i) {
        char32_t c = unitAt(text, i);
        if (isHighSurrogate(c) && i + 1 < text.size() && isLowSurrogate(unitAt(text, i + 1))) {
            c = joinSurrogates(c, unitAt(text, ++i));
        }
        const bool valid = c <= 0x10FFFF && !isHighSurrogate(c) && !isLowSurrogate(c);
        appendUtf8(out, valid ? c : kReplacement);
    }
    return out;
}

void appendCodePoint(std::wstring& out, char32_t codePoint) {
    wchar_t units[2];
    out.append(units, putCodePoint(units, codePoint));
}

std::wstring toWide(std::string_view utf8) {
    size_t illFormed = 0;
    return decodeAll(utf8, illFormed);
}

std::optional<std::wstring> toWideStrict(std::string_view utf8) {
    size_t illFormed = 0;
    std::wstring text = decodeAll(utf8, illFormed);
    return illFormed == 0 ? std::optional(std::move(text)) : std::nullopt;
}

DecodedText decodeTextFile(std::string_view bytes) {
    if (bytes.starts_with("\xFF\xFE")) {
        return decodeUtf16(bytes.substr(2), false);
    }
    if (bytes.starts_with("\xFE\xFF")) {
        return decodeUtf16(bytes.substr(2), true);
    }
    const std::string_view utf8 = bytes.starts_with("\xEF\xBB\xBF") ? bytes.substr(3) : bytes;
    size_t illFormed = 0;
    std::wstring text = decodeAll(utf8, illFormed);
    return {.text = std::move(text), .isWellFormed = illFormed == 0};
}

std::wstring_view trimmed(std::wstring_view text) {
    // The printable characters of ASCII are known without a question to the C library.
    const auto isSpace = [](wchar_t c) {
        return (c <= L' ' || c > L'~') && std::iswspace(static_cast<wint_t>(c)) != 0;
    };
    while (!text.empty() && isSpace(text.front())) {
        text.remove_prefix(1);
    }
    while (!text.empty() && isSpace(text.back())) {
        text.remove_suffix(1);
    }
    return text;
}

std::wstring lowered(std::wstring_view text) {
    std::wstring out(text);
    std::ranges::transform(out, out.begin(),
                           [](wchar_t c) { return static_cast<wchar_t>(std::towlower(static_cast<wint_t>(c))); });
    return out;
}

bool equalsIgnoringCase(std::wstring_view a, std::wstring_view b) {
    return a.size() == b.size() && lowered(a) == lowered(b);
}

bool endsWithIgnoringCase(std::wstring_view text, std::wstring_view suffix) {
    return text.size() >= suffix.size() && equalsIgnoringCase(text.substr(text.size() - suffix.size()), suffix);
}

std::wstring zeroPadded(unsigned value, int width) {
    std::wstring digits = std::to_wstring(value);
    const auto wanted = static_cast<size_t>(width);
    if (digits.size() < wanted) {
        digits.insert(0, wanted - digits.size(), L'0');
    }
    return digits;
}

}  // namespace base
