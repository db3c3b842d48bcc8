// Owning types for what Windows hands out: each closes its handle exactly once and can be moved, not copied.
#pragma once

#include <windows.h>

#include <utility>

namespace base {

// Traits names the handle type, the value that means "none" and how to close one.
template <typename Traits>
class Unique {
public:
    using Handle = typename Traits::Handle;

    Unique() = default;
    explicit Unique(Handle handle) : handle_(handle) {}
    Unique(Unique&& other) noexcept : handle_(std::exchange(other.handle_, Traits::none())) {}
    Unique& operator=(Unique&& other) noexcept {
        if (this != &other) {
            reset(std::exchange(other.handle_, Traits::none()));
        }
        return *this;
    }
    Unique(const Unique&) = delete;
    Unique& operator=(const Unique&) = delete;
    ~Unique() { reset(); }

    Handle get() const { return handle_; }
    explicit operator bool() const { return handle_ != Traits::none(); }
    void reset(Handle handle = Traits::none()) {
        if (handle_ != Traits::none()) {
            Traits::close(handle_);
        }
        handle_ = handle;
    }
    // For functions that store a new handle through a pointer; closes the one held.
    Handle* put() {
        reset();
        return &handle_;
    }

private:
    Handle handle_ = Traits::none();
};

struct KernelHandleTraits {
    using Handle = HANDLE;
    static Handle none() { return nullptr; }
    static void close(Handle handle) { CloseHandle(handle); }
};
// Processes, threads, tokens, events, mutexes.
using UniqueHandle = Unique<KernelHandleTraits>;

struct FileHandleTraits {
    using Handle = HANDLE;
    static Handle none() { return INVALID_HANDLE_VALUE; }
    static void close(Handle handle) { CloseHandle(handle); }
};
// What CreateFileW and the tool-help snapshot give: their "none" is INVALID_HANDLE_VALUE.
using UniqueFile = Unique<FileHandleTraits>;

struct FindHandleTraits {
    using Handle = HANDLE;
    static Handle none() { return INVALID_HANDLE_VALUE; }
    static void close(Handle handle) { FindClose(handle); }
};
using UniqueFind = Unique<FindHandleTraits>;

struct RegistryKeyTraits {
    using Handle = HKEY;
    static Handle none() { return nullptr; }
    static void close(Handle key) { RegCloseKey(key); }
};
using UniqueRegistryKey = Unique<RegistryKeyTraits>;

}  // namespace base
