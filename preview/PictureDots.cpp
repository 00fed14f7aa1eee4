#include "preview/PictureDots.h"

#include <qrtVistrelClasses4/SignLook.h>

#include <algorithm>
#include <cstddef>
#include <optional>
#include <vector>

namespace qrtVistrelClasses4 {
namespace {

constexpr int kBrightest = 255;
constexpr int kNearly = 24; ///< Difference from black or white that is not seen.

bool isNearlyBlack(Color pixel) { return std::max({RedOf(pixel), GreenOf(pixel), BlueOf(pixel)}) < kNearly; }

/// How bright a pixel looks, from 0 to `kBrightest`.
int brightnessOf(Color pixel) {
    if (isNearlyBlack(pixel))
        return 0;
    const int brightness = (299 * RedOf(pixel) + 587 * GreenOf(pixel) + 114 * BlueOf(pixel)) / 1000;
    return brightness > kBrightest - kNearly ? kBrightest : brightness;
}

/// The upper left part of a picture by the brightnesses of its pixels.
class OneColorPicture {
public:
    OneColorPicture(const Raster& picture, DotSize size) : size_(size) {
        for (std::int32_t y = 0; y < size.height; ++y)
            for (const Color pixel : picture.row(y).first(static_cast<std::size_t>(size.width)))
                values_.push_back(brightnessOf(pixel));
        if (const auto lit = higherOfTwo())
            std::ranges::replace_if(
                values_, [&](int value) { return value < *lit; }, 0);
        else
            dither();
    }

    Raster dots(Color color) const {
        Raster dots(size_.width, size_.height);
        auto value = values_.begin();
        for (std::int32_t y = 0; y < size_.height; ++y)
            for (Color& dot : dots.row(y))
                dot = *value++ > 0 ? color : 0;
        return dots;
    }

private:
    std::size_t place(std::int32_t x, std::int32_t y) const {
        return static_cast<std::size_t>(y) * static_cast<std::size_t>(size_.width) +
               static_cast<std::size_t>(x);
    }

    /// Nothing if there are not exactly two brightnesses.
    std::optional<int> higherOfTwo() const {
        if (values_.empty())
            return std::nullopt;
        const auto ends = std::ranges::minmax(values_);
        const auto isEnd = [&](int value) { return value == ends.min || value == ends.max; };
        return ends.min < ends.max && std::ranges::all_of(values_, isEnd) ? std::optional(ends.max)
                                                                          : std::nullopt;
    }

    /// Gives what each dot is too bright or too dark by to its neighbours on the right and below, in the
    /// shares of Floyd and Steinberg.
    void dither() {
        constexpr int shares = 16; // also of a brightness, so that nothing is lost by rounding
        for (int& value : values_)
            value *= shares;
        for (std::int32_t y = 0; y < size_.height; ++y)
            for (std::int32_t x = 0; x < size_.width; ++x) {
                int& value = values_[place(x, y)];
                const bool isLit = value * 2 > kBrightest * shares;
                const int rest = value - (isLit ? kBrightest * shares : 0);
                value = isLit ? kBrightest : 0;
                add(x + 1, y, rest * 7 / shares);
                add(x - 1, y + 1, rest * 3 / shares);
                add(x, y + 1, rest * 5 / shares);
                add(x + 1, y + 1, rest / shares);
            }
    }

    void add(std::int32_t x, std::int32_t y, int part) {
        if (x >= 0 && x < size_.width && y < size_.height)
            values_[place(x, y)] += part;
    }

    DotSize size_;
    std::vector<int> values_; ///< Row by row.
};

Raster coloredDots(const Raster& picture, DotSize size) {
    Raster dots(size.width, size.height);
    for (std::int32_t y = 0; y < size.height; ++y)
        std::ranges::replace_copy_if(picture.row(y).first(static_cast<std::size_t>(size.width)),
                                     dots.row(y).begin(), isNearlyBlack, Color{0});
    return dots;
}

} // namespace

Raster DotsOf(const Raster& picture, DotSize most, const SignLook& sign) {
    const DotSize size{std::min(picture.width(), most.width), std::min(picture.height(), most.height)};
    return sign.showsColors ? coloredDots(picture, size) : OneColorPicture(picture, size).dots(sign.color);
}

} // namespace qrtVistrelClasses4
