#include "tools/preview/FilmPreview.h"

#include "frame/SystemErrors.h"
#include "playfile/ReferenceFinder.h"
#include "tools/playfile/Opening.h"
#include "tools/playfile/PlayTimes.h"
#include "tools/preview/Faults.h"
#include "tools/preview/FilmGif.h"
#include "tools/preview/FilmPage.h"
#include "tools/preview/PictureLimits.h"
#include "tools/program/Duration.h"
#include "tools/program/Encoding.h"
#include "tools/program/Inputs.h"
#include "tools/program/ProgressBar.h"
#include "tools/validation/Circumstances.h"
#include <qrtVistrelClasses4/Film.h>
#include <qrtVistrelClasses4/SignLook.h>

#include <algorithm>

namespace qrtVistrelClasses4 {
namespace {

/// A longer film takes minutes to draw, and nobody watches it.
constexpr double kLongestFilmSeconds = 3600;

constexpr int kScaleOfGif = 4;

FilmCircumstances filmCircumstances(const FilmRequest& request, ErrorLines& errors) {
    FilmCircumstances circumstances;
    circumstances.timing = LoadPlayTimeCircumstances(errors);
    if (request.sign) {
        circumstances.sign = SignLookOf(*request.sign);
        circumstances.blinking = BlinkRateOf(*request.sign);
        UseSign(*request.sign, circumstances.timing);
    }
    if (request.size)
        circumstances.sign.size = request.size;
    return circumstances;
}

/// What "vistrel check" finds with the same options.
std::vector<Finding> findingsOf(const FilmRequest& request, const LoadOutcome& opened, ErrorLines& errors) {
    ValidationCircumstances known = LoadValidationCircumstances(errors);
    if (request.sign)
        UseSign(*request.sign, known);
    if (request.size)
        known.signSize = request.size;
    known.loaded = &opened;
    return Validate(opened.playfile, known);
}

/// The films of one playfile.
class FilmPreviews {
public:
    /// All that is passed must outlive this object.
    FilmPreviews(const FilmRequest& request, const LoadOutcome& opened, Outputs& outputs, Session& session)
        : request_(request), opened_(opened), outputs_(outputs), session_(session) {}

    ExitCode run() {
        const auto numbers = frames();
        if (!numbers || !isDrawable())
            return ExitCode::failed;
        AddLosses(opened_, session_.errors, numbers->empty() ? 1 : numbers->front(),
                  numbers->empty() ? 1 : numbers->back());
        circumstances_ = filmCircumstances(request_, session_.errors);
        Playfile playfile = opened_.playfile;
        FindPictures(playfile.frames, playfile.fileName);
        LimitLoops(playfile, request_.options.loops.count);
        Film film = FilmOf(std::move(playfile), circumstances_);
        aboutPlayfile();
        AddFaults(film.playTime().faults, session_.errors);
        return HasPlaceholder(request_.out, 'n') ? writeEach(film, *numbers) : write(film, *numbers, 0);
    }

private:
    void aboutPlayfile() { session_.errors.about(InputName(request_.path)); }

    /// Returns nothing, after adding an error, if there are no such frames.
    std::optional<std::vector<std::int32_t>> frames() {
        const std::int32_t count = opened_.playfile.frames.upperBound();
        if (request_.frame > count) {
            session_.errors.add("there is no frame " + std::to_string(request_.frame) + ", the last one is " +
                                std::to_string(count));
            return std::nullopt;
        }
        if (request_.frame > 0)
            return std::vector{request_.frame};
        return request_.options.frames.numbers("--frames", count, "frame", session_.errors);
    }

    /// False, after adding an error, if the sign has too many dots.
    bool isDrawable() {
        const std::optional<DotSize> size = request_.size   ? request_.size
                                            : request_.sign ? SignLookOf(*request_.sign).size
                                                            : std::nullopt;
        if (!size || std::int64_t{size->width} * size->height <= kMostDotsInFilm)
            return true;
        session_.errors.add("a film of " + std::to_string(size->width) + " x " +
                            std::to_string(size->height) + " dots is too large: at most " +
                            std::to_string(kMostDotsInFilm) + " are drawn");
        return false;
    }

    /// False, after adding an error, if there is nothing to show, or too much.
    bool isShown(const FilmCut& cut, const std::vector<std::int32_t>& numbers) {
        if (cut.steps().empty()) {
            session_.errors.add("there is nothing to show: " + SelectionText("frame", numbers) +
                                (numbers.size() == 1 ? " is blank" : " are blank"));
            return false;
        }
        if (cut.seconds() <= kLongestFilmSeconds)
            return true;
        addLength("a film of " + DurationText(cut.seconds()) + " is too long: at most " +
                  DurationText(kLongestFilmSeconds) + " are drawn");
        return false;
    }
    void addLength(const std::string& text) {
        session_.errors.add(text + "; --seconds, --loops or --frames makes it shorter");
    }

