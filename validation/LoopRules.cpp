// Loops: where they start and end, and how long they run.
#include "frame/Conversions.h"
#include "playfile/Effects.h"
#include "validation/Rules.h"
#include <qrtVistrelClasses4/PlayTime.h>
#include <qrtVistrelClasses4/Playback.h>

#include <algorithm>
#include <cmath>
#include <vector>

namespace qrtVistrelClasses4 {
namespace {

constexpr double kSecondsOfHour = 60 * 60;
constexpr double kMostHours = 1e6; ///< In messages; loops in each other can run longer than any number says.
constexpr double kSecondsOfDay = 24 * kSecondsOfHour;

constexpr std::string_view kStart = kPropertyOf<&FrameRecord::PrefixCode>;
constexpr std::string_view kEnd = kPropertyOf<&FrameRecord::SuffixCode>;

std::string codeText(std::string_view title, std::int16_t code) {
    return "The " + std::string(title) + " is " + std::to_string(code);
}

/// Where codes of loops lie, blank frames included. A code is safe to remove only if no other one can belong
/// to it: a start whose only fault is its count still shows where somebody means a loop to be.
class LoopCodes {
public:
    explicit LoopCodes(const OneBasedArray<FrameRecord>& frames)
        : firstStart_(frames.upperBound() + 1), firstFaultyStart_(firstStart_) {
        for (std::int32_t number = frames.upperBound(); number > 0; --number) {
            const FrameRecord& frame = frames.at(number);
            if (frame.SuffixCode == kEndLoop)
                lastEnd_ = std::max(lastEnd_, number);
            if (frame.PrefixCode < kLoopBase)
                continue;
            firstStart_ = number;
            if (!IsUsed(frame) || RoundsOfLoop(frame.PrefixCode) == 0)
                firstFaultyStart_ = number;
        }
    }

    std::optional<double> fixOfStart(std::int32_t frame) const { return removalIf(lastEnd_ < frame); }
    std::optional<double> fixOfBlankEnd(std::int32_t frame) const { return removalIf(frame < firstStart_); }
    std::optional<double> fixOfUnpairedEnd(std::int32_t frame) const {
        return removalIf(frame < firstFaultyStart_);
    }

private:
    static std::optional<double> removalIf(bool isSafe) { return isSafe ? std::optional(0.0) : std::nullopt; }

    std::int32_t firstStart_;
    std::int32_t firstFaultyStart_;
    std::int32_t lastEnd_ = 0;
};

/// Codes that start no loop, but are near to those that do; and those of blank frames, which are skipped.
void checkCodes(const FrameRecord& frame, std::int32_t number, const LoopCodes& codes, Findings& findings) {
    const bool isStart = frame.PrefixCode >= kLoopBase;
    if (!IsUsed(frame)) {
        if (isStart)
            findings.add("loop-in-blank-frame", {number, 0, kStart},
                         "A loop starts in the frame, which is blank, so that signs skip it.",
                         codes.fixOfStart(number));
        if (frame.SuffixCode == kEndLoop)
            findings.add("loop-in-blank-frame", {number, 0, kEnd},
                         "A loop ends in the frame, which is blank, so that signs skip it.",
                         codes.fixOfBlankEnd(number));
    } else if (frame.PrefixCode == kLoopBase) {
        findings.add("loop-without-count", {number, 0, kStart},
                     codeText("prefix code", frame.PrefixCode) +
                         ", which starts a loop without a number of rounds.",
                     codes.fixOfStart(number));
    } else if (frame.PrefixCode >= kLoopLimit) {
        findings.add("loop-count-too-large", {number, 0, kStart},
                     codeText("prefix code", frame.PrefixCode) + ", a loop of " +
                         std::to_string(frame.PrefixCode - kLoopBase) + " rounds, and loops have at most " +
                         std::to_string(kLoopLimit - 1 - kLoopBase) + '.');
    }
}

/// Whether the frame shows something that can be seen, sends a file, or plays a sound.
bool showsSomething(const FrameRecord& frame) {
    const bool hasVisibleText =
        HasText(frame) && std::any_of(frame.lines.begin(), frame.lines.end(), [](const LineRecord& line) {
            return line.Inverse || HasVisibleText(line);
        });
    return hasVisibleText || (HasPicture(frame) && !frame.PicturefileName.empty()) ||
           (KindOf(frame) == NEW_FRAME_TYPES::FRAME_CMD && !frame.commandfile.empty()) ||
           !frame.AudioFile.empty();
}

/// An end without a start belongs to the next start without an end, if there is one: somebody has mixed up
/// the two.
void checkUnpaired(const LoopsOfPlayfile& loops, const LoopCodes& codes, Findings& findings) {
    auto open = loops.loops.begin();
    for (const std::int32_t end : loops.endsWithoutStart) {
        open = std::find_if(open, loops.loops.end(),
                            [&](const Loop& loop) { return !loop.isClosed() && loop.firstFrame > end; });
        if (open == loops.loops.end()) {
            findings.add("end-without-start", {end, 0, kEnd},
                         "A loop ends in the frame, and none has started.", codes.fixOfUnpairedEnd(end));
        } else {
            findings.add("loop-reversed", {end, 0, kEnd},
                         "A loop ends in the frame, and starts only in frame " +
                             std::to_string(open->firstFrame) + '.');
            ++open;
        }
    }
}

/// Starts without an end that no end is before.
void checkOpen(const LoopsOfPlayfile& loops, Findings& findings) {
    auto end = loops.endsWithoutStart.begin();
    for (const Loop& loop : loops.loops) {
        if (loop.isClosed())
            continue;
        if (end != loops.endsWithoutStart.end() && *end < loop.firstFrame)
            ++end;
        else
            findings.add("loop-without-end", {loop.firstFrame, 0, kStart},
                         "A loop of " + CountText(loop.rounds, "round", "rounds") +
                             " starts in the frame, and never ends.");
    }
}

/// For each frame, how many up to it show something; before the first one 0.
std::vector<std::int32_t> countShowing(const OneBasedArray<FrameRecord>& frames) {
    std::vector<std::int32_t> counts{0};
    for (const FrameRecord& frame : frames)
        counts.push_back(counts.back() + (showsSomething(frame) ? 1 : 0));
    return counts;
}

void checkLoop(const std::vector<std::int32_t>& showing, const LoopsOfPlayfile& loops, const Loop& loop,
               Findings& findings) {
    const Place place{loop.firstFrame, 0, kStart};
    const std::string frameTexts =
        "from frame " + std::to_string(loop.firstFrame) + " to frame " + std::to_string(loop.lastFrame);
    if (loop.rounds == 1)
        findings.add("loop-once", place, "The loop " + frameTexts + " runs once.");
    if (loop.parent)
        findings.add("loop-nested", place,
                     "The loop " + frameTexts + " lies within the one that starts in frame " +
                         std::to_string(loops.loops[*loop.parent].firstFrame) + '.');
    if (showing[static_cast<std::size_t>(loop.firstFrame) - 1] ==
        showing[static_cast<std::size_t>(loop.lastFrame)])
        findings.add("empty-loop", place, "The loop " + frameTexts + " shows nothing.");
}

/// How often loops have a frame shown, for one frame after the other.
class Rounds {
public:
    explicit Rounds(const LoopsOfPlayfile& loops) : loops_(loops) {}

