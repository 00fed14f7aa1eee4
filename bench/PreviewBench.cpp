// A sheet with all frames of a playfile, against the time that its own encoding takes.
#include "bench/SamplePlayfile.h"
#include "bench/Subjects.h"
#include "bench/Timing.h"
#include "platform/Platform.h"
#include "platform/memory/KeptBytes.h"
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
    PixelBuffer picture(static_cast<std::int32_t>(sheet.width()), static_cast<std::int32_t>(sheet.height()));
    std::int32_t y = 0;
    sheet.draw(
        frames, painter, [&](std::int32_t number) { return frames.at(number).FrameName; },
        [&](const Raster& strip) {
            for (std::int32_t row = 0; row < strip.height(); ++row)
                std::ranges::copy(strip.row(row), picture.row(y++).begin());
        });
    return picture;
}

std::string EncodePng(const Raster& picture) {
    Palette palette;
    palette.add(picture);
    KeptBytes file;
    PngWriter png(picture.size(), palette, file);
    png.write(picture);
    png.finish();
    return file.text;
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
