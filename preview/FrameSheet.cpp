#include <qrtVistrelClasses4/FrameSheet.h>

#include "fonts/TextDrawing.h"
#include "preview/LabelFont.h"
#include <qrtVistrelClasses4/FramePainter.h>

#include <algorithm>
#include <cmath>
#include <string_view>
#include <utility>

namespace qrtVistrelClasses4 {
namespace {

constexpr Color kPaper = Rgb(30, 33, 38);
constexpr Color kCaption = Rgb(168, 174, 184);

constexpr std::int32_t kSpace = 12;         ///< Pixels around a frame.
constexpr std::int32_t kCaptionHeight = 11; ///< Of a caption of scale 1.
constexpr int kScaleOfCaption = 3;          ///< Pixels from one dot to the next for each of a caption.

constexpr std::int32_t kPixelsInStrip = 1 << 16; ///< About so many, but whole rows.

/// Width of a sheet divided by its height, as near as whole columns allow.
constexpr double kAspect = 1.5;

/// The first letters of the text, as many as fit into `most` pixels.
std::string_view fitting(std::string_view text, const Lettering& lettering, std::int64_t most) {
    std::size_t count = 0;
    for (std::int64_t width = 0; count < text.size(); ++count)
        if (width += WidthOf(lettering, text.substr(count, 1)); width > most)
            break;
    return text.substr(0, count);
}

} // namespace

FrameSheet::FrameSheet(std::int32_t frames, DotSize sign, int scale)
    : sign_(sign), leds_(scale),
      captionScale_(static_cast<std::int16_t>((scale + kScaleOfCaption - 1) / kScaleOfCaption)),
      captionHeight_(kCaptionHeight * captionScale_), cellWidth_(leds_.sizeOf(sign.width) + kSpace),
      cellHeight_(leds_.sizeOf(sign.height) + kSpace + captionHeight_), frames_(frames) {
    const double square = std::sqrt(static_cast<double>(frames) * kAspect * static_cast<double>(cellHeight_) /
                                    static_cast<double>(cellWidth_));
    columns_ = std::clamp(std::llround(square), 1LL, static_cast<long long>(frames));
}

std::int64_t FrameSheet::width() const { return columns_ * cellWidth_ + kSpace; }
std::int64_t FrameSheet::height() const { return (frames_ + columns_ - 1) / columns_ * cellHeight_ + kSpace; }

void FrameSheet::draw(const OneBasedArray<FrameRecord>& frames, FramePainter& painter,
                      const CaptionOf& captionOf, const OnStrip& onStrip) {
    onStrip(emptyStrip(kSpace));
    std::vector<Cell> cells;
    painter.draw(frames, 1, frames_, sign_, [&](std::int32_t number, const PixelBuffer& dots) {
        cells.push_back({captionOf(number), dots});
        if (number % columns_ == 0 || number == frames_)
            drawCells(std::exchange(cells, {}), onStrip);
    });
}

PixelBuffer FrameSheet::emptyStrip(std::int32_t height) const {
    return {static_cast<std::int32_t>(width()), height, kPaper};
}

void FrameSheet::drawCells(const std::vector<Cell>& cells, const OnStrip& onStrip) {
    const Lettering lettering{LabelFont(), captionScale_, kCaption};
    const auto height = static_cast<std::int32_t>(cellHeight_);
    const std::int32_t most = std::max(kPixelsInStrip / static_cast<std::int32_t>(width()), 1);
    for (std::int32_t top = 0; top < height; top += most) {
        PixelBuffer strip = emptyStrip(std::min(most, height - top));
        std::int32_t left = kSpace;
        for (const Cell& cell : cells) {
            const auto x = static_cast<float>(left - captionScale_); // letters start one dot further right
            if (top < captionHeight_)
                DrawLetters(lettering, fitting(cell.caption, lettering, cellWidth_ - kSpace),
                            {strip, x, static_cast<float>(-top)}, false);
            leds_.draw(cell.dots, strip, left, captionHeight_ - top);
            left += static_cast<std::int32_t>(cellWidth_);
        }
        onStrip(strip);
    }
}

} // namespace qrtVistrelClasses4
