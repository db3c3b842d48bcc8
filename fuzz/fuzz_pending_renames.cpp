#include <algorithm>

#include "base/text.h"
#include "core/pending_renames.h"
#include "fuzz/fuzz_input.h"

using fuzz::require;
using Strings = std::vector<std::wstring>;

namespace {

constexpr std::wstring_view kPrefix = LR"(\??\)";

bool deletesOneOf(const std::wstring& source, const std::wstring& target, const Strings& paths) {
    return target.empty() && source.starts_with(kPrefix) &&
           std::ranges::any_of(paths, [&source](const std::wstring& path) {
               return base::equalsIgnoringCase(source, std::wstring(kPrefix) + path);
           });
}

// A few paths: what the first pairs delete, every other one of them in another case, and one that is not there.
Strings choosePaths(const Strings& strings) {
    Strings paths = {L"nowhere"};
    for (size_t i = 0; i < std::min<size_t>(strings.size(), 12); i += 4) {
        const std::wstring path = strings[i].substr(std::min(kPrefix.size(), strings[i].size()));
        paths.push_back(i % 8 == 0 ? base::lowered(path) : path);
    }
    return paths;
}

}  // namespace

// A line feed is a terminator, as a zero is, and "|" is the prefix of a source.
int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    std::wstring stored = fuzz::withWords(fuzz::units(fuzz::bytes(data, size)), L'|', kPrefix);
    std::ranges::replace(stored, L'\n', L'\0');
    const Strings strings = velquin::parsePendingRenames(stored);
    require(strings.size() % 2 == 0, "the strings are pairs");
    require(velquin::parsePendingRenames(velquin::formatPendingRenames(strings)) == strings, "what is written is read");
    require(velquin::formatPendingRenames(strings).starts_with(stored), "nothing is lost");

    const Strings paths = choosePaths(strings);
    Strings expectedKept, expectedRemoved;
    for (size_t i = 0; i < strings.size(); i += 2) {
        if (deletesOneOf(strings[i], strings[i + 1], paths)) {
            expectedRemoved.push_back(strings[i].substr(kPrefix.size()));
        } else {
            expectedKept.insert(expectedKept.end(), {strings[i], strings[i + 1]});
        }
    }
    Strings kept = strings;
    require(velquin::removePendingDeletes(kept, paths) == expectedRemoved, "the deletions asked for are removed");
    require(kept == expectedKept, "all others stay in their order");
    require(velquin::removePendingDeletes(kept, paths).empty(), "and there is nothing more to remove");
    return 0;
}
