#include <qrtVistrelClasses4/LedPainter.h>

#include <algorithm>
#include <cstddef>

namespace qrtVistrelClasses4 {
namespace {

constexpr Color kRim = Rgb(64, 66, 72); ///< Lighter than a dark LED, so that dark letters stand out from it.
constexpr Color kGapColor = Rgb(14, 14, 16);
constexpr Color kDarkLed = Rgb(40, 39, 38);

constexpr int kSamples = 8; ///< Along each side of a pixel.
constexpr int kAllSamples = kSamples * kSamples;
constexpr int kGlow =
    9; ///< Share of a lit dot's light that falls on the gap around it, out of `kAllSamples`.

constexpr int kSmallestWithGap = 3;

/// Radius of a dot, as a share of the distance to the next one. Dots of few pixels are larger: otherwise
/// their dark corners would be the first thing seen in an area of lit dots.
double radiusAt(int scale) {
    constexpr int smallestRound = 5;
    return scale < smallestRound ? 0.54 : 0.44;
}

/// How many samples of a pixel in a dot's square are inside the dot.
int samplesInside(int x, int y, int scale) {
    const double radius = radiusAt(scale);
    int inside = 0;
    for (int row = 0; row < kSamples; ++row)
        for (int column = 0; column < kSamples; ++column) {
            const double across = (x + (column + 0.5) / kSamples) / scale - 0.5;
            const double down = (y + (row + 0.5) / kSamples) / scale - 0.5;
            inside += across * across + down * down < radius * radius;
        }
    return inside;
}

std::vector<int> coverageAt(int scale) {
    std::vector<int> coverage;
    for (int y = 0; y < scale; ++y)
        for (int x = 0; x < scale; ++x)
            coverage.push_back(scale < kSmallestWithGap ? kAllSamples : samplesInside(x, y, scale));
    return coverage;
}

/// A colour between `from` and `to`, with `share` out of `kAllSamples` parts of `to`.
Color mixed(Color from, Color to, int share) {
    const auto part = [share](int start, int end) {
        return static_cast<std::uint8_t>((start * (kAllSamples - share) + end * share + kAllSamples / 2) /
                                         kAllSamples);
    };
    return Rgb(part(RedOf(from), RedOf(to)), part(GreenOf(from), GreenOf(to)),
               part(BlueOf(from), BlueOf(to)));
}

/// The brighter part of both, so that no lit dot is darker than one that is off.
Color brighter(Color one, Color other) {
    return Rgb(std::max(RedOf(one), RedOf(other)), std::max(GreenOf(one), GreenOf(other)),
               std::max(BlueOf(one), BlueOf(other)));
}

} // namespace

LedPainter::LedPainter(int scale)
    : scale_(scale), coverage_(coverageAt(scale)), dark_(makeLed(0)), lit_(dark_) {}

void LedPainter::draw(const Raster& dots, Raster& picture, std::int32_t left, std::int32_t top) {
    picture.fill(left, top, static_cast<std::int32_t>(sizeOf(dots.width())),
                 static_cast<std::int32_t>(sizeOf(dots.height())), kRim);
    std::vector<Color*> lines; // of pixels in a row of dots
    for (std::int32_t row = 0; row < dots.height(); ++row) {
        const std::int32_t y = top + rim() + row * scale_;
        const std::int32_t first = std::max(-y, 0);
        lines.clear();
        for (std::int32_t line = first; line < std::min(scale_, picture.height() - y); ++line)
            lines.push_back(picture.row(y + line).data() + left + rim());
        if (lines.empty())
            continue;
        for (const Color dot : dots.row(row)) {
            const Color* pixels = ledFor(dot).pixels.data() + std::ptrdiff_t{first} * scale_;
            for (Color*& line : lines)
                for (int x = 0; x < scale_; ++x)
                    *line++ = *pixels++;
        }
    }
}

const LedPainter::Led& LedPainter::ledFor(Color dot) {
    if (dot == dark_.dot)
        return dark_;
    if (dot != lit_.dot)
        lit_ = makeLed(dot);
    return lit_;
}

LedPainter::Led LedPainter::makeLed(Color dot) const {
    const Color gap = dot == 0 ? kGapColor : mixed(kGapColor, dot, kGlow);
    const Color lit = brighter(kDarkLed, dot);
    Led led{dot, {}};
    led.pixels.reserve(coverage_.size());
    for (const int share : coverage_)
        led.pixels.push_back(mixed(gap, lit, share));
    return led;
}

} // namespace qrtVistrelClasses4
