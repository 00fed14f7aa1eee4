#include "tools/preview/GifPictures.h"

#include "media/GifBlocks.h"
#include "media/LittleEndian.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <utility>

namespace qrtVistrelClasses4 {
namespace {

/// Turns the compressed data of a picture into the numbers of its colours, and stops when it has them all.
/// That bounds the time: a code of two bytes can mean thousands of numbers.
class GifCodes {
public:
    explicit GifCodes(const GifPicture& picture) : data_(picture.data), smallestBits_(picture.codeBits) {}

    /// `count` numbers, in the order of the file. Nothing if the data is damaged or ends before that.
    std::optional<std::vector<std::uint8_t>> read(std::size_t count) {
        if (smallestBits_ < 1 || smallestBits_ > kMostSmallestBits)
            return std::nullopt;
        for (std::size_t code = 0; code < clearCode(); ++code)
            codes_[code] = {.suffix = static_cast<std::uint8_t>(code),
                            .first = static_cast<std::uint8_t>(code)};
        std::vector<std::uint8_t> numbers;
        numbers.reserve(count);
        startAnew();
        while (numbers.size() < count) {
            const std::optional<unsigned> code = take();
            if (code == clearCode())
                startAnew();
            else if (!code || code == clearCode() + 1 || !addCode(*code, numbers, count))
                return std::nullopt;
        }
        return numbers;
    }

private:
    static constexpr unsigned kMostSmallestBits = 8;
    static constexpr unsigned kMostBits = 12;
    static constexpr std::size_t kMostCodes = std::size_t{1} << kMostBits;

    /// A row of numbers: that of another code, and one more.
    struct Code {
        std::uint16_t prefix = 0;
        std::uint8_t suffix = 0;
        std::uint8_t first = 0;
        std::uint16_t size = 1;
    };

    unsigned clearCode() const { return 1U << smallestBits_; }

    void startAnew() {
        bits_ = smallestBits_ + 1;
        count_ = clearCode() + 2; // the second one ends the data
        last_.reset();
    }

    std::optional<unsigned> take() {
        for (; readyBits_ < bits_; readyBits_ += 8) {
            if (leftInPiece_ == 0 && at_ < data_.size())
                leftInPiece_ = ByteAt(data_, at_++);
            if (leftInPiece_ == 0 || at_ >= data_.size())
                return std::nullopt;
            --leftInPiece_;
            ready_ |= static_cast<unsigned>(ByteAt(data_, at_++)) << readyBits_;
        }
        const unsigned code = ready_ & ((1U << bits_) - 1);
        ready_ >>= bits_;
        readyBits_ -= bits_;
        return code;
    }

    /// Appends what a code means, up to `most` numbers.
    bool addCode(unsigned code, std::vector<std::uint8_t>& numbers, std::size_t most) {
        if (code > count_ || (code == count_ && !last_))
            return false;
        if (last_ && count_ < kMostCodes) {
            const Code& before = codes_[*last_];
            codes_[count_] = {.prefix = static_cast<std::uint16_t>(*last_),
                              .suffix = code == count_ ? before.first : codes_[code].first,
                              .first = before.first,
                              .size = static_cast<std::uint16_t>(before.size + 1)};
            if (++count_ == 1U << bits_ && bits_ < kMostBits)
                ++bits_;
        } else if (code == count_) {
            return false;
        }
        last_ = code;
        const std::size_t start = numbers.size();
        const std::size_t size = codes_[code].size;
        numbers.resize(std::min(start + size, most));
        for (std::size_t place = start + size; place-- > start; code = codes_[code].prefix)
            if (place < most)
                numbers[place] = codes_[code].suffix;
        return true;
    }

    std::string_view data_;
    unsigned smallestBits_;
    std::array<Code, kMostCodes> codes_ = {};
    unsigned bits_ = 0;            ///< Of a code.
    unsigned count_ = 0;           ///< Codes that have a meaning.
    std::optional<unsigned> last_; ///< The code before.
    std::size_t at_ = 0;
    unsigned leftInPiece_ = 0;
    unsigned ready_ = 0;
    unsigned readyBits_ = 0;
};

/// The rows of a picture in the order of the file.
std::vector<std::int32_t> rowsInOrder(const GifPicture& picture) {
    std::vector<std::int32_t> rows;
    rows.reserve(static_cast<std::size_t>(picture.size.height));
    const auto addEvery = [&](std::int32_t first, std::int32_t step) {
        for (std::int32_t row = first; row < picture.size.height; row += step)
            rows.push_back(row);
    };
    if (!picture.isInterlaced) {
        addEvery(0, 1);
        return rows;
    }
    for (const auto& [first, step] : {std::pair(0, 8), {4, 8}, {2, 4}, {1, 2}})
        addEvery(first, step);
    return rows;
}

/// What is seen of a GIF while its pictures are drawn one over the other.
class GifCanvas {
public:
    explicit GifCanvas(DotSize size)
        : shown_{Raster(size.width, size.height),
                 std::vector<std::uint8_t>(static_cast<std::size_t>(size.width) *
                                           static_cast<std::size_t>(size.height))} {}

