#include "tools/preview/GifFile.h"

#include "tools/preview/ColorReduction.h"
#include "tools/preview/LzwPacker.h"
#include "tools/preview/Palette.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <string>
#include <string_view>

namespace qrtVistrelClasses4 {
namespace {

constexpr std::int64_t kLongestDelay = 65535; ///< In hundredths of a second.

/// Moments come as sums, which may be a little less than what was added.
std::int64_t hundredthsOf(double seconds) {
    constexpr double hundredthsInSecond = 100;
    constexpr double lostInSums = 1e-6;
    return static_cast<std::int64_t>(std::floor(seconds * hundredthsInSecond + 0.5 + lostInSums));
}

void put16(std::string& text, std::int64_t number) {
    constexpr unsigned byteBits = 8;
    text += static_cast<char>(number);
    text += static_cast<char>(static_cast<std::uint64_t>(number) >> byteBits);
}

/// Bits of the numbers of so many colours, and of the pixels that stay. Compression needs at least two.
int bitsFor(std::size_t colors) {
    int bits = 2;
    while (colors + 1 > std::size_t{1} << static_cast<unsigned>(bits))
        ++bits;
    return bits;
}

/// A list of colours, with unused ones at the end.
std::string listOf(const std::vector<Color>& colors) {
    constexpr std::size_t channels = 3;
    std::string list;
    for (const Color color : colors)
        list.append({static_cast<char>(RedOf(color)), static_cast<char>(GreenOf(color)),
                     static_cast<char>(BlueOf(color))});
    list.resize((channels << static_cast<unsigned>(bitsFor(colors.size()))), '\0');
    return list;
}

constexpr int kHasList =
    0x80; ///< Bit of a byte with facts, whose lowest bits are the bits of numbers, less one.

/// A rectangle of pixels.
struct PixelBox {
    std::int32_t left = 0, top = 0, width = 0, height = 0;
};

/// The smallest one outside of which the pixels are the same. Pictures must have the same size.
PixelBox changedBox(const Raster& before, const Raster& after) {
    std::int32_t left = after.width(), right = 0, top = after.height(), bottom = 0;
    for (std::int32_t y = 0; y < after.height(); ++y) {
        const auto was = before.row(y);
        const auto row = after.row(y);
        const auto first = std::ranges::mismatch(was, row).in2;
        if (first == row.end())
            continue;
        top = std::min(top, y);
        bottom = y + 1;
        left = std::min(left, static_cast<std::int32_t>(first - row.begin()));
        std::int32_t last = after.width();
        while (last > right &&
               was[static_cast<std::size_t>(last) - 1] == row[static_cast<std::size_t>(last) - 1])
            --last;
        right = std::max(right, last);
    }
    return bottom == 0 ? PixelBox{} : PixelBox{left, top, right - left, bottom - top};
}

} // namespace

class GifWriter::Encoder {
public:
    Encoder(DotSize size, const std::vector<Color>& common, ByteSink& file) : file_(file), lzw_(file_) {
        for (const Color color : common)
            if (common_.colors().size() < kMostColors)
                common_.add(color);
        std::string start = "GIF89a";
        put16(start, size.width);
        put16(start, size.height);
        constexpr char facts = 0x70; // eight bits a channel
        start += static_cast<char>(facts | kHasList | (bitsFor(common_.colors().size()) - 1));
        start.append(2, '\0'); // background and shape of pixels, which viewers ignore
        start += listOf(common_.colors());
        start.append("\x21\xff\x0bNETSCAPE2.0\x03\x01").append(3, '\0'); // for ever
        file_.append(start);
    }

    void add(double from, double until, const Raster& pixels) {
        std::int64_t delay = hundredthsOf(until) - hundredthsOf(from);
        if (shown_ && delay == 0)
            return;
        const PixelBox box =
            shown_ ? changedBox(*shown_, pixels) : PixelBox{0, 0, pixels.width(), pixels.height()};
        const std::int64_t first = std::min(delay, kLongestDelay);
        if (box.width > 0)
            putPicture(box, pixels, first);
        else
            putNothing(first);
        for (delay -= first; delay > 0; delay -= std::min(delay, kLongestDelay))
            putNothing(std::min(delay, kLongestDelay));
        shown_ = pixels;
    }

