// The frames of a film as they are drawn, one over the other.
#pragma once

#include "preview/FrameDrawing.h"
#include <qrtVistrelClasses4/PlayTime.h>

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace qrtVistrelClasses4 {

/// What changes the dots of frames that stay.
struct FilmMoment {
    std::chrono::local_seconds minute; ///< Of clocks and dates.
    bool isLit = true;                 ///< Whether lines that blink are seen.
    Micros shown = 0;                  ///< How long the frame of the step has been shown, for its picture.
};

/// Draws what is on the sign in a step. Keeps what is below the last frame, and all of that frame that does
/// not move, so that drawing it again is fast. Steps in order are faster than others.
class FilmScenes {
public:
    /// All must outlive this object.
    FilmScenes(const OneBasedArray<FrameRecord>& frames, const PlayTime& time, FrameDrawing& drawing,
               DotSize size);

    const FrameRecord& frameOf(std::size_t step) const {
        return frames_.at(time_.playback.steps[step].frame);
    }
    /// Whether a frame that has disappeared leaves only its background.
    static bool leavesBackground(const FrameRecord& frame);

    /// What is on the sign right before a step. Valid until the next call.
    const Raster& before(std::size_t step, const FilmMoment& moment);
    /// What is on the sign in a step, when lines that scroll have moved that many dots.
    void draw(std::size_t step, const FilmMoment& moment, std::int64_t scrolled, PixelBuffer& dots);

    /// What is to be expected of a step, whose frame is drawn at that moment.
    struct Motion {
        std::int64_t scrolling = 0; ///< Dots until the last line that scrolls is gone.
        bool blinks = false;
        bool showsTime = false;
        StillTime picture = {}; ///< Of the picture that is drawn at that moment.
    };
    const Motion& motionOf(std::size_t step, const FilmMoment& moment);

private:
    /// Frames that have been drawn one over the other.
    struct Ground {
        std::optional<std::size_t> step; ///< That comes next.
        FilmMoment moment = {};
        std::int64_t version = 0; ///< Another number whenever the dots are others.
        Motion motion = {};
        PixelBuffer dots;
    };
    /// The frame of a step, without what moves.
    struct Scene {
        std::optional<std::size_t> step;
        FilmMoment moment = {};
        std::int64_t ground = 0; ///< Version of the ground that it is drawn on.
        Motion motion = {};
        std::vector<LineOnSign> moving;
        PixelBuffer dots;
    };

    static bool isAt(const FilmMoment& moment, const FilmMoment& drawn, const Motion& motion);
    void prepare(std::size_t step, const FilmMoment& moment);
    void addLayer(std::size_t step, const FilmMoment& moment);
    /// The steps whose frames can be seen below a step, the lowest one first.
    std::vector<std::size_t> layersBelow(std::size_t step) const;
    /// Draws all of a frame but its lines.
    StillTime drawBase(const FrameRecord& frame, Micros shown, PixelBuffer& dots);
    void drawLine(const LineOnSign& line, bool isLit, std::int64_t scrolled, PixelBuffer& dots) const;
    void examine(std::int32_t number);
    void setMinute(std::chrono::local_seconds minute);

    const OneBasedArray<FrameRecord>& frames_;
    const PlayTime& time_;
    FrameDrawing& drawing_;
    DotSize size_;
    Ground ground_;
    Scene scene_;
    std::optional<std::chrono::local_seconds> minute_; ///< Of the texts that are drawn.
    std::vector<bool> isExamined_;                     ///< By number of the frame.
};

} // namespace qrtVistrelClasses4
