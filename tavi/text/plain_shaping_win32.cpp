#include "tavi/text/glyph_run_win32.h"

namespace tavi {

ShapedText shapePlainly(std::wstring_view text, const std::shared_ptr<const FontFace>& face, bool rightToLeft) {
    ShapedText shaped{.ascent = face->ascent(), .descent = face->descent()};
    std::vector<int> ends(text.size());
    int fitting = 0;
    SIZE size{};
    const MeasuringDevice device;
    constexpr int kNoLimit = 0x7FFF'FFFF;
    GetTextExtentExPointW(device.with(face->handle()), text.data(), static_cast<int>(text.size()), kNoLimit, &fitting,
                          ends.data(), &size);
    const auto run = std::make_shared<GlyphRun>();
    run->face = face;
    run->plainText = text;
    int before = 0;
    for (const int end : ends) {
        shaped.units.push_back({.advance = end - before, .divisible = true});
        run->advances.push_back(end - before);
        before = end;
    }
    shaped.runs.push_back({0, text.size(), rightToLeft ? uint8_t{1} : uint8_t{0}, run});
    return shaped;
}

}  // namespace tavi
