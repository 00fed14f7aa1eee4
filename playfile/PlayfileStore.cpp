// Loading and saving the playfile, with the corrections and questions that belong to it.
#include "frame/Traced.h"
#include "platform/Path.h"
#include "platform/Platform.h"
#include "platform/ReplacementFile.h"
#include "playfile/Effects.h"
#include "playfile/FrameInfoClass.h"
#include "playfile/FrameProcedures.h"
#include "playfile/LegacyFormat.h"
#include "playfile/MediaFiles.h"
#include "playfile/PlayfileFormat.h"
#include "playfile/ReferenceFinder.h"
#include "settings/AppFolder.h"

#include <optional>

namespace qrtVistrelClasses4 {
namespace {

/// Old files number the 4x8 font 2; it has become a custom font since.
constexpr std::int16_t kOldFont4x8 = 2;
constexpr std::int16_t kCustomFont = 12;
constexpr std::string_view kFont4x8File = "FNT4X8.CFF";

void correctFrame(FrameRecord& frame, ReferenceFinder& finder) {
    finder.find(frame.commandfile);
    finder.find(frame.PicturefileName);
    if (frame.PrefixCode == kOldWipe)
        frame.PrefixCode = kWipe;
    if (frame.SuffixCode == kOldWipe)
        frame.SuffixCode = kWipe;
}

void correctLine(LineRecord& line, const std::string& appFolder) {
    if (line.LineFontSize != kOldFont4x8)
        return;
    line.LineFontSize = kCustomFont;
    line.LineCustomFont = JoinPath(JoinPath(appFolder, "CustomFonts"), kFont4x8File);
}

bool operatorWantsCopies() {
    return showMessage({"At least one file is not on a fixed drive \r\n"
                        "This might prevent this playfile to open properly in the future\r\n"
                        "Do you want to make a copy of all files in a fixed drive?",
                        "File Validation", MessageIcon::question, MessageButtons::yesNo}) ==
           MessageAnswer::yes;
}

/// Copies files that may go away, once the operator has agreed; asks at the first of them.
class ReferenceCopier {
public:
    explicit ReferenceCopier(bool mayAsk) : mayAsk_(mayAsk) {}

    /// Makes the reference name a copy in the data folder when the file's drive may go away. A copy that
    /// fails leaves the reference as it is.
    void secure(std::string& reference) {
        if (reference.empty() || IsFixedDrive(reference))
            return;
        if (!wanted_)
            wanted_ = mayAsk_ && operatorWantsCopies();
        if (!*wanted_)
            return;
        if (std::string copy = CopyToDataFolder(reference); !copy.empty())
            reference = std::move(copy);
    }

private:
    bool mayAsk_;
    std::optional<bool> wanted_;
};

} // namespace

bool FrameInfoClass::GetPlayfileFromDisk(const std::string& sFileName) {
    return traced(
        FrameFunction("GetPlayfileFromDisk"),
        [&] {
            currentFileName_ = sFileName;
            if (HasLegacyEnding(sFileName))
                return GetLegacyPlayfileFromDisk(sFileName);
            readPlayfile(sFileName);
            return true;
        },
        Arg{"sFileName", sFileName});
}

void FrameInfoClass::readPlayfile(const std::string& sFileName) {
    const std::string appFolder = GetAppFolder();
    const FileBytes bytes = ValueOf(platform().files().read(sFileName));
    isLegacy_ = false;
    QuotedLineReader in(bytes.text());
    ReferenceFinder finder(sFileName);
    resizeFrames(ReadFrameCount(in));
    for (std::int32_t number = 1; number <= frames_.upperBound(); ++number) {
        FrameRecord& frame = frames_.at(number);
        ReadFrameValues(in, frame);
        if (frame.lines.empty())
            checkLinesFrom(number);
        correctFrame(frame, finder);
        for (LineRecord& line : frame.lines) {
            ReadLineValues(in, line);
            correctLine(line, appFolder);
        }
    }
}

bool FrameInfoClass::WritePlayfileToDisk(const std::string& sFileName) {
    return traced(
        FrameFunction("WritePlayfileToDisk"),
        [&] {
            currentFileName_ = sFileName;
            try {
                writePlayfile(sFileName);
                return true;
            } catch (const RuntimeError&) {
                showMessage(
                    {"Error writing to file.\r\n"
                     "Check if file is read-only and you have rights to read/write to the playfile folder.",
                     "Unable to save playfile", MessageIcon::critical, MessageButtons::ok});
                return false;
            }
        },
        Arg{"sFileName", sFileName});
}

void FrameInfoClass::writePlayfile(const std::string& sFileName) {
    ReplacementFile file(platform().files(), sFileName);
    Check(file.error());
    QuotedLineWriter out(file);
    WriteFrameCount(out, frames_.upperBound());
    ReferenceCopier copier(!suppressMessages_);
    for (FrameRecord& frame : frames_) {
        copier.secure(frame.PicturefileName);
        copier.secure(frame.commandfile);
        WriteFrame(out, frame);
    }
    out.finish();
    Check(file.commit());
}

} // namespace qrtVistrelClasses4
