#include <algorithm>

#include "base/text.h"
#include "base/windows_path.h"
#include "fuzz/fuzz_input.h"
#include "tests/portable/path_reference.h"

using fuzz::require;

namespace {

bool isLiteral(std::wstring_view path) {
    return path.starts_with(LR"(\\?\)");
}

bool endsInSeparator(std::wstring_view path) {
    return path.ends_with(L'\\') || path.ends_with(L'/');
}

void checkParts(const std::wstring& path) {
    const fuzz::Unterminated input(path);
    const size_t root = base::rootLength(input.view());
    const std::wstring parent = base::parentPath(input.view());
    const std::wstring name = base::fileName(input.view());
    require(root <= path.size(), "the root is a part of the path");
    require(root == 0 || root == path.size() || endsInSeparator(path.substr(0, root)) || path[root - 1] == L':',
            "the root is no part of a name");
    require(path.starts_with(parent) && parent.size() >= root, "the parent begins the path, its root included");
    require(path.ends_with(name) && parent.size() + name.size() <= path.size(), "the name ends the path");
    require(name.find_first_of(L"\\/") == std::wstring::npos, "a name holds no separator");
    require(!base::isFullyQualified(path) || root >= 3, "a full path has a root");
    if (!name.empty()) {
        require(base::parentPath(base::withExtension(path, L".log")) == parent, "an extension changes no folder");
        require(base::fileName(base::joinPath(parent, name)) == name, "joining gives the name back");
        require(isLiteral(path) || (root > 0 && !endsInSeparator(path.substr(0, root))) ||
                    base::lexicallyNormal(base::joinPath(parent, name)) == base::lexicallyNormal(path),
                "joining gives the path back");
    }
}

// Behind the root there is a plain list of names, with ".." only at its start and only where it has somewhere to lead.
void checkComponents(const std::wstring& normal) {
    const size_t root = base::rootLength(normal);
    const bool rooted = root > 0 && normal[root - 1] == L'\\';
    bool onlyParents = true;
    for (size_t start = root; start < normal.size();) {
        const size_t end = std::min(normal.find(L'\\', start), normal.size());
        const std::wstring_view part = std::wstring_view(normal).substr(start, end - start);
        require(!part.empty(), "no empty component");
        require(part != L"." || normal == L"." ||
                    (start == 0 && testing_reference::beginsWithDrive(std::wstring_view(normal).substr(2))),
                "no needless \".\"");
        require(part != L".." || (onlyParents && !rooted), "no \"..\" behind a name or a root");
        onlyParents = onlyParents && part == L"..";
        start = end + 1;
    }
}

void checkNormalForm(const std::wstring& path) {
    const std::wstring normal = base::lexicallyNormal(fuzz::Unterminated(path).view());
    require(base::lexicallyNormal(normal) == normal, "the normal form is normal");
    require(normal.size() <= std::max<size_t>(path.size(), 1), "the normal form is not longer");
    if (!isLiteral(normal)) {
        require(normal.find(L'/') == std::wstring::npos, "the normal form has backslashes");
        require(base::rootLength(normal) == base::rootLength(path), "the root stays");
        checkComponents(normal);
    }
    const std::wstring extended = base::extendedLengthPath(path);
    require(extended == path || isLiteral(extended), "long paths are literal");
    require(base::extendedLengthPath(extended) == extended, "and stay so");
}

void checkFolderText(const std::wstring& text, const base::AbsolutePathFunction& absolute) {
    const std::wstring folder = base::normalizePathText(text, absolute);
    require(folder.empty() == base::trimmed(text).empty(), "empty for blank text only");
    require(folder.find(L'/') == std::wstring::npos, "folders have backslashes");
    require(folder.size() < 4 || folder.back() != L'\\', "no trailing separator");
    // A name that ends in a blank would be trimmed the second time.
    require(base::trimmed(folder) != folder || base::normalizePathText(folder, absolute) == folder, "the form is kept");
}

}  // namespace

// "|" and "<", which no path holds, are the prefixes of literal paths.
int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::wstring text = fuzz::withWords(fuzz::units(fuzz::bytes(data, size)), L'|', LR"(\\?\)");
    const std::wstring path = fuzz::withWords(text, L'<', LR"(\\?\UNC\)");
    checkParts(path);
    checkNormalForm(path);
    checkFolderText(path, testing_reference::absoluteInWorkFolder);
    checkFolderText(path, testing_reference::absoluteFails);
    return 0;
}