    /// Frames that are blank get no file, unless all are.
    ExitCode writeEach(Film& film, const std::vector<std::int32_t>& numbers) {
        std::optional<ExitCode> result;
        for (const std::int32_t number : numbers)
            if (IsUsed(opened_.playfile.frames.at(number)))
                if (const ExitCode code = write(film, {number}, number); !result || code != ExitCode::done)
                    result = code;
        return result ? *result : write(film, numbers, 0);
    }

    ExitCode write(Film& film, const std::vector<std::int32_t>& numbers, std::int32_t number) {
        const int seconds = request_.options.seconds;
        FilmCut cut(film, numbers, seconds > 0 ? std::optional<double>(seconds) : std::nullopt);
        if (!isShown(cut, numbers))
            return ExitCode::failed;
        const std::string out = NameFromPattern(request_.out, request_.path, number);
        if (const auto code = outputs_.codeInsteadOf(out))
            return *code;
        const ExitCode code = IsGifName(out) ? writeGif(cut, out) : writePage(film, cut, numbers, out);
        aboutPlayfile();
        AddFaults(film.takeFaults(), session_.errors);
        return code;
    }

    /// Called with the moment that each picture is shown until.
    using OnDrawn = std::function<void(double until)>;
    /// Draws all pictures of a film into a file. Returns false after adding an error.
    using DrawFilm = std::function<bool(ByteSink& file, const OnDrawn& onDrawn)>;

    FilmPageFacts pageFacts(const Film& film, const FilmCut& cut, const std::vector<std::int32_t>& numbers) {
        FilmPageFacts facts;
        facts.title = StemOf(request_.path);
        facts.size = cut.size();
        facts.seconds = cut.seconds();
        facts.isPlain = request_.options.isPlain;
        facts.steps = cut.steps();
        facts.frames = numbers;
        facts.playfile = &opened_.playfile;
        facts.playTime = &film.playTime();
        facts.commands = circumstances_.timing.commands;
        facts.findings = findingsOf(request_, opened_, session_.errors);
        return facts;
    }

    ExitCode writePage(const Film& film, FilmCut& cut, const std::vector<std::int32_t>& numbers,
                       const std::string& out) {
        const FilmPageFacts facts = pageFacts(film, cut, numbers);
        return writeFile(cut, out, cut.size(), [&](ByteSink& file, const OnDrawn& onDrawn) {
            FilmPage page(facts, file);
            bool isTooMuch = false;
            forEachPicture(cut, [&](double from, double until, const Raster& dots) {
                onDrawn(until);
                isTooMuch = !page.add(from, dots);
                return !isTooMuch;
            });
            if (isTooMuch)
                addLength("a page holds no more than " +
                          std::to_string(FilmPage::kMostBytesOfPictures >> 20) +
                          " MiB of changes of the dots");
            else
                page.finish();
            return !isTooMuch;
        });
    }

    ExitCode writeGif(FilmCut& cut, const std::string& out) {
        const DotLook look{request_.options.isPlain, request_.scale > 0 ? request_.scale : kScaleOfGif};
        const PictureSize size = look.sizeOf(cut.size());
        if (!IsDrawable(size, GifWriter::kLargestSide, session_.errors))
            return ExitCode::failed;
        return writeFile(cut, out, size.pixels(), [&](ByteSink& file, const OnDrawn& onDrawn) {
            FilmGif gif(cut, look, file);
            forEachPicture(cut, [&](double from, double until, const Raster& dots) {
                onDrawn(until);
                gif.add(from, until, dots);
                return true;
            });
            gif.finish();
            return true;
        });
    }

    void forEachPicture(FilmCut& cut, const FilmCut::OnPicture& onPicture) const {
        cut.forEachPicture(1.0 / request_.options.picturesInSecond, onPicture);
    }

    ExitCode writeFile(const FilmCut& cut, const std::string& out, DotSize pixels, const DrawFilm& drawFilm) {
        AboutOutput(session_.errors, out);
        OutputTarget file(out, session_.out);
        Check(file.error());
        std::size_t pictures = 0;
        {
            ProgressBar progress(OutputName(out), outputs_.isQuiet());
            if (!drawFilm(file, [&](double until) {
                    ++pictures;
                    progress.set(until / cut.seconds());
                }))
                return ExitCode::failed;
        }
        Check(file.commit());
        outputs_.remark(Visible(OutputName(out)) + ": " + DurationText(cut.seconds()) + ", " +
                        Counted(pictures, "picture") + " of " + sizeText(cut.size()) + " dots" +
                        (pixels == cut.size() ? "" : ", " + sizeText(pixels) + " pixels"));
        return ExitCode::done;
    }
    static std::string sizeText(DotSize size) {
        return std::to_string(size.width) + " x " + std::to_string(size.height);
    }

    const FilmRequest& request_;
    const LoadOutcome& opened_;
    Outputs& outputs_;
    Session& session_;
    FilmCircumstances circumstances_;
};

} // namespace

ExitCode PreviewFilm(const FilmRequest& request, const LoadOutcome& opened, Outputs& outputs,
                     Session& session) {
    return FilmPreviews(request, opened, outputs, session).run();
}

} // namespace qrtVistrelClasses4
