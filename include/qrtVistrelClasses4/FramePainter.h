// Frames of a playfile as the dots of a sign.
#pragma once

#include <qrtVistrelClasses4/CommandTable.h>
#include <qrtVistrelClasses4/Export.h>
#include <qrtVistrelClasses4/FrameRecord.h>
#include <qrtVistrelClasses4/OneBasedArray.h>
#include <qrtVistrelClasses4/PixelBuffer.h>
#include <qrtVistrelClasses4/PreviewFault.h>
#include <qrtVistrelClasses4/SignLook.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

namespace QRT_PUBLIC qrtVistrelClasses4 {

/// The number of the frame that has to be drawn first to show frame `number`: that frame itself, or below
/// overlays the last one that is none. Throws error 9 if there is no frame `number`.
QRT_PUBLIC std::int32_t LowestFrameBelow(const OneBasedArray<FrameRecord>& frames, std::int32_t number);

/// Draws frames. Lines that scroll are drawn from their start, pictures from the upper left corner, and
/// animations, command files and pictures that are missing or unreadable as a box with their name. Letters of
/// an inverse line that touch its upper edge are drawn one row lower if that row is free. References to
/// pictures must be full paths. One thread at a time.
class FramePainter {
public:
    /// `commands` are those whose previews replace their keys in texts. `LoadCommandTable` also gives the
    /// commands that users added.
    explicit FramePainter(const SignLook& sign, CommandTable commands = BuiltInCommands());
    ~FramePainter();
    FramePainter(FramePainter&&) noexcept;
    FramePainter& operator=(FramePainter&&) noexcept;

    /// Size of a sign, made of whole modules, that shows all texts that do not scroll and all pictures of the
    /// frames. It is never larger than the largest signs.
    DotSize sizeFor(const OneBasedArray<FrameRecord>& frames);

    /// Receives the number of a frame, from 1, and its dots: the colour of each, 0 for a dark one. The dots
    /// are valid during the call.
    using OnFrame = std::function<void(std::int32_t number, const PixelBuffer& dots)>;
    /// Draws the frames `first` to `last` one after the other, an overlay over the frame before it. Throws
    /// error 9 if one of them does not exist.
    void draw(const OneBasedArray<FrameRecord>& frames, std::int32_t first, std::int32_t last, DotSize size,
              const OnFrame& onFrame);

    /// What could not be shown as the playfile wants since the last call: fonts of all frames that were
    /// measured or drawn, each once, and pictures and texts of those that were drawn.
    std::vector<PreviewFault> takeFaults();

private:
    class QRT_HIDDEN Drawing;

    std::unique_ptr<Drawing> drawing_;
};

} // namespace qrtVistrelClasses4
