#include "setup/install_folder.h"

#include <algorithm>

#include "base/windows_path.h"
#include "setup/payload_table.h"

namespace velquin::setup {
namespace {

constexpr size_t kMaxPathLength = 259;

size_t longestInstalledPath() {
    size_t longest = 0;
    for (const PayloadEntry& entry : payloadTable()) {
        if (entry.isValid()) {
            longest = std::max(longest, std::wstring_view(entry.relativePath).size());
        }
    }
    return longest;
}

bool isForbidden(wchar_t c) {
    return c < L' ' || std::wstring_view(LR"(<>:"|?*)").contains(c);
}

}  // namespace

size_t maxInstallFolderLength() {
    return kMaxPathLength - 1 - longestInstalledPath();
}

std::wstring installFolderTextProblem(std::wstring_view folder) {
    if (!base::isFullyQualified(folder)) {
        return L"it is not a full path with a drive or a network share";
    }
    if (folder.contains(L'"')) {
        // What "C:\Apps\" in quotes comes to: an easy slip, so the remedy is named.
        return L"it holds a quotation mark; on a command line, leave out the backslash before the closing one";
    }
    const size_t root = base::rootLength(folder);
    if (folder.size() <= root) {
        return L"it is a root; the product needs a folder of its own";
    }
    if (folder.size() > maxInstallFolderLength()) {
        return L"it is longer than " + std::to_wstring(maxInstallFolderLength()) + L" characters";
    }
    constexpr size_t kNetworkPrefix = 2;  // the names of a server and a share keep the same rules as folders
    for (size_t start = folder.starts_with(L'\\') ? kNetworkPrefix : root; start < folder.size();) {
        const size_t end = std::min(folder.find(L'\\', start), folder.size());
        const std::wstring_view part = folder.substr(start, end - start);
        // Windows drops a dot or blank at the end of a name, so the folder would not be the one that was asked for.
        if (std::ranges::any_of(part, isForbidden) || part.ends_with(L'.') || part.ends_with(L' ')) {
            return L"'" + std::wstring(part.substr(0, 60)) + L"' is no valid folder name";
        }
        start = end + 1;
    }
    return {};
}

}  // namespace velquin::setup
