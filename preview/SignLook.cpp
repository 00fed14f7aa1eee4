#include <qrtVistrelClasses4/SignLook.h>

#include "platform/LetterCase.h"
#include <qrtVistrelClasses4/DisplayRecord.h>

#include <algorithm>
#include <iterator>
#include <string_view>

namespace qrtVistrelClasses4 {
namespace {

struct NamedColor {
    std::string_view name;
    Color color;
};

constexpr NamedColor kLedColors[] = {
    {"Amber", kAmber},
    {"Red", Rgb(255, 40, 30)},
    {"Green", Rgb(60, 255, 70)},
    {"Yellow", Rgb(255, 225, 40)},
    {"Orange", Rgb(255, 120, 0)},
    {"Blue", Rgb(60, 120, 255)},
    {"White", Rgb(255, 250, 240)},
};

Color ledColor(std::string_view name) {
    const auto* const found =
        std::find_if(std::begin(kLedColors), std::end(kLedColors),
                     [&](const NamedColor& it) { return EqualIgnoringAsciiCase(it.name, name); });
    return found == std::end(kLedColors) ? kAmber : found->color;
}

} // namespace

Color SignLook::dimmed() const {
    const auto half = [](std::uint8_t channel) { return static_cast<std::uint8_t>(channel / 2); };
    return Rgb(half(RedOf(color)), half(GreenOf(color)), half(BlueOf(color)));
}

SignLook SignLookOf(const DisplayRecord& sign) {
    SignLook look;
    look.color = ledColor(sign.DefaultColor);
    look.showsColors = sign.IsDisplayColor;
    look.type = sign.DisplayType;
    if (sign.DisplayWidth >= 1 && sign.DisplayHeight >= 1)
        look.size = DotSize{sign.DisplayWidth, sign.DisplayHeight};
    return look;
}

std::vector<std::string_view> LedColorNames() {
    std::vector<std::string_view> names;
    std::ranges::transform(kLedColors, std::back_inserter(names), &NamedColor::name);
    return names;
}

} // namespace qrtVistrelClasses4
