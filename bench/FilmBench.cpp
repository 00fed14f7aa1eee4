// A second of a film after the other, at 30 pictures a second on a large sign, against a quarter of a second
// of processor time; and a GIF of its pictures, against the same by giflib.
#include "bench/Subjects.h"
#include "bench/Timing.h"
#include "platform/Platform.h"
#include "tools/preview/GifFile.h"
#include "tools/preview/Palette.h"
#include <qrtVistrelClasses4/Film.h>
#include <qrtVistrelClasses4/FrameRecord.h>
#include <qrtVistrelClasses4/Playfile.h>
#include <qrtVistrelClasses4/Transitions.h>

#include <gif_lib.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <ctime>
#include <memory>
#include <string>
#include <vector>

namespace qrtVistrelClasses4::bench {
namespace {

constexpr DotSize kLargeSign{256, 64};
constexpr int kPicturesASecond = 30;
constexpr std::int32_t kLines = 8;

/// Frames with all effects, and lines that scroll, blink, and show the time.
Playfile movingPlayfile() {
    const std::vector<NamedTransition> on = AppearingTransitions(), off = DisappearingTransitions();
    Playfile playfile;
    playfile.frames.resize(static_cast<std::int32_t>(on.size()));
    std::size_t number = 0;
    for (FrameRecord& frame : playfile.frames) {
        frame.FrameType = static_cast<std::int16_t>(NEW_FRAME_TYPES::FRAME_TEXT);
        frame.DelayTime = 1;
        frame.PrefixCode = on[number].code;
        frame.SuffixCode = off[number++].code;
        frame.lines.resize(kLines);
        for (std::int32_t line = 1; line <= kLines; ++line) {
            frame.lines.at(line).CurrentLineText =
                "Platform 4, departing at |h:m|, all stations to the harbour";
            frame.lines.at(line).Scrolling = line % 2 == 0;
            frame.lines.at(line).Blinking = line % 3 == 0;
            frame.lines.at(line).Inverse = line % 4 == 0;
        }
    }
    return playfile;
}

/// A film that goes on from where it was, and starts again after its end.
class EndlessFilm {
public:
    EndlessFilm() : film_(FilmOf(movingPlayfile(), circumstances())) {}

    template <class OnDots>
    void playSecond(OnDots onDots) {
        for (int picture = 0; picture < kPicturesASecond; ++picture)
            onDots(film_.dotsAt(second_ + static_cast<double>(picture) / kPicturesASecond));
        second_ = second_ + 1 < film_.seconds() ? second_ + 1 : 0;
    }
    /// Of the frames so far.
    bool hasFonts() { return std::ranges::count(film_.takeFaults(), 0, &PreviewFault::frame) == 0; }

private:
    static FilmCircumstances circumstances() {
        FilmCircumstances circumstances;
        circumstances.sign.size = kLargeSign;
        return circumstances;
    }

