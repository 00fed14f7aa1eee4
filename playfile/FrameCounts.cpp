// How full a playfile is, and how long it runs.
#include "frame/Conversions.h"
#include "frame/Traced.h"
#include "playfile/FrameProcedures.h"
#include <qrtVistrelClasses4/CommandTableFile.h>
#include <qrtVistrelClasses4/FrameInfoClass.h>
#include <qrtVistrelClasses4/PlayTime.h>
#include <qrtVistrelClasses4/PreferencesFile.h>

#include <optional>
#include <utility>

namespace qrtVistrelClasses4 {
namespace {

constexpr Procedure kPlayTime = FrameFunction("WhatsTheTotalPlayTime");

/// `value` unchanged. Error 6 if it does not fit.
template <class Narrow, class Wide>
Narrow narrow(Wide value) {
    if (!std::in_range<Narrow>(value))
        throw RuntimeError(ErrorNumber::overflow);
    return static_cast<Narrow>(value);
}

/// The error is logged, but not shown: the result is needed again and again.
void reportQuietly(const std::optional<RuntimeError>& error) {
    if (error)
        trapped(kPlayTime, [&] { throw error->quietly(); });
}

Preferences preferencesOfMachine() {
    const PreferenceFolders folders = FindPreferenceFolders();
    Preferences defaults = DefaultPreferences(folders);
    const std::optional<std::string> path = PreferencesPath();
    if (!path)
        return defaults;
    PreferencesOutcome read = LoadPreferences({*path, folders, std::move(defaults)});
    reportQuietly(read.error());
    return std::move(read.values);
}

PlayTimeCircumstances circumstancesFromSettings() {
    PlayTimeCircumstances circumstances = PlayTimeCircumstancesOf(preferencesOfMachine());
    SignTimingOutcome timing = LoadSignTiming();
    reportQuietly(timing.error());
    circumstances.timing = timing.timing;
    CommandTableOutcome commands = LoadCommandTable(CommandTablePath());
    reportQuietly(commands.error);
    circumstances.commands = std::move(commands.table);
    return circumstances;
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
    return traced(FrameFunction("HowManyScrollingLinesInThisFrame"),
                  [&] { return NarrowToInt16(CountScrollingLines(currentFrame())); });
}
std::int16_t FrameInfoClass::HowManyUsedDisplayFramesAreThere() const {
    return traced(FrameFunction("HowManyUsedDisplayFramesAreThere"),
                  [&] { return narrow<std::int16_t>(CountDisplayFrames(playfile_)); });
}
std::int16_t FrameInfoClass::HowManyCustomFontsAreThere() const {
    return traced(FrameFunction("HowManyCustomFontsAreThere"),
                  [&] { return narrow<std::int16_t>(CustomFontsOf(playfile_).size()); });
}
std::int32_t FrameInfoClass::WhatsTheTotalSizeOfAllCustomFonts() const {
    return traced(FrameFunction("WhatsTheTotalSizeOfAllCustomFonts"),
                  [&] { return narrow<std::int32_t>(SizeOfCustomFonts(playfile_)); });
}

double FrameInfoClass::WhatsTheTotalPlayTime() const {
    return traced(kPlayTime, [&] {
        PlayTimeCircumstances circumstances = circumstancesFromSettings();
        if (displayWidth_ > 0)
            circumstances.sign.width = displayWidth_;
        if (displayHeight_ > 0)
            circumstances.sign.height = displayHeight_;
        return PlayTimeOf(playfile_, circumstances).total.likely;
    });
}

} // namespace qrtVistrelClasses4
