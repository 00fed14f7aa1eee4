#include "media/AnimationFile.h"

#include "media/LittleEndian.h"

#include <cstddef>
#include <limits>

namespace qrtVistrelClasses4 {
namespace {

// An AVI starts with the list of its headers, and that with the main one.
constexpr std::size_t kAviPictures = 48;
constexpr std::size_t kAviWidth = 64;
constexpr std::size_t kAviHeight = 68;
constexpr std::size_t kAviHeaderEnd = 72;
constexpr std::uint32_t kWidestAnimation = 0xffff;

std::optional<Animation> parseAvi(std::string_view bytes) {
    const auto has = [&](std::size_t at, std::string_view mark) {
        return bytes.substr(at).starts_with(mark);
    };
    if (bytes.size() < kAviHeaderEnd || !has(0, "RIFF") || !has(8, "AVI LIST") || !has(20, "hdrlavih"))
        return std::nullopt;
    const std::uint32_t pictures = LongAt(bytes, kAviPictures);
    const std::uint32_t width = LongAt(bytes, kAviWidth);
    const std::uint32_t height = LongAt(bytes, kAviHeight);
    const auto fits = [](std::uint32_t side) { return side >= 1 && side <= kWidestAnimation; };
    if (pictures > static_cast<std::uint32_t>(std::numeric_limits<std::int32_t>::max()) || !fits(width) ||
        !fits(height))
        return std::nullopt;
    return Animation{{static_cast<std::int32_t>(width), static_cast<std::int32_t>(height)},
                     static_cast<std::int32_t>(pictures)};
}

/// Walks through the blocks of a GIF. Reading beyond the end yields zeros, and is remembered.
class GifBlocks {
public:
    explicit GifBlocks(std::string_view bytes) : bytes_(bytes) {}

    /// The number of pictures; nothing if the file does not reach its end mark.
    std::optional<std::int32_t> countPictures() {
        constexpr std::size_t palettePlace = 10, afterHeader = 13;
        skip(palettePlace);
        const std::uint8_t palette = take();
        at_ = afterHeader;
        skipPalette(palette);
        std::int32_t pictures = 0;
        while (true) {
            switch (take()) {
            case kPicture:
                ++pictures;
                skipPicture();
                break;
            case kExtension:
                skip(1); // its kind
                skipData();
                break;
            case kEnd:
                return pictures;
            default:
                return std::nullopt;
            }
        }
    }

private:
    static constexpr std::uint8_t kPicture = 0x2c, kExtension = 0x21, kEnd = 0x3b;

    std::uint8_t take() { return at_ < bytes_.size() ? ByteAt(bytes_, at_++) : std::uint8_t{0}; }
    void skip(std::size_t count) { at_ += count; }

    void skipPicture() {
        constexpr std::size_t placeAndSize = 8;
        skip(placeAndSize);
        skipPalette(take());
        skip(1); // the size of codes
        skipData();
    }

    void skipPalette(std::uint8_t flags) {
        constexpr unsigned hasPalette = 0x80, sizeBits = 7;
        constexpr std::size_t bytesOfColor = 3;
        if ((flags & hasPalette) != 0)
            skip(bytesOfColor << ((flags & sizeBits) + 1));
    }

    /// Pieces with their size before them; one without bytes is the last.
    void skipData() {
        while (const std::uint8_t size = take())
            skip(size);
    }

    std::string_view bytes_;
    std::size_t at_ = 0;
};

std::optional<Animation> parseGif(std::string_view bytes) {
    constexpr std::size_t width = 6, height = 8, headerEnd = 13;
    if (bytes.size() < headerEnd || !(bytes.starts_with("GIF87a") || bytes.starts_with("GIF89a")))
        return std::nullopt;
    const DotSize size{ShortAt(bytes, width), ShortAt(bytes, height)};
    const auto pictures = GifBlocks(bytes).countPictures();
    if (!pictures || size.width == 0 || size.height == 0)
        return std::nullopt;
    return Animation{size, *pictures};
}

} // namespace

std::optional<Animation> ParseAnimation(std::string_view bytes) {
    const auto avi = parseAvi(bytes);
    return avi ? avi : parseGif(bytes);
}

} // namespace qrtVistrelClasses4
