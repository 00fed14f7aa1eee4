// Pictures in PNG, JPEG and GIF files: every form has known pixels, and whatever is damaged has none.
#include "media/BmpTesting.h"
#include "tools/preview/GifPictures.h"
#include "tools/preview/PictureFiles.h"

#include <gtest/gtest.h>

#include <chrono>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace qrtVistrelClasses4 {
namespace {

std::string bytesOf(const std::string& name) {
    std::ifstream file(VISTREL_PICTURES_FOLDER "/" + name, std::ios::binary);
    return {std::istreambuf_iterator(file), {}};
}

/// A letter for each pixel that is `step` pixels from the next one: "R", "G", "B", "W", "." for black, "_"
/// for one that covers nothing, "r" for half a red one, "0" to "9" for greys.
std::string lettersOf(const TimedPicture& picture, std::int32_t step) {
    std::string letters;
    const std::int32_t width = picture.pixels.width();
    for (std::int32_t y = 0; y < picture.pixels.height(); y += step)
        for (std::int32_t x = 0; x < width; x += step) {
            const auto place =
                static_cast<std::size_t>(y) * static_cast<std::size_t>(width) + static_cast<std::size_t>(x);
            const Color pixel = picture.pixels.row(y)[static_cast<std::size_t>(x)];
            const bool isRed = RedOf(pixel) > 200, isGreen = GreenOf(pixel) > 200,
                       isBlue = BlueOf(pixel) > 200;
            letters += !picture.opacity.empty() && picture.opacity[place] == 0 ? '_'
                       : isRed && isGreen && isBlue                            ? 'W'
                       : isRed                                                 ? 'R'
                       : isGreen                                               ? 'G'
                       : isBlue                                                ? 'B'
                       : pixel == 0                                            ? '.'
                       : pixel == Rgb(128, 0, 0)                               ? 'r'
                                                 : static_cast<char>('0' + RedOf(pixel) / 26);
        }
    return letters;
}

TEST(PictureFiles, HaveKnownPixelsAndNoneIfTheyAreCutShort) {
    PictureFiles reader;
    const struct {
        std::string name;
        std::string pictures = "0:RGB...WR";
        std::int32_t step = 1;
    } cases[] = {
        {"plain.png"},
        {"palette.png"},
        {"sixteen-bits.png"},
        {"interlaced.png"},
        {"clear.png", "0:RGB..._r"},
        {"plain.jpg", "0:RGB...WR", 8},
        {"progressive.jpg", "0:RGB...WR", 8},
        {"grey.jpg", "0:251...W2", 8},
        {"plain.gif", "100:RGB...WR"},
        {"interlaced.gif", "100:RRGGBBRRRRGGGGBBBBRR"},
        {"moving.gif", "200:RRRR_BB_100:RGGR_GB_100:RRRRGGB_300:RRRR__BR"},
    };
    for (const auto& [name, pictures, step] : cases) {
        SCOPED_TRACE(name);
        const std::string bytes = bytesOf(name);
        std::string read;
        for (const TimedPicture& picture : reader.read(bytes))
            read += std::to_string(picture.time.count()) + ":" + lettersOf(picture, step);
        EXPECT_EQ(read, pictures);
        EXPECT_TRUE(reader.readsFiles(name));
        constexpr std::size_t checksum = 4; // at the end of a PNG
        for (std::size_t size = 0; size < bytes.size() - checksum; ++size)
            EXPECT_TRUE(reader.read(bytes.substr(0, size)).empty()) << size;
    }
    EXPECT_FALSE(reader.readsFiles("film.avi"));
}

/// A GIF of one colour, of which each picture needs few bytes.
std::string gif(std::uint32_t side, std::size_t pictures, std::uint32_t pictureSide) {
    std::string bytes =
        "GIF89a" + BytesOf(side, 2) + BytesOf(side, 2) + "\x80" + BytesOf(0, 2) + BytesOf(0xff, 6);
    for (; pictures > 0; --pictures)
        bytes += "," + BytesOf(0, 4) + BytesOf(pictureSide, 2) + BytesOf(pictureSide, 2) + BytesOf(0, 1) +
                 "\2" + "\2\x44\1" + BytesOf(0, 1);
    return bytes + ";";
}

TEST(PictureFiles, CostNoMoreThanTheirBounds) {
    PictureFiles reader;
    EXPECT_EQ(reader.read(gif(1, 2, 1)).size(), 2U);
    EXPECT_EQ(reader.read(gif(1, kMostAnimationPictures + 1, 1)).size(), 1U) << "too many pictures";
    EXPECT_EQ(reader.read(gif(kLargestPictureSide, 3, 1)).size(), 1U) << "too many pixels";
    EXPECT_TRUE(reader.read(gif(kLargestPictureSide + 1, 1, 1)).empty());
    EXPECT_TRUE(reader.read(gif(1, 1, 2)).empty()) << "a picture beyond the whole";
    EXPECT_TRUE(reader.read(gif(2, 1, 2)).empty()) << "data that ends too early";
    for (const char* name : {"plain.png", "plain.jpg"}) {
        std::string large = bytesOf(name);
        const std::size_t width = name == std::string("plain.png") ? 18 : large.find("\xff\xc0") + 5;
        large.replace(width, 2, "\x08\x01");
        EXPECT_TRUE(reader.read(large).empty()) << name;
    }
    const std::string jpeg = bytesOf("progressive.jpg");
    const std::size_t last = jpeg.rfind("\xff\xda");
    std::string scans = jpeg.substr(0, last);
    for (int scan = 0; scan < 200; ++scan)
        scans += jpeg.substr(last, jpeg.size() - last - 2);
    EXPECT_TRUE(reader.read(scans + "\xff\xd9").empty()) << "scans that each take time";
    const std::string codes =
        "\xff\xc4\2\x11" + std::string(1 + 14, '\0') + std::string(2, '\xff') + std::string(510, '\1');
    EXPECT_TRUE(reader.read(jpeg.substr(0, 2) + codes + jpeg.substr(2)).empty())
        << "more codes than there are";
}

} // namespace
} // namespace qrtVistrelClasses4
