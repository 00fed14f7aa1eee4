#include <qrtVistrelClasses4/Film.h>

#include "platform/Platform.h"
#include "playfile/ReferenceFinder.h"
#include "preview/FilmClock.h"
#include "preview/FilmScenes.h"
#include <qrtVistrelClasses4/RuntimeError.h>
#include <qrtVistrelClasses4/Transitions.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace qrtVistrelClasses4 {
namespace {

std::chrono::local_seconds momentOf(const LocalTime& time) {
    using namespace std::chrono;
    const year_month_day date(year(time.year), month(static_cast<unsigned>(time.month)),
                              day(static_cast<unsigned>(time.day)));
    return local_days(date) + hours(time.hour) + minutes(time.minute) + std::chrono::seconds(time.second);
}

PlayTimeCircumstances timingOf(const FilmCircumstances& circumstances, DotSize size) {
    PlayTimeCircumstances timing = circumstances.timing;
    timing.sign = size;
    timing.signType = circumstances.sign.type;
    if (!timing.moment)
        timing.moment = momentOf(platform().localTime());
    return timing;
}

Playfile withPictures(Playfile playfile) {
    FindPictures(playfile.frames, playfile.fileName);
    return playfile;
}

} // namespace

/// Finds the step of a moment and draws what it shows.
class Film::Show {
public:
    Show(Playfile playfile, const FilmCircumstances& circumstances)
        : playfile_(withPictures(std::move(playfile))),
          drawing_(circumstances.sign, circumstances.timing.commands), size_(sizeOf(circumstances)),
          timing_(timingOf(circumstances, size_)), time_(PlayTimeOf(playfile_, timing_)),
          scenes_(playfile_.frames, time_, drawing_, size_), blinking_(circumstances.blinking),
          minutes_(*timing_.moment), picture_(size_.width, size_.height), empty_(size_.width, size_.height),
          dots_(size_.width, size_.height) {}

    DotSize size() const { return size_; }
    const PlayTime& time() const { return time_; }
    std::vector<PreviewFault> takeFaults() { return drawing_.takeFaults(); }

    std::optional<FilmPlace> placeAt(double seconds) const {
        const std::optional<StepMoment> at = find(seconds);
        if (!at)
            return std::nullopt;
        return FilmPlace{at->step, time_.playback.steps[at->step], partsOf(at->step).partAt(at->moment)};
    }

    const Raster& dotsAt(double seconds) {
        const std::optional<StepMoment> at = find(seconds);
        if (!at ||
            (drawn_ && drawn_->step == at->step && at->moment >= drawn_->moment && at->moment < drawnUntil_))
            return dots_;
        drawn_.reset(); // in case that drawing fails
        draw(*at);
        drawnUntil_ = nextIn(*at);
        drawn_ = at;
        return dots_;
    }

    std::optional<double> nextChange(double after) {
        const std::optional<StepMoment> at = find(after);
        if (!at || after >= time_.total.likely)
            return std::nullopt;
        if (after < 0)
            return 0;
        const bool isLast = at->step + 1 == time_.starts.size();
        const double end = isLast ? time_.total.likely : time_.starts[at->step + 1];
        const Micros next = nextIn(*at);
        const double moment = next == kNever ? end : std::min(time_.starts[at->step] + SecondsOf(next), end);
        if (end - moment < SecondsOf(1)) // both mean the end of the step
            return end;
        return std::max(moment, std::nextafter(after, std::numeric_limits<double>::infinity()));
    }

private:
    /// A moment of a step.
    struct StepMoment {
        std::size_t step;
        Micros moment; ///< Since the start of the step.
    };

    DotSize sizeOf(const FilmCircumstances& circumstances) {
        const std::optional<DotSize>& given = circumstances.sign.size;
        const DotSize size = given ? *given : drawing_.sizeFor(playfile_.frames);
        if (std::int64_t{size.width} * size.height > kMostDotsInFilm)
            throw RuntimeError(ErrorNumber::invalidProcedureCall);
        return {std::max(size.width, 0), std::max(size.height, 0)};
    }

    StepParts partsOf(std::size_t step) const { return StepParts(time_.timesOf(step)); }

    /// Of steps that take no time, the last one is shown, though nobody sees it unless it is the last of all.
    std::optional<StepMoment> find(double seconds) const {
        if (time_.starts.empty())
            return std::nullopt;
        seconds = seconds > 0 ? seconds : 0;
        const auto next = std::ranges::upper_bound(time_.starts, seconds);
        const auto step = static_cast<std::size_t>(next - time_.starts.begin()) - 1;
        const bool isOver = seconds >= time_.total.likely;
        return StepMoment{step, isOver ? kNever : MicrosOf(seconds - time_.starts[step])};
    }

    /// The first moment of the step after `at` at which its dots may be others; `kNever` if there is none.
    Micros nextIn(const StepMoment& at) {
        const StepParts parts = partsOf(at.step);
        if (at.moment < parts.appearing)
            return EqualSteps{parts.appearing, appearing(at.step).steps(size_)}.next(at.moment);
        const Micros shown = at.moment - parts.appearing;
        if (shown < parts.showing)
            return nextWhileShown(at, parts);
        const Micros left = shown - parts.showing;
        if (left < parts.disappearing)
            return at.moment - left +
                   EqualSteps{parts.disappearing, disappearing(at.step).steps(size_)}.next(left);
        return kNever;
    }

