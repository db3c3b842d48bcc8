// "skin_tool check": reads catalogs as the programs do and tells what these keep to themselves.
#include <algorithm>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <numeric>
#include <optional>

#include "base/text.h"
#include "tavi/theme/control_types.h"
#include "tavi/theme/normalize_key.h"
#include "tavi/theme/skin_reader.h"
#include "tavi/theme/style_reader.h"
#include "tavi/theme/surface_properties.h"
#include "tools/skins/describe.h"

namespace skin_tool {
namespace {

// How many characters have to be put in, left out or changed to make one word of the other.
size_t distanceOf(std::string_view a, std::string_view b) {
    std::vector<size_t> row(b.size() + 1);
    std::iota(row.begin(), row.end(), size_t{0});
    for (size_t i = 0; i < a.size(); ++i) {
        size_t diagonal = row[0]++;
        for (size_t j = 0; j < b.size(); ++j) {
            const size_t changed = diagonal + (a[i] == b[j] ? 0 : 1);
            diagonal = row[j + 1];
            row[j + 1] = std::min({row[j] + 1, row[j + 1] + 1, changed});
        }
    }
    return row.back();
}

// ", did you mean "…"?" with the nearest of some words, if one is near.
std::string suggestion(std::string_view word, const std::vector<std::string_view>& known) {
    std::string_view best;
    size_t least = std::max<size_t>(word.size() / 2, 2) + 1;
    for (const std::string_view each : known) {
        const size_t distance = distanceOf(word, each);
        if (distance < least) {
            least = distance;
            best = each;
        }
    }
    return best.empty() ? "" : "; did you mean \"" + std::string(best) + "\"?";
}

std::string valueText(base::Json value) {
    constexpr size_t kMost = 60;
    if (const auto text = value.string()) {
        return "\"" + std::string(text->substr(0, kMost)) + "\"";
    }
    if (const auto number = value.number()) {
        return tavi::numberText(*number);
    }
    if (const auto boolean = value.boolean()) {
        return *boolean ? "true" : "false";
    }
    return !value ? "missing" : value.array() ? "a list" : value.object() ? "an object" : "null";
}

std::string pathText(const tavi::SkinPlace& place) {
    const std::string around = place.around != nullptr ? pathText(*place.around) : "";
    return around + (around.empty() || place.key.empty() ? "" : ".") + std::string(place.key);
}

class Checker : public tavi::SkinReadListener {
public:
    explicit Checker(std::string file) : file_(std::move(file)) {}

    int problems() const { return problems_; }
    void say(const std::string& text) {
        ++problems_;
        std::printf("%s: %s%s\n", file_.c_str(), skin_.c_str(), text.c_str());
    }
    // `reading` is that of the whole file.
    void checkSkin(base::Json value, size_t index, tavi::SkinReading& reading) {
        const auto id = value.find("id").string();
        skin_ = (id && !id->empty() ? std::string(*id) : "skin " + std::to_string(index + 1)) + ": ";
        reading.listener = this;
        if (!value.object()) {
            say("is " + valueText(value) + "; an object is expected");
        } else if (const auto skin = tavi::parseSkin(value, reading)) {
            std::ranges::for_each(skin->styleOverrides, [this](const auto& style) { checkStyle(style); });
        }
        skin_.clear();
    }

