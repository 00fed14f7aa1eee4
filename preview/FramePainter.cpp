#include <qrtVistrelClasses4/FramePainter.h>

#include "fonts/TextDrawing.h"
#include "media/PictureCache.h"
#include "platform/Path.h"
#include "playfile/ShownLines.h"
#include "preview/LabelFont.h"
#include "preview/PictureDots.h"

#include <algorithm>
#include <bitset>
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

PreviewFault::What shownAs(FontFault::What fault) {
    switch (fault) {
    case FontFault::What::missing:
        return PreviewFault::What::missingFont;
    case FontFault::What::unreadable:
        return PreviewFault::What::unreadableFont;
    case FontFault::What::cutShort:
        return PreviewFault::What::cutShortFont;
    case FontFault::What::unknownNumber:
        return PreviewFault::What::unknownFontNumber;
    case FontFault::What::unnamed:
        return PreviewFault::What::unnamedFont;
    default:
        return PreviewFault::What::noFonts;
    }
}

} // namespace

PreviewFault PreviewFaultOf(FontFault fault) {
    return {.what = shownAs(fault.what),
            .name = std::move(fault.name),
            .isReplaced = fault.isReplaced,
            .error = std::move(fault.error)};
}

std::int32_t LowestFrameBelow(const OneBasedArray<FrameRecord>& frames, std::int32_t number) {
    while (IsOverlay(frames.at(number)) && number > 1)
        --number;
    return number;
}

/// Draws one frame at a time.
class FramePainter::Drawing {
public:
    Drawing(const SignLook& sign, CommandTable commands)
        : sign_(sign), lines_(sign.type, std::move(commands)) {}

    DotSize sizeOf(const FrameRecord& frame) {
        const DotSize medium = sizeOfMedium(mediumOf(frame));
        const DotSize size = HasText(frame) ? larger(medium, sizeOfLines(frame)) : medium;
        collectFaults();
        return size;
    }

    void draw(std::int32_t number, const FrameRecord& frame, PixelBuffer& dots) {
        frame_ = number;
        if (!IsOverlay(frame))
            drawBackground(frame, dots);
        if (const std::string medium = mediumOf(frame); !medium.empty())
            drawMedium(frame, medium, dots);
        if (HasText(frame))
            drawLines(frame, dots);
        collectFaults();
    }

    std::vector<PreviewFault> takeFaults() {
        collectFaults();
        return std::exchange(faults_, {});
    }

private:
    DotSize sizeOfLines(const FrameRecord& frame) {
        DotSize size;
        lines_.place(frame, kLargestSign.height, [&](const PlacedLine& placed) {
            const LineRecord& line = placed.line;
            const std::int32_t width = line.Scrolling ? 0 : widthOnSign(*placed.font, lines_.textOf(line));
            if (!line.CurrentLineText.empty() || line.Inverse)
                size = larger(size, {width + kDotsBeforeText, placed.bottom()});
        });
        return size;
    }

    DotSize sizeOfMedium(const std::string& path) {
        if (path.empty())
            return {};
        if (const auto size = pictures_.sizeOf(path))
            return *size;
        const Font& font = LabelFont();
        return {widthOnSign(font, SplitPath(path).name) + 2 * kLabelMargin, font.height + 2 * kLabelMargin};
    }

    void drawBackground(const FrameRecord& frame, PixelBuffer& dots) const {
        const bool isSystemColor =
            frame.WinBackColor < 0; // of the computer that it was made on, not the sign's
        const bool isDark = isSystemColor || !sign_.showsColors;
        dots.fill(0, 0, dots.width(), dots.height(),
                  isDark ? 0 : static_cast<Color>(frame.WinBackColor) & 0xffffff);
    }

    void drawLines(const FrameRecord& frame, PixelBuffer& dots) {
        std::int32_t number =
            lines_.place(frame, dots.height(), [&](const PlacedLine& placed) { drawLine(placed, dots); });
        while (number <= frame.lines.upperBound() &&
               std::ranges::none_of(lines_.textOf(frame.lines.at(number)), isVisible))
            ++number;
        if (number <= frame.lines.upperBound())
            addFault(PreviewFault::What::cutText, {}, number);
    }

