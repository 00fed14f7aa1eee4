#include "tools/preview/PngFile.h"

#include <qrtVistrelClasses4/RuntimeError.h>

#include <png.h>

#include <array>
#include <cstdint>
#include <optional>
#include <vector>

namespace qrtVistrelClasses4 {
namespace {

constexpr std::size_t kChannels = 3;

void appendColor(std::vector<std::uint8_t>& bytes, Color color) {
    bytes.insert(bytes.end(), {RedOf(color), GreenOf(color), BlueOf(color)});
}

/// A palette, with the number of each colour in it.
class Palette {
public:
    static constexpr std::size_t kMostColors = 256;

    /// Nothing if the palette is full and lacks the colour.
    std::optional<std::uint8_t> numberOf(Color color) {
        for (std::size_t slot = color * kSpread >> kShift;; slot = (slot + 1) % slots_.size()) {
            if (!slots_[slot].isUsed) {
                if (colors_.size() == kMostColors)
                    return std::nullopt;
                slots_[slot] = {color, static_cast<std::uint8_t>(colors_.size()), true};
                colors_.push_back(color);
            }
            if (slots_[slot].color == color)
                return slots_[slot].number;
        }
    }

    const std::vector<Color>& colors() const { return colors_; }

private:
    static constexpr std::uint32_t kSpread = 0x9e3779b1; ///< Puts similar colours into slots far apart.
    static constexpr int kShift = 20;

    struct Slot {
        Color color = 0;
        std::uint8_t number = 0;
        bool isUsed = false;
    };
    std::array<Slot, 1U << (32 - kShift)> slots_;
    std::vector<Color> colors_;
};

/// The pixels as numbers in a palette. Nothing if they have too many colours.
std::optional<std::vector<std::uint8_t>> numbered(const Raster& picture, Palette& palette) {
    std::vector<std::uint8_t> numbers(static_cast<std::size_t>(picture.width()) *
                                      static_cast<std::size_t>(picture.height()));
    auto place = numbers.begin();
    for (std::int32_t y = 0; y < picture.height(); ++y)
        for (const Color color : picture.row(y)) {
            const auto number = palette.numberOf(color);
            if (!number)
                return std::nullopt;
            *place++ = *number;
        }
    return numbers;
}

std::vector<std::uint8_t> inChannels(const Raster& picture) {
    std::vector<std::uint8_t> bytes;
    bytes.reserve(static_cast<std::size_t>(picture.width()) * static_cast<std::size_t>(picture.height()) *
                  kChannels);
    for (std::int32_t y = 0; y < picture.height(); ++y)
        for (const Color color : picture.row(y))
            appendColor(bytes, color);
    return bytes;
}

std::string encode(png_image& image, const std::vector<std::uint8_t>& pixels,
                   const std::vector<std::uint8_t>& palette) {
    png_alloc_size_t size = PNG_IMAGE_PNG_SIZE_MAX(image);
    std::string bytes(size, '\0');
    if (!png_image_write_to_memory(&image, bytes.data(), &size, 0, pixels.data(), 0,
                                   palette.empty() ? nullptr : palette.data()))
        throw RuntimeError(static_cast<int>(ErrorNumber::outOfMemory), image.message);
    bytes.resize(size);
    return bytes;
}

} // namespace

std::string EncodePng(const Raster& picture) {
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    image.width = static_cast<png_uint_32>(picture.width());
    image.height = static_cast<png_uint_32>(picture.height());
    image.format = PNG_FORMAT_RGB;
    Palette palette;
    const auto numbers = numbered(picture, palette);
    if (!numbers)
        return encode(image, inChannels(picture), {});
    image.format |= PNG_FORMAT_FLAG_COLORMAP;
    image.colormap_entries = static_cast<png_uint_32>(palette.colors().size());
    std::vector<std::uint8_t> colors;
    for (const Color color : palette.colors())
        appendColor(colors, color);
    return encode(image, *numbers, colors);
}

} // namespace qrtVistrelClasses4
