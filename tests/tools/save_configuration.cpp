// Saves a configuration whose texts are all one letter, so that a mixture of two would show:
//   save_configuration FILE LETTER SIZE    once; exit code 0 when it was saved
//   save_configuration FILE forever SIZE   "a" and "b" in turn, until it is killed
#include <windows.h>

#include "core/configuration.h"

namespace {

bool save(const wchar_t* file, wchar_t letter, size_t size) {
    velquin::ProductConfig config;
    const std::wstring text(size, letter);
    config.veraCryptPath = config.language = config.skinId = config.performanceProfile = config.updatedUtc = text;
    config.mountOptions = {text};
    return velquin::saveProductConfig(config, file);
}

}  // namespace

int wmain(int count, wchar_t** arguments) {
    if (count != 4) {
        return 2;
    }
    const auto size = static_cast<size_t>(_wtoi(arguments[3]));
    const wchar_t first = arguments[2][0];
    if (first != L'f') {
        return save(arguments[1], first, size) ? 0 : 1;
    }
    for (wchar_t letter = L'a';; letter = letter == L'a' ? L'b' : L'a') {
        save(arguments[1], letter, size);
    }
}
