// BMP files made for tests.
#pragma once

#include <cstdint>
#include <string>

namespace qrtVistrelClasses4 {

/// The lowest `count` bytes of a number, in the order of BMP files.
inline std::string BytesOf(std::uint32_t number, int count) {
    std::string bytes;
    for (; count-- > 0; number >>= 8)
        bytes += static_cast<char>(number & 0xff);
    return bytes;
}

/// A file with rows of three pixels. Its palette has black, red, green and blue, or of one bit black and red.
inline std::string Bmp(unsigned bits, const std::string& rows, std::int32_t height = 2,
                       unsigned compression = 0, const std::string& masks = "") {
    const std::string red("\0\0\xff\0", 4), green("\0\xff\0\0", 4), blue("\xff\0\0\0", 4), black(4, '\0');
    const std::string palette = bits == 1 ? black + red : bits <= 8 ? black + red + green + blue : "";
    const auto colors = static_cast<std::uint32_t>(palette.size() / 4);
    return "BM" + BytesOf(0, 8) + BytesOf(static_cast<std::uint32_t>(54 + palette.size() + masks.size()), 4) +
           BytesOf(40, 4) + BytesOf(3, 4) + BytesOf(static_cast<std::uint32_t>(height), 4) + BytesOf(1, 2) +
           BytesOf(bits, 2) + BytesOf(compression, 4) + BytesOf(0, 12) + BytesOf(colors, 4) + BytesOf(0, 4) +
           palette + masks + rows;
}

} // namespace qrtVistrelClasses4
