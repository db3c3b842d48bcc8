#include "base/json_text.h"

#include <algorithm>

#include "base/text.h"

namespace base {
namespace {

constexpr size_t kNone = std::wstring_view::npos;
constexpr wchar_t kJsonSpace[] = L" \t\r\n";

struct Escape {
    wchar_t letter, character;
};
constexpr Escape kEscapes[] = {
    {L'"', L'"'},  {L'\\', L'\\'}, {L'/', L'/'},  {L'b', L'\b'},
    {L'f', L'\f'}, {L'n', L'\n'},  {L'r', L'\r'}, {L't', L'\t'},
};

// The position behind the colon that follows the first occurrence of the quoted key.
size_t valuePosition(std::wstring_view text, std::wstring_view key) {
    std::wstring quoted = L"\"";
    quoted += key;
    quoted += L'"';
    const size_t found = text.find(quoted);
    if (found == kNone) {
        return kNone;
    }
    const size_t colon = text.find(L':', found + quoted.size());
    return colon == kNone ? kNone : colon + 1;
}

int hexDigit(wchar_t c) {
    if (c >= L'0' && c <= L'9') {
        return c - L'0';
    }
    if (c >= L'a' && c <= L'f') {
        return c - L'a' + 10;
    }
    if (c >= L'A' && c <= L'F') {
        return c - L'A' + 10;
    }
    return -1;
}

// The value of the four hexadecimal digits at `position`, or nothing.
std::optional<char32_t> hexUnit(std::wstring_view text, size_t position) {
    if (text.size() < 4 || position > text.size() - 4) {
        return std::nullopt;
    }
    char32_t value = 0;
    for (size_t i = 0; i < 4; ++i) {
        const int digit = hexDigit(text[position + i]);
        if (digit < 0) {
            return std::nullopt;
        }
        value = value * 16 + static_cast<char32_t>(digit);
    }
    return value;
}

// Decodes the \uXXXX at `position` (its backslash), with a second one where the two are a pair. Gives the characters
// read, 0 when it is no such escape.
size_t appendUnicodeEscape(std::wstring& out, std::wstring_view text, size_t position) {
    const auto high = hexUnit(text, position + 2);
    if (!high) {
        return 0;
    }
    if (!isHighSurrogate(*high) && !isLowSurrogate(*high)) {
        appendCodePoint(out, *high);
        return 6;
    }
    if (isHighSurrogate(*high) && text.substr(position + 6, 2) == L"\\u") {
        const auto low = hexUnit(text, position + 8);
        if (low && isLowSurrogate(*low)) {
            appendCodePoint(out, joinSurrogates(*high, *low));
            return 12;
        }
    }
    appendCodePoint(out, 0xFFFD);
    return 6;
}

// The position behind the string that opens at `open`, or kNone when it does not close.
size_t endOfString(std::wstring_view text, size_t open) {
    for (size_t i = open + 1; i < text.size(); ++i) {
        if (text[i] == L'\\') {
            ++i;
        } else if (text[i] == L'"') {
            return i + 1;
        }
    }
    return kNone;
}

// The position behind the bracket that closes the one at `open`, or kNone when there is none.
size_t endOfBrackets(std::wstring_view text, size_t open) {
    size_t depth = 0;
    for (size_t i = open; i < text.size();) {
        const wchar_t c = text[i];
        if (c == L'"') {
            i = endOfString(text, i);
            continue;
        }
        ++i;
        if (c == L'{' || c == L'[') {
            ++depth;
        } else if ((c == L'}' || c == L']') && --depth == 0) {
            return i;
        }
    }
    return kNone;
}

}  // namespace

std::optional<std::wstring> readJsonString(std::wstring_view text, std::wstring_view key) {
    const size_t value = valuePosition(text, key);
    const size_t open = value == kNone ? kNone : text.find(L'"', value);
    if (open == kNone) {
        return std::nullopt;
    }
    const size_t end = endOfString(text, open);
    return end == kNone ? std::nullopt : std::optional(unescapeJson(text.substr(open + 1, end - open - 2)));
}

std::wstring readJsonStringOr(std::wstring_view text, std::wstring_view key, std::wstring_view fallback) {
    return readJsonString(text, key).value_or(std::wstring(fallback));
}

bool readJsonBool(std::wstring_view text, std::wstring_view key, bool fallback) {
    const size_t value = valuePosition(text, key);
    if (value == kNone) {
        return fallback;
    }
    const std::wstring word = lowered(trimmed(text.substr(value, 8)));
    if (word.starts_with(L"true")) {
        return true;
    }
    return word.starts_with(L"false") ? false : fallback;
}

std::optional<std::wstring_view> readJsonRaw(std::wstring_view text, std::wstring_view key, wchar_t open) {
    size_t start = valuePosition(text, key);
    start = start == kNone ? kNone : text.find_first_not_of(kJsonSpace, start);
    if (start == kNone || text[start] != open) {
        return std::nullopt;
    }
    const size_t end = endOfBrackets(text, start);
    return end == kNone ? std::nullopt : std::optional(text.substr(start, end - start));
}

std::vector<std::wstring_view> jsonElements(std::wstring_view array) {
    std::vector<std::wstring_view> elements;
    const std::wstring_view inner = array.substr(1, array.size() - 2);
    size_t start = 0;
    const auto endElement = [&](size_t end) {
        const std::wstring_view element = trimmed(inner.substr(start, end - start));
        if (!element.empty()) {
            elements.push_back(element);
        }
        start = end + 1;
    };
    for (size_t i = 0; i < inner.size();) {
        if (inner[i] == L'"') {
            i = endOfString(inner, i);
        } else if (inner[i] == L'{' || inner[i] == L'[') {
            i = endOfBrackets(inner, i);
        } else {
            if (inner[i] == L',') {
                endElement(i);
            }
            ++i;
        }
    }
    endElement(inner.size());
    return elements;
}

std::optional<std::vector<std::wstring>> readJsonStringArray(std::wstring_view text, std::wstring_view key) {
    const auto array = readJsonRaw(text, key, L'[');
    if (!array) {
        return std::nullopt;
    }
    std::vector<std::wstring> strings;
    for (const std::wstring_view element : jsonElements(*array)) {
        if (element.size() >= 2 && element.front() == L'"' && endOfString(element, 0) == element.size()) {
            strings.push_back(unescapeJson(element.substr(1, element.size() - 2)));
        }
    }
    return strings;
}

std::wstring unescapeJson(std::wstring_view text) {
    std::wstring out;
    out.reserve(text.size());
    for (size_t i = 0; i < text.size();) {
        if (text[i] != L'\\' || i + 1 == text.size()) {
            out.push_back(text[i++]);
            continue;
        }
        const wchar_t letter = text[i + 1];
        if (letter == L'u') {
            if (const size_t read = appendUnicodeEscape(out, text, i); read > 0) {
                i += read;
                continue;
            }
        }
        const auto* escape = std::ranges::find(kEscapes, letter, &Escape::letter);
        if (escape != std::end(kEscapes)) {
            out.push_back(escape->character);
        } else {
            out.append({L'\\', letter});
        }
        i += 2;
    }
    return out;
}

std::wstring escapeJson(std::wstring_view text) {
    constexpr wchar_t kHex[] = L"0123456789abcdef";
    std::wstring out;
    out.reserve(text.size());
    for (const wchar_t c : text) {
        const auto* escape = std::ranges::find(kEscapes, c, &Escape::character);
        const auto code = static_cast<char32_t>(c);
        if (escape != std::end(kEscapes) && c != L'/') {
            out.append({L'\\', escape->letter});
        } else if (code < 0x20) {
            out.append({L'\\', L'u', L'0', L'0', kHex[code >> 4], kHex[code & 0xF]});
        } else {
            out.push_back(c);
        }
    }
    return out;
}

}  // namespace base
