// What a sign shows while it plays a playfile.
#pragma once

#include <qrtVistrelClasses4/Export.h>
#include <qrtVistrelClasses4/PlayTime.h>
#include <qrtVistrelClasses4/Playfile.h>
#include <qrtVistrelClasses4/PreviewFault.h>
#include <qrtVistrelClasses4/Raster.h>
#include <qrtVistrelClasses4/SignLook.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

namespace QRT_PUBLIC qrtVistrelClasses4 {

struct DisplayRecord;

/// How long blinking lines are seen and not seen, in turn. Numbers that are not above 0 count as half a
/// second.
struct BlinkRate {
    double shownSeconds = 0.5;
    double clearSeconds = 0.5;

    bool operator==(const BlinkRate&) const = default;
};
/// The rate of a sign, whose numbers are taken for milliseconds.
QRT_PUBLIC BlinkRate BlinkRateOf(const DisplayRecord& sign);

/// What a film depends on besides the playfile.
struct FilmCircumstances {
    SignLook sign; ///< Without a size, it is as large as the frames need.
    /// The size and the type of the sign are those of `sign`. `moment` is that of the start of the film.
    PlayTimeCircumstances timing;
    BlinkRate blinking;
};

/// The parts of a step that follow each other.
enum class FilmPart : std::uint8_t {
    appearing,
    showing, ///< The frame stays, or its lines scroll.
    disappearing,
};

/// A moment of a film.
struct FilmPlace {
    std::size_t step = 0; ///< Index of the step in the playback.
    PlaybackStep shown;   ///< The frame, and the round of its loop.
    FilmPart part = FilmPart::appearing;
};

/// Dots of a film with more are not drawn.
inline constexpr std::int64_t kMostDotsInFilm = 1 << 22;

/// A playfile played once, in its likely times.
///
/// - Lines that scroll come in at the right edge and leave at the left one. They start when the frame has
///   appeared; those that are gone stay away.
/// - Lines that blink do so from when the frame has appeared until it disappears.
/// - A frame that is drawn over the one before it keeps what is there: texts go on blinking, and clocks
///   running. Texts that have scrolled are gone.
/// - An effect by which a frame disappears leaves the background of the frame. Without one, the frame stays
///   until the next one has appeared.
///
/// The same playfile, fonts and circumstances give the same dots on every system. A film takes as much memory
/// however long it is, and its dots may be asked for in any order; in the order of time it is fastest. One
/// thread at a time.
class Film {
public:
    ~Film();
    Film(Film&&) noexcept;
    Film& operator=(Film&&) noexcept;

    DotSize size() const;
    double seconds() const { return playTime().total.likely; }
    /// The steps, the times that they start at, and their parts.
    const PlayTime& playTime() const;

    /// What plays at a moment. Moments before the start count as the start, and those after the end as the
    /// end. No value if the playfile has only blank frames.
    std::optional<FilmPlace> placeAt(double seconds) const;

    /// The dots at a moment: the colour of each, 0 for a dark one. Valid until the next call. After the end
    /// they are those that the last frame leaves.
    const Raster& dotsAt(double seconds);

    /// The first moment after another one at which the dots may be others: until then they stay as they are.
    /// No value if they stay so to the end and after it.
    std::optional<double> nextChange(double after);

    /// What could not be shown as the playfile wants, of all frames that were drawn since the last call. Each
    /// frame is examined once.
    std::vector<PreviewFault> takeFaults();

private:
    class QRT_HIDDEN Show;
    friend Film FilmOf(Playfile playfile, const FilmCircumstances& circumstances);
    explicit Film(std::unique_ptr<Show> show);

    std::unique_ptr<Show> show_;
};

/// The film of a playfile. Pictures may lie beside the playfile. Throws error 5 for a sign of more than
/// `kMostDotsInFilm`.
QRT_PUBLIC Film FilmOf(Playfile playfile, const FilmCircumstances& circumstances);

} // namespace qrtVistrelClasses4
