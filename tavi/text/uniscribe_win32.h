// Uniscribe's functions, loaded on first use.
#pragma once

#include <windows.h>

#include <usp10.h>

namespace tavi {

struct Uniscribe {
    decltype(&ScriptItemize) itemize = nullptr;
    decltype(&ScriptGetProperties) properties = nullptr;
    decltype(&ScriptShape) shape = nullptr;
    decltype(&ScriptPlace) place = nullptr;
    decltype(&ScriptBreak) breakWords = nullptr;
    decltype(&ScriptTextOut) textOut = nullptr;
    decltype(&ScriptGetFontProperties) fontProperties = nullptr;
    decltype(&ScriptFreeCache) freeCache = nullptr;

    bool isComplete() const {
        return itemize != nullptr && properties != nullptr && shape != nullptr && place != nullptr &&
               breakWords != nullptr && textOut != nullptr && fontProperties != nullptr && freeCache != nullptr;
    }
};
const Uniscribe& uniscribe();

}  // namespace tavi
