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
#include "settings/LibraryFiles.h"

#include <utility>

namespace qrtVistrelClasses4 {
namespace {

/// Old files number the 4x8 font 2; it has become a custom font since.
constexpr std::int16_t kOldFont4x8 = 2;
constexpr std::int16_t kCustomFont = 12;
constexpr std::string_view kFont4x8File = "FNT4X8.CFF";

void correctCode(std::int16_t& code) {
    if (code == kOldWipe)
        code = kWipe;
}

// A file may end, or hold a bad value, in the middle of a frame. Values are therefore corrected as soon as
// they have been read; the others are not those of the file.

void readFrame(QuotedLineReader& in, FrameRecord& frame, ReferenceFinder& finder) {
    ReadValues(in, frame, [&](const MemberColumns& row) {
        if (&row == &kMember<&FrameRecord::commandfile>)
            finder.find(frame.commandfile);
        else if (&row == &kMember<&FrameRecord::PicturefileName>)
            finder.find(frame.PicturefileName);
        else if (&row == &kMember<&FrameRecord::PrefixCode>)
            correctCode(frame.PrefixCode);
        else if (&row == &kMember<&FrameRecord::SuffixCode>)
            correctCode(frame.SuffixCode);
    });
    ReadLineCount(in, frame);
}

/// The font that has replaced old font 2. It is looked for once, when a line needs it.
class Font4x8 {
public:
    /// `appFolder` is the application data folder.
    explicit Font4x8(std::string appFolder) : appFolder_(std::move(appFolder)) {}

    const std::string& name() {
        if (name_.empty()) {
            const auto elsewhere = FindElsewhere(
                appFolder_, {std::string(kFont4x8File), std::string(kFolder), FileUse::onlyRead});
            name_ =
                NameForPlayfile(elsewhere.value_or(JoinPath(JoinPath(appFolder_, kFolder), kFont4x8File)));
        }
        return name_;
    }

private:
    static constexpr std::string_view kFolder = "CustomFonts";

    std::string appFolder_;
    std::string name_;
};

void readLine(QuotedLineReader& in, LineRecord& line, Font4x8& font4x8) {
    bool hasOldFont = false;
    ReadValues(in, line, [&](const MemberColumns& row) {
        if (&row == &kMember<&LineRecord::LineFontSize>)
            hasOldFont = line.LineFontSize == kOldFont4x8;
        if (hasOldFont) { // again after the file's own custom font, which it replaces
            line.LineFontSize = kCustomFont;
            line.LineCustomFont = font4x8.name();
        }
    });
}

void readFrames(QuotedLineReader& in, const std::string& appFolder, LoadOutcome& outcome) {
    OneBasedArray<FrameRecord>& frames = outcome.playfile.frames;
    ReferenceFinder finder(outcome.playfile.fileName);
    Font4x8 font4x8(appFolder);
    const std::int16_t count = ReadFrameCount(in);
    frames.resize(count);
    outcome.framesAnnounced = count;
    for (FrameRecord& frame : frames) {
        readFrame(in, frame, finder);
        for (LineRecord& line : frame.lines)
            readLine(in, line, font4x8);
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
