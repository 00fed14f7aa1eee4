#include <qrtVistrelClasses4/FramePicture.h>

#include "frame/SystemErrors.h"
#include "frame/Traced.h"
#include "media/BmpFile.h"
#include "platform/Platform.h"
#include "platform/ReplacementFile.h"
#include "playfile/PlaySettings.h"
#include "playfile/ReferenceFinder.h"
#include "preview/PictureSize.h"
#include <qrtVistrelClasses4/CommandTableFile.h>
#include <qrtVistrelClasses4/FramePainter.h>
#include <qrtVistrelClasses4/LedPainter.h>

#include <algorithm>

namespace qrtVistrelClasses4 {
namespace {

constexpr std::int64_t kPixelsInMemory = 1 << 18; ///< About so many of a picture, but whole rows.

/// The frames `first` to `last`, with full paths of their pictures.
OneBasedArray<FrameRecord> framesToDraw(const Playfile& playfile, std::int32_t first, std::int32_t last) {
    OneBasedArray<FrameRecord> frames(last - first + 1);
    std::copy_n(playfile.frames.begin() + (first - 1), frames.upperBound(), frames.begin());
    FindPictures(frames, playfile.fileName);
    return frames;
}

/// The size of the sign that the preferences describe. Nothing if they describe none.
std::optional<DotSize> preferredSize() {
    const Preferences preferences = LoadPreferencesQuietly();
    if (preferences.DisplayWidth < 1 || preferences.DisplayHeight < 1)
        return std::nullopt;
    return DotSize{preferences.DisplayWidth, preferences.DisplayHeight};
}

/// Throws error 5 if the scale or the picture is too large.
DotSize pictureSize(DotSize sign, int scale) {
    if (scale < 1 || scale > kLargestPictureScale)
        throw RuntimeError(ErrorNumber::invalidProcedureCall);
    const PictureSize size = PictureSize::ofLeds(LedPainter(scale), sign);
    if (!size.isDrawn())
        throw RuntimeError(static_cast<int>(ErrorNumber::invalidProcedureCall), "A " + size.refusal());
    return size.pixels();
}

/// Writes the picture from its lowest rows to its topmost ones, as BMP files have them.
void writePicture(const Raster& dots, DotSize size, int scale, ByteSink& file) {
    LedPainter leds(scale);
    Check(file.write(BmpHeader(size)));
    const auto most = static_cast<std::int32_t>(std::max<std::int64_t>(kPixelsInMemory / size.width, 1));
    for (std::int32_t bottom = size.height; bottom > 0;) {
        const std::int32_t top = std::max(bottom - most, 0);
        Raster piece(size.width, bottom - top);
        leds.draw(dots, piece, 0, -top);
        Check(file.write(BmpRows(piece)));
        bottom = top;
    }
}

void savePicture(const Playfile& playfile, std::int32_t number, const SignLook& sign, const std::string& path,
                 int scale, std::vector<PreviewFault>& faults) {
    const std::int32_t first = LowestFrameBelow(playfile.frames, number);
    const OneBasedArray<FrameRecord> frames = framesToDraw(playfile, first, number);
    FramePainter painter(sign, LoadCommandTable(CommandTablePath()).table);
    std::optional<DotSize> dots = sign.size ? sign.size : preferredSize();
    if (!dots)
        dots = painter.sizeFor(playfile.frames);
    const DotSize size = pictureSize(*dots, scale);
    ReplacementFile file(platform().files(), path);
    Check(file.error());
    painter.draw(frames, frames.upperBound(), frames.upperBound(), *dots,
                 [&](std::int32_t, const PixelBuffer& drawn) { writePicture(drawn, size, scale, file); });
    Check(file.commit());
    faults = painter.takeFaults();
    for (PreviewFault& fault : faults)
        if (fault.frame > 0)
            fault.frame += first - 1;
}

} // namespace

SavedPicture SavePictureOfFrame(const Playfile& playfile, std::int32_t number, const SignLook& sign,
                                const std::string& path, int scale) {
    SavedPicture saved;
    saved.error = ErrorOf([&] { savePicture(playfile, number, sign, path, scale, saved.faults); });
    return saved;
}

} // namespace qrtVistrelClasses4
