// What is in the blocks of a GIF file, with its pictures still compressed.
#pragma once

#include <qrtVistrelClasses4/Raster.h>

#include <cstdint>
#include <functional>
#include <optional>
#include <string_view>

namespace qrtVistrelClasses4 {

/// What becomes of a picture before the next one is drawn.
enum class GifDisposal : std::uint8_t {
    unspecified,
    stays,
    isCleared,
    isTakenBack, ///< What was there before is there again.
};

/// A picture in a GIF file, which covers a part of the whole. The views are valid as long as the file's
/// bytes.
struct GifPicture {
    std::int32_t left = 0;
    std::int32_t top = 0;
    DotSize size;
    bool isInterlaced = false;
    std::string_view palette = {}; ///< Red, green and blue of each colour; its own, or else the file's.
    unsigned codeBits = 0;         ///< Of the smallest codes.
    std::string_view data = {};    ///< In pieces with their size before each; one without bytes is the last.
    GifDisposal disposal = GifDisposal::unspecified;
    std::optional<std::uint8_t> clear = {}; ///< The number of the colour that is not drawn.
    std::int32_t hundredths = 0;            ///< Of a second, until the next picture is drawn.
};

/// The size of all pictures together. Nothing if the bytes are no GIF file.
std::optional<DotSize> GifSize(std::string_view bytes);

/// Calls `onPicture` with the pictures of a GIF file, in their order, until it returns false. Returns whether
/// the walk came to the mark at the file's end.
bool ForEachGifPicture(std::string_view bytes, const std::function<bool(const GifPicture&)>& onPicture);

} // namespace qrtVistrelClasses4
