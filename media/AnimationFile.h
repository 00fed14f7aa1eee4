// How many pictures an animation has, how large they are, and the first one of an AVI file.
#pragma once

#include <qrtVistrelClasses4/Raster.h>

#include <cstdint>
#include <optional>
#include <string_view>

namespace qrtVistrelClasses4 {

struct Animation {
    DotSize size;
    std::int32_t pictures = 0;

    bool operator==(const Animation&) const = default;
};

/// What the bytes of an AVI or GIF file say of its pictures. The pictures of a GIF are counted, up to its
/// end; an AVI gives their number in its header. Nothing for other files, for files that are cut short
/// there, and for sizes of 0 or of more than 65535.
std::optional<Animation> ParseAnimation(std::string_view bytes);

/// The first picture of an AVI file, if its pictures are not compressed and have the form of a BMP file that
/// `ParseBmp` reads.
std::optional<Raster> FirstPictureOfAvi(std::string_view bytes);

} // namespace qrtVistrelClasses4
