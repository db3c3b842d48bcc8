#include "tavi/theme/skin_values.h"

#include <algorithm>
#include <climits>
#include <iterator>

namespace tavi {
namespace {

// The value of a hexadecimal digit in either case; -1 for another character.
constexpr int digitValue(char c) {
    if (c >= '0' && c <= '9') {
        return c - '0';
    }
    const char lowered = static_cast<char>(c | 0x20);
    return lowered >= 'a' && lowered <= 'f' ? lowered - 'a' + 10 : -1;
}

std::string_view withoutBlanks(std::string_view text) {
    constexpr char kBlanks[] = " \t\n\v\f\r";
    const size_t begin = std::min(text.find_first_not_of(kBlanks), text.size());
    return text.substr(begin, text.find_last_not_of(kBlanks) + 1 - begin);
}

// Takes the digits from the front of `text`. More than an int holds is the end of its range.
int takeDigits(std::string_view& text, bool isNegative) {
    int64_t value = 0;
    for (; !text.empty() && text.front() >= '0' && text.front() <= '9'; text.remove_prefix(1)) {
        value = std::min<int64_t>(value * 10 + (text.front() - '0'), int64_t{INT_MAX} + 1);
    }
    return static_cast<int>(isNegative ? -value : std::min<int64_t>(value, INT_MAX));
}

struct Switch {
    std::string_view name;
    bool value;
};
constexpr Switch kSwitches[] = {{"true", true},   {"1", true},  {"yes", true}, {"on", true},
                                {"false", false}, {"0", false}, {"no", false}, {"off", false}};

}  // namespace

std::optional<Color> colorFromText(std::string_view text) {
    if (text.starts_with('#')) {
        text.remove_prefix(1);
    }
    if (text.size() != 6) {
        return std::nullopt;
    }
    int value = 0;
    for (const char c : text) {
        const int digit = digitValue(c);
        if (digit < 0) {
            return std::nullopt;
        }
        value = value << 4 | digit;
    }
    return hexColor(static_cast<uint32_t>(value));
}

std::optional<int> integerFromText(std::string_view text) {
    std::string_view rest = withoutBlanks(text);
    const bool isNegative = rest.starts_with('-');
    if (isNegative || rest.starts_with('+')) {
        rest.remove_prefix(1);
    }
    const size_t length = rest.size();
    const int value = takeDigits(rest, isNegative);
    if (rest.size() == length) {
        return std::nullopt;
    }
    if (rest.starts_with('.')) {
        rest.remove_prefix(1);
        takeDigits(rest, false);
    }
    return rest.empty() ? std::optional(value) : std::nullopt;
}

std::optional<bool> boolFromText(std::string_view text) {
    const FoldedName name(text, Fold::kLowered);
    const auto* found = std::ranges::find(kSwitches, name.text(), &Switch::name);
    return found != std::end(kSwitches) ? std::optional(found->value) : std::nullopt;
}

int integerFromNumber(double number) {
    return static_cast<int>(std::clamp<double>(number, INT_MIN, INT_MAX));
}

}  // namespace tavi
