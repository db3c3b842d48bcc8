// Windows paths as text: taking apart, joining and normalising, without asking any file system. A path is a wide
// string; both separators are understood, backslashes are written.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace base {

// The length of the root: "C:\" 3, "C:" 2, "\\server\share\" with its separator, "\\?\C:\" and so on; 0 for a relative
// path.
size_t rootLength(std::wstring_view path);

// True for a path with a drive and a root folder, or for a network path with a server and a share.
bool isFullyQualified(std::wstring_view path);

// `folder` and `name` with one separator between them. An empty folder gives the name.
std::wstring joinPath(std::wstring_view folder, std::wstring_view name);

// The folder that holds the path's last component, without a trailing separator; the root for what lies in a root;
// empty where there is none.
std::wstring parentPath(std::wstring_view path);

// The last component, empty for a root or a path that ends in a separator.
std::wstring fileName(std::wstring_view path);

// The path with the extension of its file name (from its last dot, if that is not its first character) replaced.
std::wstring withExtension(std::wstring_view path, std::wstring_view extension);

// The lexically normal form: one separator between components, no ".", no ".." that a component before it answers. Only
// a relative path whose first component then reads like a drive keeps a "." before it.
// Paths that begin with "\\?\" are taken literally by Windows and come back unchanged.
std::wstring lexicallyNormal(std::wstring_view path);

// Makes a path absolute, or answers nothing when that fails.
using AbsolutePathFunction = std::function<std::optional<std::wstring>(const std::wstring&)>;

// The form in which this program keeps folders: trimmed, with backslashes, absolute, lexically normal, and without
// trailing separators while it is at least four characters long. Empty for blank text.
std::wstring normalizePathText(std::wstring_view text, const AbsolutePathFunction& absolute);

// The form that Windows calls accept beyond 259 characters: "\\?\" before a drive path, "\\?\UNC\" before a network
// path. Shorter and relative paths come back unchanged.
std::wstring extendedLengthPath(std::wstring_view path);

}  // namespace base
