// vistrel frames: frames inserted, deleted, moved and copied.
#include "frame/Conversions.h"
#include "tools/playfile/Opening.h"
#include "tools/playfile/Saving.h"
#include "tools/program/AllowedValues.h"
#include "tools/program/Commands.h"
#include "tools/program/Decimal.h"
#include "tools/program/Encoding.h"
#include "tools/program/Inputs.h"
#include "tools/program/JsonText.h"
#include "tools/program/ValueKinds.h"
#include <qrtVistrelClasses4/FrameInfoClass.h>

#include <algorithm>
#include <istream>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace qrtVistrelClasses4 {
namespace {

using FrameNumber = Decimal<std::int32_t>;

/// Frame numbers as they were typed, from the first to the last one meant.
struct FrameRange {
    // Not an aggregate, because options would also accept a single number for an aggregate.
    FrameRange() = default;
    FrameRange(std::int32_t firstFrame, std::int32_t lastFrame) : first(firstFrame), last(lastFrame) {}

    std::int32_t first = 0;
    std::int32_t last = 0;
    std::int32_t count() const { return last - first + 1; }
};

/// "4" or "3-5".
std::istream& operator>>(std::istream& in, FrameRange& range) {
    in >> range.first;
    range.last = range.first;
    if (in.good() && in.peek() == '-')
        in.ignore() >> range.last;
    return in;
}

std::string text(const FrameRange& range) {
    const std::string first = std::to_string(range.first);
    return range.count() == 1 ? "frame " + first : "frames " + first + " to " + std::to_string(range.last);
}

struct FramesOptions {
    std::string file;
    OutputOptions output; ///< Without a name, the playfile itself is saved.
    SavingOptions saving;
    bool json = false;

    FrameNumber at, from, to;
    FrameRange frames;
    std::string other;
    std::optional<FrameRange> framesOfOther; ///< If empty, all frames.
};

/// A number is checked before any frame moves.
bool isWithin(const char* argument, std::int32_t number, std::int32_t last, ErrorLines& errors) {
    return IsWithin(argument, number, last, "frame", errors);
}

bool isWithin(const char* argument, const FrameRange& range, const FrameInfoClass& playfile,
              ErrorLines& errors) {
    const std::int32_t last = playfile.TotalFrames();
    if (!isWithin(argument, range.first, last, errors) || !isWithin(argument, range.last, last, errors))
        return false;
    if (range.first > range.last)
        errors.add(std::string(argument) + " ends before it begins");
    return range.first <= range.last;
}

/// True if `count` more frames can be inserted at `at`, which may be one after the last frame. The library
/// would leave out frames beyond the limit.
bool isRoomAt(std::int32_t at, std::int32_t count, const FrameInfoClass& playfile, ErrorLines& errors) {
    const std::int32_t last = playfile.TotalFrames();
    if (!isWithin("AT", at, last + 1, errors))
        return false;
    const std::int32_t allowed = playfile.TotalFramesAllowed();
    if (last + count > allowed)
        errors.add("there would be " + std::to_string(last + count) + " frames, but at most " +
                   std::to_string(allowed) + " are allowed");
    return last + count <= allowed;
}

/// Inserts copies of frames of `source` at `AT`. Returns false, and adds the reason to `errors`, if that
/// cannot be done.
bool putIn(FrameInfoClass& playfile, const FrameRange& range, FrameInfoClass& source,
           const FramesOptions& options, ErrorLines& errors) {
    if (!isWithin("FRAMES", range, source, errors))
        return false;
    errors.about(options.file);
    if (!isRoomAt(options.at.value, range.count(), playfile, errors))
        return false;
    std::int16_t first = NarrowToInt16(range.first);
    std::int16_t last = NarrowToInt16(range.last);
    std::shared_ptr<FrameInfoClass> clipboard;
    source.CopyInfo(first, last, clipboard);
    playfile.PasteInfo(NarrowToInt16(options.at.value), clipboard.get());
    return true;
}

/// The references of each frame that loading has changed. An edit moves them like the frames.
using Changes = std::vector<std::vector<ChangedReference>>;

Changes changesOf(LoadOutcome& opened) {
    Changes changes(static_cast<std::size_t>(opened.playfile.frames.upperBound()));
    for (ChangedReference& change : opened.found)
        changes.at(static_cast<std::size_t>(change.reference.frame) - 1).push_back(std::move(change));
    return changes;
}

/// With the numbers that the frames have now.
std::vector<ChangedReference> inOrder(Changes&& changes) {
    std::vector<ChangedReference> all;
    std::int32_t number = 0;
    for (std::vector<ChangedReference>& frame : changes) {
        ++number;
        for (ChangedReference& change : frame) {
            change.reference.frame = number;
            all.push_back(std::move(change));
        }
    }
    return all;
}

/// The playfiles of one edit.
struct Edit {
    const FramesOptions& options;
    ErrorLines& errors;
    LoadOutcome opened;
    Changes changes = changesOf(opened);
    std::optional<LoadOutcome> other{}; ///< The one to paste from.
    FrameInfoClass playfile{};

