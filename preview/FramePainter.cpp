#include <qrtVistrelClasses4/FramePainter.h>

#include "preview/FrameDrawing.h"

#include <utility>

namespace qrtVistrelClasses4 {
namespace {

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
    while (IsDrawnOver(frames.at(number)) && number > 1)
        --number;
    return number;
}

class FramePainter::Drawing : public FrameDrawing {
public:
    using FrameDrawing::FrameDrawing;
};

FramePainter::FramePainter(const SignLook& sign, CommandTable commands)
    : drawing_(std::make_unique<Drawing>(sign, std::move(commands))) {}
FramePainter::~FramePainter() = default;
FramePainter::FramePainter(FramePainter&&) noexcept = default;
FramePainter& FramePainter::operator=(FramePainter&&) noexcept = default;

DotSize FramePainter::sizeFor(const OneBasedArray<FrameRecord>& frames) { return drawing_->sizeFor(frames); }

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