    void start(std::int32_t frame) {
        for (; next_ < loops_.loops.size() && loops_.loops[next_].firstFrame == frame; ++next_)
            if (const Loop& loop = loops_.loops[next_]; loop.isClosed()) {
                open_.push_back({loop.lastFrame, rounds_});
                rounds_ *= loop.rounds;
            }
    }
    void end(std::int32_t frame) {
        for (; !open_.empty() && open_.back().last == frame; open_.pop_back())
            rounds_ = open_.back().roundsAround;
    }
    double rounds() const { return rounds_; } ///< May be infinite.

private:
    struct Open {
        std::int32_t last;
        double roundsAround;
    };

    const LoopsOfPlayfile& loops_;
    std::size_t next_ = 0;
    std::vector<Open> open_;
    double rounds_ = 1;
};

void checkLength(const Playfile& playfile, const LoopsOfPlayfile& loops, Findings& findings) {
    double steps = 0, seconds = 0, secondsOnce = 0;
    Rounds rounds(loops);
    for (std::int32_t number = 1; number <= playfile.frames.upperBound(); ++number) {
        const FrameRecord& frame = playfile.frames.at(number);
        if (!IsUsed(frame))
            continue;
        rounds.start(number);
        const double delay = CountedDelay(frame);
        steps += rounds.rounds();
        seconds += delay > 0 ? delay * rounds.rounds() : 0;
        secondsOnce += delay;
        rounds.end(number);
    }
    if (steps > static_cast<double>(kMostPlaybackSteps))
        findings.add("playback-too-long", {},
                     "Loops have more than " + std::to_string(kMostPlaybackSteps) +
                         " frames shown, one after the other; more are not counted.");
    if (seconds > kSecondsOfDay && secondsOnce <= kSecondsOfDay)
        findings.add("loops-beyond-a-day", {},
                     "With its loops the playfile runs for more than " +
                         NumberToText(std::min(std::floor(seconds / kSecondsOfHour), kMostHours)) +
                         " hours, and without them for " + NumberToText(secondsOnce) + " seconds.");
}

} // namespace

void CheckLoops(const Playfile& playfile, Findings& findings) {
    const LoopCodes codes(playfile.frames);
    for (std::int32_t number = 1; number <= playfile.frames.upperBound(); ++number)
        checkCodes(playfile.frames.at(number), number, codes, findings);
    const LoopsOfPlayfile loops = LoopsOf(playfile);
    checkUnpaired(loops, codes, findings);
    checkOpen(loops, findings);
    const std::vector<std::int32_t> showing = countShowing(playfile.frames);
    for (const Loop& loop : loops.loops)
        if (loop.isClosed())
            checkLoop(showing, loops, loop, findings);
    checkLength(playfile, loops, findings);
}

} // namespace qrtVistrelClasses4
