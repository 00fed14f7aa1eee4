// The playfile as a whole: how it was read, and which frames it has.
#include "playfile/Effects.h"
#include "validation/Rules.h"

#include <algorithm>
#include <unordered_map>

namespace qrtVistrelClasses4 {
namespace {

/// "the picture", for messages about a reference.
std::string_view nameOfReference(std::string FrameRecord::*member) {
    return member == &FrameRecord::commandfile ? "command file" : "picture";
}

void checkLoading(const LoadOutcome& outcome, Findings& findings) {
    if (outcome.error) {
        const std::string line =
            outcome.error->line ? " in line " + std::to_string(*outcome.error->line) : "";
        findings.add("read-incompletely", {},
                     "Only " + std::to_string(outcome.framesRead) + " of " +
                         CountText(outcome.framesAnnounced, "frame", "frames") +
                         " could be read: " + outcome.error->error.description() + line + ".");
    }
    for (const ChangedReference& found : outcome.found)
        findings.add("reference-moved",
                     {found.reference.frame, 0,
                      found.reference.member == &FrameRecord::commandfile
                          ? kPropertyOf<&FrameRecord::commandfile>
                          : kPropertyOf<&FrameRecord::PicturefileName>},
                     "The " + std::string(nameOfReference(found.reference.member)) + ' ' +
                         QuotedPath(found.reference.file) + " is not there; " + QuotedPath(found.now) +
                         " is used instead.");
}

void checkLegacy(const LegacyDetails& legacy, const LoadOutcome& outcome, Findings& findings) {
    const auto refuse = [&](std::string message) {
        findings.add("read-incompletely", {}, std::move(message));
    };
    const auto read = static_cast<std::uint64_t>(outcome.framesRead);
    if (!legacy.hasMark)
        refuse("The file has no mark of the older format, so that nothing of it was read.");
    else if (read < legacy.records)
        refuse("Only " + std::to_string(read) + " of " + std::to_string(legacy.records) +
               " frames were read.");
    if (legacy.bytesAfterRecords > 0)
        refuse("After the last frame there are " + std::to_string(legacy.bytesAfterRecords) +
               " bytes, too few for another one.");
    for (const LegacyLoss& loss : legacy.losses)
        findings.add("legacy-loss", {.frame = loss.frame}, "The playfile lacks the " + loss.text + '.');
}

/// Blank frames between used ones, each run of them once.
void checkGaps(const OneBasedArray<FrameRecord>& frames, Findings& findings) {
    std::int32_t lastUsed = 0;
    for (std::int32_t number = 1; number <= frames.upperBound(); ++number) {
        if (!IsUsed(frames.at(number)))
            continue;
        const std::int32_t first = lastUsed + 1;
        if (lastUsed > 0 && first < number)
            findings.add("blank-between-frames", {.frame = first},
                         first + 1 == number
                             ? "The frame is blank, and frame " + std::to_string(number) +
                                   " after it is used."
                             : "Frames " + std::to_string(first) + " to " + std::to_string(number - 1) +
                                   " are blank, and later ones are used.");
        lastUsed = number;
    }
}

void checkNames(const OneBasedArray<FrameRecord>& frames, Findings& findings) {
    std::unordered_map<std::string_view, std::int32_t> firstOf;
    for (std::int32_t number = 1; number <= frames.upperBound(); ++number) {
        const FrameRecord& frame = frames.at(number);
        if (!IsUsed(frame) || frame.FrameName.empty())
            continue;
        const auto [first, isNew] = firstOf.emplace(frame.FrameName, number);
        if (!isNew)
            findings.add("name-given-twice", {number, 0, kPropertyOf<&FrameRecord::FrameName>},
                         "The name " + Quoted(frame.FrameName) + " is also that of frame " +
                             std::to_string(first->second) + '.');
    }
}

void checkKinds(const OneBasedArray<FrameRecord>& frames, Findings& findings) {
    for (std::int32_t number = 1; number <= frames.upperBound(); ++number) {
        const FrameRecord& frame = frames.at(number);
        if (!IsOfKnownType(frame))
            findings.add("unknown-frame-type", {number, 0, kPropertyOf<&FrameRecord::FrameType>},
                         "The frame is of type " + std::to_string(frame.FrameType) +
                             ", and types are 0 to 4.");
    }
}

/// Whether the sign has frames enough for all that are sent.
void checkSignFrames(const Playfile& playfile, Findings& findings) {
    if (const std::int64_t total = CountDisplayFrames(playfile); total > kMostDisplayFrames)
        findings.add("too-many-sign-frames", {},
                     "The playfile takes " + std::to_string(total) +
                         " frames of the sign, which has at most " + std::to_string(kMostDisplayFrames) +
                         '.');
}

} // namespace

void CheckPlayfile(const Playfile& playfile, const ValidationCircumstances& circumstances,
                   Findings& findings) {
    const OneBasedArray<FrameRecord>& frames = playfile.frames;
    if (const LoadOutcome* const outcome = circumstances.loaded) {
        checkLoading(*outcome, findings);
        if (outcome->legacy)
            checkLegacy(*outcome->legacy, *outcome, findings);
    }
    const std::int32_t used = CountUsedFrames(playfile);
    const bool isRefused =
        circumstances.loaded && circumstances.loaded->framesRead == 0 && !circumstances.loaded->isComplete;
    if (used == 0 && !isRefused)
        findings.add("no-used-frame", {},
                     frames.upperBound() == 0 ? "The playfile has no frames."
                     : frames.upperBound() == 1
                         ? "The only frame is blank."
                         : "All " + std::to_string(frames.upperBound()) + " frames are blank.");
    if (used > 0 && CountFrames(playfile, NEW_FRAME_TYPES::FRAME_CMD) == used)
        findings.add("only-command-files", {},
                     used == 1 ? "The only used frame sends a command file."
                               : "All " + std::to_string(used) + " used frames send command files.");
    if (frames.upperBound() > circumstances.framesAllowed)
        findings.add("too-many-frames", {},
                     "There are " + std::to_string(frames.upperBound()) + " frames, and " +
                         std::to_string(circumstances.framesAllowed) + " are allowed.");
    checkSignFrames(playfile, findings);
    checkKinds(frames, findings);
    checkGaps(frames, findings);
    checkNames(frames, findings);
}

} // namespace qrtVistrelClasses4
