// Fonts that skins name and Windows does not have: those in a folder of the program are there for this process alone.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tavi {

// True for ".ttf", ".otf", ".ttc" and ".otc" in either case.
bool isFontFile(std::wstring_view name);

// The fonts of a folder while this object lives. One that Windows does not take is left out, and Windows puts another
// in the place of a font that is missing.
class PrivateFonts {
public:
    PrivateFonts() = default;
    explicit PrivateFonts(const std::wstring& folder);
    PrivateFonts(const PrivateFonts&) = delete;
    PrivateFonts& operator=(const PrivateFonts&) = delete;
    ~PrivateFonts();

    // The files that were taken.
    const std::vector<std::wstring>& files() const { return files_; }

private:
    std::vector<std::wstring> files_;
};

// "fonts" beside the program.
std::wstring privateFontFolder();

}  // namespace tavi
