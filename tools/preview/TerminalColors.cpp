#include "tools/preview/TerminalColors.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdlib>

namespace qrtVistrelClasses4 {
namespace {

/// The usual look of the sixteen colours, in the order of their numbers.
constexpr std::array<Color, 16> kSixteen = {
    Rgb(0, 0, 0),       Rgb(205, 0, 0),   Rgb(0, 205, 0),   Rgb(205, 205, 0),
    Rgb(0, 0, 238),     Rgb(205, 0, 205), Rgb(0, 205, 205), Rgb(229, 229, 229),
    Rgb(127, 127, 127), Rgb(255, 0, 0),   Rgb(0, 255, 0),   Rgb(255, 255, 0),
    Rgb(92, 92, 255),   Rgb(255, 0, 255), Rgb(0, 255, 255), Rgb(255, 255, 255)};

std::size_t nearestOfSixteen(Color color) {
    if (color == 0)
        return 0;
    const auto* nearest = std::ranges::min_element(kSixteen.begin() + 1, kSixteen.end(), {},
                                                   [&](Color one) { return ColorDistance(one, color); });
    return static_cast<std::size_t>(nearest - kSixteen.begin());
}

/// Nearest of the 256 colours that is in the cube or gray. The first sixteen differ from user to user.
std::size_t nearestOfPalette(Color color) {
    constexpr std::array<std::uint8_t, 6> levels = {0, 95, 135, 175, 215, 255};
    constexpr std::size_t firstOfCube = 16, firstGray = 232;
    constexpr int darkestGray = 8, grayStep = 10, lastGray = 23;
    const auto nearestLevel = [&](int value) {
        return static_cast<std::size_t>(
            std::ranges::min_element(levels, {}, [&](int level) { return std::abs(level - value); }) -
            levels.begin());
    };
    const std::size_t red = nearestLevel(RedOf(color)), green = nearestLevel(GreenOf(color)),
                      blue = nearestLevel(BlueOf(color));
    const int mean = (RedOf(color) + GreenOf(color) + BlueOf(color)) / 3;
    const int gray = std::clamp((mean - darkestGray + grayStep / 2) / grayStep, 0, lastGray);
    const auto grayLevel = static_cast<std::uint8_t>(darkestGray + grayStep * gray);
    const bool isGray = ColorDistance(Rgb(grayLevel, grayLevel, grayLevel), color) <
                        ColorDistance(Rgb(levels[red], levels[green], levels[blue]), color);
    return isGray ? firstGray + static_cast<std::size_t>(gray) : firstOfCube + 36 * red + 6 * green + blue;
}

} // namespace

std::string ColorSequence(Ground ground, Color color, ColorDepth depth) {
    const bool isBack = ground == Ground::back;
    const std::string start = isBack ? "\x1b[48;" : "\x1b[38;";
    switch (depth) {
    case ColorDepth::none:
        return {};
    case ColorDepth::sixteen: {
        constexpr std::size_t dim = 30, bright = 90 - 8, fromLetterToBack = 10;
        const std::size_t number = nearestOfSixteen(color);
        return "\x1b[" +
               std::to_string(number + (number < 8 ? dim : bright) + (isBack ? fromLetterToBack : 0)) + "m";
    }
    case ColorDepth::palette:
        return start + "5;" + std::to_string(nearestOfPalette(color)) + "m";
    case ColorDepth::full:
        break;
    }
    return start + "2;" + std::to_string(RedOf(color)) + ";" + std::to_string(GreenOf(color)) + ";" +
           std::to_string(BlueOf(color)) + "m";
}

int ColorDistance(Color one, Color other) {
    const int red = RedOf(one) - RedOf(other), green = GreenOf(one) - GreenOf(other),
              blue = BlueOf(one) - BlueOf(other);
    return red * red + green * green + blue * blue;
}

} // namespace qrtVistrelClasses4
