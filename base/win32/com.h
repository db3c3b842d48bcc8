// COM in the two forms this program needs: an apartment for the length of a call, and an owning interface pointer.
#pragma once

#include <windows.h>

#include <objbase.h>

#include <utility>

namespace base {

// Initialises COM as a single-threaded apartment and uninitialises it afterwards only if this call initialised it.
class ComApartment {
public:
    ComApartment() : result_(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)) {}
    ~ComApartment() {
        if (SUCCEEDED(result_)) {
            CoUninitialize();
        }
    }
    ComApartment(const ComApartment&) = delete;
    ComApartment& operator=(const ComApartment&) = delete;

    // RPC_E_CHANGED_MODE means that the thread has COM in another form, which serves as well.
    bool usable() const { return SUCCEEDED(result_) || result_ == RPC_E_CHANGED_MODE; }
    HRESULT result() const { return result_; }

private:
    HRESULT result_;
};

template <typename Interface>
class ComPtr {
public:
    ComPtr() = default;
    ~ComPtr() { reset(); }
    ComPtr(ComPtr&& other) noexcept : pointer_(std::exchange(other.pointer_, nullptr)) {}
    ComPtr& operator=(ComPtr&& other) noexcept {
        if (this != &other) {
            reset();
            pointer_ = std::exchange(other.pointer_, nullptr);
        }
        return *this;
    }
    ComPtr(const ComPtr&) = delete;
    ComPtr& operator=(const ComPtr&) = delete;

    Interface* operator->() const { return pointer_; }
    Interface* get() const { return pointer_; }
    explicit operator bool() const { return pointer_ != nullptr; }
    // For functions that store a new reference through a pointer; releases the one held.
    void** put() {
        reset();
        return reinterpret_cast<void**>(&pointer_);
    }
    void reset() {
        if (pointer_ != nullptr) {
            std::exchange(pointer_, nullptr)->Release();
        }
    }

private:
    Interface* pointer_ = nullptr;
};

}  // namespace base
