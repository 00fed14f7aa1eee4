// vistrel preview: frames as the sign shows them.
#include "frame/SystemErrors.h"
#include "platform/Platform.h"
#include "platform/ReplacementFile.h"
#include "playfile/ReferenceFinder.h"
#include "tools/commands/StoredCommands.h"
#include "tools/playfile/Opening.h"
#include "tools/preview/Faults.h"
#include "tools/preview/PngFile.h"
#include "tools/preview/TerminalPicture.h"
#include "tools/program/Commands.h"
#include "tools/program/Encoding.h"
#include "tools/program/Moment.h"
#include "tools/program/Size.h"
#include "tools/signs/SignsFile.h"
#include <qrtVistrelClasses4/FramePainter.h>
#include <qrtVistrelClasses4/FrameSheet.h>

#include <functional>
#include <limits>

namespace qrtVistrelClasses4 {
namespace {

constexpr int kMost16Bit = std::numeric_limits<std::int16_t>::max();

constexpr int kLargestScale = 64;
constexpr int kScaleOfFrame = 6;
constexpr int kScaleOfSheet = 3;

constexpr std::int64_t kMostPixels = 100'000'000;
constexpr std::int64_t kMostDotsInText = 4'000'000;
constexpr std::int64_t kLargestSide = 1'000'000; ///< Limit of the PNG library.

struct PreviewOptions {
    std::string file;
    std::int16_t frame = 1;
    bool sheet = false;
    std::optional<DotSize> size;
    std::string sign;
    int scale = 0;   ///< 0 for the usual one.
    std::string out; ///< Empty for the terminal.
    std::optional<Moment> at;
    AnswerOptions answers;
};

FramePainter makePainter(const SignLook& sign, ErrorLines& errors) {
    return WithStoredCommands(errors,
                              [&](const CommandTable& commands) { return FramePainter(sign, commands); });
}

/// The look of the sign with the typed name. Adds an error and returns nothing if the list of signs does not
/// have it.
std::optional<SignLook> findSignLook(const std::string& typed, ErrorLines& errors) {
    const std::optional<SignsFile> file = LoadSigns(errors);
    const std::optional<std::int16_t> number = file ? FindTypedSign(file->list, typed, errors) : std::nullopt;
    return number ? std::optional(SignLookOf(file->list.signs.at(*number))) : std::nullopt;
}

/// The frames, with full paths of their pictures. Loading an older playfile does not look for these.
OneBasedArray<FrameRecord> framesOf(Playfile&& playfile) {
    ReferenceFinder finder(playfile.fileName);
    for (FrameRecord& frame : playfile.frames)
        finder.find(frame.PicturefileName);
    return std::move(playfile.frames);
}

/// One run of the command, on an open playfile.
class Preview {
public:
    Preview(const PreviewOptions& options, const SignLook& sign, OneBasedArray<FrameRecord> frames,
            Session& session)
        : options_(options), session_(session), frames_(std::move(frames)),
          painter_(makePainter(sign, session.errors)), first_(options.sheet ? 1 : options.frame),
          last_(options.sheet ? frames_.upperBound() : options.frame),
          size_(options.size ? *options.size
                : sign.size  ? *sign.size
                             : painter_.sizeFor(frames_)) {}

    ExitCode run() {
        session_.errors.about(options_.file);
        addFaults();
        if (options_.out.empty())
            return print();
        return options_.sheet ? drawSheet() : drawFrame();
    }

private:
    using OnStrip = FrameSheet::OnStrip;
    /// Draws a picture from the top.
    using DrawStrips = std::function<void(const OnStrip& onStrip)>;

    void draw(const FramePainter::OnFrame& onFrame) {
        painter_.draw(frames_, first_, last_, size_, onFrame);
        addFaults();
    }
    void addFaults() { AddFaults(painter_.takeFaults(), session_.errors); }

    std::string caption(std::int32_t number) const {
        return std::to_string(number) + "  " + frames_.at(number).FrameName;
    }
    int scaleOr(int usual) const { return options_.scale > 0 ? options_.scale : usual; }

    static bool fits(std::int64_t width, std::int64_t height) {
        return width <= kLargestSide && height <= kLargestSide && width * height <= kMostPixels;
    }
    /// False, after adding an error, if the picture would be too large.
    bool isDrawable(std::int64_t width, std::int64_t height) {
        if (fits(width, height))
            return true;
        session_.errors.add("a picture of " + std::to_string(width) + " x " + std::to_string(height) +
                            " pixels is too large: at most " + std::to_string(kMostPixels) +
                            " are drawn, and " + std::to_string(kLargestSide) + " along a side");
        return false;
    }

    ExitCode print() {
        const std::int64_t count = std::int64_t{size_.width} * size_.height * (last_ - first_ + 1);
        if (count > kMostDotsInText) {
            session_.errors.add(std::to_string(count) + " dots are too many for text: at most " +
                                std::to_string(kMostDotsInText) + " are printed, more in a file with --out");
            return ExitCode::failed;
        }
        draw([&](std::int32_t number, const PixelBuffer& dots) {
            if (options_.sheet)
                session_.out << Visible(Utf8FromAnsi(caption(number))) << '\n';
            PrintDots(session_.out, dots);
        });
        PrintWidthNote(session_.out, size_.width, "; --out draws them all");
        return ExitCode::done;
    }

