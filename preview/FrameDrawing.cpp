#include "preview/FrameDrawing.h"

#include "fonts/Letter.h"
#include "fonts/TextDrawing.h"
#include "platform/Path.h"
#include "preview/LabelFont.h"
#include "preview/PictureDots.h"

#include <algorithm>
#include <bitset>
#include <cstddef>
#include <string_view>
#include <utility>

namespace qrtVistrelClasses4 {
namespace {

// Signs that are made up for a playfile.
constexpr DotSize kSmallestSign{48, 16};
constexpr DotSize kLargestSign{512, 128};
constexpr std::int32_t kDotsOfModule = 8; ///< Signs consist of square modules.

constexpr std::int32_t kLabelMargin = 4; ///< Dots between a label and the outside of its box.

/// Letters start one dot right of where they are drawn.
constexpr std::int32_t kDotsBeforeText = 1;

/// The file that a frame shows. Empty if it shows none.
std::string mediumOf(const FrameRecord& frame) {
    if (KindOf(frame) == NEW_FRAME_TYPES::FRAME_CMD)
        return frame.commandfile;
    return HasPicture(frame) ? frame.PicturefileName : std::string();
}

DotSize larger(DotSize one, DotSize other) {
    return {std::max(one.width, other.width), std::max(one.height, other.height)};
}

std::int32_t wholeModules(std::int32_t dots) {
    return (dots + kDotsOfModule - 1) / kDotsOfModule * kDotsOfModule;
}

/// Width of a text in dots, at most that of the largest sign.
std::int32_t widthOnSign(const Font& font, std::string_view text) {
    return static_cast<std::int32_t>(std::min<std::int64_t>(WidthOf({font}, text), kLargestSign.width));
}

DrawnText drawText(const Font& font, Color color, std::string_view text, PixelBuffer& dots, std::int32_t left,
                   std::int32_t top) {
    return DrawLetters({font, 1, color}, text, {dots, static_cast<float>(left), static_cast<float>(top)},
                       false);
}

/// The picture that an animation shows at a moment, and the time in which it does.
std::pair<const TimedPicture*, StillTime> pictureAt(const std::vector<TimedPicture>& pictures,
                                                    Micros moment) {
    if (pictures.size() == 1)
        return {&pictures.front(), {}};
    static constexpr Micros shortest = 1;
    const auto timeOf = [](const TimedPicture& picture) {
        return std::max(Micros{std::chrono::microseconds(picture.time).count()}, shortest);
    };
    Micros round = 0;
    for (const TimedPicture& picture : pictures)
        round += timeOf(picture);
    const Micros start = moment - moment % std::max(round, shortest);
    StillTime time{start, start};
    auto picture = pictures.begin();
    while ((time.end += timeOf(*picture)) <= moment) {
        time.start = time.end;
        ++picture;
    }
    return {&*picture, time};
}

/// The pixels of a picture over a background, as far as dots can show them. What is clear stays black, which
/// is never drawn.
Raster pixelsOver(const TimedPicture& picture, Color background, DotSize most) {
    constexpr unsigned whole = 255;
    Raster pixels(std::min(picture.pixels.width(), most.width),
                  std::min(picture.pixels.height(), most.height));
    for (std::int32_t y = 0; y < pixels.height(); ++y) {
        auto opacity = picture.opacity.begin() + std::ptrdiff_t{y} * picture.pixels.width();
        auto below = picture.pixels.row(y).begin();
        for (Color& pixel : pixels.row(y)) {
            const unsigned rest = whole - *opacity;
            const auto mixed = [&](std::uint8_t over, std::uint8_t under) {
                return static_cast<std::uint8_t>(std::min(over + under * rest / whole, whole));
            };
            if (*opacity > 0)
                pixel =
                    Rgb(mixed(RedOf(*below), RedOf(background)), mixed(GreenOf(*below), GreenOf(background)),
                        mixed(BlueOf(*below), BlueOf(background)));
            ++opacity;
            ++below;
        }
    }
    return pixels;
}

void drawPicture(const SignLook& sign, const Raster& picture, PixelBuffer& dots) {
    const Raster lit = DotsOf(picture, dots.size(), sign);
    for (std::int32_t y = 0; y < lit.height(); ++y) {
        auto dot = dots.row(y).begin();
        for (const Color color : lit.row(y)) {
            if (color != 0)
                *dot = color;
            ++dot;
        }
    }
}

bool isVisible(char character) { return static_cast<unsigned char>(character) > ' '; }

/// Those of the characters that a font could have: control characters are never shown.
std::string visibleOnes(const std::bitset<256>& characters) {
    std::string text;
    for (std::size_t code = ' '; code < characters.size(); ++code)
        if (characters[code])
            text += static_cast<char>(code);
    return text;
}

/// Whether the letters of an inverse line touch its upper edge, and may be one row lower instead.
bool canBeLowered(const Font& font, std::string_view text) {
    return HasLitDots(font, text, 0, 0, 0) && !HasLitDots(font, text, 0, font.height - 1, font.height - 1);
}

} // namespace

DotSize FrameDrawing::sizeFor(const OneBasedArray<FrameRecord>& frames) {
    DotSize size = kSmallestSign;
    for (const FrameRecord& frame : frames)
        size = larger(size, sizeOf(frame));
    return {std::min(wholeModules(size.width), kLargestSign.width),
            std::min(wholeModules(size.height), kLargestSign.height)};
}

DotSize FrameDrawing::sizeOf(const FrameRecord& frame) {
    const DotSize medium = sizeOfMedium(mediumOf(frame));
    const DotSize size = HasText(frame) ? larger(medium, sizeOfLines(frame)) : medium;
    collectFaults();
    return size;
}

void FrameDrawing::draw(std::int32_t number, const FrameRecord& frame, PixelBuffer& dots) {
    frame_ = number;
    if (!IsDrawnOver(frame))
        dots.fill(0, 0, dots.width(), dots.height(), backgroundOf(frame));
    drawMedium(frame, 0, dots);
    if (HasPicture(frame) && !frame.PicturefileName.empty())
        noteFaultsOfFile(frame.PicturefileName);
    if (HasText(frame))
        drawLines(frame, dots);
    collectFaults();
}

std::vector<PreviewFault> FrameDrawing::takeFaults() {
    collectFaults();
    return std::exchange(faults_, {});
}

Color FrameDrawing::backgroundOf(const FrameRecord& frame) const {
    const bool isSystemColor = frame.WinBackColor < 0; // of the computer that it was made on, not the sign's
    return isSystemColor || !sign_.showsColors ? 0 : static_cast<Color>(frame.WinBackColor) & 0xffffff;
}

StillTime FrameDrawing::drawMedium(const FrameRecord& frame, Micros shown, PixelBuffer& dots) {
    const std::string path = mediumOf(frame);
    if (path.empty())
        return {};
    const std::vector<TimedPicture>& pictures = pictures_.find(path).pictures;
    if (pictures.empty()) {
        drawBox(SplitPath(path).name, dots);
        return {};
    }
    const auto [picture, time] = pictureAt(pictures, shown);
    if (picture->opacity.empty())
        drawPicture(sign_, picture->pixels, dots);
    else
        drawPicture(sign_, pixelsOver(*picture, backgroundOf(frame), dots.size()), dots);
    return time;
}

std::vector<LineOnSign> FrameDrawing::linesOf(const FrameRecord& frame, std::int32_t rows) {
    std::vector<LineOnSign> lines;
    if (HasText(frame))
        lines_.place(frame, rows, [&](const PlacedLine& placed) {
            if (placed.height() <= 0) // these would fill the memory with what nobody sees
                return;
            lines.push_back(lineOf(placed));
            lines.back().showsTime = lines_.showsTime(placed.line);
        });
    return lines;
}

void FrameDrawing::drawBar(const LineOnSign& line, PixelBuffer& dots) const {
    if (line.line->Inverse)
        dots.fill(0, line.top, dots.width(), line.font->height, sign_.color);
}

void FrameDrawing::drawLetters(const LineOnSign& line, std::int64_t left, PixelBuffer& dots) const {
    const auto widthAt = [&](std::size_t place) {
        return line.font->widths[static_cast<unsigned char>(line.text[place])];
    };
    const auto reach = [&](std::size_t place) { // dots of a letter may be right of its cell
        return kDotsBeforeText + std::max(widthAt(place), kMostDrawnColumns);
    };
    std::size_t first = 0;
    for (; first < line.text.size() && left + reach(first) <= 0; ++first)
        left += widthAt(first);
    std::size_t end = first;
    for (std::int64_t x = left; end < line.text.size() && x < dots.width(); ++end)
        x += widthAt(end);
    drawText(*line.font, line.line->Inverse ? 0 : sign_.color,
             std::string_view(line.text).substr(first, end - first), dots, static_cast<std::int32_t>(left),
             line.top + (line.isLowered ? 1 : 0));
}

DotSize FrameDrawing::sizeOfLines(const FrameRecord& frame) {
    DotSize size;
    lines_.place(frame, kLargestSign.height, [&](const PlacedLine& placed) {
        const LineRecord& line = placed.line;
        const std::int32_t width = line.Scrolling ? 0 : widthOnSign(*placed.font, lines_.textOf(line));
        if (!line.CurrentLineText.empty() || line.Inverse)
            size = larger(size, {width + kDotsBeforeText, placed.bottom()});
    });
    return size;
}

DotSize FrameDrawing::sizeOfMedium(const std::string& path) {
    if (path.empty())
        return {};
    if (const auto size = pictures_.sizeOf(path))
        return *size;
    const Font& font = LabelFont();
    return {widthOnSign(font, SplitPath(path).name) + 2 * kLabelMargin, font.height + 2 * kLabelMargin};
}

void FrameDrawing::drawBox(std::string_view label, PixelBuffer& dots) const {
    const Color color = sign_.dimmed();
    const Font& font = LabelFont();
    const std::int64_t free = dots.width() - WidthOf({font}, label) - kDotsBeforeText;
    const auto left = static_cast<std::int32_t>(std::max<std::int64_t>(free / 2, kDotsBeforeText));
    drawText(font, color, label, dots, left, (dots.height() - font.height) / 2);
    dots.fill(0, 0, dots.width(), 1, color);
    dots.fill(0, dots.height() - 1, dots.width(), 1, color);
    dots.fill(0, 0, 1, dots.height(), color);
    dots.fill(dots.width() - 1, 0, 1, dots.height(), color);
}

LineOnSign FrameDrawing::lineOf(const PlacedLine& placed) {
    std::string text = lines_.textOf(placed.line);
    const std::int64_t width = placed.font->widthOf(text);
    return {.line = &placed.line,
            .font = placed.font,
            .top = placed.top,
            .isLowered = placed.line.Inverse && canBeLowered(*placed.font, text),
            .text = std::move(text),
            .width = width};
}

void FrameDrawing::noteFaultsOfFile(const std::string& path) {
    const PictureOutcome::What found = pictures_.find(path).what;
    if (found == PictureOutcome::What::missing)
        addFault(PreviewFault::What::missingPicture, path, 0);
    if (found == PictureOutcome::What::unreadable)
        addFault(PreviewFault::What::picture, path, 0);
}

void FrameDrawing::drawLines(const FrameRecord& frame, PixelBuffer& dots) {
    std::int32_t number =
        lines_.place(frame, dots.height(), [&](const PlacedLine& placed) { drawLine(placed, dots); });
    while (number <= frame.lines.upperBound() &&
           std::ranges::none_of(lines_.textOf(frame.lines.at(number)), isVisible))
        ++number;
    if (number <= frame.lines.upperBound())
        addFault(PreviewFault::What::cutText, {}, number);
}

void FrameDrawing::drawLine(const PlacedLine& placed, PixelBuffer& dots) {
    const LineOnSign line = lineOf(placed);
    const Font& font = *line.font;
    drawBar(line, dots);
    const std::int32_t top = line.top + (line.isLowered ? 1 : 0);
    const DrawnText drawn = drawText(font, placed.line.Inverse ? 0 : sign_.color, line.text, dots, 0, top);
    if (std::string lacking = visibleOnes(drawn.lacking); !lacking.empty() && !lines_.isEmpty(line.font))
        addFault(PreviewFault::What::lackingCharacters, std::move(lacking), placed.number);
    const bool isTooWide = !placed.line.Scrolling && drawn.width + kDotsBeforeText > dots.width() &&
                           HasLitDots(font, line.text, dots.width(), 0, font.height - 1);
    const bool isTooLow = top + font.height > dots.height() &&
                          HasLitDots(font, line.text, 0, dots.height() - top, font.height - 1);
    if (isTooWide || isTooLow)
        addFault(PreviewFault::What::cutText, {}, placed.number);
}

void FrameDrawing::addFault(PreviewFault::What what, std::string name, std::int32_t line) {
    faults_.push_back({.what = what, .name = std::move(name), .frame = frame_, .line = line});
}

void FrameDrawing::collectFaults() {
    for (FontFault& fault : lines_.takeFaults())
        faults_.push_back(PreviewFaultOf(std::move(fault)));
}

} // namespace qrtVistrelClasses4