    Micros nextWhileShown(const StepMoment& at, const StepParts& parts) {
        const Micros shown = at.moment - parts.appearing;
        const FilmScenes::Motion& motion = scenes_.motionOf(at.step, whileShown(at, parts));
        Micros next = std::min(parts.showing, motion.picture.end);
        if (motion.blinks)
            next = std::min(next, blinking_.next(shown));
        if (const Travel travel = travelOf(at.step, motion); !travel.isOver(shown))
            next = std::min(next, travel.next(shown));
        if (motion.showsTime) {
            const Micros start = startOf(at.step) + parts.appearing;
            next = std::min(next, minutes_.next(start + shown) - start);
        }
        return parts.appearing + next;
    }

    /// The scenes have the frame of the step at that moment.
    void draw(const StepMoment& at) {
        const StepParts parts = partsOf(at.step);
        if (at.moment < parts.appearing)
            drawAppearing(at, parts);
        else if (at.moment - parts.appearing < parts.showing)
            drawShown(at, parts, dots_);
        else
            drawDisappearing(at, parts);
    }

    void drawAppearing(const StepMoment& at, const StepParts& parts) {
        const FilmMoment moment{minutes_.at(startOf(at.step))};
        const Transition transition = appearing(at.step);
        scenes_.draw(at.step, moment, 0, picture_);
        transition.draw(progress({parts.appearing, transition.steps(size_)}, at.moment),
                        scenes_.before(at.step, moment), picture_, dots_);
    }

    void drawShown(const StepMoment& at, const StepParts& parts, PixelBuffer& dots) {
        const FilmMoment moment = whileShown(at, parts);
        const Travel travel = travelOf(at.step, scenes_.motionOf(at.step, moment));
        scenes_.draw(at.step, moment, travel.at(at.moment - parts.appearing), dots);
    }

    /// Also what is left after that.
    void drawDisappearing(const StepMoment& at, const StepParts& parts) {
        const FrameRecord& frame = scenes_.frameOf(at.step);
        const Micros end = parts.appearing + parts.showing;
        if (!FilmScenes::leavesBackground(frame)) {
            drawAtEnd(at.step, parts, dots_);
            return;
        }
        empty_.fill(0, 0, size_.width, size_.height, drawing_.backgroundOf(frame));
        if (at.moment - end >= parts.disappearing) {
            dots_ = empty_;
            return;
        }
        drawAtEnd(at.step, parts, picture_);
        const Transition transition = disappearing(at.step);
        transition.draw(progress({parts.disappearing, transition.steps(size_)}, at.moment - end), picture_,
                        empty_, dots_);
    }

    /// The frame when it has been shown, with all lines that blink.
    void drawAtEnd(std::size_t step, const StepParts& parts, PixelBuffer& dots) {
        const FilmMoment moment{.minute = minutes_.at(startOf(step) + parts.appearing + parts.showing),
                                .shown = parts.lastShown()};
        const Travel travel = travelOf(step, scenes_.motionOf(step, moment));
        scenes_.draw(step, moment, travel.at(parts.showing), dots);
    }

    FilmMoment whileShown(const StepMoment& at, const StepParts& parts) const {
        const Micros shown = at.moment - parts.appearing;
        return {minutes_.at(startOf(at.step) + at.moment), blinking_.isOn(shown), shown};
    }

    Transition appearing(std::size_t step) const {
        return Transition::appearing(scenes_.frameOf(step).PrefixCode);
    }
    Transition disappearing(std::size_t step) const {
        return Transition::disappearing(scenes_.frameOf(step).SuffixCode);
    }
    Travel travelOf(std::size_t step, const FilmScenes::Motion& motion) const {
        return {motion.scrolling, ScrollSpeedOf(scenes_.frameOf(step), timing_).likely};
    }
    Micros startOf(std::size_t step) const { return MicrosOf(time_.starts[step]); }

    static double progress(const EqualSteps& steps, Micros moment) {
        return static_cast<double>(steps.at(moment)) / static_cast<double>(steps.count);
    }

    const Playfile playfile_;
    FrameDrawing drawing_;
    const DotSize size_;
    const PlayTimeCircumstances timing_;
    const PlayTime time_;
    FilmScenes scenes_;
    const Blinking blinking_;
    const Minutes minutes_;
    PixelBuffer picture_; ///< That appears or disappears.
    PixelBuffer empty_;
    PixelBuffer dots_;
    std::optional<StepMoment> drawn_; ///< What `dots_` shows.
    Micros drawnUntil_ = 0;           ///< The first moment of that step that looks different.
};

Film::Film(std::unique_ptr<Show> show) : show_(std::move(show)) {}
Film::~Film() = default;
Film::Film(Film&&) noexcept = default;
Film& Film::operator=(Film&&) noexcept = default;

DotSize Film::size() const { return show_->size(); }
const PlayTime& Film::playTime() const { return show_->time(); }
std::optional<FilmPlace> Film::placeAt(double seconds) const { return show_->placeAt(seconds); }
const Raster& Film::dotsAt(double seconds) { return show_->dotsAt(seconds); }
std::optional<double> Film::nextChange(double after) { return show_->nextChange(after); }
std::vector<PreviewFault> Film::takeFaults() { return show_->takeFaults(); }

Film FilmOf(Playfile playfile, const FilmCircumstances& circumstances) {
    return Film(std::make_unique<Film::Show>(std::move(playfile), circumstances));
}

} // namespace qrtVistrelClasses4
