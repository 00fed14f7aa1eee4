#include "tools/preview/PngFile.h"

#include "platform/memory/KeptBytes.h"
#include <qrtVistrelClasses4/RuntimeError.h>

#include <gtest/gtest.h>
#include <lodepng.h>

namespace qrtVistrelClasses4 {
namespace {

Raster pictureOf(std::uint32_t colors) {
    Raster picture(311, 200);
    for (std::uint32_t number = 0; number < 311 * 200; ++number)
        picture.row(static_cast<std::int32_t>(number / 311))[number % 311] =
            number % colors * 0x10203 & 0xffffff;
    return picture;
}

void write(const Raster& picture, const Palette& palette, ByteSink& file) {
    PngWriter png(picture.size(), palette, file);
    png.write(picture);
    png.finish();
}

TEST(Png, HoldsThePixelsForAnyDecoder) {
    for (const std::uint32_t colors : {1U, 2U, 4U, 16U, 256U, 257U, 60000U}) {
        const Raster picture = pictureOf(colors);
        Palette palette;
        palette.add(picture);
        KeptBytes file;
        write(picture, palette, file);
        std::vector<unsigned char> wanted, decoded;
        for (std::int32_t y = 0; y < picture.height(); ++y)
            for (const Color color : picture.row(y))
                wanted.insert(wanted.end(), {RedOf(color), GreenOf(color), BlueOf(color)});
        unsigned width = 0, height = 0;
        lodepng::decode(decoded, width, height,
                        std::vector<unsigned char>(file.text.begin(), file.text.end()), LCT_RGB);
        EXPECT_EQ(std::pair(width, height), std::pair(311U, 200U));
        EXPECT_TRUE(decoded == wanted) << colors;
    }
}

TEST(Png, RefusesColoursThatCameLaterAndAFullDisk) {
    struct FullDisk final : ByteSink {
        SystemError write(std::string_view) override { return SystemError::diskFull; }
    } full;
    Palette few, many;
    few.add(pictureOf(2));
    many.add(pictureOf(60000));
    for (const auto& [palette, error] : {std::pair(&few, 51), std::pair(&many, 61)})
        try {
            write(pictureOf(60000), *palette, full);
            ADD_FAILURE() << "no error " << error;
        } catch (const RuntimeError& thrown) {
            EXPECT_EQ(thrown.number(), error);
        }
}

} // namespace
} // namespace qrtVistrelClasses4
