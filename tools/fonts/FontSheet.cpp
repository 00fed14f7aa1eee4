#include "tools/fonts/FontSheet.h"

#include "fonts/TextDrawing.h"
#include "preview/LabelFont.h"
#include <qrtVistrelClasses4/LedPainter.h>
#include <qrtVistrelClasses4/SignLook.h>

#include <algorithm>

namespace qrtVistrelClasses4 {
namespace {

constexpr std::size_t kLettersInRow = 16;
constexpr std::int32_t kSpaceAround = 8;
constexpr Color kSheetPaper = Rgb(255, 255, 255), kCodeColor = Rgb(0, 0, 0);

Raster dotsOf(const LetterPicture& letter) {
    Raster dots(static_cast<std::int32_t>(letter.rows.front().size()),
                static_cast<std::int32_t>(letter.rows.size()));
    for (std::int32_t y = 0; y < dots.height(); ++y)
        std::ranges::transform(letter.rows[static_cast<std::size_t>(y)], dots.row(y).begin(),
                               [](char dot) { return dot == kLitDot ? kAmber : 0; });
    return dots;
}

std::size_t widestOf(const FontPictures& font) {
    std::size_t widest = 0;
    for (const LetterPicture& letter : font.letters)
        widest = std::max(widest, letter.rows.front().size());
    return widest;
}

} // namespace

PixelBuffer FontSheet(const FontPictures& font) {
    constexpr std::int32_t highestEnlarged = 64;
    constexpr int usualScale = 5;
    LedPainter leds(font.cell.height <= highestEnlarged ? usualScale : 1);
    const Lettering codes{LabelFont(), 1, kCodeColor};
    const std::int32_t captionHeight = codes.font.height + 1;
    const auto widthOfCode = static_cast<std::int32_t>(WidthOf(codes, "255"));
    const auto widest = static_cast<std::int32_t>(leds.sizeOf(static_cast<std::int32_t>(widestOf(font))));
    const std::int32_t cellWidth = std::max(widest, widthOfCode) + kSpaceAround;
    const std::int32_t cellHeight =
        captionHeight + static_cast<std::int32_t>(leds.sizeOf(font.cell.height)) + kSpaceAround;
    const std::size_t columns = std::min(font.letters.size(), kLettersInRow);
    const std::size_t rows = (font.letters.size() + kLettersInRow - 1) / kLettersInRow;
    PixelBuffer sheet(static_cast<std::int32_t>(columns) * cellWidth + kSpaceAround,
                      static_cast<std::int32_t>(rows) * cellHeight + kSpaceAround, kSheetPaper);
    for (std::size_t i = 0; i < font.letters.size(); ++i) {
        const LetterPicture& letter = font.letters[i];
        const std::int32_t left = kSpaceAround + static_cast<std::int32_t>(i % kLettersInRow) * cellWidth;
        const std::int32_t top = kSpaceAround + static_cast<std::int32_t>(i / kLettersInRow) * cellHeight;
        DrawLetters(codes, std::to_string(letter.code),
                    {sheet, static_cast<float>(left - 1), static_cast<float>(top)}, false);
        leds.draw(dotsOf(letter), sheet, left, top + captionHeight);
    }
    return sheet;
}

} // namespace qrtVistrelClasses4
