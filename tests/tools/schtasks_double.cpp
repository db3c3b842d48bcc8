// A double of schtasks.exe that keeps a small task list in C:\doubles\tasks.txt, a line "name<TAB>command" each. A
// script line "exit N" fails a call with N, "sleep MS" delays it.
#include <windows.h>

#include <algorithm>

#include "double.h"

namespace {

std::wstring valueOf(const std::vector<std::wstring>& arguments, const std::wstring& option) {
    const auto found = std::ranges::find(arguments, option);
    return found != arguments.end() && found + 1 != arguments.end() ? found[1] : L"";
}

int perform(const std::vector<std::wstring>& arguments) {
    const auto has = [&arguments](const wchar_t* option) {
        return std::ranges::find(arguments, option) != arguments.end();
    };
    const std::wstring name = valueOf(arguments, L"/TN");
    std::vector<std::wstring> tasks = doubles::readLines(L"tasks.txt");
    const auto known =
        std::ranges::find_if(tasks, [&name](const std::wstring& line) { return line.starts_with(name + L"\t"); });
    if (has(L"/Query")) {
        return known != tasks.end() ? 0 : 1;
    }
    if (known != tasks.end()) {
        tasks.erase(known);
    } else if (has(L"/Delete")) {
        return 1;
    }
    if (has(L"/Create")) {
        tasks.push_back(name + L"\t" + valueOf(arguments, L"/TR"));
    }
    doubles::writeLines(L"tasks.txt", tasks);
    return 0;
}

}  // namespace

int wmain(int argc, wchar_t** argv) {
    const std::vector<std::wstring> words = doubles::beginCall(L"schtasks");
    for (size_t i = 0; i + 1 < words.size(); ++i) {
        if (words[i] == L"sleep") {
            Sleep(static_cast<DWORD>(std::stoul(words[i + 1])));
        } else if (words[i] == L"exit") {
            return std::stoi(words[i + 1]);
        }
    }
    return perform({argv, argv + argc});
}
