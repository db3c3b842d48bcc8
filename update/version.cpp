#include "update/version.h"

#include <algorithm>
#include <vector>

namespace velquin::update {
namespace {

// The numbers of a version as digits without leading zeros, so that a longer one is a larger one; zero is empty.
std::vector<std::wstring_view> numbers(std::wstring_view version) {
    std::vector<std::wstring_view> found;
    for (size_t i = 0; i < version.size();) {
        const size_t end = std::min(version.find_first_not_of(L"0123456789", i), version.size());
        if (end > i) {
            const std::wstring_view digits = version.substr(i, end - i);
            found.push_back(digits.substr(std::min(digits.find_first_not_of(L'0'), digits.size())));
        }
        if (end < version.size() && version[end] != L'.') {
            break;
        }
        i = end + 1;
    }
    return found;
}

}  // namespace

int compareVersions(std::wstring_view a, std::wstring_view b) {
    std::vector<std::wstring_view> first = numbers(a);
    std::vector<std::wstring_view> second = numbers(b);
    const size_t count = std::max(first.size(), second.size());
    first.resize(count);
    second.resize(count);
    for (size_t i = 0; i < count; ++i) {
        if (first[i].size() != second[i].size()) {
            return first[i].size() < second[i].size() ? -1 : 1;
        }
        if (const int order = first[i].compare(second[i]); order != 0) {
            return order < 0 ? -1 : 1;
        }
    }
    return 0;
}

}  // namespace velquin::update
