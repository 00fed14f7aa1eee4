// Inserting, deleting and moving frames.
#include "frame/Conversions.h"
#include "frame/Traced.h"
#include "playfile/FrameProcedures.h"
#include <qrtVistrelClasses4/FrameInfoClass.h>

#include <algorithm>
#include <utility>

namespace qrtVistrelClasses4 {
namespace {

/// Moves frame `number` and the frames after it up by one. The last frame must be a new one, since it is
/// lost. Frame `number` keeps the settings of the frame that was there.
void makeRoom(OneBasedArray<FrameRecord>& frames, std::int32_t number) {
    auto spareTexts = frames.at(number).spareTexts;
    frames.moveUp(number);
    frames.at(number).spareTexts = std::move(spareTexts);
}

} // namespace

void FrameInfoClass::InsertFrame(bool& bLast) { (void)insertFrame(bLast); }

void FrameInfoClass::InsertFrame() {
    bool bLast = false;
    InsertFrame(bLast);
}

bool FrameInfoClass::insertFrame(bool& bLast) {
    return traced(
        {lastError_, FrameSub("InsertFrame")},
        [&] {
            placeFrame(bLast);
            const bool haveLines = giveLines();
            return emptyFrame(currentFrameNumber_) && haveLines;
        },
        Arg{"bLast", bLast});
}

void FrameInfoClass::placeFrame(bool& bLast) {
    const std::int16_t upperBound = NarrowToInt16(playfile_.frames.upperBound() + 1);
    playfile_.frames.resize(upperBound);
    if (bLast) {
        currentFrameNumber_ = NarrowToInt16(currentFrameNumber_ + 1);
    } else if (currentFrameNumber_ < 1) {
        // All frames move up by one. No frame moves into frame 1, which keeps its content.
        FrameRecord first = playfile_.frames.at(1);
        playfile_.frames.moveUp(1);
        playfile_.frames.at(1) = std::move(first);
        throw RuntimeError(ErrorNumber::subscriptOutOfRange);
    } else if (currentFrameNumber_ <= upperBound) {
        makeRoom(playfile_.frames, currentFrameNumber_);
    }
    if (currentFrameNumber_ == upperBound - 1)
        bLast = true;
}

void FrameInfoClass::insertFrames(std::int32_t count) {
    const auto left = [&] { return std::min(count, totalFramesAllowed_ - playfile_.frames.upperBound()); };
    for (bool isInserted = false; left() > 0 && (!isInserted || StepsAreCounted()); --count) {
        bool bLast = false;
        isInserted = insertFrame(bLast);
    }
    if (left() > 0)
        playfile_.frames.repeat(currentFrameNumber_, left());
}

void FrameInfoClass::DeleteCurrentFrame() {
    traced({lastError_, FrameSub("DeleteCurrentFrame")}, [&] {
        playfile_.frames.erase(currentFrameNumber_);
        checkLinesFrom(currentFrameNumber_);
        if (playfile_.frames.empty()) {
            playfile_.frames.resize(1);
            InitFrame(1);
        }
        if (currentFrameNumber_ != 1)
            --currentFrameNumber_;
    });
}

void FrameInfoClass::MoveFrame(std::int16_t From, std::int16_t WhereTo) {
    traced(
        {lastError_, FrameSub("MoveFrame")},
        [&] {
            if (From == WhereTo)
                return;
            playfile_.frames.move(From, WhereTo);
            checkLinesFrom(std::min(From, WhereTo));
        },
        Arg{"From", From}, Arg{"WhereTo", WhereTo});
}

} // namespace qrtVistrelClasses4
