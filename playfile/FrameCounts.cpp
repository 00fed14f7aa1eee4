// How full a playfile is, and how long it runs.
#include "frame/Conversions.h"
#include "frame/Traced.h"
#include "playfile/FrameProcedures.h"
#include <qrtVistrelClasses4/FrameInfoClass.h>

namespace qrtVistrelClasses4 {

std::int16_t FrameInfoClass::countFrames(std::string_view name, NEW_FRAME_TYPES kind) const {
    return traced({lastError_, FrameFunction(name)},
                  [&] { return NarrowToInt16(CountFrames(playfile_, kind)); });
}

std::int16_t FrameInfoClass::HowManyUsedFramesAreThere() const {
    return traced({lastError_, FrameFunction("HowManyUsedFramesAreThere")},
                  [&] { return NarrowToInt16(CountUsedFrames(playfile_)); });
}
std::int16_t FrameInfoClass::HowManyGraphicsAreThere() const {
    return countFrames("HowManyGraphicsAreThere", NEW_FRAME_TYPES::FRAME_GRAPHIC);
}
std::int16_t FrameInfoClass::HowManyTextFramesAreThere() const {
    return countFrames("HowManyTextFramesAreThere", NEW_FRAME_TYPES::FRAME_TEXT);
}
std::int16_t FrameInfoClass::HowManyGraphicTextFramesAreThere() const {
    return countFrames("HowManyGraphicTextFramesAreThere", NEW_FRAME_TYPES::FRAME_GRAPHICTEXT);
}
std::int16_t FrameInfoClass::HowManyCommandFileFramesAreThere() const {
    return countFrames("HowManyCommandFileFramesAreThere", NEW_FRAME_TYPES::FRAME_CMD);
}

std::int32_t FrameInfoClass::WhatsTheTotalOfAllDelaysForThisFile() const {
    return traced({lastError_, FrameFunction("WhatsTheTotalOfAllDelaysForThisFile")},
                  [&] { return TotalDelaySeconds(playfile_); });
}

} // namespace qrtVistrelClasses4
