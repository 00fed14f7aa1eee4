// A second of a film after the other, at 30 pictures a second on a large sign, against a quarter of a second
// of processor time.
#include "bench/Subjects.h"
#include "bench/Timing.h"
#include "platform/Platform.h"
#include <qrtVistrelClasses4/Film.h>
#include <qrtVistrelClasses4/FrameRecord.h>
#include <qrtVistrelClasses4/Playfile.h>
#include <qrtVistrelClasses4/Transitions.h>

#include <algorithm>
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

    void playSecond() {
        for (int picture = 0; picture < kPicturesASecond; ++picture)
            benchmark::DoNotOptimize(film_.dotsAt(second_ + static_cast<double>(picture) / kPicturesASecond));
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

} // namespace

std::vector<Ratio> FilmSubject(const BenchFolder& folder) {
    const std::string home = folder.homeWithFonts("film");
    const auto film = [&] {
        const auto machine = makePlatform({home});
        const ScopedPlatform use(*machine);
        auto made = std::make_shared<EndlessFilm>();
        made->playSecond();
        Require(made->hasFonts(), "fonts are missing");
        return made;
    }();
    RegisterWork("film/second", [film, home](benchmark::State& state) {
        const auto machine = makePlatform({home});
        const ScopedPlatform use(*machine);
        TimeWork(state, [&] { film->playSecond(); });
    });
    RegisterWork("film/quarter", [](benchmark::State& state) { TimeWork(state, beBusyForAQuarter); });
    return {{"second of a film on 256 x 64", "film/second", "film/quarter", Bound::aim, 1}};
}

} // namespace qrtVistrelClasses4::bench
