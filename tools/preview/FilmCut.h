// What a file shows of a playfile's film.
#pragma once

#include <qrtVistrelClasses4/Film.h>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

namespace qrtVistrelClasses4 {

/// Lets no loop of the playfile have more rounds than `most`, which is at least 1.
void LimitLoops(Playfile& playfile, std::int32_t most);

/// A film without the parts that are not wanted. What is left is shown as it is in the whole film: frames
/// that are drawn over others still have them below.
class FilmCut {
public:
    /// A step that is shown, or the beginning of one.
    struct Step {
        double start = 0; ///< In seconds since the start of the cut film.
        PlaybackStep shown;
    };

    /// Keeps the steps of the frames with those numbers, which must be rising, and no more than `mostSeconds`
    /// of what is left. `film` must outlive this object.
    FilmCut(Film& film, const std::vector<std::int32_t>& frames, std::optional<double> mostSeconds);

    double seconds() const { return seconds_; }
    const std::vector<Step>& steps() const { return steps_; }
    DotSize size() const { return film_.size(); }

    /// The dots at a moment of the cut film. Those of its end are the last ones that are shown before it.
    /// Valid until the next call.
    const Raster& dotsAt(double seconds);

    /// Draws the pictures one after the other, and calls `onPicture` for each one with the moments from and
    /// until which it is shown, in seconds. A picture that is shown for less than `least` seconds is passed
    /// over, and one that has the same dots as the one before prolongs that. Stops if `onPicture` returns
    /// false.
    using OnPicture = std::function<bool(double from, double until, const Raster& dots)>;
    void forEachPicture(double least, const OnPicture& onPicture);

private:
    /// A part of the film that is kept without a gap.
    struct Span {
        double start = 0;    ///< In the cut film.
        double seconds = 0;  ///< How long it is.
        double filmFrom = 0; ///< Where it starts in the whole film.
    };

    void keepStep(std::size_t step);
    const Span& spanAt(double seconds) const;
    double nextChange(double after);

    Film& film_;
    std::vector<Span> spans_;
    std::vector<Step> steps_;
    double seconds_ = 0;
};

} // namespace qrtVistrelClasses4
