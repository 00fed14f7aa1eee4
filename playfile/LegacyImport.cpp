// Opening a playfile of the older generation: its records become frames.
#include "commands/LegacyVariables.h"
#include "frame/Conversions.h"
#include "frame/Text.h"
#include "frame/Traced.h"
#include "platform/Platform.h"
#include "playfile/Effects.h"
#include "playfile/FrameInfoClass.h"
#include "playfile/FrameProcedures.h"
#include "playfile/LegacyFormat.h"
#include "settings/SettingsInfoClass.h"

#include <algorithm>
#include <optional>
#include <utility>
#include <vector>

namespace qrtVistrelClasses4 {
namespace {

// Bits of a line's flag byte.
constexpr unsigned kScrollingFlag = 1;
constexpr unsigned kBlinkingFlag = 2;
constexpr unsigned kInverseFlag = 4;

std::int16_t numberOf(NEW_FRAME_TYPES type) { return static_cast<std::int16_t>(type); }

/// Trimmed; one empty line for an empty text.
std::vector<std::string> linesOf(std::string_view text) {
    std::vector<std::string> lines;
    for (;;) {
        const std::size_t end = std::min(text.find(kLegacyLineEnd), text.size());
        lines.emplace_back(Trim(text.substr(0, end)));
        if (end == text.size())
            return lines;
        text.remove_prefix(end + 1);
    }
}

std::string joined(const std::vector<std::string>& lines) {
    std::string text = lines.front();
    for (std::size_t place = 1; place < lines.size(); ++place)
        text += " " + lines[place];
    return text;
}

/// Whether pictures of a kind are cropped, which decides how they are placed.
struct Cropping {
    bool bitmaps;
    bool animations;
};

Cropping readCropping() {
    SettingsInfoClass settings;
    settings.GetSettingsFromDisk();
    return {settings.BMPCrop(), settings.AVICrop()};
}

/// A kind of number that may be too large for a frame, which costs that number, but nothing else of the
/// playfile. The operator is told of the first one: a damaged file holds one in every record.
class RiskyNumber {
public:
    /// What `convert` returns. Its error goes to the caller, quiet if there was one before.
    template <class Convert>
    std::int16_t converted(Convert convert) {
        try {
            return convert();
        } catch (const RuntimeError& error) {
            throw std::exchange(wasTooLarge_, true) ? error.quietly() : error;
        }
    }

private:
    bool wasTooLarge_ = false;
};

/// What frames of one file have in common.
struct Import {
    Cropping cropping;
    RiskyNumber prefixCode{};
    RiskyNumber width{};
};

std::int16_t prefixCodeOf(const std::string& Keyword, Import& import) {
    return traced(
        FrameFunction("ConvertPrefixKeywordToCode"),
        [&] { return import.prefixCode.converted([&] { return PrefixCodeOfKeyword(Keyword); }); },
        Arg{"Keyword", Keyword});
}

std::int16_t suffixCodeOf(const std::string& Keyword) {
    return traced(
        FrameFunction("ConvertSuffixKeywordToCode"), [&] { return SuffixCodeOfKeyword(Keyword); },
        Arg{"Keyword", Keyword});
}

std::int16_t widthOf(std::string_view number, Import& import) {
    return trapped(FrameFunction("GetLegacyPlayfileFromDisk"), [&] {
        return import.width.converted([&] { return RoundToInt16(LeadingNumber(number)); });
    });
}

void setPicture(FrameRecord& frame, std::string fileName, bool hasText, bool isCropped) {
    frame.FrameType = numberOf(hasText ? NEW_FRAME_TYPES::FRAME_GRAPHICTEXT : NEW_FRAME_TYPES::FRAME_GRAPHIC);
    frame.PicturefileName = std::move(fileName);
    frame.PictureFileDisplay = isCropped ? 1 : 0;
}

void setFiles(FrameRecord& frame, const std::string& reference, bool hasText, Import& import) {
    LegacyReference files = SplitLegacyReference(reference);
    if (files.width)
        frame.FontWidth = widthOf(*files.width, import);
    frame.FrameType = numberOf(NEW_FRAME_TYPES::FRAME_TEXT);
    switch (files.kind()) {
    case LegacyFileKind::none:
        break;
    case LegacyFileKind::leaveCommand:
        frame.OverlayFrame = 1; // the sign stays as it is, and the text is drawn over it
        break;
    case LegacyFileKind::command:
        frame.FrameType = numberOf(NEW_FRAME_TYPES::FRAME_CMD);
        frame.commandfile = std::move(files.fileName);
        break;
    case LegacyFileKind::bitmap:
        setPicture(frame, std::move(files.fileName), hasText, import.cropping.bitmaps);
        break;
    case LegacyFileKind::animation:
        setPicture(frame, std::move(files.fileName), hasText, import.cropping.animations);
        break;
    }
}

void setLines(FrameRecord& frame, std::vector<std::string> texts, const LegacyRecord& record) {
    frame.lines.resize(static_cast<std::int32_t>(texts.size()));
    auto line = frame.lines.begin();
    for (std::size_t place = 0; place < texts.size(); ++place, ++line) {
        line->CurrentLineText = std::move(texts[place]);
        line->LineFontSize = FontOfLegacyCode(record.fontCode);
        const unsigned flags = place < record.lineFlags.size() ? record.lineFlags.at(place) : 0U;
        line->Scrolling = (flags & kScrollingFlag) != 0;
        line->Blinking = (flags & kBlinkingFlag) != 0;
        line->Inverse = (flags & kInverseFlag) != 0;
    }
}

FrameRecord frameOf(const LegacyRecord& record, Import& import) {
    FrameRecord frame;
    const std::string text = ConvertLegacyVariables(record.text);
    frame.PrefixCode = prefixCodeOf(record.prefixKeyword, import);
    frame.DelayTime = record.delay;
    setFiles(frame, record.reference, !text.empty(), import);
    if (IsJoiningKeyword(record.suffixKeyword)) {
        setLines(frame, {joined(linesOf(text))}, record);
        frame.lines.at(1).Scrolling = true;
    } else {
        setLines(frame, linesOf(text), record);
        frame.SuffixCode = suffixCodeOf(record.suffixKeyword);
    }
    return frame;
}

/// The records of the file; none when it lacks the mark.
std::optional<std::vector<LegacyRecord>> readRecords(const std::string& fileName, std::size_t most) {
    const auto file = ValueOf(platform().files().openToRead(fileName));
    if (!HasLegacyMark(*file))
        return std::nullopt;
    return ReadLegacyRecords(*file, most);
}

bool operatorWantsToProceed() {
    return showMessage(
               {"The file that was chosen is a legacy file from Vistrel 2000! I can open this file but you "
                "must be warned that you will not be able to save any changes in this format. You WILL be "
                "required to save as a Vistrel 3 playfile.\r\nDo you wish to proceed!",
                "WARNING! Legacy File", MessageIcon::question, MessageButtons::yesNo}) == MessageAnswer::yes;
}

} // namespace

bool FrameInfoClass::GetLegacyPlayfileFromDisk(const std::string& sFileName) {
    return traced(
        FrameFunction("GetLegacyPlayfileFromDisk"),
        [&] {
            isLegacy_ = true;
            const bool hasMark = readLegacyPlayfile(sFileName);
            return (suppressMessages_ || operatorWantsToProceed()) && hasMark;
        },
        Arg{"sFileName", sFileName});
}

bool FrameInfoClass::readLegacyPlayfile(const std::string& sFileName) {
    // One more than allowed: the limit is looked at when it has been passed.
    const auto most = static_cast<std::size_t>(std::max<std::int32_t>(totalFramesAllowed_ + 1, 0));
    const auto records = readRecords(sFileName, most);
    Import import{readCropping()};
    if (!records)
        return false;
    OneBasedArray<FrameRecord> frames(NarrowToInt16(static_cast<std::int32_t>(records->size())));
    std::transform(records->begin(), records->end(), frames.begin(),
                   [&](const LegacyRecord& record) { return frameOf(record, import); });
    frames_ = std::move(frames);
    checkLinesFrom(1);
    return true;
}

} // namespace qrtVistrelClasses4
