#include "tavi/text/font_fallback.h"

#include <algorithm>

#include "tavi/text/character_traits.h"

namespace tavi {
namespace {

enum class Script : uint8_t {
    kHebrew,
    kArabic,
    kSyriac,
    kThaana,
    kNko,
    kDevanagari,
    kBengali,
    kGurmukhi,
    kGujarati,
    kOriya,
    kTamil,
    kTelugu,
    kKannada,
    kMalayalam,
    kSinhala,
    kThai,
    kLao,
    kTibetan,
    kMyanmar,
    kArmenian,
    kGeorgian,
    kHangul,
    kEthiopic,
    kCherokee,
    kCanadian,
    kKhmer,
    kMongolian,
    kTifinagh,
    kVai,
    kYi,
    kJavanese,
    kKana,
    kBopomofo,
    kHan,
    kSymbol,
};

// In the order of the enumeration.
constexpr FallbackFonts kFonts[] = {
    {L"Segoe UI|Noto Sans Hebrew", ""},
    {L"Segoe UI|Noto Sans Arabic|Noto Naskh Arabic", "arab"},
    {L"Segoe UI Historic|Estrangelo Edessa|Noto Sans Syriac", "syrc"},
    {L"MV Boli|Noto Sans Thaana", ""},
    {L"Ebrima|Noto Sans NKo", "nko "},
    {L"Nirmala UI|Mangal|Noto Sans Devanagari", "dev2deva"},
    {L"Nirmala UI|Vrinda|Noto Sans Bengali", "bng2beng"},
    {L"Nirmala UI|Raavi|Noto Sans Gurmukhi", "gur2guru"},
    {L"Nirmala UI|Shruti|Noto Sans Gujarati", "gjr2gujr"},
    {L"Nirmala UI|Kalinga|Noto Sans Oriya", "ory2orya"},
    {L"Nirmala UI|Latha|Noto Sans Tamil", "tml2taml"},
    {L"Nirmala UI|Gautami|Noto Sans Telugu", "tel2telu"},
    {L"Nirmala UI|Tunga|Noto Sans Kannada", "knd2knda"},
    {L"Nirmala UI|Kartika|Noto Sans Malayalam", "mlm2mlym"},
    {L"Nirmala UI|Iskoola Pota|Noto Sans Sinhala", "sinh"},
    {L"Leelawadee UI|Noto Sans Thai", ""},
    {L"Leelawadee UI|Noto Sans Lao", ""},
    {L"Microsoft Himalaya|Noto Serif Tibetan", "tibt"},
    {L"Myanmar Text|Noto Sans Myanmar", "mym2mymr"},
    {L"Segoe UI|Sylfaen|Noto Sans Armenian", ""},
    {L"Segoe UI|Sylfaen|Noto Sans Georgian", ""},
    {L"Malgun Gothic|Noto Sans CJK KR", ""},
    {L"Ebrima|Nyala|Noto Sans Ethiopic", ""},
    {L"Gadugi|Plantagenet Cherokee|Noto Sans Cherokee", ""},
    {L"Gadugi|Euphemia|Noto Sans CanAborig|Noto Sans Canadian Aboriginal", ""},
    {L"Leelawadee UI|Khmer UI|Noto Sans Khmer", "khmr"},
    {L"Mongolian Baiti|Noto Sans Mongolian", "mong"},
    {L"Ebrima|Noto Sans Tifinagh", ""},
    {L"Ebrima|Noto Sans Vai", ""},
    {L"Microsoft Yi Baiti|Noto Sans Yi", ""},
    {L"Javanese Text|Noto Sans Javanese", "java"},
    {L"Yu Gothic UI|Meiryo UI|Noto Sans CJK JP", ""},
    {L"Microsoft JhengHei UI|Noto Sans CJK TC", ""},
    {},  // by the form of the ideographs
    {L"Segoe UI Symbol|Segoe UI Emoji|Noto Sans Symbols2|Noto Sans Symbols|Noto Sans Math", ""},
};

// In the order of HanForm.
constexpr FallbackFonts kHanFonts[] = {
    {L"Microsoft YaHei UI|Microsoft JhengHei UI|Noto Sans CJK SC", ""},
    {L"Microsoft JhengHei UI|Microsoft YaHei UI|Noto Sans CJK TC", ""},
    {L"Yu Gothic UI|Meiryo UI|Microsoft YaHei UI|Noto Sans CJK JP", ""},
    {L"Malgun Gothic|Microsoft YaHei UI|Noto Sans CJK KR", ""},
};

struct Block {
    char32_t first;
    char32_t last;
    Script script;
};
// Ascending.
constexpr Block kBlocks[] = {
    {0x0530, 0x058F, Script::kArmenian}, {0x0590, 0x05FF, Script::kHebrew},    {0x0600, 0x06FF, Script::kArabic},
    {0x0700, 0x074F, Script::kSyriac},   {0x0750, 0x077F, Script::kArabic},    {0x0780, 0x07BF, Script::kThaana},
    {0x07C0, 0x07FF, Script::kNko},      {0x0870, 0x08FF, Script::kArabic},    {0x0900, 0x097F, Script::kDevanagari},
    {0x0980, 0x09FF, Script::kBengali},  {0x0A00, 0x0A7F, Script::kGurmukhi},  {0x0A80, 0x0AFF, Script::kGujarati},
    {0x0B00, 0x0B7F, Script::kOriya},    {0x0B80, 0x0BFF, Script::kTamil},     {0x0C00, 0x0C7F, Script::kTelugu},
    {0x0C80, 0x0CFF, Script::kKannada},  {0x0D00, 0x0D7F, Script::kMalayalam}, {0x0D80, 0x0DFF, Script::kSinhala},
    {0x0E00, 0x0E7F, Script::kThai},     {0x0E80, 0x0EFF, Script::kLao},       {0x0F00, 0x0FFF, Script::kTibetan},
    {0x1000, 0x109F, Script::kMyanmar},  {0x10A0, 0x10FF, Script::kGeorgian},  {0x1100, 0x11FF, Script::kHangul},
    {0x1200, 0x139F, Script::kEthiopic}, {0x13A0, 0x13FF, Script::kCherokee},  {0x1400, 0x167F, Script::kCanadian},
    {0x1780, 0x17FF, Script::kKhmer},    {0x1800, 0x18AF, Script::kMongolian}, {0x18B0, 0x18FF, Script::kCanadian},
    {0x19E0, 0x19FF, Script::kKhmer},    {0x1C90, 0x1CBF, Script::kGeorgian},  {0x1CD0, 0x1CFF, Script::kDevanagari},
    {0x2190, 0x2BFF, Script::kSymbol},   {0x2D00, 0x2D2F, Script::kGeorgian},  {0x2D30, 0x2D7F, Script::kTifinagh},
    {0x2D80, 0x2DDF, Script::kEthiopic}, {0x2E80, 0x303F, Script::kHan},       {0x3040, 0x30FF, Script::kKana},
    {0x3100, 0x312F, Script::kBopomofo}, {0x3130, 0x318F, Script::kHangul},    {0x31A0, 0x31BF, Script::kBopomofo},
    {0x31C0, 0x31EF, Script::kHan},      {0x31F0, 0x31FF, Script::kKana},      {0x3200, 0x9FFF, Script::kHan},
    {0xA000, 0xA4CF, Script::kYi},       {0xA500, 0xA63F, Script::kVai},       {0xA8E0, 0xA8FF, Script::kDevanagari},
    {0xA960, 0xA97F, Script::kHangul},   {0xA980, 0xA9DF, Script::kJavanese},  {0xA9E0, 0xA9FF, Script::kMyanmar},
    {0xAA60, 0xAA7F, Script::kMyanmar},  {0xAB00, 0xAB2F, Script::kEthiopic},  {0xAB70, 0xABBF, Script::kCherokee},
    {0xAC00, 0xD7FF, Script::kHangul},   {0xF900, 0xFAFF, Script::kHan},       {0xFB13, 0xFB17, Script::kArmenian},
    {0xFB1D, 0xFB4F, Script::kHebrew},   {0xFB50, 0xFDFF, Script::kArabic},    {0xFE30, 0xFE4F, Script::kHan},
    {0xFE70, 0xFEFC, Script::kArabic},   {0xFF00, 0xFF65, Script::kHan},       {0xFF66, 0xFF9F, Script::kKana},
    {0xFFA0, 0xFFDF, Script::kHangul},   {0xFFE0, 0xFFEF, Script::kHan},       {0x1F000, 0x1FAFF, Script::kSymbol},
    {0x20000, 0x3FFFF, Script::kHan},
};

const Block* blockOf(char32_t character) {
    const auto* const beyond = std::ranges::upper_bound(kBlocks, character, {}, &Block::first);
    return beyond != kBlocks && character <= (beyond - 1)->last ? beyond - 1 : nullptr;
}

}  // namespace

HanForm hanFormOf(std::wstring_view text) {
    HanForm form = HanForm::kSimplified;
    for (size_t at = 0; at < text.size();) {
        const CodePoint character = codePointAt(text, at);
        at += character.length;
        const Block* const block = character.value >= 0x1100 ? blockOf(character.value) : nullptr;
        if (block == nullptr) {
            continue;
        }
        switch (block->script) {
            case Script::kKana:
                return HanForm::kJapanese;
            case Script::kHangul:
                form = HanForm::kKorean;
                break;
            case Script::kBopomofo:
                form = HanForm::kTraditional;
                break;
            default:
                break;
        }
    }
    return form;
}

std::wstring_view substituteFamilies(std::wstring_view family) {
    const bool isForCode = family.find(L"Mono") != std::wstring_view::npos;
    return isForCode ? L"Cascadia Mono|Consolas|Courier New" : L"Segoe UI";
}

FallbackFonts fallbackFonts(char32_t character, HanForm han) {
    const Block* const block = blockOf(character);
    if (block == nullptr) {
        return {};
    }
    return block->script == Script::kHan ? kHanFonts[static_cast<size_t>(han)]
                                         : kFonts[static_cast<size_t>(block->script)];
}

}  // namespace tavi
