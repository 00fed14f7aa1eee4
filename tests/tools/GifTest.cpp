// GIF files that the program writes, as two libraries read them.
#include "TempFolder.h"
#include "platform/Platform.h"
#include "platform/memory/KeptBytes.h"
#include "playfile/ReferenceFinder.h"
#include "tools/playfile/PlayTimes.h"
#include "tools/preview/FilmGif.h"
#include <qrtVistrelClasses4/LoadPlayfile.h>

#include <gif_lib.h>
#include <gtest/gtest.h>
#include <stb/stb_image.h>

#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <numeric>
#include <random>

namespace qrtVistrelClasses4 {
namespace {

/// What is shown until a moment, in hundredths of a second.
struct Shown {
    std::int64_t until;
    std::vector<Color> pixels;
    bool operator==(const Shown&) const = default;
};

/// The pictures one after the other; those that change nothing prolong the ones before.
class Screening {
public:
    void add(std::int64_t delay, const std::vector<Color>& pixels) {
        time_ += delay;
        if (!pictures.empty() && pictures.back().pixels == pixels)
            pictures.back().until = time_;
        else
            pictures.push_back({time_, pixels});
    }
    std::vector<Shown> pictures;

private:
    std::int64_t time_ = 0;
};

std::vector<Color> pixelsOf(const Raster& picture) {
    std::vector<Color> pixels;
    for (std::int32_t y = 0; y < picture.height(); ++y)
        pixels.insert(pixels.end(), picture.row(y).begin(), picture.row(y).end());
    return pixels;
}

std::vector<Shown> readByStb(const std::string& bytes) {
    int width = 0, height = 0, count = 0, channels = 0;
    int* delays = nullptr;
    const auto* data = reinterpret_cast<const stbi_uc*>(bytes.data());
    stbi_uc* const all = stbi_load_gif_from_memory(data, static_cast<int>(bytes.size()), &delays, &width,
                                                   &height, &count, &channels, 4);
    Screening screening;
    const std::size_t size = static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
    for (std::size_t number = 0; all && number < static_cast<std::size_t>(count); ++number) {
        std::vector<Color> pixels;
        for (const stbi_uc* at = all + number * size * 4; pixels.size() < size; at += 4)
            pixels.push_back(Rgb(at[0], at[1], at[2]));
        screening.add(delays[number] / 10, pixels);
    }
    std::free(all);
    std::free(delays);
    return screening.pictures;
}

int readBytes(GifFileType* gif, GifByteType* place, int size) {
    auto& rest = *static_cast<std::string_view*>(gif->UserData);
    const std::size_t taken = rest.copy(reinterpret_cast<char*>(place), static_cast<std::size_t>(size));
    rest.remove_prefix(taken);
    return static_cast<int>(taken);
}

std::vector<Shown> readByGiflib(const std::string& bytes) {
    std::string_view rest = bytes;
    int error = 0;
    GifFileType* const gif = DGifOpen(&rest, &readBytes, &error);
    Screening screening;
    if (!gif)
        return {};
    if (DGifSlurp(gif) == GIF_OK && rest.empty()) {
        std::vector<Color> canvas(static_cast<std::size_t>(gif->SWidth) *
                                  static_cast<std::size_t>(gif->SHeight));
        for (int number = 0; number < gif->ImageCount; ++number) {
            const SavedImage& image = gif->SavedImages[number];
            const GifImageDesc& box = image.ImageDesc;
            const ColorMapObject* map = box.ColorMap ? box.ColorMap : gif->SColorMap;
            GraphicsControlBlock control{};
            DGifSavedExtensionToGCB(gif, number, &control);
            for (int i = 0; i < box.Width * box.Height; ++i) {
                const int index = image.RasterBits[i];
                const GifColorType& color = map->Colors[index];
                if (index != control.TransparentColor)
                    canvas[static_cast<std::size_t>((box.Top + i / box.Width) * gif->SWidth + box.Left +
                                                    i % box.Width)] = Rgb(color.Red, color.Green, color.Blue);
            }
            screening.add(control.DelayTime, canvas);
        }
    }
    DGifCloseFile(gif, &error);
    return screening.pictures;
}

/// Fills pixels with colours from a number of them.
void scatter(Raster& picture, std::uint32_t colors, std::mt19937& dice) {
    for (std::int32_t y = 0; y < picture.height(); ++y)
        for (Color& pixel : picture.row(y))
            pixel = (dice() % colors) * 0x03070b & 0xffffff;
}

TEST(Gif, HasEveryPixelOfEveryPicture) {
    struct Case {
        DotSize size;
        std::uint32_t colors; ///< Of the first picture, and of what changes.
        std::size_t common;   ///< Colours that the file is said to have.
    };
    std::mt19937 dice(1);
    for (const auto& [size, colors, common] :
         {Case{{1, 1}, 1, 0}, Case{{1, 1}, 9, 1}, Case{{37, 11}, 2, 2}, Case{{37, 11}, 3, 1},
          Case{{640, 400}, 1, 1}, Case{{90, 90}, 16, 16}, Case{{90, 90}, 129, 60}, Case{{300, 200}, 255, 255},
          Case{{300, 200}, 255, 0}}) {
        std::vector<Color> known;
        for (std::uint32_t color = 0; color < common; ++color)
            known.push_back(color * 0x03070b & 0xffffff);
        KeptBytes file;
        GifWriter gif(size, known, file);
        Screening wanted;
        Raster picture(size.width, size.height);
        scatter(picture, colors, dice);
        std::int64_t time = 0;
        for (int number = 0; number < 12; ++number) {
            const std::int64_t delay = number == 7 ? 150'000 : 1 + static_cast<std::int64_t>(dice() % 9);
            gif.add(static_cast<double>(time) / 100, static_cast<double>(time + delay) / 100, picture);
            wanted.add(delay, pixelsOf(picture));
            time += delay;
            Raster patch(1 + static_cast<std::int32_t>(dice()) % size.width / 2, size.height);
            scatter(patch, colors, dice);
            for (std::int32_t y = static_cast<std::int32_t>(dice() % 3); y < size.height; y += 2)
                std::ranges::copy(std::as_const(patch).row(y), picture.row(y).begin());
        }
        gif.finish();
        EXPECT_TRUE(readByGiflib(file.text) == wanted.pictures) << size.width << ' ' << colors;
        EXPECT_TRUE(readByStb(file.text) == wanted.pictures) << size.width << ' ' << colors;
    }
}

TEST(Gif, HasLikenessesOfTooManyColors) {
    Raster picture(64, 64);
    for (std::int32_t y = 0; y < 64; ++y)
        for (std::int32_t x = 0; x < 64; ++x)
            picture.row(y)[static_cast<std::size_t>(x)] =
                Rgb(static_cast<std::uint8_t>(4 * x), static_cast<std::uint8_t>(4 * y), 90);
    KeptBytes file;
    GifWriter gif(picture.size(), {}, file);
    gif.add(0, 1, picture);
    gif.finish();
    const auto shown = readByGiflib(file.text);
    ASSERT_EQ(shown.size(), 1U);
    EXPECT_TRUE(readByStb(file.text) == shown);
    const std::vector<Color> wanted = pixelsOf(picture);
    for (std::size_t i = 0; i < wanted.size(); ++i)
        ASSERT_TRUE(std::abs(RedOf(wanted[i]) - RedOf(shown[0].pixels[i])) <= 16 &&
                    std::abs(GreenOf(wanted[i]) - GreenOf(shown[0].pixels[i])) <= 16 &&
                    BlueOf(shown[0].pixels[i]) == 90)
            << i;
}

/// Much of a sample's film: effects, words that blink, a loop and a clock.
TEST(Gif, ShowsTheFilm) {
    const TempFolder home;
    std::filesystem::copy(QRT_SAMPLES_FOLDER, home.path(), std::filesystem::copy_options::recursive);
    const auto machine = makePlatform({.home = home.path()});
    const ScopedPlatform scope(*machine);
    ErrorLines errors;
    FilmCircumstances circumstances;
    circumstances.timing = LoadPlayTimeCircumstances(errors);
    circumstances.timing.moment = std::chrono::local_days(std::chrono::days(20000));
    Playfile playfile = LoadPlayfile(home.path() + "/harbour.playfile", {}).playfile;
    FindPictures(playfile.frames, playfile.fileName);
    std::vector<std::int32_t> frames(static_cast<std::size_t>(playfile.frames.upperBound()));
    std::iota(frames.begin(), frames.end(), 1);
    Film film = FilmOf(playfile, circumstances);
    for (const DotLook look : {DotLook{true, 2}, DotLook{false, 2}}) {
        FilmCut cut(film, frames, 20);
        KeptBytes file;
        FilmGif gif(cut, look, file);
        Screening wanted;
        Raster picture(look.sizeOf(film.size()).pixels().width, look.sizeOf(film.size()).pixels().height);
        cut.forEachPicture(0.1, [&](double from, double until, const Raster& dots) {
            gif.add(from, until, dots);
            if (look.isPlain)
                for (std::int32_t y = 0; y < picture.height(); ++y)
                    for (std::int32_t x = 0; x < picture.width(); ++x)
                        picture.row(y)[static_cast<std::size_t>(x)] =
                            dots.row(y / look.scale)[static_cast<std::size_t>(x / look.scale)];
            else
                LedPainter(look.scale).draw(dots, picture, 0, 0);
            wanted.add(std::llround(until * 100) - std::llround(from * 100), pixelsOf(picture));
            return true;
        });
        gif.finish();
        EXPECT_GT(wanted.pictures.size(), 70U);
        EXPECT_TRUE(readByGiflib(file.text) == wanted.pictures) << look.scale;
        EXPECT_TRUE(readByStb(file.text) == wanted.pictures) << look.scale;
    }
}

} // namespace
} // namespace qrtVistrelClasses4
