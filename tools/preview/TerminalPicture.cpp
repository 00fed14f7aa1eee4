#include "tools/preview/TerminalPicture.h"

#include "tools/preview/TerminalColors.h"
#include "tools/program/Screen.h"

#include <algorithm>
#include <array>
#include <limits>
#include <optional>
#include <string>

namespace qrtVistrelClasses4 {
namespace {

constexpr Color kDarkDot = Rgb(30, 29, 28);
constexpr Color kLetterOfDarkDot = Rgb(127, 127, 127);
constexpr int kHalfBrightness = 128;

int brightnessOf(Color dot) { return std::max({RedOf(dot), GreenOf(dot), BlueOf(dot)}); }

/// How a picture fits on a screen.
struct Fit {
    std::int32_t across; ///< Dots side by side in a character.
    std::int32_t width;  ///< Dots of a row that are printed.
};

Fit fitOf(std::int32_t width, const Screen& screen) {
    constexpr std::size_t widest = std::numeric_limits<std::int32_t>::max() / 2;
    const auto columns = static_cast<std::int32_t>(std::min(screen.columns.value_or(widest), widest));
    const std::int32_t across = screen.hasSymbols && width > columns ? 2 : 1;
    return {across, std::min(width, across * columns)};
}

/// A line of characters in colours.
class Line {
public:
    explicit Line(ColorDepth depth) : depth_(depth) {}

    void set(Ground ground, Color color) {
        std::optional<Color>& current = ground == Ground::letter ? letter_ : back_;
        if (current != color)
            text_ += ColorSequence(ground, color, depth_);
        current = color;
    }
    void add(std::string_view character) { text_ += character; }

    friend std::ostream& operator<<(std::ostream& out, const Line& line) {
        if (line.depth_ != ColorDepth::none)
            return out << line.text_ << kUsualColors << '\n';
        return out << std::string_view(line.text_).substr(0, line.text_.find_last_not_of(' ') + 1) << '\n';
    }

private:
    ColorDepth depth_;
    std::string text_;
    std::optional<Color> letter_, back_;
};

/// Upper left, upper right, lower left and lower right dot of a character. Two that show the same dot are
/// equal.
using Quarters = std::array<Color, 4>;

Quarters quartersAt(const Raster& dots, std::int32_t x, std::int32_t y, const Fit& fit) {
    const auto dot = [&](std::int32_t column, std::int32_t row) {
        return column < fit.width && row < dots.height() ? dots.row(row)[static_cast<std::size_t>(column)]
                                                         : 0;
    };
    const std::int32_t right = x + fit.across - 1;
    return {dot(x, y), dot(right, y), dot(x, y + 1), dot(right, y + 1)};
}

/// The block element that covers the quarters for which `isCovered` is true.
template <class IsCovered>
std::string_view blockOver(const Quarters& quarters, IsCovered isCovered) {
    constexpr std::array<std::string_view, 16> blocks = {" ", "▘", "▝", "▀", "▖", "▌", "▞", "▛",
                                                         "▗", "▚", "▐", "▜", "▄", "▙", "▟", "█"};
    std::size_t covered = 0;
    for (std::size_t i = 0; i < quarters.size(); ++i)
        covered |= static_cast<std::size_t>(isCovered(quarters[i])) << i;
    return blocks[covered];
}

/// A character has two colours: the darkest one and the one that differs most from it.
void addColored(Line& line, Quarters quarters, Color darkDot) {
    std::ranges::replace(quarters, 0U, darkDot);
    const Color back = std::ranges::min(quarters, {}, &brightnessOf);
    const Color letter = std::ranges::max(quarters, {}, [&](Color dot) { return ColorDistance(dot, back); });
    line.set(Ground::back, back);
    if (letter != back)
        line.set(Ground::letter, letter);
    line.add(blockOver(quarters,
                       [&](Color dot) { return ColorDistance(dot, letter) < ColorDistance(dot, back); }));
}

/// Without colours, dots that are lit to less than half are seen only beside no others.
void addPlain(Line& line, const Quarters& quarters) {
    const auto isBright = [](Color dot) { return brightnessOf(dot) >= kHalfBrightness; };
    const bool isDim = std::ranges::none_of(quarters, isBright) && quarters != Quarters{};
    line.add(isDim ? "▒" : blockOver(quarters, isBright));
}

void printBlocks(std::ostream& out, const Raster& dots, const Screen& screen, const Fit& fit) {
    const Color darkDot = screen.colors == ColorDepth::sixteen ? 0 : kDarkDot;
    for (std::int32_t y = 0; y < dots.height(); y += 2) {
        Line line(screen.colors);
        for (std::int32_t x = 0; x < fit.width; x += fit.across)
            if (const Quarters quarters = quartersAt(dots, x, y, fit); screen.colors == ColorDepth::none)
                addPlain(line, quarters);
            else
                addColored(line, quarters, darkDot);
        out << line;
    }
}

void printLetters(std::ostream& out, const Raster& dots, const Screen& screen, const Fit& fit) {
    for (std::int32_t y = 0; y < dots.height(); ++y) {
        Line line(screen.colors);
        for (const Color dot : dots.row(y).first(static_cast<std::size_t>(fit.width))) {
            line.set(Ground::letter, dot == 0 ? kLetterOfDarkDot : dot);
            line.add(dot == 0 ? "." : brightnessOf(dot) < kHalfBrightness ? "+" : "#");
        }
        out << line;
    }
}

} // namespace

void PrintDots(std::ostream& out, const Raster& dots) {
    const Screen& screen = ScreenOf(out);
    (screen.hasSymbols ? printBlocks : printLetters)(out, dots, screen, fitOf(dots.width(), screen));
}

void PrintWidthNote(std::ostream& out, std::int32_t width, std::string_view remedy) {
    const Fit fit = fitOf(width, ScreenOf(out));
    if (fit.width < width)
        out << "Cut to fit the terminal: the left " << fit.width << " of " << width << " dots are shown"
            << remedy << '\n';
    else if (fit.across > 1)
        out << "Narrowed to fit the terminal: a character shows 2 x 2 dots\n";
}

} // namespace qrtVistrelClasses4
