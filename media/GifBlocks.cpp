#include "media/GifBlocks.h"

#include "media/LittleEndian.h"

#include <algorithm>
#include <cstddef>

namespace qrtVistrelClasses4 {
namespace {

constexpr std::size_t kHeaderEnd = 13;

/// Walks through the blocks of a GIF. Reading beyond the end yields zeros, which are no mark of an end.
class Blocks {
public:
    explicit Blocks(std::string_view bytes) : bytes_(bytes) {}

    bool walk(const std::function<bool(const GifPicture&)>& onPicture) {
        constexpr std::size_t palettePlace = 10;
        at_ = palettePlace;
        const std::uint8_t flags = take();
        at_ = kHeaderEnd;
        palette_ = takePalette(flags);
        while (true) {
            switch (take()) {
            case kPicture:
                takePicture();
                if (at_ > bytes_.size() || !onPicture(picture_))
                    return false;
                picture_ = {};
                break;
            case kExtension:
                takeExtension();
                break;
            case kEnd:
                return true;
            default:
                return false;
            }
        }
    }

private:
    static constexpr std::uint8_t kPicture = 0x2c, kExtension = 0x21, kControl = 0xf9, kEnd = 0x3b;

    std::uint8_t take() {
        const std::size_t at = at_++;
        return at < bytes_.size() ? ByteAt(bytes_, at) : std::uint8_t{0};
    }
    std::uint16_t takeShort() {
        const std::uint8_t low = take();
        return static_cast<std::uint16_t>(low | take() << 8);
    }

    /// The bytes from a place up to the present one.
    std::string_view since(std::size_t start) const {
        return bytes_.substr(std::min(start, bytes_.size()), at_ - start);
    }

    void takePicture() {
        constexpr unsigned isInterlaced = 0x40, hasPalette = 0x80;
        picture_.left = takeShort();
        picture_.top = takeShort();
        picture_.size.width = takeShort();
        picture_.size.height = takeShort();
        const std::uint8_t flags = take();
        picture_.isInterlaced = (flags & isInterlaced) != 0;
        const std::string_view own = takePalette(flags);
        picture_.palette = (flags & hasPalette) != 0 ? own : palette_;
        picture_.codeBits = take();
        picture_.data = takeData();
    }

    /// What controls the next picture; others are skipped.
    void takeExtension() {
        constexpr std::size_t sizeOfControl = 5; // with the byte before it
        const bool isControl = take() == kControl;
        const std::string_view data = takeData();
        if (!isControl || data.size() < sizeOfControl)
            return;
        constexpr unsigned disposalBits = 7, hasClearColor = 1;
        const std::uint8_t flags = ByteAt(data, 1);
        const unsigned disposal = flags >> 2 & disposalBits;
        picture_.disposal = disposal <= static_cast<unsigned>(GifDisposal::isTakenBack)
                                ? static_cast<GifDisposal>(disposal)
                                : GifDisposal::unspecified;
        picture_.hundredths = ShortAt(data, 2);
        picture_.clear = (flags & hasClearColor) != 0 ? std::optional(ByteAt(data, 4)) : std::nullopt;
    }

    std::string_view takePalette(std::uint8_t flags) {
        constexpr unsigned hasPalette = 0x80, sizeBits = 7;
        constexpr std::size_t bytesOfColor = 3;
        const std::size_t start = at_;
        if ((flags & hasPalette) != 0)
            at_ += bytesOfColor << ((flags & sizeBits) + 1);
        return since(start);
    }

    /// Pieces with their size before them; one without bytes is the last.
    std::string_view takeData() {
        const std::size_t start = at_;
        while (const std::uint8_t size = take())
            at_ += size;
        return since(start);
    }

    std::string_view bytes_;
    std::size_t at_ = 0;
    std::string_view palette_; ///< Of pictures without one.
    GifPicture picture_;       ///< The next one.
};

} // namespace

std::optional<DotSize> GifSize(std::string_view bytes) {
    constexpr std::size_t width = 6, height = 8;
    if (bytes.size() < kHeaderEnd || !(bytes.starts_with("GIF87a") || bytes.starts_with("GIF89a")))
        return std::nullopt;
    return DotSize{ShortAt(bytes, width), ShortAt(bytes, height)};
}

bool ForEachGifPicture(std::string_view bytes, const std::function<bool(const GifPicture&)>& onPicture) {
    return GifSize(bytes) && Blocks(bytes).walk(onPicture);
}

} // namespace qrtVistrelClasses4
