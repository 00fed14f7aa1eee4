#include "tools/preview/TerminalPicture.h"

#include <algorithm>
#include <optional>

namespace qrtVistrelClasses4 {
namespace {

constexpr Color kDarkDot = Rgb(30, 29, 28);

constexpr const char* kLetterColor = "\x1b[38;2;";
constexpr const char* kBackColor = "\x1b[48;2;";
constexpr const char* kUsualColors = "\x1b[0m";
constexpr const char* kUpperHalf = "\xe2\x96\x80";

/// Sets one of the terminal's two colours when it changes.
void setColor(std::ostream& out, const char* which, Color dot, std::optional<Color>& current) {
    const Color color = dot == 0 ? kDarkDot : dot;
    if (current == color)
        return;
    current = color;
    out << which << int{RedOf(color)} << ';' << int{GreenOf(color)} << ';' << int{BlueOf(color)} << 'm';
}

char letterFor(Color dot) {
    constexpr int half = 128;
    const int brightness = std::max({RedOf(dot), GreenOf(dot), BlueOf(dot)});
    return dot == 0 ? '.' : brightness < half ? '+' : '#';
}

} // namespace

void PrintColoredDots(std::ostream& out, const Raster& dots) {
    for (std::int32_t y = 0; y < dots.height(); y += 2) {
        std::optional<Color> letter, back;
        for (std::int32_t x = 0; x < dots.width(); ++x) {
            const auto column = static_cast<std::size_t>(x);
            setColor(out, kLetterColor, dots.row(y)[column], letter);
            if (y + 1 < dots.height())
                setColor(out, kBackColor, dots.row(y + 1)[column], back);
            out << kUpperHalf;
        }
        out << kUsualColors << '\n';
    }
}

void PrintPlainDots(std::ostream& out, const Raster& dots) {
    for (std::int32_t y = 0; y < dots.height(); ++y) {
        for (const Color dot : dots.row(y))
            out << letterFor(dot);
        out << '\n';
    }
}

} // namespace qrtVistrelClasses4