    Film film_;
    double second_ = 0;
};

void beBusyForAQuarter() {
    const std::clock_t end = std::clock() + CLOCKS_PER_SEC / 4;
    while (std::clock() < end) {
    }
}

/// Counts the bytes of a file.
struct CountedBytes final : ByteSink {
    std::size_t count = 0;
    SystemError write(std::string_view bytes) override {
        count += bytes.size();
        return SystemError::none;
    }
};

void writeGif(const std::vector<Raster>& pictures, const Palette& palette) {
    CountedBytes file;
    GifWriter gif(kLargeSign, palette.colors(), file);
    double second = 0;
    for (const Raster& picture : pictures) {
        gif.add(second, second + 1.0 / kPicturesASecond, picture);
        second += 1.0 / kPicturesASecond;
    }
    gif.finish();
    benchmark::DoNotOptimize(file.count);
}

/// Each picture as a whole, which is what the library does of itself.
void writeByGiflib(const std::vector<Raster>& pictures, const Palette& palette) {
    std::size_t count = 0;
    const auto keep = [](GifFileType* gif, const GifByteType*, int size) {
        *static_cast<std::size_t*>(gif->UserData) += static_cast<std::size_t>(size);
        return size;
    };
    constexpr int bits = 8, colors = 1 << bits, delay = 3;
    int error = 0;
    GifFileType* const gif = EGifOpen(&count, keep, &error);
    ColorMapObject* const map = GifMakeMapObject(colors, nullptr);
    for (std::size_t i = 0; i < palette.colors().size(); ++i)
        map->Colors[i] = {RedOf(palette.colors()[i]), GreenOf(palette.colors()[i]),
                          BlueOf(palette.colors()[i])};
    EGifSetGifVersion(gif, true);
    bool isDone = EGifPutScreenDesc(gif, kLargeSign.width, kLargeSign.height, bits, 0, map) == GIF_OK;
    std::vector<std::uint8_t> numbers(static_cast<std::size_t>(kLargeSign.width));
    const GraphicsControlBlock control{DISPOSE_DO_NOT, false, delay, NO_TRANSPARENT_COLOR};
    for (const Raster& picture : pictures) {
        std::array<GifByteType, 4> extension{};
        EGifGCBToExtension(&control, extension.data());
        EGifPutExtension(gif, GRAPHICS_EXT_FUNC_CODE, extension.size(), extension.data());
        EGifPutImageDesc(gif, 0, 0, kLargeSign.width, kLargeSign.height, false, nullptr);
        for (std::int32_t y = 0; y < picture.height(); ++y) {
            palette.number(picture.row(y), numbers);
            isDone = isDone && EGifPutLine(gif, numbers.data(), kLargeSign.width) == GIF_OK;
        }
    }
    GifFreeMapObject(map);
    EGifCloseFile(gif, &error);
    Require(isDone, "giflib writes no file");
    benchmark::DoNotOptimize(count);
}

/// Pictures of half a minute, and as many of their colours as a file has.
struct Recording {
    std::vector<Raster> pictures;
    Palette palette;
};
Recording recordingOf(EndlessFilm& film) {
    constexpr int seconds = 30;
    Recording recording;
    for (int second = 0; second < seconds; ++second)
        film.playSecond([&](const Raster& dots) {
            recording.pictures.push_back(dots);
            recording.palette.add(dots);
        });
    return recording;
}

} // namespace

std::vector<Ratio> FilmSubject(const BenchFolder& folder) {
    const std::string home = folder.homeWithFonts("film");
    const auto film = [&] {
        const auto machine = makePlatform({home});
        const ScopedPlatform use(*machine);
        auto made = std::make_shared<EndlessFilm>();
        made->playSecond([](const Raster&) {});
        Require(made->hasFonts(), "fonts are missing");
        return made;
    }();
    RegisterWork("film/second", [film, home](benchmark::State& state) {
        const auto machine = makePlatform({home});
        const ScopedPlatform use(*machine);
        TimeWork(state, [&] {
            film->playSecond([](const Raster& dots) { benchmark::DoNotOptimize(dots.row(0).data()); });
        });
    });
    RegisterWork("film/quarter", [](benchmark::State& state) { TimeWork(state, beBusyForAQuarter); });
    const auto record = [home] {
        const auto machine = makePlatform({home});
        const ScopedPlatform use(*machine);
        EndlessFilm recorded;
        return recordingOf(recorded);
    };
    RegisterWork("film/gif", [record](benchmark::State& state) {
        const Recording recording = record();
        TimeWork(state, [&] { writeGif(recording.pictures, recording.palette); });
    });
    RegisterWork("film/giflib", [record](benchmark::State& state) {
        const Recording recording = record();
        TimeWork(state, [&] { writeByGiflib(recording.pictures, recording.palette); });
    });
    return {{"second of a film on 256 x 64", "film/second", "film/quarter", Bound::aim, 1},
            {"GIF of a film, giflib", "film/gif", "film/giflib", Bound::must, 2}};
}

} // namespace qrtVistrelClasses4::bench
