// vistrel frames: frames changed, added, inserted, deleted, moved and copied.
#include "frame/Conversions.h"
#include "tools/playfile/Editing.h"
#include "tools/playfile/Opening.h"
#include "tools/playfile/TypedProperties.h"
#include "tools/program/AllowedValues.h"
#include "tools/program/Commands.h"
#include "tools/program/Decimal.h"
#include "tools/program/NumberSelection.h"
#include "tools/program/ValueKinds.h"
#include <qrtVistrelClasses4/FrameInfoClass.h>

#include <algorithm>
#include <iterator>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace qrtVistrelClasses4 {
namespace {

using FrameNumber = Decimal<std::int32_t>;
using FrameNumbers = std::vector<std::int32_t>; // rising

constexpr const char* kFrame = "frame";

struct FramesOptions : EditOptions {
    FrameNumber at, from, to;
    NumberSelection frames;
    std::string other;
    NumberSelection framesOfOther;
    PropertyOptions properties;
};

/// A number is checked before any frame moves.
bool isWithin(const char* argument, std::int32_t number, std::int32_t last, ErrorLines& errors) {
    return IsWithin(argument, number, last, kFrame, errors);
}

bool isRoomAt(std::int32_t at, std::int32_t count, const Playfile& playfile, ErrorLines& errors) {
    return isWithin("AT", at, playfile.frames.upperBound() + 1, errors) &&
           IsRoomForFrames(count, playfile, errors);
}

/// Runs of numbers that follow each other, as the library copies and removes frames.
struct FrameRun {
    std::int16_t first = 0, last = 0;
};
std::vector<FrameRun> runsOf(const FrameNumbers& numbers) {
    std::vector<FrameRun> runs;
    for (const std::int32_t number : numbers)
        if (!runs.empty() && runs.back().last + 1 == number)
            runs.back().last = NarrowToInt16(number);
        else
            runs.push_back({NarrowToInt16(number), NarrowToInt16(number)});
    return runs;
}

/// Calls `change(frames)` with the frames of a playfile in the class that has the operations on them.
template <class Change>
void withOperations(EditedPlayfile& edited, Change change) {
    FrameInfoClass frames;
    frames.Adopt(std::move(edited.playfile()));
    change(frames);
    edited.playfile() = frames.Value();
}

// The edits. Each says what it has done, or adds an error.

void insertFrame(EditedPlayfile& edited, const FramesOptions& options, ErrorLines& errors) {
    const std::int32_t at = options.at.value;
    if (!isRoomAt(at, 1, edited.playfile(), errors))
        return;
    withOperations(edited, [&](FrameInfoClass& frames) {
        bool isAfterLast = at > frames.TotalFrames();
        frames.CurrentFrame(isAfterLast ? frames.TotalFrames() : NarrowToInt16(at));
        frames.InsertFrame(isAfterLast);
    });
    edited.references.emplace(edited.references.begin() + (at - 1));
    edited.done = "inserted frame " + std::to_string(at);
}

void deleteFrames(EditedPlayfile& edited, const FramesOptions& options, ErrorLines& errors) {
    const auto numbers = options.frames.numbers("FRAMES", edited.frames().upperBound(), kFrame, errors);
    if (!numbers)
        return;
    std::vector<FrameRun> runs = runsOf(*numbers);
    std::ranges::reverse(runs); // so that the numbers of the others still hold
    withOperations(edited, [&](FrameInfoClass& frames) {
        for (auto [first, last] : runs) {
            std::shared_ptr<FrameInfoClass> cutOut;
            frames.CutInfo(first, last, cutOut);
        }
    });
    for (const auto& [first, last] : runs) {
        edited.references.erase(edited.references.begin() + (first - 1), edited.references.begin() + last);
        edited.forgetLosses(first, last);
    }
    edited.done = "deleted " + SelectionText(kFrame, *numbers);
}

void moveFrame(EditedPlayfile& edited, const FramesOptions& options, ErrorLines& errors) {
    const std::int32_t from = options.from.value, to = options.to.value;
    const std::int32_t last = edited.frames().upperBound();
    if (!isWithin("FROM", from, last, errors) || !isWithin("TO", to, last, errors))
        return;
    withOperations(edited,
                   [&](FrameInfoClass& frames) { frames.MoveFrame(NarrowToInt16(from), NarrowToInt16(to)); });
    const auto place = [&](std::int32_t number) { return edited.references.begin() + (number - 1); };
    if (from < to)
        std::rotate(place(from), place(from + 1), place(to + 1));
    else
        std::rotate(place(to), place(from), place(from + 1));
    edited.done = "moved frame " + std::to_string(from) + " to " + std::to_string(to);
}

/// Inserts copies of frames of `source` at `AT`, and its references with them.
void putIn(EditedPlayfile& edited, std::int32_t at, const FrameNumbers& numbers, const Playfile& source,
           std::vector<std::vector<ChangedReference>> references) {
    FrameInfoClass from;
    from.Adopt(source);
    std::int32_t place = at;
    withOperations(edited, [&](FrameInfoClass& frames) {
        for (auto [first, last] : runsOf(numbers)) {
            std::shared_ptr<FrameInfoClass> clipboard;
            from.CopyInfo(first, last, clipboard);
            frames.PasteInfo(NarrowToInt16(place), clipboard.get());
            place += last - first + 1;
        }
    });
    std::vector<std::vector<ChangedReference>> copied;
    copied.reserve(numbers.size());
    for (const std::int32_t number : numbers)
        copied.push_back(std::move(references[static_cast<std::size_t>(number) - 1]));
    edited.references.insert(edited.references.begin() + (at - 1), std::make_move_iterator(copied.begin()),
                             std::make_move_iterator(copied.end()));
}

void copyFrames(EditedPlayfile& edited, const FramesOptions& options, ErrorLines& errors) {
    const std::int32_t at = options.at.value;
    const auto numbers = options.frames.numbers("FRAMES", edited.frames().upperBound(), kFrame, errors);
    if (!numbers || !isRoomAt(at, static_cast<std::int32_t>(numbers->size()), edited.playfile(), errors))
        return;
    putIn(edited, at, *numbers, Playfile(edited.playfile()), edited.references);
    edited.done = "copied " + SelectionText(kFrame, *numbers) + " to " + std::to_string(at);
}

/// The playfile that frames are pasted from.
struct PasteSource {
    LoadOutcome opened;
    FrameNumbers numbers;
};

void pasteFrames(EditedPlayfile& edited, const FramesOptions& options, const PasteSource& source,
                 ErrorLines& errors) {
    const std::int32_t at = options.at.value;
    if (!isRoomAt(at, static_cast<std::int32_t>(source.numbers.size()), edited.playfile(), errors))
        return;
    putIn(edited, at, source.numbers, source.opened.playfile, ReferencesByFrame(source.opened));
    edited.done = "pasted " + SelectionText(kFrame, source.numbers) + " of " + InputName(options.other) +
                  " at " + std::to_string(at);
}

ExitCode paste(const FramesOptions& options, Session& session) {
    auto opened = OpenToSave(options.other, options.saving, options.output, session.errors);
    if (!opened)
        return ExitCode::failed;
    AboutInput(session.errors, options.other);
    auto numbers =
        options.framesOfOther.numbers("FRAMES", opened->playfile.frames.upperBound(), kFrame, session.errors);
    if (numbers && numbers->empty())
        session.errors.add("there is no frame to paste");
    if (!numbers || numbers->empty())
        return ExitCode::failed;
    const PasteSource source{*std::move(opened), *std::move(numbers)};
    const ExitCode code = EditPlayfiles(options, session, [&](EditedPlayfile& edited, ErrorLines& errors) {
        pasteFrames(edited, options, source, errors);
    });
    if (code == ExitCode::done)
        for (const FrameRun& run : runsOf(source.numbers))
            AddLosses(source.opened, session.errors, run.first, run.last);
    return code;
}

/// For an edit that is to change only what is typed.
EditOptions keepingReferences(EditOptions options) {
    options.saving.keepPaths = true;
    return options;
}

ExitCode setProperties(const FramesOptions& options, Session& session) {
    const auto assignments = AssignmentsFrom<FrameRecord>(options.properties, session.errors);
    if (!assignments)
        return ExitCode::wrongUsage;
    return EditPlayfiles(
        keepingReferences(options), session, [&](EditedPlayfile& edited, ErrorLines& errors) {
            const auto numbers =
                options.frames.numbers("FRAMES", edited.frames().upperBound(), kFrame, errors);
            if (!numbers)
                return;
            for (const std::int32_t number : *numbers)
                edited.change(number, [&](FrameRecord& frame) { assignments->applyTo(frame); });
            edited.isChanged = !edited.changes().empty();
            edited.done =
                (edited.isChanged ? "changed " : "changed nothing in ") + SelectionText(kFrame, *numbers);
        });
}

ExitCode addFrame(const FramesOptions& options, Session& session) {
    const auto frame = NewFrameFrom(options.properties, session.errors);
    if (!frame)
        return ExitCode::wrongUsage;
    return EditPlayfiles(
        keepingReferences(options), session, [&](EditedPlayfile& edited, ErrorLines& errors) {
            OneBasedArray<FrameRecord>& frames = edited.frames();
            const bool isUnused = frames.upperBound() == 1 && frames.at(1) == EmptyFrameRecord();
            if (!isUnused && !IsRoomForFrames(1, edited.playfile(), errors))
                return;
            if (!isUnused)
                frames.resize(frames.upperBound() + 1);
            frames.at(frames.upperBound()) = *frame;
            edited.references.resize(static_cast<std::size_t>(frames.upperBound()));
            edited.done = "added frame " + std::to_string(frames.upperBound());
        });
}

template <auto change>
ExitCode editFrames(const FramesOptions& options, Session& session) {
    return EditPlayfiles(options, session, [&](EditedPlayfile& edited, ErrorLines& errors) {
        change(edited, options, errors);
    });
}

} // namespace