    void finish() {
        file_.append(";");
        file_.finish();
    }

private:
    void putPicture(const PixelBox& box, const Raster& pixels, std::int64_t delay) {
        if (number(box, pixels, common_, false)) {
            putHead(box, common_.colors(), delay, nullptr);
            return lzw_.pack(numbers_, bitsFor(common_.colors().size()));
        }
        own_ = Palette();
        if (number(box, pixels, own_, true))
            return putWithOwnColors(box, own_.colors(), delay);
        putWithOwnColors(box, reduced(box, pixels), delay);
    }

    void putWithOwnColors(const PixelBox& box, const std::vector<Color>& colors, std::int64_t delay) {
        putHead(box, colors, delay, &colors);
        lzw_.pack(numbers_, bitsFor(colors.size()));
    }

    /// Keeps what is shown for longer.
    void putNothing(std::int64_t delay) {
        numbers_.assign(1, static_cast<std::uint8_t>(common_.colors().size()));
        putHead({0, 0, 1, 1}, common_.colors(), delay, nullptr);
        lzw_.pack(numbers_, bitsFor(common_.colors().size()));
    }

    /// Calls `use` for each pixel of a rectangle, with nothing for one that stays.
    template <class Use>
    void forEachPixel(const PixelBox& box, const Raster& pixels, Use use) const {
        const auto left = static_cast<std::size_t>(box.left);
        const auto width = static_cast<std::size_t>(box.width);
        for (std::int32_t y = box.top; y < box.top + box.height; ++y) {
            const auto row = pixels.row(y).subspan(left, width);
            const auto was = shown_ ? std::as_const(*shown_).row(y).subspan(left, width) : row;
            for (std::size_t x = 0; x < width; ++x)
                use(row[x], shown_ && row[x] == was[x]);
        }
    }

    /// Makes `numbers_` those of the pixels. Returns false if the table lacks the colour of a new one, or,
    /// with `grows`, has no room for it.
    bool number(const PixelBox& box, const Raster& pixels, Palette& table, bool grows) {
        numbers_.clear();
        numbers_.reserve(static_cast<std::size_t>(box.width) * static_cast<std::size_t>(box.height));
        bool areAll = true;
        forEachPixel(box, pixels, [&](Color color, bool stays) {
            if (stays || !areAll)
                return numbers_.push_back(kStays);
            if (grows && table.colors().size() < kMostColors)
                table.add(color);
            const auto found = table.numberOf(color);
            areAll = found.has_value();
            numbers_.push_back(found.value_or(kStays));
        });
        std::ranges::replace(numbers_, kStays, static_cast<std::uint8_t>(table.colors().size()));
        return areAll;
    }

    /// Makes `numbers_` those of likenesses, and returns their colours.
    std::vector<Color> reduced(const PixelBox& box, const Raster& pixels) {
        ColorReduction reduction;
        forEachPixel(box, pixels, [&](Color color, bool stays) {
            if (!stays)
                reduction.count(color);
        });
        std::vector<Color> colors = reduction.reduce(kMostColors);
        const auto staying = static_cast<std::uint8_t>(colors.size());
        numbers_.clear();
        forEachPixel(box, pixels, [&](Color color, bool stays) {
            numbers_.push_back(stays ? staying : reduction.numberOf(color));
        });
        return colors;
    }

    void putHead(const PixelBox& box, const std::vector<Color>& colors, std::int64_t delay,
                 const std::vector<Color>* own) {
        constexpr char staysAfterwards = 1 << 2, hasStaying = 1;
        std::string head("\x21\xf9\x04", 3);
        head += staysAfterwards | hasStaying;
        put16(head, delay);
        head += static_cast<char>(colors.size());
        head.append("\0\x2c", 2);
        for (const std::int32_t number : {box.left, box.top, box.width, box.height})
            put16(head, number);
        head += own ? static_cast<char>(kHasList | (bitsFor(own->size()) - 1)) : '\0';
        if (own)
            head += listOf(*own);
        file_.append(head);
    }

    static constexpr std::uint8_t kStays = kMostColors; ///< The number of no colour.

    BufferedText file_;
    LzwPacker lzw_;
    Palette common_;
    Palette own_;
    std::optional<Raster> shown_;
    std::vector<std::uint8_t> numbers_; ///< Of the pixels of the picture that is written.
};

GifWriter::GifWriter(DotSize size, const std::vector<Color>& common, ByteSink& file)
    : encoder_(std::make_unique<Encoder>(size, common, file)) {}
GifWriter::~GifWriter() = default;

void GifWriter::add(double from, double until, const Raster& pixels) { encoder_->add(from, until, pixels); }
void GifWriter::finish() { encoder_->finish(); }

} // namespace qrtVistrelClasses4