    ExitCode drawFrame() {
        LedPainter leds(scaleOr(kScaleOfFrame));
        const std::int64_t width = leds.sizeOf(size_.width);
        const std::int64_t height = leds.sizeOf(size_.height);
        if (!isDrawable(width, height))
            return ExitCode::failed;
        Raster picture(static_cast<std::int32_t>(width), static_cast<std::int32_t>(height));
        draw([&](std::int32_t, const PixelBuffer& dots) { leds.draw(dots, picture, 0, 0); });
        return save(
            picture.size(), [&](const OnStrip& onStrip) { onStrip(picture); },
            "frame " + std::to_string(first_));
    }

    ExitCode drawSheet() {
        const std::int32_t count = last_;
        FrameSheet sheet(count, size_, scaleOr(kScaleOfSheet));
        for (int scale = kScaleOfSheet - 1;
             scale >= 1 && !options_.scale && !fits(sheet.width(), sheet.height()); --scale)
            sheet = FrameSheet(count, size_, scale);
        if (!isDrawable(sheet.width(), sheet.height()))
            return ExitCode::failed;
        const DotSize size{static_cast<std::int32_t>(sheet.width()),
                           static_cast<std::int32_t>(sheet.height())};
        const auto captionOf = [&](std::int32_t number) { return caption(number); };
        const auto drawStrips = [&](const OnStrip& onStrip) {
            sheet.draw(frames_, painter_, captionOf, onStrip);
        };
        return save(size, drawStrips, Counted(count, "frame"));
    }

    /// Saves a picture of `size` pixels. It is drawn twice, so that it never has to be in memory as a whole.
    ExitCode save(DotSize size, const DrawStrips& drawStrips, const std::string& what) {
        Palette palette;
        drawStrips([&](const Raster& strip) { palette.add(strip); });
        addFaults(); // and not those of the second time, which are the same
        ReplacementFile file(platform().files(), options_.out);
        aboutOutput([&] { Check(file.error()); });
        PngWriter png(size, palette, file);
        drawStrips([&](const Raster& strip) { aboutOutput([&] { png.write(strip); }); });
        aboutOutput([&] {
            png.finish();
            Check(file.commit());
        });
        session_.out << Visible(options_.out) << ": " << what << ", " << size_.width << " x " << size_.height
                     << " dots, " << size.width << " x " << size.height << " pixels\n";
        return ExitCode::done;
    }

    /// Runs `write`, whose errors are about the output file. All others are about the playfile.
    template <class Write>
    void aboutOutput(Write write) {
        session_.errors.aboutFile(options_.out);
        write();
        session_.errors.about(options_.file);
    }

    const PreviewOptions& options_;
    Session& session_;
    OneBasedArray<FrameRecord> frames_;
    FramePainter painter_;
    std::int32_t first_;
    std::int32_t last_;
    DotSize size_;
};

ExitCode preview(const PreviewOptions& options, Session& session) {
    SignLook sign;
    if (!options.sign.empty()) {
        const auto found = findSignLook(options.sign, session.errors);
        if (!found)
            return ExitCode::failed;
        sign = *found;
    }
    auto opened = OpenPlayfile(options.file, options.answers, session.errors);
    if (!opened)
        return ExitCode::failed;
    const std::int32_t last = opened->playfile.frames.upperBound();
    const std::int32_t first = options.sheet ? 1 : options.frame;
    if (first > last) {
        session.errors.add("there is no frame " + std::to_string(first) + ", the last one is " +
                           std::to_string(last));
        return ExitCode::failed;
    }
    AddLosses(*opened, session.errors, first, options.sheet ? last : first);
    const ScopedMoment moment(options.at);
    return Preview(options, sign, framesOf(std::move(opened->playfile)), session).run();
}

} // namespace

void SetUpPreviewCommand(CLI::App& command, Session& session) {
    const auto options = std::make_shared<PreviewOptions>();
    SetAction(command, session, options, &preview);
    command.add_option("FILE", options->file, "The playfile")->required();
    auto* frame = command.add_option("--frame", options->frame, "The frame to show, from 1; else the first")
                      ->check(CLI::Range(1, kMost16Bit));
    command.add_flag("--sheet", options->sheet, "Shows all frames, with their numbers and names")
        ->excludes(frame);
    AddSizeOption(command, options->size, kMost16Bit,
                  "Dots of the sign, from 1x1 to 32767x32767; else the size of --sign, else one that shows "
                  "all texts that do not scroll, and all pictures, of the playfile, up to 512x128");
    command.add_option("--sign", options->sign,
                       "Name of a sign in the list of signs, whose size, type and colours are used; else an "
                       "amber one");
    auto* out = command.add_option(
        "--out", options->out,
        "PNG file to write the picture to; without it, the picture goes to the terminal, or in "
        "plain letters to a file or pipe");
    command
        .add_option("--scale", options->scale,
                    "Pixels from one dot to the next; else 6, in a sheet 3 or as many as it allows")
        ->check(CLI::Range(1, kLargestScale))
        ->needs(out);
    AddMomentOption(command, options->at);
    AddAnswerOptions(command, options->answers);
}

} // namespace qrtVistrelClasses4
