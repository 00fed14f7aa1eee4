#include "media/AnimationFile.h"

#include "media/BmpFile.h"
#include "media/GifBlocks.h"
#include "media/LittleEndian.h"

#include <cstddef>
#include <limits>
#include <string>

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

/// Nothing if the file does not reach its end mark.
std::optional<Animation> parseGif(std::string_view bytes) {
    Animation animation{GifSize(bytes).value_or(DotSize{})};
    const bool isWhole = ForEachGifPicture(bytes, [&](const GifPicture&) {
        ++animation.pictures;
        return true;
    });
    const bool hasDots = animation.size.width > 0 && animation.size.height > 0;
    return isWhole && hasDots ? std::optional(animation) : std::nullopt;
}

/// Walks through the chunks of an AVI in the order of their bytes, into every list.
class AviChunks {
public:
    explicit AviChunks(std::string_view bytes) : bytes_(bytes) {}

    /// The file of a picture that has the first data of the first stream with pictures. Empty if the file
    /// ends before that.
    std::string firstPicture() {
        std::string bmp;
        for (; at_ + kChunkStart <= bytes_.size(); next()) {
            if (is("strh"))
                startStream();
            else if (is("strf") && isOfPictures_ && bmp.empty())
                bmp = startOfBmp(data());
            else if (isPicture() && !bmp.empty() && !data().empty())
                return bmp.append(data());
        }
        return {};
    }

private:
    static constexpr std::size_t kChunkStart = 8;
    static constexpr std::size_t kListStart = 12;

    bool is(std::string_view mark) const { return bytes_.substr(at_).starts_with(mark); }

    /// As far as it is there.
    std::string_view data() const {
        return bytes_.substr(at_ + kChunkStart, LongAt(bytes_, at_ + sizeof(std::uint32_t)));
    }

    void next() {
        const std::size_t size = LongAt(bytes_, at_ + sizeof(std::uint32_t));
        at_ += is("RIFF") || is("LIST") ? kListStart : kChunkStart + size + size % 2;
    }

    void startStream() {
        ++streams_;
        const bool isFirst = pictures_ == 0 && data().starts_with("vids");
        isOfPictures_ = isFirst;
        if (isFirst)
            pictures_ = streams_;
    }

    /// Whether the chunk has uncompressed data of the stream, such as "00db".
    bool isPicture() const {
        constexpr int ten = 10;
        const int stream = pictures_ - 1;
        return stream >= 0 && bytes_[at_] == '0' + stream / ten && bytes_[at_ + 1] == '0' + stream % ten &&
               bytes_.substr(at_ + 2).starts_with("db");
    }

    /// Streams have the header and the palette of a BMP file, without what that starts with.
    static std::string startOfBmp(std::string_view format) {
        constexpr std::size_t start = 14, longest = 4096;
        constexpr std::size_t pixelsPlace = 10;
        std::string bmp(start, '\0');
        bmp.replace(0, 2, "BM");
        const std::string_view header = format.substr(0, longest);
        for (std::size_t byte = 0, rest = start + header.size(); rest > 0; ++byte, rest >>= 8)
            bmp[pixelsPlace + byte] = static_cast<char>(rest & 0xff);
        return bmp.append(header);
    }

    std::string_view bytes_;
    std::size_t at_ = 0;
    int streams_ = 0;           ///< So far.
    int pictures_ = 0;          ///< The number of the stream with pictures, from 1.
    bool isOfPictures_ = false; ///< Whether that is the present one.
};

} // namespace

std::optional<Raster> FirstPictureOfAvi(std::string_view bytes) {
    const bool isAvi = bytes.starts_with("RIFF") && bytes.substr(0, kAviHeaderEnd).find("AVI LIST") == 8;
    return isAvi ? ParseBmp(AviChunks(bytes).firstPicture()) : std::nullopt;
}

std::optional<Animation> ParseAnimation(std::string_view bytes) {
    const auto avi = parseAvi(bytes);
    return avi ? avi : parseGif(bytes);
}

} // namespace qrtVistrelClasses4
