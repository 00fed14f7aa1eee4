#include <qrtVistrelClasses4/FrameSheet.h>

#include "fonts/TextDrawing.h"
#include <qrtVistrelClasses4/FramePainter.h>

#include <algorithm>
#include <cmath>
#include <string_view>

namespace qrtVistrelClasses4 {
namespace {

constexpr Color kPaper = Rgb(30, 33, 38);
constexpr Color kCaption = Rgb(168, 174, 184);

constexpr std::int32_t kSpace = 12;         ///< Pixels around a frame.
constexpr std::int32_t kCaptionHeight = 11; ///< Of a caption of scale 1.

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
    : leds_(scale), captionScale_(scale < 4 ? 1 : 2), cellWidth_(leds_.sizeOf(sign.width) + kSpace),
      cellHeight_(leds_.sizeOf(sign.height) + kSpace + std::int64_t{kCaptionHeight} * captionScale_) {
    const double square = std::sqrt(static_cast<double>(frames) * kAspect * static_cast<double>(cellHeight_) /
                                    static_cast<double>(cellWidth_));
    columns_ = std::clamp(std::llround(square), 1LL, static_cast<long long>(frames));
    rows_ = (frames + columns_ - 1) / columns_;
}

std::int64_t FrameSheet::width() const { return columns_ * cellWidth_ + kSpace; }
std::int64_t FrameSheet::height() const { return rows_ * cellHeight_ + kSpace; }

PixelBuffer FrameSheet::empty() const {
    return {static_cast<std::int32_t>(width()), static_cast<std::int32_t>(height()), kPaper};
}

void FrameSheet::add(const std::string& caption, const Raster& dots, FramePainter& painter,
                     PixelBuffer& sheet) {
    const auto left = static_cast<std::int32_t>(added_ % columns_ * cellWidth_ + kSpace);
    const auto top = static_cast<std::int32_t>(added_ / columns_ * cellHeight_ + kSpace);
    ++added_;
    const Lettering lettering{painter.captionFont(), captionScale_, kCaption};
    const auto x = static_cast<float>(left - captionScale_); // letters start one dot further right
    DrawLetters(lettering, fitting(caption, lettering, cellWidth_ - kSpace),
                {sheet, x, static_cast<float>(top)}, false);
    leds_.draw(dots, sheet, left, top + kCaptionHeight * captionScale_);
}

} // namespace qrtVistrelClasses4
