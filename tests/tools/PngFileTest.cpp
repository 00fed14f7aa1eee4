#include "tools/preview/PngFile.h"

#include <gtest/gtest.h>
#include <lodepng.h>

#include <vector>

namespace qrtVistrelClasses4 {
namespace {

TEST(Png, HoldsThePixelsForAnyDecoder) {
    for (const std::uint32_t colors : {1U, 256U, 257U, 60000U}) {
        SCOPED_TRACE(colors);
        Raster picture(311, 200);
        std::vector<unsigned char> wanted, decoded;
        for (std::uint32_t number = 0; number < 311 * 200; ++number) {
            const Color color = number % colors * 0x10203 & 0xffffff;
            picture.row(static_cast<std::int32_t>(number / 311))[number % 311] = color;
            wanted.insert(wanted.end(), {RedOf(color), GreenOf(color), BlueOf(color)});
        }
        const std::string png = EncodePng(picture);
        unsigned width = 0, height = 0;
        lodepng::decode(decoded, width, height, std::vector<unsigned char>(png.begin(), png.end()), LCT_RGB);
        EXPECT_EQ(std::pair(width, height), std::pair(311U, 200U));
        EXPECT_TRUE(decoded == wanted);
    }
}

} // namespace
} // namespace qrtVistrelClasses4
