// How full a playfile is, and how long it runs.
#include "frame/Traced.h"
#include "playfile/FrameInfoClass.h"
#include "playfile/FrameProcedures.h"
#include "playfile/FrameRules.h"

#include <algorithm>

namespace qrtVistrelClasses4 {
namespace {

bool isUsed(const FrameRecord& frame) {
    return MeaningOf(FrameTypeOf(frame)) != NEW_FRAME_TYPES::FRAME_BLANK;
}

auto isOfKind(NEW_FRAME_TYPES kind) {
    return [kind](const FrameRecord& frame) { return MeaningOf(FrameTypeOf(frame)) == kind; };
}

} // namespace

template <class Counts>
std::int16_t FrameInfoClass::countFrames(std::string_view name, Counts counts) {
    return traced(FrameFunction(name), [&] {
        return NarrowToInt16(
            static_cast<std::int32_t>(std::count_if(frames_.begin(), frames_.end(), counts)));
    });
}

std::int16_t FrameInfoClass::HowManyUsedFramesAreThere() {
    return countFrames("HowManyUsedFramesAreThere", isUsed);
}
std::int16_t FrameInfoClass::HowManyGraphicsAreThere() {
    return countFrames("HowManyGraphicsAreThere", isOfKind(NEW_FRAME_TYPES::FRAME_GRAPHIC));
}
std::int16_t FrameInfoClass::HowManyTextFramesAreThere() {
    return countFrames("HowManyTextFramesAreThere", isOfKind(NEW_FRAME_TYPES::FRAME_TEXT));
}
std::int16_t FrameInfoClass::HowManyGraphicTextFramesAreThere() {
    return countFrames("HowManyGraphicTextFramesAreThere", isOfKind(NEW_FRAME_TYPES::FRAME_GRAPHICTEXT));
}
std::int16_t FrameInfoClass::HowManyCommandFileFramesAreThere() {
    return countFrames("HowManyCommandFileFramesAreThere", isOfKind(NEW_FRAME_TYPES::FRAME_CMD));
}

std::int32_t FrameInfoClass::WhatsTheTotalOfAllDelaysForThisFile() {
    return traced(FrameFunction("WhatsTheTotalOfAllDelaysForThisFile"), [&] {
        std::int32_t total = 0;
        for (const FrameRecord& frame : frames_)
            if (isUsed(frame))
                total = RoundToInt32(total + frame.DelayTime);
        return total;
    });
}

} // namespace qrtVistrelClasses4
