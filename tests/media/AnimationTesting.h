// AVI and GIF files made for tests.
#pragma once

#include "media/BmpTesting.h"

namespace qrtVistrelClasses4 {

/// As much of a file as has the number of pictures.
inline std::string Avi(std::uint32_t pictures, std::uint32_t width, std::uint32_t height) {
    return "RIFF" + BytesOf(0, 4) + "AVI LIST" + BytesOf(0, 4) + "hdrlavih" + BytesOf(56, 4) +
           BytesOf(0, 16) + BytesOf(pictures, 4) + BytesOf(0, 12) + BytesOf(width, 4) + BytesOf(height, 4);
}

/// Each picture has a palette of its own, data in two pieces, and an extension before it.
inline std::string Gif(unsigned pictures, std::uint32_t width, std::uint32_t height) {
    std::string bytes =
        "GIF89a" + BytesOf(width, 2) + BytesOf(height, 2) + "\x80" + BytesOf(0, 2) + BytesOf(0, 6);
    for (; pictures > 0; --pictures)
        bytes += "!\xf9\4" + BytesOf(0, 4) + BytesOf(0, 1) + "," + BytesOf(0, 8) + "\x81" + BytesOf(0, 12) +
                 "\2\3,;!\1;" + BytesOf(0, 1);
    return bytes + ";";
}

} // namespace qrtVistrelClasses4
