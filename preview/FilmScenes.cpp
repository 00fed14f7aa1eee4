#include "preview/FilmScenes.h"

#include <qrtVistrelClasses4/Transitions.h>

#include <algorithm>
#include <limits>

namespace qrtVistrelClasses4 {
namespace {

/// Further than any line scrolls.
constexpr std::int64_t kGone = std::numeric_limits<std::int32_t>::max();

bool isMoving(const LineRecord& line) { return line.Scrolling || line.Blinking; }

bool hasScrollingText(const LineOnSign& line) {
    return line.line->Scrolling && !line.line->CurrentLineText.empty();
}

} // namespace

FilmScenes::FilmScenes(const OneBasedArray<FrameRecord>& frames, const PlayTime& time, FrameDrawing& drawing,
                       DotSize size)
    : frames_(frames), time_(time), drawing_(drawing),
      size_(size), ground_{.step = {}, .dots = PixelBuffer(size.width, size.height)},
      scene_{.step = {}, .moving = {}, .dots = PixelBuffer(size.width, size.height)},
      isExamined_(static_cast<std::size_t>(frames.upperBound()) + 1) {}

bool FilmScenes::leavesBackground(const FrameRecord& frame) {
    return !Transition::disappearing(frame.SuffixCode).isNone();
}

const Raster& FilmScenes::before(std::size_t step, const FilmMoment& moment) {
    const bool isUsable = ground_.step && isAt(moment, ground_.moment, ground_.motion);
    if (isUsable && *ground_.step == step)
        return ground_.dots;
    setMinute(moment.minute);
    if (isUsable && *ground_.step + 1 == step) {
        addLayer(step - 1, moment);
    } else {
        ground_.motion = {};
        ground_.dots.fill(0, 0, size_.width, size_.height, 0);
        for (const std::size_t layer : layersBelow(step))
            addLayer(layer, moment);
    }
    ground_.step = step;
    ground_.moment = moment;
    ++ground_.version;
    return ground_.dots;
}

void FilmScenes::draw(std::size_t step, const FilmMoment& moment, std::int64_t scrolled, PixelBuffer& dots) {
    prepare(step, moment);
    static_cast<Raster&>(dots) = scene_.dots;
    for (const LineOnSign& line : scene_.moving)
        drawLine(line, moment.isLit, scrolled, dots);
}

const FilmScenes::Motion& FilmScenes::motionOf(std::size_t step, const FilmMoment& moment) {
    prepare(step, moment);
    return scene_.motion;
}

bool FilmScenes::isAt(const FilmMoment& moment, const FilmMoment& drawn, const Motion& motion) {
    return (!motion.blinks || moment.isLit == drawn.isLit) &&
           (!motion.showsTime || moment.minute == drawn.minute);
}

void FilmScenes::prepare(std::size_t step, const FilmMoment& moment) {
    const FrameRecord& frame = frameOf(step);
    const bool isOver = IsDrawnOver(frame);
    if (isOver)
        before(step, moment);
    if (scene_.step == step && (!isOver || scene_.ground == ground_.version) &&
        (!scene_.motion.showsTime || scene_.moment.minute == moment.minute) &&
        scene_.motion.picture.has(moment.shown))
        return;
    setMinute(moment.minute);
    examine(time_.playback.steps[step].frame);
    scene_.step = step;
    scene_.moment = moment;
    scene_.ground = ground_.version;
    scene_.motion = isOver ? ground_.motion : Motion();
    scene_.moving.clear();
    static_cast<Raster&>(scene_.dots) = ground_.dots;
    scene_.motion.picture = drawBase(frame, moment.shown, scene_.dots);
    for (LineOnSign& line : drawing_.linesOf(frame, size_.height)) {
        if (hasScrollingText(line))
            scene_.motion.scrolling = std::max(scene_.motion.scrolling, line.width + size_.width);
        scene_.motion.blinks |= line.line->Blinking;
        scene_.motion.showsTime |= line.showsTime;
        if (isMoving(*line.line))
            scene_.moving.push_back(std::move(line));
        else
            drawLine(line, true, 0, scene_.dots);
    }
}

void FilmScenes::addLayer(std::size_t step, const FilmMoment& moment) {
    const FrameRecord& frame = frameOf(step);
    if (leavesBackground(frame)) {
        ground_.motion = {};
        ground_.dots.fill(0, 0, size_.width, size_.height, drawing_.backgroundOf(frame));
        return;
    }
    examine(time_.playback.steps[step].frame);
    if (!IsDrawnOver(frame))
        ground_.motion = {};
    drawBase(frame, StepParts(time_.timesOf(step)).lastShown(), ground_.dots);
    for (const LineOnSign& line : drawing_.linesOf(frame, size_.height)) {
        ground_.motion.blinks |= line.line->Blinking;
        ground_.motion.showsTime |= line.showsTime;
        drawLine(line, moment.isLit, kGone, ground_.dots);
    }
}

std::vector<std::size_t> FilmScenes::layersBelow(std::size_t step) const {
    std::vector<std::size_t> layers;
    std::vector<bool> isIn(isExamined_.size()); // what a frame draws covers what it drew in an earlier step
    while (step > 0) {
        const auto number = static_cast<std::size_t>(time_.playback.steps[--step].frame);
        if (!isIn[number])
            layers.push_back(step);
        isIn[number] = true;
        if (!IsDrawnOver(frameOf(step)) || leavesBackground(frameOf(step)))
            break;
    }
    std::ranges::reverse(layers);
    return layers;
}

StillTime FilmScenes::drawBase(const FrameRecord& frame, Micros shown, PixelBuffer& dots) {
    if (!IsDrawnOver(frame))
        dots.fill(0, 0, size_.width, size_.height, drawing_.backgroundOf(frame));
    return drawing_.drawMedium(frame, shown, dots);
}

void FilmScenes::drawLine(const LineOnSign& line, bool isLit, std::int64_t scrolled,
                          PixelBuffer& dots) const {
    if (line.line->Blinking && !isLit)
        return;
    drawing_.drawBar(line, dots);
    if (!line.line->Scrolling)
        drawing_.drawLetters(line, 0, dots);
    else if (scrolled < line.width + size_.width)
        drawing_.drawLetters(line, size_.width - scrolled, dots);
}

void FilmScenes::examine(std::int32_t number) {
    if (isExamined_[static_cast<std::size_t>(number)])
        return;
    isExamined_[static_cast<std::size_t>(number)] = true;
    PixelBuffer dots(size_.width, size_.height);
    drawing_.draw(number, frames_.at(number), dots);
}

void FilmScenes::setMinute(std::chrono::local_seconds minute) {
    if (minute_ == minute)
        return;
    drawing_.setMoment(minute);
    minute_ = minute;
}

} // namespace qrtVistrelClasses4
