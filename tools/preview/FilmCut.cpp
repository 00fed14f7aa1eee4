#include "tools/preview/FilmCut.h"

#include "playfile/Effects.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace qrtVistrelClasses4 {
namespace {

constexpr double kMoment = 1e-6; ///< What is shown for less is an error of sums.

} // namespace

void LimitLoops(Playfile& playfile, std::int32_t most) {
    for (FrameRecord& frame : playfile.frames)
        if (RoundsOfLoop(frame.PrefixCode) > most)
            frame.PrefixCode = static_cast<std::int16_t>(kLoopBase + most);
}

FilmCut::FilmCut(Film& film, const std::vector<std::int32_t>& frames, std::optional<double> mostSeconds)
    : film_(film) {
    const auto& all = film_.playTime().playback.steps;
    for (std::size_t step = 0; step < all.size(); ++step)
        if (std::ranges::binary_search(frames, all[step].frame))
            keepStep(step);
    if (!mostSeconds || *mostSeconds >= seconds_)
        return;
    seconds_ = *mostSeconds;
    std::erase_if(steps_, [&](const Step& step) { return step.start >= seconds_; });
    std::erase_if(spans_, [&](const Span& span) { return span.start >= seconds_; });
    if (!spans_.empty())
        spans_.back().seconds = seconds_ - spans_.back().start;
}

void FilmCut::keepStep(std::size_t step) {
    const std::vector<double>& starts = film_.playTime().starts;
    const double from = starts[step];
    const double until = step + 1 < starts.size() ? starts[step + 1] : film_.seconds();
    steps_.push_back({seconds_, film_.playTime().playback.steps[step]});
    if (!spans_.empty() && spans_.back().filmFrom + spans_.back().seconds >= from)
        spans_.back().seconds = until - spans_.back().filmFrom;
    else
        spans_.push_back({seconds_, until - from, from});
    seconds_ = spans_.back().start + spans_.back().seconds;
}

const FilmCut::Span& FilmCut::spanAt(double seconds) const {
    const auto next = std::ranges::upper_bound(spans_, std::max(seconds, 0.0), {}, &Span::start);
    return *std::prev(next);
}

const Raster& FilmCut::dotsAt(double seconds) {
    if (spans_.empty())
        return film_.dotsAt(0);
    const Span& span = spanAt(seconds);
    const double until = span.filmFrom + span.seconds;
    const double moment = span.filmFrom + std::max(seconds, 0.0) - span.start;
    return film_.dotsAt(span.seconds > 0 ? std::min(moment, std::nextafter(until, span.filmFrom)) : until);
}

double FilmCut::nextChange(double after) {
    const Span& span = spanAt(after);
    const double end = span.start + span.seconds;
    const std::optional<double> inFilm = film_.nextChange(span.filmFrom + after - span.start);
    const double next = inFilm ? std::min(span.start + *inFilm - span.filmFrom, end) : end;
    return std::max(next, std::nextafter(after, std::numeric_limits<double>::infinity()));
}

void FilmCut::forEachPicture(double least, const OnPicture& onPicture) {
    Raster shown = dotsAt(0);
    double from = 0;
    double moment = 0;
    while (moment < seconds_) {
        moment = std::max(nextChange(moment), from + least);
        if (moment > seconds_ - kMoment)
            break;
        const Raster& dots = dotsAt(moment);
        if (dots == shown)
            continue;
        if (!onPicture(from, moment, shown))
            return;
        shown = dots;
        from = moment;
    }
    onPicture(from, seconds_, shown);
}

} // namespace qrtVistrelClasses4
