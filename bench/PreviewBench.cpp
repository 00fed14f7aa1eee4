// A sheet with all frames of a playfile, against the time that its own encoding takes, and against careful
// code that has the dots of every frame ready.
#include "bench/SamplePlayfile.h"
#include "bench/Subjects.h"
#include "bench/Timing.h"
#include "platform/Platform.h"
#include "platform/memory/KeptBytes.h"
#include "tools/preview/PngFile.h"
#include <qrtVistrelClasses4/FramePainter.h>
#include <qrtVistrelClasses4/FrameSheet.h>
#include <qrtVistrelClasses4/LedPainter.h>

#include <algorithm>
#include <array>
#include <memory>
#include <unordered_map>
#include <utility>
#include <vector>

namespace qrtVistrelClasses4::bench {
namespace {

constexpr DotSize kSign{128, 32};
constexpr int kScale = 3;
constexpr double kMostOfEncoding = 0.5;
constexpr double kMostOfCareful = 2;

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

/// The dots of all frames.
std::vector<PixelBuffer> dotsOf(const FrameInfoClass& playfile, const std::string& home) {
    const auto machine = makePlatform({home});
    const ScopedPlatform use(*machine);
    const OneBasedArray<FrameRecord>& frames = playfile.Value().frames;
    std::vector<PixelBuffer> all;
    FramePainter({}).draw(frames, 1, frames.upperBound(), kSign,
                          [&](std::int32_t, const PixelBuffer& dots) { all.push_back(dots); });
    return all;
}

/// Makes the sheet by hand from the dots of its frames, without their captions.
class CarefulSheet {
public:
    /// `sheet` is the size of the picture.
    CarefulSheet(std::vector<PixelBuffer> dots, DotSize sheet)
        : dots_(std::move(dots)), size_(sheet), columns_((sheet.width - kSpace) / kCellWidth) {
        for (const PixelBuffer& frame : dots_)
            for (std::int32_t y = 0; y < frame.height(); ++y)
                for (const Color dot : frame.row(y))
                    if (!leds_.contains(dot))
                        leds_.emplace(dot, makeLed(dot));
    }
    PixelBuffer draw() const {
        PixelBuffer picture(size_.width, size_.height, kPaper);
        for (std::size_t number = 0; number < dots_.size(); ++number) {
            const auto place = static_cast<std::int32_t>(number);
            drawSign(dots_[number], picture, kSpace + place % columns_ * kCellWidth,
                     kSpace + kCaption + place / columns_ * kCellHeight);
        }
        return picture;
    }
    static bool isCaption(std::int32_t y) { return y >= kSpace && (y - kSpace) % kCellHeight < kCaption; }

private:
    using Led = std::array<Color, kScale * kScale>;

    static constexpr Color kPaper = Rgb(30, 33, 38);
    static constexpr Color kRimColor = Rgb(64, 66, 72);
    static constexpr std::int32_t kSpace = 12;
    static constexpr std::int32_t kCaption = 11;
    static constexpr std::int32_t kRim = 2;
    static constexpr std::int32_t kSignWidth = kSign.width * kScale + 2 * kRim;
    static constexpr std::int32_t kSignHeight = kSign.height * kScale + 2 * kRim;
    static constexpr std::int32_t kCellWidth = kSignWidth + kSpace;
    static constexpr std::int32_t kCellHeight = kSignHeight + kSpace + kCaption;

    /// The pixels of a dot. There are few colours, so that this takes no time.
    static Led makeLed(Color color) {
        PixelBuffer picture(kScale + 2 * kRim, kScale + 2 * kRim);
        LedPainter(kScale).draw(PixelBuffer(1, 1, color), picture, 0, 0);
        Led led;
        for (std::int32_t y = 0; y < kScale; ++y)
            std::copy_n(picture.row(kRim + y).begin() + kRim, kScale, led.begin() + y * kScale);
        return led;
    }

    void drawSign(const PixelBuffer& dots, PixelBuffer& picture, std::int32_t left, std::int32_t top) const {
        for (std::int32_t y = 0; y < kSignHeight; ++y)
            std::fill_n(picture.row(top + y).begin() + left, kSignWidth, kRimColor);
        Color last = 0;
        const Led* led = &leds_.at(last);
        for (std::int32_t y = 0; y < kSign.height; ++y) {
            Color* place = picture.row(top + kRim + y * kScale).data() + left + kRim;
            for (const Color dot : dots.row(y)) {
                if (dot != last)
                    led = &leds_.at(last = dot);
                for (std::ptrdiff_t line = 0; line < kScale; ++line)
                    std::copy_n(led->data() + line * kScale, kScale, place + line * size_.width);
                place += kScale;
            }
        }
    }

    std::vector<PixelBuffer> dots_;
    DotSize size_;
    std::int32_t columns_;
    std::unordered_map<Color, Led> leds_;
};

/// Whether both show the same signs.
bool haveSameSigns(const PixelBuffer& one, const PixelBuffer& other) {
    for (std::int32_t y = 0; y < one.height(); ++y)
        if (!CarefulSheet::isCaption(y) && !std::ranges::equal(one.row(y), other.row(y)))
            return false;
    return true;
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
    const std::string home = folder.homeWithFonts("preview");
    const std::shared_ptr<FrameInfoClass> playfile = MakePlayfile(kUsual, folder);
    const auto picture = std::make_shared<const PixelBuffer>(drawSheet(*playfile, home));
    Require(litPixels(*picture) > std::int64_t{kUsual.frames} * 100, "the frames of the sheet are dark");
    RegisterWork("preview/draw", [playfile, home](benchmark::State& state) {
        TimeWork(state, [&] { benchmark::DoNotOptimize(drawSheet(*playfile, home)); });
    });
    const auto careful = std::make_shared<const CarefulSheet>(dotsOf(*playfile, home), picture->size());
    Require(haveSameSigns(*picture, careful->draw()), "careful code draws other signs");
    RegisterWork("preview/careful", [careful](benchmark::State& state) {
        TimeWork(state, [&] { benchmark::DoNotOptimize(careful->draw()); });
    });
    RegisterWork("preview/encode", [picture](benchmark::State& state) {
        TimeWork(state, [&] { benchmark::DoNotOptimize(EncodePng(*picture)); });
    });
    return {{"sheet of 1048 frames", "preview/draw", "preview/encode", Bound::aim, kMostOfEncoding},
            {"sheet of 1048 frames", "preview/draw", "preview/careful", Bound::aim, kMostOfCareful}};
}

} // namespace qrtVistrelClasses4::bench
