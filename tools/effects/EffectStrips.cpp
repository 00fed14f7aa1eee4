#include "tools/effects/EffectStrips.h"

#include "fonts/TextDrawing.h"
#include "preview/LabelFont.h"
#include <qrtVistrelClasses4/LedPainter.h>
#include <qrtVistrelClasses4/SignLook.h>

#include <cstdint>

namespace qrtVistrelClasses4 {
namespace {

constexpr DotSize kSign{40, 16};
constexpr int kStages = 5;
constexpr int kScaleOfStrip = 3;
constexpr std::int32_t kGapOfStages = 6;
constexpr Color kGreen = Rgb(0, 220, 60), kStripPaper = Rgb(255, 255, 255);

void drawRows(PixelBuffer& dots, Color color, const char* upper, const char* lower) {
    constexpr std::int32_t lowerTop = 8, left = 3;
    const Lettering letters{LabelFont(), 1, color};
    DrawLetters(letters, upper, {dots, left, 0}, false);
    DrawLetters(letters, lower, {dots, left, lowerTop}, false);
}

/// Letters of one colour.
PixelBuffer pictureBefore() {
    PixelBuffer dots(kSign.width, kSign.height);
    drawRows(dots, kGreen, "ARRIVED", "09:15");
    return dots;
}

/// Letters of another one, with dots at the edges of the sign.
PixelBuffer pictureAfter() {
    PixelBuffer dots(kSign.width, kSign.height);
    drawRows(dots, kAmber, "FERRY", "14:30");
    dots.fill(0, 0, 1, kSign.height, kAmber);
    dots.fill(kSign.width - 1, 0, 1, kSign.height, kAmber);
    return dots;
}

} // namespace

PixelBuffer EffectStrip(const Transition& effect, bool appears) {
    const PixelBuffer before = appears ? pictureBefore() : pictureAfter();
    const PixelBuffer after = appears ? pictureAfter() : PixelBuffer(kSign.width, kSign.height);
    LedPainter leds(kScaleOfStrip);
    const auto width = static_cast<std::int32_t>(leds.sizeOf(kSign.width));
    PixelBuffer strip(kStages * (width + kGapOfStages) - kGapOfStages,
                      static_cast<std::int32_t>(leds.sizeOf(kSign.height)), kStripPaper);
    Raster dots(kSign.width, kSign.height);
    for (std::int32_t stage = 0; stage < kStages; ++stage) {
        effect.draw(static_cast<double>(stage) / (kStages - 1), before, after, dots);
        leds.draw(dots, strip, stage * (width + kGapOfStages), 0);
    }
    return strip;
}

} // namespace qrtVistrelClasses4
