// Loading and saving the playfile, with the corrections and questions that belong to it.
#include "frame/Traced.h"
#include "platform/LetterCase.h"
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
#include <unordered_map>

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

    /// Full name of a copy in the data folder, made when the file's drive may go away. "" when the reference
    /// is to stay as it is: also after a copy that fails. The host may change the frames meanwhile.
    std::string copyOf(const std::string& reference) {
        if (reference.empty() || IsFixedDrive(reference))
            return {};
        if (!wanted_)
            wanted_ = mayAsk_ && operatorWantsCopies();
        return *wanted_ ? copyOnce(reference) : std::string();
    }

private:
    /// What was copied last under a name, and where to; "" when that failed.
    struct Copied {
        std::string source, copy;
    };

    /// Frames often share a file. It is copied again only when another of its name has been in between: the
    /// last one wins.
    std::string copyOnce(const std::string& reference) {
        Copied& last = copied_[AnsiUpper(SplitPath(reference).name)];
        if (last.source != reference)
            last = {reference, CopyToDataFolder(reference)};
        return last.copy;
    }

    bool mayAsk_;
    std::optional<bool> wanted_;
    std::unordered_map<std::string, Copied> copied_; ///< By file name in upper case.
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
        ReadFrameValues(in, frames_.at(number));
        for (const auto member : {&FrameRecord::commandfile, &FrameRecord::PicturefileName}) {
            std::string reference = frames_.at(number).*member;
            finder.find(reference);
            frames_.at(number).*member = std::move(reference);
        }
        FrameRecord& frame = frames_.at(number);
        if (frame.lines.empty())
            checkLinesFrom(number);
        correctCodes(frame);
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
    const std::int32_t count = frames_.upperBound();
    WriteFrameCount(out, count);
    ReferenceCopier copier(!suppressMessages_);
    for (std::int32_t number = 1; number <= count; ++number) {
        for (const auto member : {&FrameRecord::PicturefileName, &FrameRecord::commandfile}) {
            const std::string reference = frames_.at(number).*member;
            if (std::string copy = copier.copyOf(reference); !copy.empty())
                frames_.at(number).*member = std::move(copy);
        }
        WriteFrame(out, frames_.at(number));
    }
    out.finish();
    Check(file.commit());
}

} // namespace qrtVistrelClasses4
