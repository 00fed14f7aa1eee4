#include <qrtVistrelClasses4/Film.h>

#include "fonts/FontTesting.h"
#include "preview/PreviewTesting.h"
#include <qrtVistrelClasses4/DisplayRecord.h>
#include <qrtVistrelClasses4/LoadPlayfile.h>
#include <qrtVistrelClasses4/PictureReader.h>

#include <chrono>
#include <cmath>
#include <fstream>
#include <iterator>

namespace qrtVistrelClasses4 {
namespace {

using namespace std::chrono;

FrameRecord frame(const std::vector<LineRecord>& lines, double seconds, std::int16_t prefix = 0,
                  std::int16_t suffix = 0) {
    FrameRecord frame;
    frame.FrameType = 2;
    frame.DelayTime = seconds;
    frame.PrefixCode = prefix;
    frame.SuffixCode = suffix;
    frame.lines.resize(static_cast<std::int32_t>(lines.size()));
    std::ranges::copy(lines, frame.lines.begin());
    return frame;
}

class Films : public HostTest {
protected:
    Films() {
        Font tiny = FontOf(4, {"###", "#.."});
        for (const char digit : std::string("0123456789"))
            AddLetter(tiny, digit, digit % 2 == 0 ? Texts{"##", "##"} : Texts{".#", ".#"});
        files().put(host_.inLibrary("CustomFonts/tiny"), HeaderFontBytes(tiny));
        circumstances_.sign.size = DotSize{4, 2};
        circumstances_.timing.moment = local_days(2026y / November / 22) + 23h + 59min + 58s;
    }
    Film filmOf(const std::vector<FrameRecord>& frames) const {
        Playfile playfile;
        playfile.frames.resize(static_cast<std::int32_t>(frames.size()));
        std::ranges::copy(frames, playfile.frames.begin());
        return FilmOf(std::move(playfile), circumstances_);
    }
    std::string putSample(const std::string& name) {
        std::ifstream file(QRT_SAMPLES_FOLDER "/" + name, std::ios::binary);
        files().put(host_.inLibrary(name), std::string(std::istreambuf_iterator(file), {}));
        return host_.inLibrary(name);
    }
    /// All pictures that differ from the one before, each with the moment of its start.
    static std::string played(Film film) {
        std::string all, last;
        for (std::optional<double> moment = 0; moment; moment = film.nextChange(*moment))
            if (const std::string rows = rowsOf(film.dotsAt(*moment)); rows != std::exchange(last, rows))
                all += (all.empty() ? "" : ", ") + std::to_string(std::lround(*moment * 1000)) + ": " + rows;
        return all;
    }

