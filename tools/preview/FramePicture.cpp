#include "tools/preview/FramePicture.h"

#include "platform/Path.h"
#include "playfile/FrameRules.h"
#include "playfile/ReferenceFinder.h"

#include <algorithm>

namespace qrtVistrelClasses4 {
namespace {

// Signs that are made up for a playfile.
constexpr DotSize kSmallestSign{48, 16};
constexpr DotSize kLargestSign{512, 128};
constexpr std::int32_t kDotsOfModule = 8; ///< Signs are put together of square modules.

constexpr std::int16_t kLabelFont = 3;
constexpr std::int32_t kLabelMargin = 4; ///< Dots between a label and its box, with the box.

/// Letters start one dot right of where they are drawn.
constexpr std::int32_t kDotsBeforeText = 1;

bool hasPicture(const FrameRecord& frame) {
    const NEW_FRAME_TYPES type = MeaningOf(FrameTypeOf(frame));
    return type == NEW_FRAME_TYPES::FRAME_GRAPHIC || type == NEW_FRAME_TYPES::FRAME_GRAPHICTEXT;
}

/// The file that a frame shows; "" for none.
std::string mediumOf(const FrameRecord& frame) {
    if (MeaningOf(FrameTypeOf(frame)) == NEW_FRAME_TYPES::FRAME_CMD)
        return frame.commandfile;
    return hasPicture(frame) ? frame.PicturefileName : std::string();
}

DotSize larger(DotSize one, DotSize other) {
    return {std::max(one.width, other.width), std::max(one.height, other.height)};
}

std::int32_t wholeModules(std::int32_t dots) {
    return (dots + kDotsOfModule - 1) / kDotsOfModule * kDotsOfModule;
}

LineRecord readLine(FrameInfoClass& playfile) {
    LineRecord line;
    line.CurrentLineText = playfile.CurrentLineText();
    line.LineFontSize = playfile.LineFontSize();
    line.LineCustomFont = playfile.LineCustomFont();
    line.Scrolling = playfile.Scrolling();
    line.Inverse = playfile.Inverse();
    return line;
}

FrameRecord readFrame(FrameInfoClass& playfile) {
    FrameRecord frame;
    frame.FrameName = playfile.FrameName();
    SetFrameType(frame, playfile.FrameType());
    frame.PicturefileName = playfile.PicturefileName();
    frame.commandfile = playfile.commandfile();
    SetOverlay(frame, playfile.OverlayFrame());
    frame.WinBackColor = playfile.WinBackColor();
    frame.lines.resize(playfile.TotalLinesAllowed());
    std::int16_t number = 0;
    for (LineRecord& line : frame.lines) {
        playfile.CurrentLineNumber(++number);
        line = readLine(playfile);
    }
    return frame;
}

} // namespace

bool HasText(const FrameRecord& frame) {
    const NEW_FRAME_TYPES type = MeaningOf(FrameTypeOf(frame));
    return type == NEW_FRAME_TYPES::FRAME_TEXT || type == NEW_FRAME_TYPES::FRAME_GRAPHICTEXT;
}

OneBasedArray<FrameRecord> ReadFrames(FrameInfoClass& playfile) {
    OneBasedArray<FrameRecord> frames(playfile.TotalFrames());
    ReferenceFinder finder(playfile.CurrentFileName());
    std::int16_t number = 0;
    for (FrameRecord& frame : frames) {
        playfile.CurrentFrame(++number);
        frame = readFrame(playfile);
        finder.find(frame.PicturefileName); // those of the older format have not been looked for yet
    }
    return frames;
}

FramePainter::FramePainter(const SignLook& sign, ErrorLines& errors)
    : sign_(sign), fonts_(sign.type, errors), pictures_(errors) {}

DotSize FramePainter::sizeFor(const OneBasedArray<FrameRecord>& frames) {
    DotSize size = kSmallestSign;
    for (const FrameRecord& frame : frames)
        size = larger(size, sizeOf(frame));
    return {std::min(wholeModules(size.width), kLargestSign.width),
            std::min(wholeModules(size.height), kLargestSign.height)};
}

void FramePainter::show(const OneBasedArray<FrameRecord>& frames, std::int32_t first, std::int32_t last,
                        DotSize size, const Show& show) {
    std::int32_t number = first;
    while (number > 1 && IsOverlay(frames.at(number)))
        --number;
    PixelBuffer dots(size.width, size.height);
    for (; number <= last; ++number) {
        draw(frames.at(number), dots);
        if (number >= first)
            show(number, dots);
    }
}

DotSize FramePainter::sizeOf(const FrameRecord& frame) {
    return larger(sizeOfMedium(mediumOf(frame)), HasText(frame) ? sizeOfLines(frame) : DotSize());
}

DotSize FramePainter::sizeOfLines(const FrameRecord& frame) {
    DotSize size;
    std::int32_t bottom = 0;
    for (const LineRecord& line : frame.lines) {
        const auto font = fontOf(line);
        bottom += font->FontHeight();
        const std::int32_t width = line.Scrolling ? 0 : font->TextWidth(texts_.of(line.CurrentLineText));
        if (!line.CurrentLineText.empty() || line.Inverse)
            size = larger(size, {std::min(width, kLargestSign.width) + kDotsBeforeText, bottom});
        if (bottom >= kLargestSign.height)
            break;
    }
    return size;
}

DotSize FramePainter::sizeOfMedium(const std::string& path) {
    if (path.empty())
        return {};
    if (const auto size = pictures_.sizeOf(path))
        return *size;
    const auto font = fonts_.find(kLabelFont, {});
    const std::int32_t width = font->TextWidth(std::string(SplitPath(path).name));
    return {std::min(width, kLargestSign.width) + 2 * kLabelMargin, font->FontHeight() + 2 * kLabelMargin};
}

void FramePainter::draw(const FrameRecord& frame, PixelBuffer& dots) {
    if (!IsOverlay(frame)) {
        const bool isSystemColor = frame.WinBackColor < 0; // of the computer it was made on, not the sign's
        const bool isDark = isSystemColor || !sign_.showsColors;
        dots.fill(0, 0, dots.width(), dots.height(),
                  isDark ? 0 : static_cast<Color>(frame.WinBackColor) & 0xffffff);
    }
    if (const std::string medium = mediumOf(frame); !medium.empty())
        drawMedium(medium, dots);
    if (HasText(frame))
        drawLines(frame, dots);
}

void FramePainter::drawLines(const FrameRecord& frame, PixelBuffer& dots) {
    std::int32_t top = 0;
    for (const LineRecord& line : frame.lines) {
        if (top >= dots.height())
            break;
        const auto font = fontOf(line);
        if (line.Inverse)
            dots.fill(0, top, dots.width(), font->FontHeight(), sign_.color);
        font->FontColor(line.Inverse ? 0 : sign_.color);
        std::int32_t width = 0;
        font->DrawText(texts_.of(line.CurrentLineText), dots, 0, static_cast<float>(top), 0, 0, width);
        top += font->FontHeight();
    }
}

void FramePainter::drawMedium(const std::string& path, PixelBuffer& dots) {
    if (const PixelBuffer* picture = pictures_.find(path))
        drawPicture(*picture, dots);
    else
        drawBox(std::string(SplitPath(path).name), dots);
}

void FramePainter::drawPicture(const PixelBuffer& picture, PixelBuffer& dots) const {
    const auto width = static_cast<std::size_t>(std::min(picture.width(), dots.width()));
    for (std::int32_t y = 0; y < std::min(picture.height(), dots.height()); ++y) {
        auto dot = dots.row(y).begin();
        for (const Color pixel : picture.row(y).first(width)) {
            if (const Color lit = sign_.dotFor(pixel))
                *dot = lit;
            ++dot;
        }
    }
}

void FramePainter::drawBox(const std::string& label, PixelBuffer& dots) {
    const Color color = sign_.dimmed();
    const auto font = fonts_.find(kLabelFont, {});
    font->FontColor(color);
    const std::int32_t free = dots.width() - font->TextWidth(label) - kDotsBeforeText;
    const std::int32_t left = std::max(free / 2, kDotsBeforeText);
    const std::int32_t top = (dots.height() - font->FontHeight()) / 2;
    std::int32_t width = 0;
    font->DrawText(label, dots, static_cast<float>(left), static_cast<float>(top), 0, 0, width);
    dots.fill(0, 0, dots.width(), 1, color);
    dots.fill(0, dots.height() - 1, dots.width(), 1, color);
    dots.fill(0, 0, 1, dots.height(), color);
    dots.fill(dots.width() - 1, 0, 1, dots.height(), color);
}

} // namespace qrtVistrelClasses4
