// A file that will be run or installed with administrator rights and stands where others may write. It is written to a
// new file, closed, reopened so that nobody can change, rename or delete it, and compared with its source through that
// very handle. Or it is there already and is held so, to be checked. While the object lives, what stands at path() is
// what was written.
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "base/win32/unique_handle.h"

namespace base {

class HeldFile {
public:
    enum class Failure { none, linkInPath, open, write, changed };

    HeldFile() = default;

    // Writes `bytes` to `path`, in folders that it makes. Everything between `base` (a folder above `path`) and the
    // file has to be plain folders: a link there is a failure, since it could be turned elsewhere while the file is in
    // use. path() is then where the file really lies, with links above `base` followed. On failure nothing is held,
    // path() is as given, and GetLastError() tells more.
    static HeldFile write(const std::wstring& base, const std::wstring& path, std::span<const std::byte> bytes);

    // Holds a file that is there, to be checked through handle() and then used at path(), where it really lies: all
    // links above it are followed once. The file itself must not be a link.
    static HeldFile open(const std::wstring& path);

    HANDLE handle() const { return file_.get(); }
    Failure failure() const { return failure_; }
    explicit operator bool() const { return static_cast<bool>(file_); }
    const std::wstring& path() const { return path_; }
    void release() { file_.reset(); }

private:
    static HeldFile refused(const std::wstring& path, Failure failure, DWORD error);

    std::wstring path_;
    UniqueFile file_;
    Failure failure_ = Failure::none;
};

// All bytes of a file, or nothing when it cannot be read. Writers are denied while it is read.
std::optional<std::vector<std::byte>> readWholeFile(const std::wstring& path);

}  // namespace base