    bool holds(const GifPicture& picture) const {
        return picture.left + picture.size.width <= shown_.pixels.width() &&
               picture.top + picture.size.height <= shown_.pixels.height();
    }

    /// What is seen then; nothing if the picture is damaged.
    std::optional<TimedPicture> draw(const GifPicture& picture) {
        dispose();
        if (picture.disposal == GifDisposal::isTakenBack)
            before_ = shown_;
        const auto numbers = GifCodes(picture).read(static_cast<std::size_t>(picture.size.width) *
                                                    static_cast<std::size_t>(picture.size.height));
        if (!numbers)
            return std::nullopt;
        auto number = numbers->begin();
        for (const std::int32_t row : rowsInOrder(picture))
            for (std::int32_t x = 0; x < picture.size.width; ++x)
                set(picture, picture.left + x, picture.top + row, *number++);
        last_ = picture;
        return seen(picture);
    }

private:
    static constexpr std::uint8_t kCovers = 255;

    std::uint8_t& opacityAt(std::int32_t x, std::int32_t y) {
        return shown_.opacity[static_cast<std::size_t>(y) * static_cast<std::size_t>(shown_.pixels.width()) +
                              static_cast<std::size_t>(x)];
    }

    /// Colours that the palette lacks are black.
    void set(const GifPicture& picture, std::int32_t x, std::int32_t y, std::uint8_t number) {
        if (number == picture.clear)
            return;
        constexpr std::size_t bytesOfColor = 3;
        const std::string_view color =
            picture.palette.substr(std::min(number * bytesOfColor, picture.palette.size()), bytesOfColor);
        shown_.pixels.row(y)[static_cast<std::size_t>(x)] =
            color.size() == bytesOfColor ? Rgb(ByteAt(color, 0), ByteAt(color, 1), ByteAt(color, 2)) : 0;
        opacityAt(x, y) = kCovers;
    }

    /// Does with the last picture what it asks for.
    void dispose() {
        if (last_.disposal == GifDisposal::isTakenBack)
            shown_ = before_;
        if (last_.disposal != GifDisposal::isCleared)
            return;
        shown_.pixels.fill(last_.left, last_.top, last_.size.width, last_.size.height, 0);
        for (std::int32_t y = last_.top; y < last_.top + last_.size.height; ++y)
            std::fill_n(shown_.opacity.begin() + std::ptrdiff_t{y} * shown_.pixels.width() + last_.left,
                        last_.size.width, std::uint8_t{0});
    }

    TimedPicture seen(const GifPicture& picture) const {
        // Players take the shortest times for none at all, and wait as long as files without times expect.
        constexpr std::int32_t usual = 10, shortest = 2;
        constexpr int millisecondsOfHundredth = 10;
        TimedPicture seen = shown_;
        if (std::ranges::all_of(seen.opacity, [](std::uint8_t opacity) { return opacity == kCovers; }))
            seen.opacity = {};
        const std::int32_t hundredths = picture.hundredths < shortest ? usual : picture.hundredths;
        seen.time = std::chrono::milliseconds(hundredths * millisecondsOfHundredth);
        return seen;
    }

    TimedPicture shown_;
    TimedPicture before_{Raster(0, 0)};
    GifPicture last_;
};

/// How many pictures of the file are read; 0 if it does not come to its end.
std::int64_t picturesToRead(std::string_view bytes, DotSize size) {
    std::int64_t count = 0;
    const bool isWhole = ForEachGifPicture(bytes, [&](const GifPicture&) {
        ++count;
        return true;
    });
    const bool canMove =
        count <= kMostAnimationPictures && count * size.width * size.height <= kMostAnimationPixels;
    return !isWhole ? 0 : canMove ? count : 1;
}

} // namespace

std::vector<TimedPicture> ReadGif(std::string_view bytes) {
    const DotSize size = GifSize(bytes).value_or(DotSize{});
    const auto fits = [](std::int32_t side) { return side >= 1 && side <= kLargestPictureSide; };
    const std::int64_t count = fits(size.width) && fits(size.height) ? picturesToRead(bytes, size) : 0;
    std::vector<TimedPicture> pictures;
    if (count == 0)
        return pictures;
    bool isWhole = true;
    GifCanvas canvas(size);
    pictures.reserve(static_cast<std::size_t>(count));
    ForEachGifPicture(bytes, [&](const GifPicture& picture) {
        std::optional<TimedPicture> seen = canvas.holds(picture) ? canvas.draw(picture) : std::nullopt;
        isWhole = seen.has_value();
        if (isWhole)
            pictures.push_back(*std::move(seen));
        return isWhole && std::ssize(pictures) < count;
    });
    if (!isWhole)
        pictures.clear();
    return pictures;
}

} // namespace qrtVistrelClasses4
