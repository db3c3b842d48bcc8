// Functions from DLLs that Windows does not pin (KnownDLLs). They are never imported statically, where a planted DLL
// beside the program would win, but loaded from System32 on first use.
#pragma once

#include <windows.h>

#include <bit>

namespace base {

// One DLL of System32, loaded on the first question and kept for the life of the process.
class SystemLibrary {
public:
    explicit SystemLibrary(const wchar_t* fileName) : fileName_(fileName) {}

    // The function, or null when the DLL or the function is not there. `Function` is the function's own type:
    // library.function<decltype(MsiEnumRelatedProductsW)>("MsiEnumRelatedProductsW").
    template <typename Function>
    Function* function(const char* name) {
        if (module_ == nullptr) {
            module_ = LoadLibraryExW(fileName_, nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
        }
        return module_ != nullptr ? std::bit_cast<Function*>(GetProcAddress(module_, name)) : nullptr;
    }

private:
    const wchar_t* fileName_;
    HMODULE module_ = nullptr;
};

}  // namespace base
