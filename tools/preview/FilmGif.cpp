#include "tools/preview/FilmGif.h"

#include "tools/preview/Palette.h"

#include <unordered_set>

namespace qrtVistrelClasses4 {
namespace {

/// Draws each dot as a square.
void drawSquares(const Raster& dots, int scale, Raster& picture) {
    for (std::int32_t y = 0; y < dots.height(); ++y) {
        const auto row = dots.row(y);
        for (std::size_t x = 0; x < row.size(); ++x)
            picture.fill(static_cast<std::int32_t>(x) * scale, y * scale, scale, 1, row[x]);
        picture.repeatRow(0, y * scale, picture.width(), scale);
    }
}

} // namespace

PictureSize DotLook::sizeOf(DotSize dots) const {
    if (isPlain)
        return {std::int64_t{dots.width} * scale, std::int64_t{dots.height} * scale};
    return PictureSize::ofLeds(LedPainter(scale), dots);
}

FilmGif::FilmGif(FilmCut& cut, const DotLook& look, ByteSink& file)
    : look_(look), leds_(look.scale),
      picture_(look.sizeOf(cut.size()).pixels().width, look.sizeOf(cut.size()).pixels().height),
      gif_(picture_.size(), commonColors(cut), file) {}

/// Those in the middle of each frame, when it is shown for the first time.
std::vector<Color> FilmGif::commonColors(FilmCut& cut) {
    constexpr std::size_t mostFrames = 64;
    Palette palette;
    std::unordered_set<std::int32_t> frames;
    const auto& steps = cut.steps();
    for (std::size_t step = 0; step < steps.size() && frames.size() < mostFrames; ++step) {
        if (!frames.insert(steps[step].shown.frame).second)
            continue;
        const double end = step + 1 < steps.size() ? steps[step + 1].start : cut.seconds();
        palette.add(draw(cut.dotsAt((steps[step].start + end) / 2)));
    }
    return palette.colors();
}

const Raster& FilmGif::draw(const Raster& dots) {
    if (look_.isPlain)
        drawSquares(dots, look_.scale, picture_);
    else
        leds_.draw(dots, picture_, 0, 0);
    return picture_;
}

void FilmGif::add(double from, double until, const Raster& dots) { gif_.add(from, until, draw(dots)); }

} // namespace qrtVistrelClasses4
