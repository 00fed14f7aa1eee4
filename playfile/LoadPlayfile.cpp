// Reading the current format, with the corrections that belong to it.
#include <qrtVistrelClasses4/LoadPlayfile.h>

#include "frame/ErrorTrap.h"
#include "frame/SystemErrors.h"
#include "platform/FileNames.h"
#include "platform/Path.h"
#include "platform/Platform.h"
#include "playfile/Effects.h"
#include "playfile/LegacyFormat.h"
#include "playfile/LegacyImport.h"
#include "playfile/PlayfileFormat.h"
#include "playfile/ReferenceFinder.h"
#include "settings/AppFolder.h"

#include <utility>

namespace qrtVistrelClasses4 {
namespace {

/// Old files number the 4x8 font 2; it has become a custom font since.
constexpr std::int16_t kOldFont4x8 = 2;
constexpr std::int16_t kCustomFont = 12;
constexpr std::string_view kFont4x8File = "FNT4X8.CFF";

void correctCodes(FrameRecord& frame) {
    if (frame.PrefixCode == kOldWipe)
        frame.PrefixCode = kWipe;
    if (frame.SuffixCode == kOldWipe)
        frame.SuffixCode = kWipe;
}

void correctLine(LineRecord& line, const std::string& appFolder) {
    if (line.LineFontSize != kOldFont4x8)
        return;
    line.LineFontSize = kCustomFont;
    line.LineCustomFont = NameForPlayfile(JoinPath(JoinPath(appFolder, "CustomFonts"), kFont4x8File));
}

void readFrames(QuotedLineReader& in, const std::string& appFolder, LoadOutcome& outcome) {
    OneBasedArray<FrameRecord>& frames = outcome.playfile.frames;
    ReferenceFinder finder(outcome.playfile.fileName);
    const std::int16_t count = ReadFrameCount(in);
    frames.resize(count);
    outcome.framesAnnounced = count;
    for (FrameRecord& frame : frames) {
        ReadFrameValues(in, frame);
        finder.find(frame.commandfile);
        finder.find(frame.PicturefileName);
        correctCodes(frame);
        for (LineRecord& line : frame.lines) {
            ReadLineValues(in, line);
            correctLine(line, appFolder);
        }
        ++outcome.framesRead;
    }
}

void readPlayfile(LoadOutcome& outcome, const LoadCircumstances& circumstances) {
    const std::string appFolder =
        circumstances.applicationFolder ? circumstances.applicationFolder() : GetAppFolder();
    const FileBytes bytes = ValueOf(platform().files().read(outcome.playfile.fileName));
    outcome.playfile.isLegacy = false;
    QuotedLineReader in(bytes.text());
    try {
        readFrames(in, appFolder, outcome);
        outcome.isComplete = true;
    } catch (const RuntimeError& error) {
        outcome.error = FileError{error, in.lineNumber()};
    }
}

} // namespace

LoadOutcome LoadPlayfileOver(Playfile existing, const std::string& path,
                             const LoadCircumstances& circumstances) try {
    LoadOutcome outcome{.playfile = std::move(existing)};
    outcome.playfile.fileName = path;
    try {
        if (HasLegacyEnding(path))
            ImportLegacyPlayfile(outcome, circumstances);
        else
            readPlayfile(outcome, circumstances);
    } catch (const RuntimeError& error) {
        outcome.error = FileError{error, {}};
    }
    return outcome;
} catch (...) {
    RethrowAsRuntimeError();
}

std::string PathOfReference(const std::string& reference) {
    return PathOnDisk(platform().files(), reference);
}

LoadOutcome LoadPlayfile(const std::string& path, const LoadCircumstances& circumstances) {
    LoadOutcome outcome = LoadPlayfileOver({}, path, circumstances);
    outcome.playfile.frames.resize(outcome.framesRead);
    return outcome;
}

} // namespace qrtVistrelClasses4