    /// The changes of frame `number`, which may be one after the last.
    Changes::iterator at(std::int32_t number) { return changes.begin() + (number - 1); }
    /// Puts those of frames of `source` in at `AT`.
    void insertChanges(const Changes& source, const FrameRange& range) {
        const Changes copied(source.begin() + (range.first - 1), source.begin() + range.last);
        changes.insert(at(options.at.value), copied.begin(), copied.end());
    }
};

// The edits. Each returns a text about what it has done, or adds an error.

std::string insertFrame(Edit& edit) {
    const std::int32_t at = edit.options.at.value;
    FrameInfoClass& playfile = edit.playfile;
    if (!isRoomAt(at, 1, playfile, edit.errors))
        return {};
    bool isAfterLast = at > playfile.TotalFrames();
    playfile.CurrentFrame(isAfterLast ? playfile.TotalFrames() : NarrowToInt16(at));
    playfile.InsertFrame(isAfterLast);
    edit.changes.emplace(edit.at(at));
    return "inserted frame " + std::to_string(at);
}

std::string deleteFrames(Edit& edit) {
    const FrameRange& frames = edit.options.frames;
    if (!isWithin("FRAMES", frames, edit.playfile, edit.errors))
        return {};
    std::int16_t first = NarrowToInt16(frames.first);
    std::int16_t last = NarrowToInt16(frames.last);
    std::shared_ptr<FrameInfoClass> cutOut;
    edit.playfile.CutInfo(first, last, cutOut);
    edit.changes.erase(edit.at(frames.first), edit.at(frames.last + 1));
    if (edit.opened.legacy)
        std::erase_if(edit.opened.legacy->losses, [&](const LegacyLoss& loss) {
            return loss.frame >= frames.first && loss.frame <= frames.last;
        });
    return "deleted " + text(frames);
}

std::string moveFrame(Edit& edit) {
    const std::int32_t from = edit.options.from.value, to = edit.options.to.value;
    const std::int32_t last = edit.playfile.TotalFrames();
    if (!isWithin("FROM", from, last, edit.errors) || !isWithin("TO", to, last, edit.errors))
        return {};
    edit.playfile.MoveFrame(NarrowToInt16(from), NarrowToInt16(to));
    if (from < to)
        std::rotate(edit.at(from), edit.at(from + 1), edit.at(to + 1));
    else
        std::rotate(edit.at(to), edit.at(from), edit.at(from + 1));
    return "moved frame " + std::to_string(from) + " to " + std::to_string(to);
}

std::string copyFrames(Edit& edit) {
    const FramesOptions& options = edit.options;
    if (!putIn(edit.playfile, options.frames, edit.playfile, options, edit.errors))
        return {};
    edit.insertChanges(edit.changes, options.frames);
    return "copied " + text(options.frames) + " to " + std::to_string(options.at.value);
}

std::string pasteFrames(Edit& edit) {
    const FramesOptions& options = edit.options;
    FrameInfoClass other;
    other.Adopt(edit.other->playfile);
    const FrameRange range = options.framesOfOther.value_or(FrameRange(1, other.TotalFrames()));
    edit.errors.about(options.other);
    if (!putIn(edit.playfile, range, other, options, edit.errors))
        return {};
    edit.insertChanges(changesOf(*edit.other), range);
    AddLosses(*edit.other, edit.errors, range.first, range.last);
    return "pasted " + text(range) + " of " + InputName(options.other) + " at " +
           std::to_string(options.at.value);
}

template <auto change>
ExitCode editFrames(const FramesOptions& options, Session& session) {
    ErrorLines& errors = session.errors;
    if (!IsOutForPlayfiles(options.output, errors))
        return ExitCode::wrongUsage;
    auto opened = OpenToSave(options.file, options.saving, options.output, errors);
    if (!opened)
        return ExitCode::failed;
    Edit edit{options, errors, std::move(*opened)};
    if (!options.other.empty() &&
        !(edit.other = OpenToSave(options.other, options.saving, options.output, errors)))
        return ExitCode::failed;
    errors.about(options.file);
    edit.playfile.Adopt(std::move(edit.opened.playfile));
    const std::size_t errorsOfOpening = errors.count();
    const std::string done = change(edit);
    if (errors.count() > errorsOfOpening)
        return ExitCode::failed;
    OutputOptions output = options.output;
    output.out = output.out.empty() ? options.file : NameFromPattern(output.out, options.file);
    Outputs outputs(output, ExistingFiles::replaced, session);
    edit.opened.playfile = edit.playfile.Value();
    edit.opened.found = inOrder(std::move(edit.changes));
    if (const ExitCode code = SaveOpened(edit.opened, output.out, options.saving, outputs, session);
        code != ExitCode::done)
        return code;
    const std::int16_t count = edit.playfile.TotalFrames();
    outputs.remark(options.json ? JsonText({{"file", output.out}, {"done", done}, {"TotalFrames", count}})
                                : Visible(OutputName(output.out) + ": " + done) + "; " +
                                      Counted(count, "frame") + " now");
    return ExitCode::done;
}

} // namespace

