#include "tools/preview/LedPicture.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace qrtVistrelClasses4 {
namespace {

constexpr Color kGap = Rgb(14, 14, 16);
constexpr Color kDarkLed = Rgb(40, 39, 38);
constexpr double kGlow = 0.14;   ///< Light of a lit dot on the gap around it.
constexpr double kRadius = 0.44; ///< Of a dot, in distances from one to the next.
constexpr int kSmallestWithGap = 3;

constexpr std::size_t kMostLeds = 4096; ///< Kept; pictures may have any number of colours.

constexpr int kChannels[] = {0, 8, 16}; ///< Shifts of red, green and blue.

double channelOf(Color color, int shift) { return color >> shift & 0xff; }

Color mixed(Color from, Color to, double share) {
    Color color = 0;
    for (const int shift : kChannels) {
        const double start = channelOf(from, shift);
        color |= static_cast<Color>(std::lround(start + (channelOf(to, shift) - start) * share)) << shift;
    }
    return color;
}

/// The light of both; no dot is darker than one that is switched off.
Color brighter(Color one, Color other) {
    Color color = 0;
    for (const int shift : kChannels)
        color |= std::max(one & Color{0xff} << shift, other & Color{0xff} << shift);
    return color;
}

} // namespace

LedPainter::LedPainter(int scale) : scale_(scale) {}

void LedPainter::draw(const PixelBuffer& dots, PixelBuffer& picture, std::int32_t left, std::int32_t top) {
    picture.fill(left, top, static_cast<std::int32_t>(sizeOf(dots.width())),
                 static_cast<std::int32_t>(sizeOf(dots.height())), kGap);
    std::vector<const Color*> leds(static_cast<std::size_t>(dots.width()));
    for (std::int32_t row = 0; row < dots.height(); ++row) {
        if (leds_.size() > kMostLeds)
            leds_.clear();
        Color last = 0;
        const Color* led = ledFor(last);
        std::ranges::transform(dots.row(row), leds.begin(), [&](Color dot) {
            if (dot != last)
                led = ledFor(last = dot);
            return led;
        });
        for (int y = 0; y < scale_; ++y) {
            auto pixel = picture.row(top + rim() + row * scale_ + y).begin() + left + rim();
            for (const Color* square : leds)
                pixel = std::copy_n(square + std::ptrdiff_t{y} * scale_, scale_, pixel);
        }
    }
}

const Color* LedPainter::ledFor(Color dot) {
    auto& led = leds_[dot];
    if (led.empty())
        led = makeLed(dot);
    return led.data();
}

std::vector<Color> LedPainter::makeLed(Color dot) const {
    const Color gap = dot == 0 ? kGap : mixed(kGap, dot, kGlow);
    const Color lit = brighter(kDarkLed, dot);
    std::vector<Color> led;
    for (int y = 0; y < scale_; ++y)
        for (int x = 0; x < scale_; ++x)
            led.push_back(mixed(gap, lit, coverage(x, y)));
    return led;
}

double LedPainter::coverage(int x, int y) const {
    if (scale_ < kSmallestWithGap)
        return 1;
    constexpr int samples = 8; // along each side
    int covered = 0;
    for (int row = 0; row < samples; ++row)
        for (int column = 0; column < samples; ++column) {
            const double across = (x + (column + 0.5) / samples) / scale_ - 0.5;
            const double down = (y + (row + 0.5) / samples) / scale_ - 0.5;
            covered += across * across + down * down < kRadius * kRadius;
        }
    return covered / double{samples * samples};
}

} // namespace qrtVistrelClasses4
