#include <qrtVistrelClasses4/Playback.h>

#include "playfile/Effects.h"

#include <utility>

namespace qrtVistrelClasses4 {
namespace {

/// Finds the loops of frames that are given one after the other.
class LoopFinder {
public:
    void add(std::int32_t number, const FrameRecord& frame) {
        if (const std::int32_t rounds = RoundsOfLoop(frame.PrefixCode); rounds > 0)
            start(number, rounds);
        if (frame.SuffixCode == kEndLoop)
            end(number);
    }

    LoopsOfPlayfile finish() && {
        for (Loop& loop : found_.loops) {
            // Loops around this one are before it, and need no more mending.
            if (loop.parent && !found_.loops[*loop.parent].isClosed())
                loop.parent = found_.loops[*loop.parent].parent;
            if (loop.parent)
                loop.depth = found_.loops[*loop.parent].depth + 1;
        }
        return std::move(found_);
    }

private:
    void start(std::int32_t frame, std::int32_t rounds) {
        const auto parent = open_.empty() ? std::nullopt : std::optional(open_.back());
        open_.push_back(found_.loops.size());
        found_.loops.push_back({.firstFrame = frame, .rounds = rounds, .parent = parent});
    }

    void end(std::int32_t frame) {
        if (open_.empty()) {
            found_.endsWithoutStart.push_back(frame);
        } else {
            found_.loops[open_.back()].lastFrame = frame;
            open_.pop_back();
        }
    }

    LoopsOfPlayfile found_;
    std::vector<std::size_t> open_; ///< The loops that have no end yet, the innermost one last.
};

/// A frame that is not blank, and the loops that it starts and ends.
struct UsedFrame {
    std::int32_t number;
    std::int32_t rounds = 0; ///< Of the loop that starts here; 0 if none does.
    bool isEndOfLoop = false;
};

/// Blank frames are left out, so that each step takes the same time, whatever is between two used frames.
std::vector<UsedFrame> usedFramesOf(const Playfile& playfile) {
    std::vector<UsedFrame> used;
    std::vector<std::size_t> places(static_cast<std::size_t>(playfile.frames.upperBound()) + 1);
    std::int32_t number = 0;
    for (const FrameRecord& frame : playfile.frames) {
        ++number;
        if (!IsUsed(frame))
            continue;
        places[static_cast<std::size_t>(number)] = used.size();
        used.push_back({number});
    }
    for (const Loop& loop : LoopsOf(playfile).loops)
        if (loop.isClosed()) {
            used[places[static_cast<std::size_t>(loop.firstFrame)]].rounds = loop.rounds;
            used[places[static_cast<std::size_t>(loop.lastFrame)]].isEndOfLoop = true;
        }
    return used;
}

/// A loop that is being run through.
struct RunningLoop {
    std::size_t first; ///< Index of its first frame.
    std::int32_t rounds;
    std::int32_t round = 1;
};

/// Takes one step after the other. Loops are on a stack of its own, because there can be thousands of them in
/// each other.
class PlaybackWalk {
public:
    explicit PlaybackWalk(std::vector<UsedFrame> frames) : frames_(std::move(frames)) { enterLoop(); }

    bool atEnd() const { return place_ == frames_.size(); }

    PlaybackStep step() {
        const PlaybackStep step{frames_[place_].number, running_.empty() ? 1 : running_.back().round};
        if (frames_[place_].isEndOfLoop && ++running_.back().round <= running_.back().rounds) {
            place_ = running_.back().first;
        } else {
            if (frames_[place_].isEndOfLoop)
                running_.pop_back();
            ++place_;
            enterLoop();
        }
        return step;
    }

private:
    void enterLoop() {
        if (!atEnd() && frames_[place_].rounds > 0)
            running_.push_back({place_, frames_[place_].rounds});
    }

    std::vector<UsedFrame> frames_;
    std::size_t place_ = 0;
    std::vector<RunningLoop> running_; ///< The innermost one last.
};

} // namespace

LoopsOfPlayfile LoopsOf(const Playfile& playfile) {
    LoopFinder finder;
    std::int32_t number = 0;
    for (const FrameRecord& frame : playfile.frames) {
        ++number;
        if (IsUsed(frame))
            finder.add(number, frame);
    }
    return std::move(finder).finish();
}

Playback PlaybackOf(const Playfile& playfile) {
    Playback playback;
    PlaybackWalk walk(usedFramesOf(playfile));
    while (!walk.atEnd() && playback.steps.size() < kMostPlaybackSteps)
        playback.steps.push_back(walk.step());
    playback.isCut = !walk.atEnd();
    return playback;
}

} // namespace qrtVistrelClasses4
