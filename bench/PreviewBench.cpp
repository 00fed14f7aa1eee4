// A sheet with all frames of a playfile, against the time that its own encoding takes.
#include "bench/SamplePlayfile.h"
#include "bench/Subjects.h"
#include "bench/Timing.h"
#include "platform/Platform.h"
#include "tools/preview/PngFile.h"
#include <qrtVistrelClasses4/FramePainter.h>
#include <qrtVistrelClasses4/FrameSheet.h>

#include <algorithm>
#include <filesystem>
#include <memory>

namespace qrtVistrelClasses4::bench {
namespace {

constexpr DotSize kSign{128, 32};
constexpr int kScale = 3;
constexpr double kMostOfEncoding = 0.5;

/// Everything between an open playfile and the bytes of a PNG, from loading the fonts on. `home` holds the
/// fonts; its commands are the built-in ones.
PixelBuffer drawSheet(const FrameInfoClass& playfile, const std::string& home) {
    const auto machine = makePlatform({home});
    const ScopedPlatform use(*machine);
    FramePainter painter({});
    const OneBasedArray<FrameRecord>& frames = playfile.Value().frames;
    FrameSheet sheet(frames.upperBound(), kSign, kScale);
    PixelBuffer picture = sheet.empty();
    painter.draw(frames, 1, frames.upperBound(), kSign, [&](std::int32_t number, const PixelBuffer& dots) {
        sheet.add(frames.at(number).FrameName, dots, painter, picture);
    });
    return picture;
}

std::int64_t litPixels(const PixelBuffer& picture) {
    std::int64_t count = 0;
    for (std::int32_t y = 0; y < picture.height(); ++y)
        count += std::ranges::count_if(picture.row(y), [](Color pixel) { return (pixel & 0xff) == 0xff; });
    return count;
}

} // namespace

std::vector<Ratio> PreviewSubject(const BenchFolder& folder) {
    const std::string home = folder.file("preview");
    std::filesystem::create_directory(home);
    std::filesystem::copy(QRT_SAMPLES_FOLDER "/bin", home + "/bin");
    const std::shared_ptr<FrameInfoClass> playfile = MakePlayfile(kUsual, folder);
    const auto picture = std::make_shared<const PixelBuffer>(drawSheet(*playfile, home));
    Require(litPixels(*picture) > std::int64_t{kUsual.frames} * 100, "the frames of the sheet are dark");
    RegisterWork("preview/draw", [playfile, home](benchmark::State& state) {
        TimeWork(state, [&] { benchmark::DoNotOptimize(drawSheet(*playfile, home)); });
    });
    RegisterWork("preview/encode", [picture](benchmark::State& state) {
        TimeWork(state, [&] { benchmark::DoNotOptimize(EncodePng(*picture)); });
    });
    return {{"sheet of 1048 frames", "preview/draw", "preview/encode", Bound::aim, kMostOfEncoding}};
}

} // namespace qrtVistrelClasses4::bench
