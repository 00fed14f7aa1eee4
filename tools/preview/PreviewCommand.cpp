// vistrel preview: frames as the sign shows them.
#include "frame/SystemErrors.h"
#include "platform/Platform.h"
#include "playfile/ReferenceFinder.h"
#include "preview/PictureSize.h"
#include "tools/commands/StoredCommands.h"
#include "tools/playfile/Opening.h"
#include "tools/preview/Faults.h"
#include "tools/preview/FilmPreview.h"
#include "tools/preview/PictureLimits.h"
#include "tools/preview/PngFile.h"
#include "tools/preview/TerminalPicture.h"
#include "tools/program/Commands.h"
#include "tools/program/Encoding.h"
#include "tools/program/Inputs.h"
#include "tools/program/Moment.h"
#include "tools/program/Outputs.h"
#include "tools/program/Size.h"
#include "tools/program/ValueKinds.h"
#include "tools/signs/SignsFile.h"
#include <qrtVistrelClasses4/FramePainter.h>
#include <qrtVistrelClasses4/FramePicture.h>
#include <qrtVistrelClasses4/FrameSheet.h>

#include <algorithm>
#include <functional>
#include <limits>

namespace qrtVistrelClasses4 {
namespace {

constexpr int kMost16Bit = std::numeric_limits<std::int16_t>::max();

constexpr int kScaleOfSheet = 3;

constexpr std::int64_t kMostDotsInText = 4'000'000;
constexpr std::int64_t kLargestSide = 1'000'000; ///< Limit of the PNG library.

struct PreviewOptions {
    InputOptions input;
    std::int16_t frame = 0; ///< 0 for the first, or for all if each gets a file.
    bool sheet = false;
    std::optional<DotSize> size;
    std::string sign;
    int scale = 0; ///< 0 for the usual one.
    FilmOptions film;
    OutputOptions output; ///< Without a name for the terminal.
    std::optional<Moment> at;
    AnswerOptions answers;
};

FramePainter makePainter(const SignLook& sign, ErrorLines& errors) {
    return WithStoredCommands(errors,
                              [&](const CommandTable& commands) { return FramePainter(sign, commands); });
}

/// The frames, with full paths of their pictures. Loading an older playfile does not look for these.
OneBasedArray<FrameRecord> framesOf(Playfile&& playfile) {
    FindPictures(playfile.frames, playfile.fileName);
    return std::move(playfile.frames);
}

/// The numbers of the frames to show.
struct FramesShown {
    std::int32_t first = 0;
    std::int32_t last = 0;
};

FramesShown framesShown(const PreviewOptions& options, std::int32_t count) {
    const std::int32_t first = std::max<std::int32_t>(options.frame, 1);
    const bool areAll = options.sheet || (options.frame == 0 && HasPlaceholder(options.output.out, 'n'));
    return {first, areAll ? count : first};
}

/// What the command does with one open playfile.
class Preview {
public:
    /// All that is passed must outlive this object.
    Preview(const PreviewOptions& options, const std::string& file, const SignLook& sign,
            OneBasedArray<FrameRecord> frames, Outputs& outputs, Session& session)
        : options_(options), file_(file), outputs_(outputs), session_(session), frames_(std::move(frames)),
          painter_(makePainter(sign, session.errors)), shown_(framesShown(options, frames_.upperBound())),
          size_(options.size ? *options.size
                : sign.size  ? *sign.size
                             : painter_.sizeFor(frames_)) {}

    ExitCode run() {
        session_.errors.about(InputName(file_));
        addFaults();
        if (options_.output.out.empty())
            return print();
        if (options_.sheet)
            return drawSheet();
        ExitCode result = ExitCode::done;
        for (std::int32_t number = shown_.first; number <= shown_.last; ++number)
            if (const ExitCode code = drawFrame(number); code != ExitCode::done)
                result = code;
        return result;
    }

private:
    using OnStrip = FrameSheet::OnStrip;
    /// Draws a picture from the top.
    using DrawStrips = std::function<void(const OnStrip& onStrip)>;

    void draw(const FramesShown& frames, const FramePainter::OnFrame& onFrame) {
        painter_.draw(frames_, frames.first, frames.last, size_, onFrame);
        addFaults();
    }
    void addFaults() { AddFaults(painter_.takeFaults(), session_.errors); }

    std::string caption(std::int32_t number) const {
        return std::to_string(number) + "  " + frames_.at(number).FrameName;
    }
    int scaleOr(int usual) const { return options_.scale > 0 ? options_.scale : usual; }