void SetUpFramesCommand(CLI::App& frames, Session& session) {
    const auto options = std::make_shared<FramesOptions>();
    frames.require_subcommand(1);
    frames
        .add_option(
            "FILE", options->file,
            R"(The playfile, or "-" for standard input; saved in place unless --out names another file)")
        ->type_name(kPlayfileValue)
        ->required();
    AddOutOption(frames, options->output, "The file to save");
    AddOutputOptions(frames, options->output, ExistingFiles::replaced);
    AddSavingOptions(frames, options->saving);
    frames.add_flag("--json", options->json, "Prints the file, what was done and the number of frames");

    const auto add = [&](const char* name, auto run, const char* description, const char* example) {
        return &AddCommand(frames, name, description, example, session, options, run);
    };
    const auto takeAt = [&](CLI::App* command) {
        command
            ->add_option("AT", options->at,
                         "Number, from 1, that the first new frame gets; one more than the last for the end")
            ->required();
    };
    const auto takeFrames = [&](CLI::App* command) {
        command->add_option("FRAMES", options->frames, "One frame, such as 4, or several, such as 3-5")
            ->required();
    };

    takeAt(add("insert", &editFrames<insertFrame>, "Inserts an empty frame",
               "vistrel frames harbour.playfile insert 3"));
    takeFrames(add("delete", &editFrames<deleteFrames>, "Deletes frames; the only frame is emptied instead",
                   "vistrel frames harbour.playfile delete 3-5"));
    CLI::App* move = add("move", &editFrames<moveFrame>, "Moves a frame to the place of another",
                         "vistrel frames harbour.playfile move 2 5");
    move->add_option("FROM", options->from, "Number of the frame, from 1")->required();
    move->add_option("TO", options->to, "Number that it gets")->required();
    CLI::App* copy = add("copy", &editFrames<copyFrames>,
                         "Inserts copies of frames; merging of lines and their fixed number are not copied",
                         "vistrel frames harbour.playfile copy 3-5 10");
    takeFrames(copy);
    takeAt(copy);
    CLI::App* paste = add(
        "paste", &editFrames<pasteFrames>,
        "Puts copies of another playfile's frames in; merging of lines and their fixed number are not copied",
        "vistrel frames harbour.playfile paste plant.playfile 1 --frames 3-5");
    paste->add_option("OTHER", options->other, "The other playfile")->type_name(kPlayfileValue)->required();
    takeAt(paste);
    paste->add_option("--frames", options->framesOfOther,
                      "One frame of it, such as 4, or several, such as 3-5; else all");
}

} // namespace qrtVistrelClasses4
