#include "base/windows_path.h"

#include <algorithm>
#include <vector>

#include "base/text.h"

namespace base {
namespace {

constexpr bool isSeparator(wchar_t c) {
    return c == L'\\' || c == L'/';
}
constexpr bool isDriveLetter(wchar_t c) {
    return (c >= L'A' && c <= L'Z') || (c >= L'a' && c <= L'z');
}
constexpr bool beginsWithDrive(std::wstring_view text) {
    return text.size() >= 2 && isDriveLetter(text[0]) && text[1] == L':';
}

bool isLiteral(std::wstring_view path) {
    return path.starts_with(LR"(\\?\)");
}

size_t componentEnd(std::wstring_view path, size_t start) {
    const size_t end = path.find_first_of(L"\\/", start);
    return end == std::wstring_view::npos ? path.size() : end;
}

size_t lastComponentStart(std::wstring_view path) {
    const size_t root = rootLength(path);
    size_t start = path.size();
    while (start > root && !isSeparator(path[start - 1])) {
        --start;
    }
    return start;
}

std::wstring withBackslashes(std::wstring_view path) {
    std::wstring out(path);
    std::ranges::replace(out, L'/', L'\\');
    return out;
}

}  // namespace

size_t rootLength(std::wstring_view path) {
    if (path.size() >= 2 && isSeparator(path[0]) && isSeparator(path[1])) {
        if (isLiteral(path) && beginsWithDrive(path.substr(4))) {
            return path.size() > 6 && path[6] == L'\\' ? 7 : 6;
        }
        const size_t prefix = path.starts_with(LR"(\\?\UNC\)") ? 8 : 2;
        const size_t serverEnd = componentEnd(path, prefix);
        if (serverEnd == path.size()) {
            return path.size();
        }
        const size_t shareEnd = componentEnd(path, serverEnd + 1);
        return std::min(shareEnd + 1, path.size());
    }
    if (beginsWithDrive(path)) {
        return path.size() >= 3 && isSeparator(path[2]) ? 3 : 2;
    }
    return !path.empty() && isSeparator(path[0]) ? 1 : 0;
}

bool isFullyQualified(std::wstring_view path) {
    if (beginsWithDrive(path) && path.size() >= 3 && isSeparator(path[2])) {
        return true;
    }
    if (path.size() < 5 || !isSeparator(path[0]) || !isSeparator(path[1]) || path[2] == L'.' || path[2] == L'?') {
        return false;
    }
    const size_t serverEnd = componentEnd(path, 2);
    return serverEnd > 2 && serverEnd + 1 < path.size() && !isSeparator(path[serverEnd + 1]);
}

std::wstring joinPath(std::wstring_view folder, std::wstring_view name) {
    std::wstring out(folder);
    if (!out.empty() && !isSeparator(out.back())) {
        out.push_back(L'\\');
    }
    out += name;
    return out;
}

std::wstring parentPath(std::wstring_view path) {
    const size_t root = rootLength(path);
    size_t end = lastComponentStart(path);
    while (end > root && isSeparator(path[end - 1])) {
        --end;
    }
    return std::wstring(path.substr(0, end));
}

std::wstring fileName(std::wstring_view path) {
    return std::wstring(path.substr(lastComponentStart(path)));
}

std::wstring withExtension(std::wstring_view path, std::wstring_view extension) {
    const size_t start = lastComponentStart(path);
    const size_t dot = path.rfind(L'.');
    const bool hasExtension = dot != std::wstring_view::npos && dot > start && path.substr(start) != L"..";
    std::wstring out(hasExtension ? path.substr(0, dot) : path);
    out += extension;
    return out;
}

std::wstring lexicallyNormal(std::wstring_view path) {
    if (path.empty() || isLiteral(path)) {
        return std::wstring(path);
    }
    const size_t root = rootLength(path);
    const bool rooted = root > 0 && isSeparator(path[root - 1]);
    std::vector<std::wstring_view> kept;
    bool endsInFolder = false;
    for (size_t start = root; start < path.size();) {
        const size_t end = componentEnd(path, start);
        const std::wstring_view part = path.substr(start, end - start);
        endsInFolder = end < path.size() || part == L"." || part == L"..";
        if (part == L"..") {
            if (!kept.empty() && kept.back() != L"..") {
                kept.pop_back();
            } else if (!rooted) {
                kept.push_back(part);
            }
        } else if (!part.empty() && part != L".") {
            kept.push_back(part);
        }
        start = end + 1;
    }
    std::wstring out = withBackslashes(path.substr(0, root));
    if (root == 0 && !kept.empty() && beginsWithDrive(kept.front())) {
        out = LR"(.\)";  // "a\..\C:\b" is no path on drive C
    }
    for (size_t i = 0; i < kept.size(); ++i) {
        if (i > 0) {
            out.push_back(L'\\');
        }
        out += kept[i];
    }
    if (out.empty()) {
        return L".";
    }
    if (endsInFolder && !kept.empty() && kept.back() != L"..") {
        out.push_back(L'\\');
    }
    return out;
}

std::wstring normalizePathText(std::wstring_view text, const AbsolutePathFunction& absolute) {
    const std::wstring_view bare = trimmed(text);
    if (bare.empty()) {
        return {};
    }
    std::wstring path = withBackslashes(bare);
    path = lexicallyNormal(absolute(path).value_or(path));
    while (path.size() >= 4 && isSeparator(path.back())) {
        path.pop_back();
    }
    return path;
}

std::wstring extendedLengthPath(std::wstring_view path) {
    // 248 and not 260: a folder must leave room for a file name of the old 8.3 form.
    constexpr size_t kShortLimit = 248;
    if (path.size() < kShortLimit || !isFullyQualified(path)) {
        return std::wstring(path);
    }
    const std::wstring normal = lexicallyNormal(path);
    return normal.starts_with(LR"(\\)") ? LR"(\\?\UNC\)" + normal.substr(2) : LR"(\\?\)" + normal;
}

}  // namespace base
