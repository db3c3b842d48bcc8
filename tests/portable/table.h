// What the portable tests share: tables of texts and what a function makes of them, and pseudo-random texts, the same
// in every run.
#pragma once

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace testing_table {

using Pairs = std::vector<std::pair<std::wstring, std::wstring>>;

// Expects of each pair that `function` makes its second text out of its first.
template <typename Function>
void expectEach(Function function, const Pairs& pairs) {
    for (const auto& [text, expected] : pairs) {
        EXPECT_EQ(function(text), expected) << "from " << testing::PrintToString(text);
    }
}

// 0 to `maxLength` characters of `alphabet`, which weighs a character by how often it holds it.
inline std::wstring randomText(std::mt19937& random, std::wstring_view alphabet, size_t maxLength) {
    std::wstring text(random() % (maxLength + 1), L'\0');
    for (wchar_t& c : text) {
        c = alphabet[random() % alphabet.size()];
    }
    return text;
}

}  // namespace testing_table