    FilmCircumstances circumstances_;
};

TEST_F(Films, ShowWhatMoves) {
    const auto scrolling = &LineRecord::Scrolling, blinking = &LineRecord::Blinking;
    const FrameRecord over = frame({line("1")}, 0.8, 15);
    FrameRecord blank = frame({line("A")}, 9);
    blank.FrameType = 0;
    circumstances_.timing.scrollingTextSpeed = 2; // 40 dots a second
    const struct {
        const char* why;
        std::vector<FrameRecord> frames;
        std::string pictures;
    } cases[] = {
        {"a line that scrolls, and is gone",
         {frame({line("A", scrolling)}, 0.25)},
         "0: .... ...., 50: ...# ...#, 75: ..## ..#., 100: .### .#.., 125: ###. #..., 150: ##.. ...., "
         "175: .... ...."},
        {"one that blinks, also below another",
         {frame({line("A", blinking)}, 1.2), over},
         "0: .### .#.., 500: .... ...., 1000: .### .#.., 1200: .### .##., 1700: ..#. ..#., "
         "2000: .### .##."},
        {"a clock at midnight", {frame({line("|hm|")}, 5)}, "0: .##. .##., 2000: .### .###"},
        {"an effect between two pictures",
         {frame({line("A")}, 1), frame({line("1")}, 1, 5000)},
         "0: .### .#.., 1013: ###. #..., 1025: ##.. ...., 1038: #..# ...#, 1050: ..#. ..#."},
        {"one that leaves nothing",
         {frame({line("A")}, 1, 0, 2000), blank},
         "0: .### .#.., 1025: ..## ...., 1038: ...# ...., 1050: .... ...."},
        {"jumping off", {frame({line("A")}, 1, 0, 1000)}, "0: .### .#.., 1000: .... ...."},
        {"a loop",
         {frame({line("A")}, 1, 20002), frame({line("1")}, 1, 0, 20001)},
         "0: .### .#.., 1000: ..#. ..#., 2000: .### .#.., 3000: ..#. ..#."},
        {"blank frames only", {blank}, "0: .... ...."},
    };
    for (const auto& [why, frames, pictures] : cases)
        EXPECT_EQ(played(filmOf(frames)), pictures) << why;
}

/// A number that depends on all dots, and on `hash`.
std::uint64_t hashOf(const Raster& dots, std::uint64_t hash) {
    for (std::int32_t y = 0; y < dots.height(); ++y)
        for (const Color dot : dots.row(y))
            hash = (hash ^ dot) * 0x100000001b3;
    return hash;
}

TEST_F(Films, OfTheSamplesAreTheSameOnEverySystemAndInAnyOrder) {
    Font noise = ParseFont({}, 6, 8).value();
    unsigned seed = 1;
    for (std::uint8_t& byte : noise.store)
        byte = static_cast<std::uint8_t>((seed = seed * 1664525 + 1013904223) >> 24);
    for (std::size_t letter = 0; letter < 96; ++letter)
        noise.store[letter * 9] = 6;
    files().put(host_.inLibrary("bin/Fstnd08.cmd"), SizedFontBytes(noise));
    putSample("anchor.bmp");
    circumstances_.sign.size = DotSize{48, 16};
    const std::pair<const char*, std::uint64_t> samples[] = {{"harbour", 11904891144261434866U},
                                                             {"plant", 7684288204139435992U}};
    for (const auto& [name, wanted] : samples) {
        const Playfile playfile = LoadPlayfile(putSample(name + std::string(".playfile")), {}).playfile;
        Film film = FilmOf(playfile, circumstances_);
        std::vector<std::pair<double, std::uint64_t>> pictures;
        std::uint64_t all = 1;
        for (int tenth = 0; tenth / 10.0 <= film.seconds() + 1; ++tenth) {
            pictures.emplace_back(tenth / 10.0, hashOf(film.dotsAt(tenth / 10.0), 0));
            all = hashOf(film.dotsAt(tenth / 10.0), all);
        }
        EXPECT_EQ(all, wanted) << name;
        EXPECT_GT(std::ranges::count(film.takeFaults(), 0, &PreviewFault::frame), 0) << "missing fonts";
        for (std::size_t place = 0; place < pictures.size(); ++place) {
            const auto& [moment, hash] = pictures[place * 37 % pictures.size()];
            ASSERT_EQ(hashOf(film.dotsAt(moment), 0), hash) << name << moment;
            const double until = film.nextChange(moment).value_or(moment + 1) - 2e-6;
            ASSERT_EQ(hashOf(film.dotsAt(std::max(until, moment)), 0), hash) << name << moment;
        }
    }
}

/// Knows one animation: a column at the left, then one at the right, which lets a quarter through.
struct MovingColumn final : PictureReader {
    bool readsFiles(std::string_view /*name*/) override { return true; }
    std::vector<TimedPicture> read(std::string_view bytes) override {
        if (bytes != "moves")
            return {};
        const TimedPicture left{Raster(1, 2, Rgb(255, 255, 255)), {255, 255}, milliseconds(200)};
        TimedPicture right{Raster(4, 2), {0, 0, 0, 191, 0, 0, 0, 191}, milliseconds(300)};
        right.pixels.fill(3, 0, 1, 2, Rgb(191, 191, 191));
        return {left, right};
    }
};

TEST_F(Films, ShowPicturesThatMoveInAnyOrder) {
    MovingColumn reader;
    const ScopedPictureReader readerScope(reader);
    FrameRecord column = frame({}, 1.1, 0, 2000);
    column.FrameType = 1;
    column.PicturefileName = host_.inLibrary("column.png");
    files().put(column.PicturefileName, "moves");
    FrameRecord staying = column;
    staying.SuffixCode = 0;
    const std::vector frames{staying, frame({line("1")}, 0.5, 15), column};
    EXPECT_EQ(played(filmOf(frames)),
              "0: #... #..., 200: ...# ...#, 500: #... #..., 700: ...# ...#, 1000: #... #..., "
              "1100: #.#. #.#., 1600: #... #..., 1800: ...# ...#, 2100: #... #..., 2300: ...# ...#, "
              "2600: #... #..., 2713: .... ....");
    for (const double moment : {1.2, 2.0, 0.3, 1.9, 0.0, 1.5}) {
        Film film = filmOf(frames), other = filmOf(frames);
        (void)film.dotsAt(moment);
        EXPECT_EQ(rowsOf(film.dotsAt(2 - moment)), rowsOf(other.dotsAt(2 - moment))) << moment;
    }
    files().put(column.PicturefileName, "damaged");
    Film film = filmOf({column});
    (void)film.dotsAt(0);
    EXPECT_EQ(film.takeFaults().at(0).what, PreviewFault::What::picture);
}

TEST_F(Films, KnowWhatPlays) {
    FrameRecord first = frame({line("A")}, 2, 2000);
    const Film film = filmOf({frame({}, 0), first, frame({line("1")}, 1, 20002, 20001)});
    const auto placeAt = [&](double seconds) {
        const FilmPlace place = film.placeAt(seconds).value();
        return std::to_string(place.step) + ": " + std::to_string(place.shown.frame) + "." +
               std::to_string(place.shown.round) + " " + std::to_string(static_cast<int>(place.part));
    };
    EXPECT_EQ(film.seconds(), 4.05);
    EXPECT_EQ(placeAt(-1), "1: 2.1 0");
    EXPECT_EQ(placeAt(0.05), "1: 2.1 1");
    EXPECT_EQ(placeAt(3.1), "3: 3.2 1");
    EXPECT_EQ(placeAt(99), "3: 3.2 2");
    EXPECT_EQ(FilmOf({}, {}).placeAt(0), std::nullopt);
    DisplayRecord sign;
    sign.BlinkRateShow = 300;
    EXPECT_EQ(BlinkRateOf(sign), (BlinkRate{0.3, 0.5}));
}

TEST_F(Films, OfPlayfilesThatAreMadeToBeLargeAreShort) {
    std::vector<FrameRecord> frames(5000, frame({line("A", &LineRecord::Blinking)}, 0, 15));
    frames[0].DelayTime = 1e300;
    frames[1].PrefixCode = frames[2].PrefixCode = frames[3].PrefixCode = 20099;
    frames.back().DelayTime = kLongestDelaySeconds;
    frames[3].SuffixCode = frames[4].SuffixCode = frames[5].SuffixCode = 20001;
    Film film = filmOf(frames);
    EXPECT_GT(film.playTime().playback.steps.size(), 970'000U);
    EXPECT_EQ(rowsOf(film.dotsAt(1)), ".### .#..");
    EXPECT_EQ(film.nextChange(1e300), std::nullopt);
    circumstances_.sign.size = DotSize{0, -9};
    circumstances_.blinking = {NAN, -1};
    EXPECT_EQ(filmOf(frames).dotsAt(NAN).size(), DotSize());
    circumstances_.sign.size = DotSize{32767, 32767};
    EXPECT_THROW(filmOf(frames), RuntimeError);
}

} // namespace
} // namespace qrtVistrelClasses4
