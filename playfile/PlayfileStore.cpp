// What `FrameInfoClass` makes of loading, saving and exporting a playfile: its trap, its boxes, its results.
#include "frame/ErrorTrap.h"
#include "frame/SystemErrors.h"
#include "frame/Traced.h"
#include "playfile/FrameProcedures.h"
#include "playfile/LegacyFormat.h"
#include "playfile/OperatorQuestions.h"
#include "settings/OperatorMessages.h"
#include "settings/PreferenceProfile.h"
#include <qrtVistrelClasses4/FrameInfoClass.h>
#include <qrtVistrelClasses4/LoadPlayfile.h>
#include <qrtVistrelClasses4/SavePlayfile.h>
#include <qrtVistrelClasses4/SettingsInfoClass.h>

#include <utility>

namespace qrtVistrelClasses4 {
namespace {

/// A setting that does not convert is reported, and the import goes on without it.
Cropping croppingFromSettings() {
    const SettingsInfoClass settings;
    const PreferencesOutcome read =
        ReadCropPreferences([&](const std::string& key, const std::string& defaultText) {
            return settings.GetPrivateSetting(key, defaultText);
        });
    trapped(FrameFunction("GetLegacyPlayfileFromDisk"), [&] { Check(read.error()); });
    return {read.values.BMPCrop, read.values.AVICrop};
}

void showSaveError(const RuntimeError& error, const char* text) {
    ShowFailure(error.number(), text, "Unable to save playfile");
}

} // namespace

bool FrameInfoClass::GetPlayfileFromDisk(const std::string& sFileName) {
    return traced(
        {lastError_, FrameFunction("GetPlayfileFromDisk")},
        [&] {
            playfile_.fileName = sFileName;
            if (HasLegacyEnding(sFileName))
                return GetLegacyPlayfileFromDisk(sFileName);
            (void)load(sFileName);
            return true;
        },
        Arg{"sFileName", sFileName});
}

bool FrameInfoClass::GetLegacyPlayfileFromDisk(const std::string& sFileName) {
    return traced(
        {lastError_, FrameFunction("GetLegacyPlayfileFromDisk")},
        [&] {
            playfile_.isLegacy = true;
            const bool hasMark = load(sFileName).legacy->hasMark;
            return (suppressMessages_ || AskWhetherToOpenLegacyPlayfile()) && hasMark;
        },
        Arg{"sFileName", sFileName});
}

LoadOutcome FrameInfoClass::load(const std::string& sFileName) {
    // A copy, because the host may look at the frames while errors on the way are reported to it.
    LoadOutcome outcome = LoadPlayfileOver(
        playfile_, sFileName, {.cropping = croppingFromSettings, .framesAllowed = totalFramesAllowed_});
    Adopt(std::move(outcome.playfile));
    if (outcome.error)
        throw outcome.error->error;
    return outcome;
}

bool FrameInfoClass::WritePlayfileToDisk(const std::string& sFileName) {
    return traced(
        {lastError_, FrameFunction("WritePlayfileToDisk")},
        [&] {
            playfile_.fileName = sFileName;
            SaveCircumstances circumstances;
            if (!suppressMessages_)
                circumstances.wantsCopies = AskWhetherToCopyFiles;
            const SaveOutcome outcome = SavePlayfile(playfile_, sFileName, circumstances);
            ReferToCopies(playfile_, outcome.copies);
            if (outcome.wouldReplaceOlder)
                ReportQuietly(*outcome.error); // the box gives other reasons
            if (!outcome.isWritten())
                showSaveError(*outcome.error,
                              "Error writing to file.\r\n"
                              "Check if file is read-only and you have rights to read/write to the playfile "
                              "folder.");
            return outcome.isWritten();
        },
        Arg{"sFileName", sFileName});
}

bool FrameInfoClass::WriteXMLToDisk(const std::string& sFileName) {
    return traced(
        {lastError_, FrameFunction("WriteXMLToDisk")},
        [&] {
            playfile_.fileName = sFileName;
            const std::optional<RuntimeError> error = ExportXml(playfile_, sFileName + kXmlEnding);
            if (error)
                showSaveError(*error, "Error writing to file. Maybe read-only.");
            return !error;
        },
        Arg{"sFileName", sFileName});
}

} // namespace qrtVistrelClasses4
