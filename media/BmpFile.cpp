#include "media/BmpFile.h"

#include "media/LittleEndian.h"
#include <qrtVistrelClasses4/PictureReader.h>

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>

namespace qrtVistrelClasses4 {
namespace {

constexpr std::size_t kFileHeaderSize = 14;
constexpr std::size_t kSmallestHeader = 40; ///< Older headers have narrower fields.
constexpr std::size_t kMasks = 54;          ///< Place of the masks, in longer headers or after this one.
constexpr std::size_t kMasksSize = 12;
static_assert(kMasks + kMasksSize == kBmpStart);

/// How pixels are stored in the file.
constexpr std::uint32_t kUncompressed = 0;
constexpr std::uint32_t kBitFields = 3; ///< As numbers with a mask for each colour.

constexpr std::size_t kWrittenBytes = 3; ///< Of a pixel in files that are written: blue, green, red.

/// Bytes of a row, which ends at a multiple of four.
std::size_t rowSizeOf(std::size_t width, unsigned bits) { return (width * bits + 31) / 32 * 4; }

/// The bits of a pixel that hold each colour.
struct Masks {
    std::uint32_t red, green, blue;
};
constexpr Masks kByteMasks{0xff0000, 0xff00, 0xff};
constexpr Masks kFiveBitMasks{0x7c00, 0x3e0, 0x1f};

/// Palettes store a colour as blue, green, red.
Color colorAt(std::string_view bytes, std::size_t at) {
    return Rgb(ByteAt(bytes, at + 2), ByteAt(bytes, at + 1), ByteAt(bytes, at));
}

struct Header {
    std::size_t pixels; ///< Offset of the first row in the file.
    std::size_t palette;
    std::size_t colors; ///< Entries of the palette.
    std::int64_t width;
    std::int64_t height; ///< Below 0 if the first row is the topmost.
    unsigned bits;       ///< Of a pixel.
    std::uint32_t compression;
    Masks masks; ///< Of pixels without a palette.

