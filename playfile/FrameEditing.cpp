// Frames move: inserted, deleted, put in another place.
#include "frame/Traced.h"
#include "playfile/FrameInfoClass.h"
#include "playfile/FrameProcedures.h"

#include <algorithm>
#include <utility>

namespace qrtVistrelClasses4 {
namespace {

/// Makes room at frame `number` below the last frame, which is to be a new one. What is left at `number` are
/// the settings of the frame that was there.
void makeRoom(OneBasedArray<FrameRecord>& frames, std::int32_t number) {
    auto spareTexts = frames.at(number).spareTexts;
    frames.moveUp(number);
    frames.at(number).spareTexts = std::move(spareTexts);
}

} // namespace

void FrameInfoClass::InsertFrame(bool& bLast) {
    traced(
        FrameSub("InsertFrame"), [&] { insertFrame(bLast); }, Arg{"bLast", bLast});
}

void FrameInfoClass::InsertFrame() {
    bool bLast = false;
    InsertFrame(bLast);
}

void FrameInfoClass::insertFrame(bool& bLast) {
    const std::int16_t upperBound = NarrowToInt16(frames_.upperBound() + 1);
    frames_.resize(upperBound);
    if (bLast) {
        currentFrameNumber_ = NarrowToInt16(currentFrameNumber_ + 1);
    } else if (currentFrameNumber_ < 1) {
        // Frames move up one by one; there is none to move into frame 1, which keeps what it holds.
        FrameRecord first = frames_.at(1);
        frames_.moveUp(1);
        frames_.at(1) = std::move(first);
        throw RuntimeError(ErrorNumber::subscriptOutOfRange);
    } else if (currentFrameNumber_ <= upperBound) {
        makeRoom(frames_, currentFrameNumber_);
    }
    if (currentFrameNumber_ == upperBound - 1)
        bLast = true;
    MakeLineVarsValid();
    InitFrame(currentFrameNumber_);
}

void FrameInfoClass::insertFrames(std::int32_t count) {
    const auto left = [&] { return std::min(count, totalFramesAllowed_ - frames_.upperBound()); };
    for (bool isPlaced = false; left() > 0 && !isPlaced; --count) {
        const std::uint64_t errorsBefore = TrappedErrors();
        InsertFrame();
        isPlaced = TrappedErrors() == errorsBefore;
    }
    if (left() > 0)
        frames_.repeat(currentFrameNumber_, left());
}

void FrameInfoClass::DeleteCurrentFrame() {
    traced(FrameSub("DeleteCurrentFrame"), [&] {
        frames_.erase(currentFrameNumber_);
        checkLinesFrom(currentFrameNumber_);
        if (frames_.empty()) {
            frames_.resize(1);
            InitFrame(1);
        }
        if (currentFrameNumber_ != 1)
            --currentFrameNumber_;
    });
}

void FrameInfoClass::MoveFrame(std::int16_t From, std::int16_t WhereTo) {
    traced(
        FrameSub("MoveFrame"),
        [&] {
            if (From == WhereTo)
                return;
            frames_.move(From, WhereTo);
            checkLinesFrom(std::min(From, WhereTo));
        },
        Arg{"From", From}, Arg{"WhereTo", WhereTo});
}

} // namespace qrtVistrelClasses4