    void unknownKey(const tavi::SkinPlace& place, base::Json, const tavi::SpellingIndex& known) override {
        // Editors look for the schema there.
        if (place.around != nullptr && place.around->around == nullptr && place.key == "$schema") {
            return;
        }
        say(pathText(place) + ": no such key" + suggestion(place.key, known.names()));
    }
    void secondSpelling(const tavi::SkinPlace& place, base::Json value) override {
        say(pathText(place) + ": " + valueText(value) + " does not count; another spelling of the key does");
    }
    void unfitValue(const tavi::SkinPlace& place, base::Json value, tavi::ValueType expected) override {
        say(pathText(place) + ": " + valueText(value) + " is not " + describeType(expected));
    }
    void wrongKind(const tavi::SkinPlace& place, base::Json value, std::string_view expected) override {
        say(pathText(place) + ": " + valueText(value) + "; expected is " + std::string(expected));
    }

private:
    void checkStyle(const tavi::StyleOverride& style) {
        const std::string place = "styles." + style.controlType + "." + style.variant;
        checkVariant(style, place);
        for (const auto [path, value] : style.properties) {
            const std::string name = place + "." + std::string(path);
            const WrongSegment wrong =
                wrongSegment(tavi::canonicalControlType(std::string_view(style.controlType)), path);
            const auto target = stylePath(path);
            if (!wrong.known.empty() || !target) {
                // Controls of a program's own may read more than the framework's.
                const std::vector<std::string_view> known(wrong.known.begin(), wrong.known.end());
                std::printf("%s: %s%s: warning: no control reads it%s\n", file_.c_str(), skin_.c_str(), name.c_str(),
                            suggestion(wrong.segment, known).c_str());
            } else if (!fits(*target, value)) {
                say(name + ": \"" + std::string(value) + "\" is not " + describeType(target->type));
            }
        }
    }

    void checkVariant(const tavi::StyleOverride& style, const std::string& place) {
        const std::string_view canonical = tavi::canonicalControlType(std::string_view(style.controlType));
        std::vector<std::string_view> types;
        for (const tavi::ControlTypeRow& row : tavi::controlTypes()) {
            if (firstName(row.names) == canonical) {
                const auto variants = tavi::spellings(row.variants);
                const auto isVariant = [&](std::string_view each) { return folded(each) == folded(style.variant); };
                if (std::ranges::none_of(variants, isVariant)) {
                    say(place + ": no such variant" + suggestion(style.variant, variants));
                }
                return;
            }
            std::ranges::copy(tavi::spellings(row.names), std::back_inserter(types));
        }
        say(place + ": no such control type" + suggestion(style.controlType, types));
    }

    // As variants are compared.
    static std::string folded(std::string_view name) {
        std::string result;
        tavi::appendNormalizedKey(result, name);
        return result;
    }

    static bool fits(const StylePath& target, std::string_view value) {
        if (!target.property.empty()) {
            tavi::SurfaceStyle scratch;
            return tavi::setSurfaceProperty(scratch, target.property, value);
        }
        return target.type.kind == tavi::ValueKind::kColor ? tavi::colorFromText(value).has_value()
                                                           : tavi::integerFromText(value).has_value();
    }

    std::string file_;
    std::string skin_;
    int problems_ = 0;
};

std::string positionText(std::string_view bytes, size_t offset) {
    const std::string_view before = bytes.substr(0, offset);
    const size_t lineStart = before.rfind('\n') + 1;
    return "line " + std::to_string(std::ranges::count(before, '\n') + 1) + ", column " +
           std::to_string(base::toWide(before.substr(lineStart)).size() + 1);
}

// 0 when there is nothing to tell, 1 when there is, 2 when the file cannot be read.
int checkFile(const std::string& name) {
    std::ifstream file(name, std::ios::binary);
    const std::string bytes(std::istreambuf_iterator<char>(file), {});
    if (!file) {
        std::fprintf(stderr, "%s: cannot be read\n", name.c_str());
        return 2;
    }
    Checker checker(name);
    const auto document = base::parseJson(bytes);
    if (!document) {
        checker.say(positionText(bytes, document.error().offset) + ": " + narrow(document.error().reason));
        return 1;
    }
    const std::vector<base::Json> skins = tavi::skinsOf(document->root());
    if (skins.empty()) {
        checker.say("holds no skin");
    }
    tavi::SkinReading reading{.styleBytes = bytes.size() * tavi::kStyleBytesPerByte};
    for (size_t i = 0; i < skins.size(); ++i) {
        checker.checkSkin(skins[i], i, reading);
    }
    if (reading.styleBytes == 0) {
        checker.say("has more styles than programs keep; the last ones are left out");
    }
    return checker.problems() > 0 ? 1 : 0;
}

}  // namespace

int checkFiles(const std::vector<std::string>& files) {
    int worst = 0;
    for (const std::string& file : files) {
        worst = std::max(worst, checkFile(file));
    }
    return worst;
}

}  // namespace skin_tool