    bool isReadable() const {
        const auto fits = [](std::int64_t side) { return side >= 1 && side <= kLargestPictureSide; };
        const bool mayHaveMasks = bits == 16 || bits == 32;
        const bool isPlain = bits == 1 || bits == 4 || bits == 8 || bits == 24 || mayHaveMasks;
        return fits(width) && fits(rows()) &&
               ((compression == kUncompressed && isPlain) || (compression == kBitFields && mayHaveMasks));
    }
    std::int32_t rows() const { return static_cast<std::int32_t>(height < 0 ? -height : height); }
    std::size_t rowSize() const { return rowSizeOf(static_cast<std::size_t>(width), bits); }
};

std::optional<Header> parseHeader(std::string_view bytes, std::uint64_t fileSize) {
    if (!bytes.starts_with("BM") || bytes.size() < kFileHeaderSize + kSmallestHeader)
        return std::nullopt;
    const std::size_t size = LongAt(bytes, 14);
    const std::size_t palette = kFileHeaderSize + size;
    if (size < kSmallestHeader || palette > fileSize)
        return std::nullopt;
    Header header{LongAt(bytes, 10),
                  palette,
                  LongAt(bytes, 46),
                  static_cast<std::int32_t>(LongAt(bytes, 18)),
                  static_cast<std::int32_t>(LongAt(bytes, 22)),
                  ShortAt(bytes, 28),
                  LongAt(bytes, 30),
                  ShortAt(bytes, 28) == 16 ? kFiveBitMasks : kByteMasks};
    if (header.compression == kBitFields) {
        if (bytes.size() < kMasks + kMasksSize)
            return std::nullopt;
        header.masks = {LongAt(bytes, kMasks), LongAt(bytes, kMasks + 4), LongAt(bytes, kMasks + 8)};
    }
    if (!header.isReadable() || header.pixels > fileSize ||
        fileSize - header.pixels < header.rowSize() * static_cast<std::size_t>(header.rows()))
        return std::nullopt;
    const std::size_t most = header.bits <= 8 ? std::size_t{1} << header.bits : 0;
    header.colors = std::min(
        {header.colors == 0 ? most : header.colors, most, static_cast<std::size_t>(fileSize - palette) / 4});
    return header;
}

/// Appends the lowest `count` bytes of a number.
void put(std::string& bytes, std::size_t number, int count) {
    for (; count-- > 0; number >>= 8)
        bytes += static_cast<char>(number & 0xff);
}

/// The colour of a pixel that is a number in the palette. Black for a number beyond its end.
Color paletteColor(const Header& header, std::string_view bytes, std::string_view row, std::size_t x) {
    const std::size_t bit = x * header.bits;
    const unsigned shift = 8 - header.bits - bit % 8;
    const unsigned number = ByteAt(row, bit / 8) >> shift & ((1U << header.bits) - 1);
    return number < header.colors ? colorAt(bytes, header.palette + number * std::size_t{4}) : Color{0};
}

/// The bits of `mask` as a colour's brightness, up to 255.
std::uint8_t brightness(std::uint32_t pixel, std::uint32_t mask) {
    if (mask == 0)
        return 0;
    const int shift = std::countr_zero(mask);
    const std::uint64_t brightest = mask >> shift;
    return static_cast<std::uint8_t>(((pixel & mask) >> shift) * std::uint64_t{255} / brightest);
}

Color maskedColor(const Header& header, std::string_view row, std::size_t x) {
    const std::size_t size = header.bits / 8;
    std::uint32_t pixel = 0;
    for (std::size_t byte = size; byte-- > 0;)
        pixel = pixel << 8 | ByteAt(row, x * size + byte);
    return Rgb(brightness(pixel, header.masks.red), brightness(pixel, header.masks.green),
               brightness(pixel, header.masks.blue));
}

} // namespace

std::optional<DotSize> BmpSize(std::string_view start, std::uint64_t fileSize) {
    const auto header = parseHeader(start, fileSize);
    return header ? std::optional(DotSize{static_cast<std::int32_t>(header->width), header->rows()})
                  : std::nullopt;
}

std::optional<Raster> ParseBmp(std::string_view bytes) {
    const auto header = parseHeader(bytes, bytes.size());
    if (!header)
        return std::nullopt;
    const std::int32_t rows = header->rows();
    Raster picture(static_cast<std::int32_t>(header->width), rows);
    for (std::int32_t y = 0; y < rows; ++y) {
        const std::string_view row =
            bytes.substr(header->pixels + static_cast<std::size_t>(y) * header->rowSize(), header->rowSize());
        std::size_t x = 0;
        for (Color& pixel : picture.row(header->height < 0 ? y : rows - 1 - y)) {
            pixel = header->bits <= 8 ? paletteColor(*header, bytes, row, x) : maskedColor(*header, row, x);
            ++x;
        }
    }
    return picture;
}

std::string BmpHeader(DotSize size) {
    const auto width = static_cast<std::size_t>(size.width);
    const auto height = static_cast<std::size_t>(size.height);
    constexpr std::size_t start = kFileHeaderSize + kSmallestHeader;
    constexpr unsigned bits = kWrittenBytes * 8;
    const std::size_t rows = height * rowSizeOf(width, bits);
    std::string bytes = "BM";
    put(bytes, start + rows, 4);
    put(bytes, 0, 4);
    put(bytes, start, 4);
    put(bytes, kSmallestHeader, 4);
    put(bytes, width, 4);
    put(bytes, height, 4);
    put(bytes, 1, 2); // plane
    put(bytes, bits, 2);
    put(bytes, kUncompressed, 4);
    put(bytes, rows, 4);
    bytes.resize(start); // no resolution, and no palette
    return bytes;
}

std::string BmpRows(const Raster& piece) {
    const std::size_t size = rowSizeOf(static_cast<std::size_t>(piece.width()), kWrittenBytes * 8);
    std::string bytes(static_cast<std::size_t>(piece.height()) * size, '\0');
    auto row = bytes.begin();
    for (std::int32_t y = piece.height(); y-- > 0; row += static_cast<std::ptrdiff_t>(size)) {
        auto byte = row;
        for (const Color pixel : piece.row(y))
            for (const std::uint8_t part : {BlueOf(pixel), GreenOf(pixel), RedOf(pixel)})
                *byte++ = static_cast<char>(part);
    }
    return bytes;
}

} // namespace qrtVistrelClasses4
