// Reading the current format, with the corrections that belong to it.
#include <qrtVistrelClasses4/LoadPlayfile.h>

#include "frame/ErrorTrap.h"
#include "frame/SystemErrors.h"
#include "platform/FileNames.h"
#include "platform/InputBytes.h"
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
constexpr std::string_view kFont4x8File = "FNT4X8.CFF";

void correctCode(std::int16_t& code) {
    if (code == kOldWipe)
        code = kWipe;
}

// A file may end, or hold a bad value, in the middle of a frame. Values are therefore corrected as soon as
// they have been read; the others are not those of the file.

/// Finds the files of a playfile's references, and notes in its outcome which ones have changed.
class References {
public:
    References(LoadOutcome& outcome, bool areKept)
        : outcome_(outcome), finder_(outcome.playfile.fileName), areKept_(areKept) {}

    void find(FrameRecord& frame, std::string FrameRecord::*member) {
        if (areKept_)
            return;
        if (auto before = finder_.find(frame.*member))
            outcome_.found.push_back({{outcome_.framesRead + 1, member, std::move(*before)}, frame.*member});
    }

private:
    LoadOutcome& outcome_;
    ReferenceFinder finder_;
    bool areKept_;
};

void readFrame(QuotedLineReader& in, FrameRecord& frame, References& references) {
    ReadValues(in, frame, [&](const MemberColumns& row) {
        if (&row == &kMember<&FrameRecord::commandfile>)
            references.find(frame, &FrameRecord::commandfile);
        else if (&row == &kMember<&FrameRecord::PicturefileName>)
            references.find(frame, &FrameRecord::PicturefileName);
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

void readFrames(QuotedLineReader& in, const std::string& appFolder, References& references,
                LoadOutcome& outcome) {
    OneBasedArray<FrameRecord>& frames = outcome.playfile.frames;
    Font4x8 font4x8(appFolder);
    const std::int16_t count = ReadFrameCount(in);
    frames.resize(count);
    outcome.framesAnnounced = count;
    for (FrameRecord& frame : frames) {
        readFrame(in, frame, references);
        for (LineRecord& line : frame.lines)
            readLine(in, line, font4x8);
        ++outcome.framesRead;
    }
}

/// Calls `read()`, which returns the file's bytes.
template <class Read>
void readPlayfile(LoadOutcome& outcome, const LoadCircumstances& circumstances, Read read) {
    const std::string appFolder =
        circumstances.applicationFolder ? circumstances.applicationFolder() : GetAppFolder();
    const auto bytes = read();
    outcome.playfile.isLegacy = false;
    QuotedLineReader in(bytes.text());
    References references(outcome, circumstances.keepsReferences);
    try {
        readFrames(in, appFolder, references, outcome);
        outcome.isComplete = true;
    } catch (const RuntimeError& error) {
        outcome.error = FileError{error, in.lineNumber()};
    }
}

/// The outcome of `read(outcome)`, which fills in all but the name.
template <class Read>
LoadOutcome outcomeOf(Playfile existing, const std::string& name, Read read) try {
    LoadOutcome outcome{.playfile = std::move(existing)};
    outcome.playfile.fileName = name;
    try {
        read(outcome);
    } catch (const RuntimeError& error) {
        outcome.error = FileError{error, {}};
    }
    return outcome;
} catch (...) {
    RethrowAsRuntimeError();
}

LoadOutcome withFramesRead(LoadOutcome outcome) {
    outcome.playfile.frames.resize(outcome.framesRead);
    return outcome;
}

} // namespace

LoadOutcome LoadPlayfileOver(Playfile existing, const std::string& path,
                             const LoadCircumstances& circumstances) {
    return outcomeOf(std::move(existing), path, [&](LoadOutcome& outcome) {
        FileSystem& files = platform().files();
        if (!HasLegacyEnding(path))
            return readPlayfile(outcome, circumstances, [&] { return ValueOf(files.read(path)); });
        outcome.playfile.isLegacy = true;
        ImportLegacyPlayfile(*ValueOf(files.openToRead(path)), outcome, circumstances);
    });
}

std::string PathOfReference(const std::string& reference) {
    return PathOnDisk(platform().files(), reference);
}

LoadOutcome LoadPlayfile(const std::string& path, const LoadCircumstances& circumstances) {
    return withFramesRead(LoadPlayfileOver({}, path, circumstances));
}

LoadOutcome LoadPlayfileBytes(std::string_view bytes, const std::string& name,
                              const LoadCircumstances& circumstances) {
    InputBytes file(bytes);
    return withFramesRead(outcomeOf({}, name, [&](LoadOutcome& outcome) {
        outcome.playfile.isLegacy = HasLegacyMark(file);
        if (outcome.playfile.isLegacy)
            ImportLegacyPlayfile(file, outcome, circumstances);
        else
            readPlayfile(outcome, circumstances, [&] { return file; });
    }));
}

} // namespace qrtVistrelClasses4
