// Any bytes as the picture of a frame: the look of the sign and the kind of its file, two moments, the bytes.
#include "Fuzz.h"
#include "media/AnimationFile.h"
#include "media/BmpFile.h"
#include "tools/preview/GifPictures.h"
#include "tools/preview/PictureFiles.h"
#include <qrtVistrelClasses4/Film.h>

#include <algorithm>
#include <array>
#include <iterator>

namespace qrtVistrelClasses4 {
namespace {

constexpr const char* kNames[] = {"file.bmp", "file.PNG", "file.jpeg", "file.gif", "file.avi"};
constexpr double kSeconds = 2.5;

bool holds(DotSize size) {
    const auto fits = [](std::int32_t side) { return side >= 1 && side <= kLargestPictureSide; };
    return fits(size.width) && fits(size.height);
}

bool areWhole(const std::vector<TimedPicture>& pictures) {
    const DotSize size = pictures.front().pixels.size();
    const auto count = static_cast<std::int64_t>(pictures.size());
    const std::int64_t pixels = std::int64_t{size.width} * size.height;
    return holds(size) &&
           (count == 1 || (count <= kMostAnimationPictures && count * pixels <= kMostAnimationPixels)) &&
           std::ranges::all_of(pictures, [&](const TimedPicture& picture) {
               return picture.pixels.size() == size && (count == 1 || picture.time.count() > 0) &&
                      (picture.opacity.empty() || std::ssize(picture.opacity) == pixels);
           });
}

} // namespace

void RunFuzzed(FuzzedInput input) {
    TestHost host;
    PictureFiles reader;
    const ScopedPictureReader readerScope(reader);
    const unsigned byte = input.byte();
    FilmCircumstances circumstances;
    circumstances.sign.size = DotSize{20, 9};
    circumstances.sign.showsColors = byte % 2 == 1;
    FrameRecord frame;
    frame.FrameType = static_cast<std::int16_t>(FRAME_TYPES::FRAME_GRAPHIC);
    frame.DelayTime = kSeconds;
    frame.WinBackColor = 0x204060;
    frame.PicturefileName = host.inLibrary(kNames[byte / 2 % std::size(kNames)]);
    const std::array moments{0.0, input.byte() / 100.0, input.byte() / 100.0};
    const std::string bytes = input.rest();
    host.machine.files().put(frame.PicturefileName, bytes);

    const std::vector<TimedPicture> pictures = reader.read(bytes);
    Require(pictures.empty() || areWhole(pictures), "pictures are whole, and within their bounds");
    const auto still = FirstPictureOfAvi(bytes);
    Require(!still || holds(still->size()), "so is that of an AVI");
    Playfile playfile;
    playfile.frames.resize(2);
    std::ranges::fill(playfile.frames, frame);
    playfile.frames.at(2).OverlayFrame = 1;
    Film inOrder = FilmOf(playfile, circumstances);
    Film anyOrder = FilmOf(playfile, circumstances);
    for (const double start : {0.0, kSeconds})
        for (const double moment : moments) {
            const Raster dots = inOrder.dotsAt(start + moment);
            (void)anyOrder.dotsAt(2 * kSeconds - moment);
            Require(anyOrder.dotsAt(start + moment) == dots,
                    "the order in which dots are asked for means nothing");
        }
    const bool isDrawn = !pictures.empty() || still || ParseBmp(bytes);
    const bool isOfReadKind = byte / 2 % std::size(kNames) == 0 || reader.readsFiles(frame.PicturefileName);
    const std::vector<PreviewFault> faults = inOrder.takeFaults();
    const auto isFault = [](const PreviewFault& fault) { return fault.what == PreviewFault::What::picture; };
    Require(std::ranges::any_of(faults, isFault) == (!isDrawn && isOfReadKind),
            "what is not drawn though its kind is read is a fault");
}

} // namespace qrtVistrelClasses4
