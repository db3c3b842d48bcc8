#include "core/pending_renames.h"

#include <algorithm>

#include "base/text.h"

namespace velquin {

std::vector<std::wstring> parsePendingRenames(std::wstring_view stored) {
    // The list's own terminator is one more empty string behind the last pair, which the pairs do not need.
    std::vector<std::wstring> strings;
    while (!stored.empty()) {
        const size_t end = std::min(stored.find(L'\0'), stored.size());
        strings.emplace_back(stored.substr(0, end));
        stored.remove_prefix(std::min(end + 1, stored.size()));
    }
    if (strings.size() % 2 != 0) {
        if (strings.back().empty()) {
            strings.pop_back();
        } else {
            strings.emplace_back();
        }
    }
    return strings;
}

std::wstring formatPendingRenames(const std::vector<std::wstring>& strings) {
    std::wstring stored;
    for (const std::wstring& text : strings) {
        stored += text;
        stored.push_back(L'\0');
    }
    stored.push_back(L'\0');
    return stored;
}

std::vector<std::wstring> removePendingDeletes(std::vector<std::wstring>& strings,
                                               const std::vector<std::wstring>& paths) {
    constexpr std::wstring_view kPrefix = LR"(\??\)";
    std::vector<std::wstring> kept;
    std::vector<std::wstring> removed;
    for (size_t i = 0; i + 1 < strings.size(); i += 2) {
        const std::wstring_view source = strings[i];
        const bool isDelete = strings[i + 1].empty() && source.starts_with(kPrefix);
        const std::wstring path(isDelete ? source.substr(kPrefix.size()) : std::wstring_view());
        if (isDelete && std::ranges::any_of(paths, [&path](const std::wstring& wanted) {
                return base::equalsIgnoringCase(path, wanted);
            })) {
            removed.push_back(path);
        } else {
            kept.push_back(std::move(strings[i]));
            kept.push_back(std::move(strings[i + 1]));
        }
    }
    strings = std::move(kept);
    return removed;
}

}  // namespace velquin