    static PictureSize sizeOf(const FrameSheet& sheet) { return {sheet.width(), sheet.height()}; }
    bool isDrawable(const PictureSize& size) { return IsDrawable(size, kLargestSide, session_.errors); }

    ExitCode print() {
        const std::int64_t count =
            std::int64_t{size_.width} * size_.height * (shown_.last - shown_.first + 1);
        if (count > kMostDotsInText) {
            session_.errors.add(std::to_string(count) + " dots are too many for text: at most " +
                                std::to_string(kMostDotsInText) + " are printed, more in a file with --out");
            return ExitCode::failed;
        }
        draw(shown_, [&](std::int32_t number, const PixelBuffer& dots) {
            if (options_.sheet)
                session_.out << Visible(Utf8FromAnsi(caption(number))) << '\n';
            PrintDots(session_.out, dots);
        });
        PrintWidthNote(session_.out, size_.width, "; --out draws them all");
        return ExitCode::done;
    }

    ExitCode drawFrame(std::int32_t number) {
        LedPainter leds(scaleOr(kUsualPictureScale));
        const PictureSize size = PictureSize::ofLeds(leds, size_);
        if (!isDrawable(size))
            return ExitCode::failed;
        Raster picture(size.pixels().width, size.pixels().height);
        draw({number, number},
             [&](std::int32_t, const PixelBuffer& dots) { leds.draw(dots, picture, 0, 0); });
        return save(
            picture.size(), [&](const OnStrip& onStrip) { onStrip(picture); },
            "frame " + std::to_string(number), number);
    }

    ExitCode drawSheet() {
        const std::int32_t count = shown_.last;
        FrameSheet sheet(count, size_, scaleOr(kScaleOfSheet));
        for (int scale = kScaleOfSheet - 1;
             scale >= 1 && !options_.scale && !sizeOf(sheet).isDrawn(kLargestSide); --scale)
            sheet = FrameSheet(count, size_, scale);
        if (!isDrawable(sizeOf(sheet)))
            return ExitCode::failed;
        const auto captionOf = [&](std::int32_t number) { return caption(number); };
        const auto drawStrips = [&](const OnStrip& onStrip) {
            sheet.draw(frames_, painter_, captionOf, onStrip);
        };
        return save(sizeOf(sheet).pixels(), drawStrips, Counted(count, "frame"), 0);
    }

    /// Saves a picture of `size` pixels. It is drawn twice, so that it never has to be in memory as a whole.
    ExitCode save(DotSize size, const DrawStrips& drawStrips, const std::string& what, std::int32_t number) {
        const std::string out = NameFromPattern(options_.output.out, file_, number);
        if (const auto code = outputs_.codeInsteadOf(out))
            return *code;
        Palette palette;
        drawStrips([&](const Raster& strip) { palette.add(strip); });
        addFaults(); // and not those of the second time, which are the same
        OutputTarget file(out, session_.out);
        aboutOutput(out, [&] { Check(file.error()); });
        PngWriter png(size, palette, file);
        drawStrips([&](const Raster& strip) { aboutOutput(out, [&] { png.write(strip); }); });
        aboutOutput(out, [&] {
            png.finish();
            Check(file.commit());
        });
        outputs_.remark(Visible(OutputName(out)) + ": " + what + ", " + std::to_string(size_.width) + " x " +
                        std::to_string(size_.height) + " dots, " + std::to_string(size.width) + " x " +
                        std::to_string(size.height) + " pixels");
        return ExitCode::done;
    }

    /// Runs `write`, whose errors are about the output file. All others are about the playfile.
    template <class Write>
    void aboutOutput(const std::string& out, Write write) {
        AboutOutput(session_.errors, out);
        write();
        session_.errors.about(InputName(file_));
    }

