#include "setup/dialog/setup_style_sheet.h"

#include <utility>

namespace velquin::setup {
namespace {

constexpr wchar_t kFontFamily[] = L"Bahnschrift";
constexpr int kFontPoints = 9;

tavi::SkinDefinition makeTheme() {
    tavi::SkinDefinition skin;
    skin.id = L"velquin-setup";
    skin.name = L"Velquin Setup";
    skin.useFrameworkDefaults = true;
    tavi::Theme& theme = skin.theme;
    theme.frame = 0x3880AC;
    theme.shell = 0x100B04;
    theme.panel = 0x1E1805;
    theme.header = 0x46420D;
    theme.control = 0x221C08;
    theme.controlHot = 0x656223;
    theme.controlPressed = 0x524D13;
    theme.border = 0x5C5B26;
    theme.accent = 0x4EA6E4;
    theme.accentHot = 0x60C3FA;
    theme.text = 0xE0E9D7;
    theme.textHot = 0xCCF3FF;
    theme.mutedText = 0xBEC49D;
    theme.disabledText = 0x7E8060;
    theme.uiFontFamily = kFontFamily;
    theme.uiPointSize = kFontPoints;
    theme.uiWeight = 400;
    theme.monoFontFamily = L"Cascadia Mono";
    theme.monoPointSize = 9;
    theme.monoWeight = 400;
    tavi::StyleProperties mono;
    mono.append("text.normal", "#B4EBDB");
    skin.styleOverrides.push_back({.controlType = "text", .variant = "mono", .properties = std::move(mono)});
    return skin;
}

}  // namespace

std::span<const tavi::StyleRule> setupStyleRules() {
    // The last variant of a row is the one whose look is derived from the theme when the skin has none of them: for
    // "primary" that of the main button, else the plain one.
    static const tavi::StyleRule kRules[] = {
        {L"vc-primary", L"button", {L"primary-action", L"primary"}},
        {L"vc-secondary", L"button", {L"secondary", L"default"}},
        {L"vc-danger", L"button", {L"danger", L"secondary", L"default"}},
        {L"vc-popup", L"popup", {L"default"}},
        {L"vc-chrome", L"chrometitlebar", {L"default"}},
        {L"vc-input", L"textinput", {L"default"}},
        {L"vc-check", L"checkbox", {L"default"}},
        {L"vc-label", L"text", {}, tavi::TextFont{kFontFamily, kFontPoints, 600}},
        {L"vc-muted", L"text", {}, tavi::TextFont{kFontFamily, 8, 400}},
    };
    return kRules;
}

const tavi::SkinDefinition& builtInSetupTheme() {
    static const tavi::SkinDefinition kTheme = makeTheme();
    return kTheme;
}

}  // namespace velquin::setup
