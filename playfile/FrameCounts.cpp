// How full a playfile is, and how long it runs.
#include "frame/Conversions.h"
#include "frame/Traced.h"
#include "playfile/FrameProcedures.h"
#include "playfile/PlaySettings.h"
#include <qrtVistrelClasses4/FrameInfoClass.h>
#include <qrtVistrelClasses4/PlayTime.h>

#include <utility>

namespace qrtVistrelClasses4 {
namespace {

/// `value` unchanged. Error 6 if it does not fit.
template <class Narrow, class Wide>
Narrow narrow(Wide value) {
    if (!std::in_range<Narrow>(value))
        throw RuntimeError(ErrorNumber::overflow);
    return static_cast<Narrow>(value);
}

} // namespace

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

std::int16_t FrameInfoClass::HowManyScrollingLinesInThisFrame() const {
    return traced({lastError_, FrameFunction("HowManyScrollingLinesInThisFrame")},
                  [&] { return NarrowToInt16(CountScrollingLines(currentFrame())); });
}
std::int16_t FrameInfoClass::HowManyUsedDisplayFramesAreThere() const {
    return traced({lastError_, FrameFunction("HowManyUsedDisplayFramesAreThere")},
                  [&] { return narrow<std::int16_t>(CountDisplayFrames(playfile_)); });
}
std::int16_t FrameInfoClass::HowManyCustomFontsAreThere() const {
    return traced({lastError_, FrameFunction("HowManyCustomFontsAreThere")},
                  [&] { return narrow<std::int16_t>(CustomFontsOf(playfile_).size()); });
}
std::int32_t FrameInfoClass::WhatsTheTotalSizeOfAllCustomFonts() const {
    return traced({lastError_, FrameFunction("WhatsTheTotalSizeOfAllCustomFonts")},
                  [&] { return narrow<std::int32_t>(SizeOfCustomFonts(playfile_)); });
}

double FrameInfoClass::WhatsTheTotalPlayTime() const {
    return traced({lastError_, FrameFunction("WhatsTheTotalPlayTime")}, [&] {
        PlaySettings settings = LoadPlaySettings();
        PlayTimeCircumstances circumstances = PlayTimeCircumstancesOf(settings.preferences);
        circumstances.sign = settings.sizeOf({displayWidth_, displayHeight_});
        circumstances.timing = settings.timing;
        circumstances.commands = std::move(settings.commands);
        return PlayTimeOf(playfile_, circumstances).total.likely;
    });
}

} // namespace qrtVistrelClasses4