    const PreviewOptions& options_;
    const std::string& file_;
    Outputs& outputs_;
    Session& session_;
    OneBasedArray<FrameRecord> frames_;
    FramePainter painter_;
    FramesShown shown_;
    DotSize size_;
};

ExitCode previewFile(const std::string& path, const PreviewOptions& options,
                     const std::optional<DisplayRecord>& sign, Headings& headings, Outputs& outputs,
                     Session& session) {
    auto opened = OpenPlayfile(path, YesUnlessNo(options.answers), session.errors);
    if (!opened)
        return ExitCode::failed;
    if (const std::string& out = options.output.out; IsFilmName(out))
        return PreviewFilm({path, out, options.film, sign, options.size, options.frame, options.scale},
                           *opened, outputs, session);
    const std::int32_t count = opened->playfile.frames.upperBound();
    const auto [first, last] = framesShown(options, count);
    if (first > count) {
        session.errors.add("there is no frame " + std::to_string(first) + ", the last one is " +
                           std::to_string(count));
        return ExitCode::failed;
    }
    if (options.output.out.empty())
        headings.print(path);
    AddLosses(*opened, session.errors, first, last);
    return Preview(options, path, sign ? SignLookOf(*sign) : SignLook(),
                   framesOf(std::move(opened->playfile)), outputs, session)
        .run();
}

/// False, after adding an error, if an option is not for a film.
bool isForFilm(const PreviewOptions& options, ErrorLines& errors) {
    const bool hasPixels = IsGifName(options.output.out);
    if (!options.sheet && (options.scale == 0 || hasPixels))
        return true;
    errors.about(options.sheet ? "--sheet" : "--scale");
    errors.add("is for pictures, and " + options.output.out +
               (hasPixels ? " shows a film" : " is a page, which has a size of its own"));
    return false;
}

/// False, after adding an error, if "--out" is not a pattern for what is to be drawn.
bool isOutUsable(const PreviewOptions& options, ErrorLines& errors) {
    const std::string& out = options.output.out;
    if (!out.empty() && !HasEnding(out, {".gif", ".html", ".png"}, errors))
        return false;
    if (!(IsFilmName(out) ? isForFilm(options, errors) : AreFilmOptionsUnused(options.film, errors)))
        return false;
    return HasKnownPlaceholders(out, options.sheet ? "a sheet" : "", errors) &&
           NamesEachFile(options.output, options.input.areSeveral(), errors);
}

ExitCode preview(const PreviewOptions& options, Session& session) {
    if (!isOutUsable(options, session.errors))
        return ExitCode::wrongUsage;
    std::optional<DisplayRecord> sign;
    if (!options.sign.empty()) {
        sign = FindStoredSign(options.sign, session.errors);
        if (!sign)
            return ExitCode::failed;
    }
    const std::vector<Input> inputs = FindInputs(options.input, InputKind::playfile, session.errors);
    const ScopedMoment moment(options.at);
    Headings headings(options.input, session.out);
    Outputs outputs(options.output, ExistingFiles::replaced, session);
    return ForEachInput(inputs, session, [&](const Input& input) {
        return previewFile(input.path, options, sign, headings, outputs, session);
    });
}

} // namespace

void SetUpPreviewCommand(CLI::App& command, Session& session) {
    const auto options = std::make_shared<PreviewOptions>();
    SetAction(command, session, options, &preview);
    AddInputOptions(command, options->input, "FILES", "The playfiles")->required();
    auto* frame = command
                      .add_option("--frame", options->frame,
                                  "The frame to show, from 1; else the first, or in a film all")
                      ->check(CLI::Range(1, kMost16Bit));
    command.add_flag("--sheet", options->sheet, "Shows all frames, with their numbers and names")
        ->excludes(frame);
    AddSizeOption(command, options->size, kMost16Bit,
                  "Dots of the sign, from 1x1 to 32767x32767; else the size of --sign, else one that shows "
                  "all texts that do not scroll, and all pictures, of the playfile, up to 512x128");
    command
        .add_option("--sign", options->sign,
                    "Name of a sign in the list of signs, whose size, type and colours are used; else an "
                    "amber one")
        ->type_name(kSignValue);
    auto* out = AddOutOption(
        command, options->output,
        "Files to write: pictures ending in .png, or films of the playfile: pictures that move, ending in "
        ".gif, or pages that play it, ending in .html; without it, pictures go to the terminal, or in plain "
        "letters to a file or pipe. With %n, the "
        "number of a frame, in the name each frame gets a file");
    AddOutputOptions(command, options->output, ExistingFiles::replaced);
    command
        .add_option(
            "--scale", options->scale,
            "Pixels from one dot to the next; else 6, in a sheet 3 or as many as it allows, in a GIF 4")
        ->check(CLI::Range(1, kLargestPictureScale))
        ->needs(out);
    AddFilmOptions(command, options->film, frame);
    AddMomentOption(command, options->at);
    AddAnswerOptions(command, options->answers);
}

} // namespace qrtVistrelClasses4
