#include "media/AnimationFile.h"

#include "AnimationTesting.h"

#include <algorithm>
#include <vector>

namespace qrtVistrelClasses4 {
namespace {

TEST(AnimationFile, CountsPicturesAndTakesNothingFromWhatIsCutShort) {
    for (const std::string& whole : {Avi(3, 128, 64), Gif(3, 128, 64)}) {
        EXPECT_EQ(ParseAnimation(whole), (Animation{{128, 64}, 3}));
        EXPECT_EQ(ParseAnimation(whole + "more"), (Animation{{128, 64}, 3}));
        for (std::size_t size = 0; size < whole.size(); ++size)
            EXPECT_EQ(ParseAnimation(whole.substr(0, size)), std::nullopt) << size;
    }
    EXPECT_EQ(ParseAnimation(Avi(0x80000000, 128, 64)), std::nullopt);
    EXPECT_EQ(ParseAnimation(Avi(3, 0x10000, 64)), std::nullopt);
    EXPECT_EQ(ParseAnimation(Gif(3, 0, 64)), std::nullopt);
}

/// A chunk of an AVI; those in it follow the kind of a list.
std::string chunk(const std::string& mark, const std::string& data) {
    return mark + BytesOf(static_cast<std::uint32_t>(data.size()), 4) + data +
           std::string(data.size() % 2, '\0');
}

TEST(AnimationFile, OfAnUncompressedAviHasAFirstPicture) {
    const std::string rows24("\0\0\xff\0\xff\0\xff\0\0\0\0\0", 12), rows8("\1\2\3\0", 4);
    const auto avi = [&](const std::string& bmp, const std::string& rows, const std::string& movi) {
        const std::string sound = chunk("LIST", "strl" + chunk("strh", "auds") + chunk("strf", "sound"));
        const std::string film =
            chunk("LIST", "strl" + chunk("strh", "vids") +
                              chunk("strf", bmp.substr(14, bmp.size() - 14 - rows.size())));
        constexpr std::size_t restOfHeader = 16;
        return Avi(1, 3, 1) + std::string(restOfHeader, '\0') + sound + film + chunk("JUNK", "abc") + movi;
    };
    const auto inMovi = [](const std::string& chunks) { return chunk("LIST", "movi" + chunks); };
    const struct {
        const char* why;
        std::string file;
        bool isRead = true;
    } cases[] = {
        {"three bytes a pixel", avi(Bmp(24, rows24, 1), rows24, inMovi(chunk("01db", rows24)))},
        {"a palette, in a list of records, after sound and an empty picture",
         avi(Bmp(8, rows8, 1), rows8,
             inMovi(chunk("JUNK", "x") + chunk("00wb", "sound") + chunk("01db", "") +
                    chunk("LIST", "rec " + chunk("01db", rows8))))},
        {"compressed", avi(Bmp(8, rows8, 1, 1), rows8, inMovi(chunk("01db", rows8))), false},
        {"compressed data", avi(Bmp(8, rows8, 1), rows8, inMovi(chunk("01dc", rows8))), false},
        {"data of another stream", avi(Bmp(8, rows8, 1), rows8, inMovi(chunk("00db", rows8))), false},
        {"no data", avi(Bmp(8, rows8, 1), rows8, ""), false},
    };
    const std::vector colors{Rgb(255, 0, 0), Rgb(0, 255, 0), Rgb(0, 0, 255)};
    for (const auto& [why, file, isRead] : cases) {
        const auto picture = FirstPictureOfAvi(file);
        ASSERT_EQ(picture.has_value(), isRead) << why;
        const Raster pixels = picture.value_or(Raster(0, 1));
        EXPECT_TRUE(!isRead || std::ranges::equal(pixels.row(0), colors)) << why;
        for (std::size_t size = 0; size < file.size(); ++size)
            EXPECT_FALSE(FirstPictureOfAvi(file.substr(0, size))) << why << ", cut short at " << size;
    }
}

} // namespace
} // namespace qrtVistrelClasses4
