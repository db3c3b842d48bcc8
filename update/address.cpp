#include "update/address.h"

#include "base/text.h"

namespace velquin::update {

std::wstring buildCacheBustedUrl(std::wstring_view url, std::wstring_view version, uint64_t tickCount) {
    std::wstring busted(url);
    if (!busted.empty()) {
        busted += url.find(L'?') == std::wstring_view::npos ? L'?' : L'&';
        busted.append(L"vlqn_cb=").append(version.empty() ? kVersion : version).append(L"-");
        busted += std::to_wstring(tickCount);
    }
    return busted;
}

bool isHttps(std::wstring_view url) {
    constexpr std::wstring_view kScheme = L"https:";
    return base::equalsIgnoringCase(url.substr(0, kScheme.size()), kScheme);
}

}  // namespace velquin::update