    void drawLine(const PlacedLine& placed, PixelBuffer& dots) {
        const auto& [number, line, font, placedTop] = placed;
        const std::string text = lines_.textOf(line);
        const std::int32_t height = placed.height();
        std::int32_t top = placedTop;
        if (line.Inverse)
            dots.fill(0, top, dots.width(), height, sign_.color);
        if (line.Inverse && canBeLowered(*font, text))
            ++top;
        const DrawnText drawn = drawText(*font, line.Inverse ? 0 : sign_.color, text, dots, 0, top);
        if (std::string lacking = visibleOnes(drawn.lacking); !lacking.empty() && !lines_.isEmpty(font))
            addFault(PreviewFault::What::lackingCharacters, std::move(lacking), number);
        const bool isTooWide = !line.Scrolling && drawn.width + kDotsBeforeText > dots.width() &&
                               HasLitDots(*font, text, dots.width(), 0, height - 1);
        const bool isTooLow =
            top + height > dots.height() && HasLitDots(*font, text, 0, dots.height() - top, height - 1);
        if (isTooWide || isTooLow)
            addFault(PreviewFault::What::cutText, {}, number);
    }

    void addFault(PreviewFault::What what, std::string name, std::int32_t line) {
        faults_.push_back({.what = what, .name = std::move(name), .frame = frame_, .line = line});
    }

    /// Draws a picture, or a box with the name of a file that cannot be drawn.
    void drawMedium(const FrameRecord& frame, const std::string& path, PixelBuffer& dots) {
        const PictureOutcome& found = pictures_.find(path);
        if (found.picture)
            drawPicture(sign_, *found.picture, dots);
        else
            drawBox(SplitPath(path).name, dots);
        if (HasPicture(frame) && found.what == PictureOutcome::What::missing)
            addFault(PreviewFault::What::missingPicture, path, 0);
        if (HasPicture(frame) && found.what == PictureOutcome::What::unreadable)
            addFault(PreviewFault::What::picture, path, 0);
    }

    void drawBox(std::string_view label, PixelBuffer& dots) {
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

    void collectFaults() {
        for (FontFault& fault : lines_.takeFaults())
            faults_.push_back(PreviewFaultOf(std::move(fault)));
    }

    SignLook sign_;
    PictureCache pictures_;
    ShownLines lines_;
    std::vector<PreviewFault> faults_;
    std::int32_t frame_ = 0; ///< Number of the frame that is drawn.
};

FramePainter::FramePainter(const SignLook& sign, CommandTable commands)
    : drawing_(std::make_unique<Drawing>(sign, std::move(commands))) {}
FramePainter::~FramePainter() = default;
FramePainter::FramePainter(FramePainter&&) noexcept = default;
FramePainter& FramePainter::operator=(FramePainter&&) noexcept = default;

DotSize FramePainter::sizeFor(const OneBasedArray<FrameRecord>& frames) {
    DotSize size = kSmallestSign;
    for (const FrameRecord& frame : frames)
        size = larger(size, drawing_->sizeOf(frame));
    return {std::min(wholeModules(size.width), kLargestSign.width),
            std::min(wholeModules(size.height), kLargestSign.height)};
}

void FramePainter::draw(const OneBasedArray<FrameRecord>& frames, std::int32_t first, std::int32_t last,
                        DotSize size, const OnFrame& onFrame) {
    PixelBuffer dots(size.width, size.height);
    for (std::int32_t number = LowestFrameBelow(frames, first); number <= last; ++number) {
        drawing_->draw(number, frames.at(number), dots);
        if (number >= first)
            onFrame(number, dots);
    }
}

std::vector<PreviewFault> FramePainter::takeFaults() { return drawing_->takeFaults(); }

} // namespace qrtVistrelClasses4