void SetUpFramesCommand(CLI::App& frames, Session& session) {
    const auto options = std::make_shared<FramesOptions>();
    frames.require_subcommand(1);
    AddEditOptions(frames, *options);

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
        command->add_option("FRAMES", options->frames, std::string("The frames, ") + kSelectionHelp)
            ->required();
    };

    CLI::App* set = add("set", &setProperties, "Changes properties of frames",
                        "vistrel frames harbour.playfile set 3-5 DelayTime=4 PrefixCode=\"Fade In\"");
    takeFrames(set);
    AddPropertyOptions(*set, options->properties, kFramePropertyValue, kFramePropertiesHelp)->required();
    AddPropertyOptions(
        *add("add", &addFrame, "Adds a frame after the others",
             "vistrel frames harbour.playfile add FrameName=Notice DelayTime=5 \"Text=Gate 2\""),
        options->properties, kNewFramePropertyValue, kNewFrameHelp);
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
    CLI::App* pasteCommand = add(
        "paste", &paste,
        "Puts copies of another playfile's frames in; merging of lines and their fixed number are not copied",
        "vistrel frames harbour.playfile paste plant.playfile 1 --frames 3-5");
    pasteCommand->add_option("OTHER", options->other, "The other playfile")
        ->type_name(kPlayfileValue)
        ->required();
    takeAt(pasteCommand);
    pasteCommand->add_option("--frames", options->framesOfOther,
                             std::string("The frames of it, ") + kSelectionHelp + "; else all");
}

} // namespace qrtVistrelClasses4
