// The addresses of the update service.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "core/product.h"

namespace velquin::update {

inline constexpr wchar_t kManifestUrl[] = L"https://" PRODUCT_UPDATE_HOST "/apps/velquin/update.json";
// For people; stands in where a manifest names no page of its own.
inline constexpr wchar_t kReleasePageUrl[] = L"https://" PRODUCT_UPDATE_HOST "/apps/velquin";

// The address with a query that no request had before, so that no cache on the way answers it: "vlqn_cb=", the version
// (this program's own where it is empty), "-" and the tick count. An empty address stays empty.
std::wstring buildCacheBustedUrl(std::wstring_view url, std::wstring_view version, uint64_t tickCount);
// The same with the milliseconds since Windows started (GetTickCount64).
std::wstring buildCacheBustedUrl(std::wstring_view url, std::wstring_view version);

// The address begins with "https:", in any case.
bool isHttps(std::wstring_view url);

}  // namespace velquin::update
