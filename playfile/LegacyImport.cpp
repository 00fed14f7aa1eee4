#include "playfile/LegacyImport.h"

#include "commands/LegacyVariables.h"
#include "frame/Conversions.h"
#include "frame/SystemErrors.h"
#include "frame/Text.h"
#include "frame/Traced.h"
#include "platform/Hex.h"
#include "playfile/Effects.h"
#include "playfile/FrameProcedures.h"
#include "playfile/LegacyFormat.h"

#include <algorithm>
#include <limits>
#include <optional>
#include <type_traits>
#include <utility>
#include <vector>

namespace qrtVistrelClasses4 {
namespace {

// Bits of a line's flag byte.
constexpr unsigned kScrollingFlag = 1;
constexpr unsigned kBlinkingFlag = 2;
constexpr unsigned kInverseFlag = 4;
constexpr unsigned kKnownFlags = kScrollingFlag | kBlinkingFlag | kInverseFlag;

/// Frames have 16-bit numbers.
constexpr std::int32_t kMostFrames = std::numeric_limits<std::int16_t>::max();

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

/// Only the blanks around the whole are trimmed: those within belong to the text that scrolls by.
std::string joined(std::string text) {
    std::replace(text.begin(), text.end(), kLegacyLineEnd, ' ');
    return std::string(Trim(text));
}

/// From the preferences' file. Notes its errors in `outcome`.
Cropping croppingFromPreferences(LoadOutcome& outcome) {
    PreferencesOutcome preferences = LoadCropPreferences();
    outcome.legacy->preferenceErrors = std::move(preferences.errors);
    return {preferences.values.BMPCrop, preferences.values.AVICrop};
}

/// A kind of number that may be too large for a frame. Then the number is lost, but nothing else of the
/// playfile. The operator sees only the first error, since a damaged file may have one in every record.
class RiskyNumber {
public:
    /// What `convert` returns. Throws its error, which then names the frame; from the second one on, the
    /// error is marked as quiet.
    template <class Convert>
    std::invoke_result_t<Convert> converted(std::int32_t frameNumber, Convert convert) {
        try {
            return convert();
        } catch (const RuntimeError& error) {
            const RuntimeError inFrame(error.number(),
                                       error.description() + " in frame " + std::to_string(frameNumber));
            throw std::exchange(wasTooLarge_, true) ? inFrame.quietly() : inFrame;
        }
    }

private:
    bool wasTooLarge_ = false;
};

/// Turns the records of one file into frames, and notes what they lose.
class Import {
public:
    Import(Cropping cropping, LegacyDetails& details) : cropping_(cropping), details_(details) {}

    FrameRecord nextFrame(const LegacyRecord& record);

private:
    std::string textOf(const LegacyRecord& record);
    std::int16_t prefixCodeOf(const std::string& Keyword);
    std::int16_t suffixCodeOf(const std::string& Keyword);
    void setFiles(FrameRecord& frame, LegacyReference files, LegacyFileKind kind, bool hasText);
    std::int16_t widthOf(std::string_view number);
    void setLines(FrameRecord& frame, std::vector<std::string> texts, const LegacyRecord& record);
    void loseFlags(const LegacyRecord& record, std::size_t lines, bool isJoined);
    void lose(std::string text) { details_.losses.push_back({number_, std::move(text)}); }

    Cropping cropping_;
    LegacyDetails& details_;
    std::int32_t number_ = 0; ///< Of the frame.
    RiskyNumber prefixCode_;
    RiskyNumber width_;
};

constexpr const char* kTooLarge = ", which is too large";

std::string quoted(const std::string& text) { return '"' + text + '"'; }

std::string hexText(unsigned bits) {
    std::string text;
    AppendHex(text, static_cast<unsigned char>(bits));
    return text;
}

std::string Import::textOf(const LegacyRecord& record) {
    std::vector<std::string> losses;
    std::string text = ConvertLegacyVariables(record.text, losses);
    for (std::string& loss : losses)
        lose(std::move(loss));
    return text;
}

std::int16_t Import::prefixCodeOf(const std::string& Keyword) {
    bool isRefused = true;
    const std::optional<std::int16_t> code = traced(
        FrameFunction("ConvertPrefixKeywordToCode"),
        [&] {
            const auto converted =
                prefixCode_.converted(number_, [&] { return PrefixCodeOfKeyword(Keyword); });
            isRefused = false;
            return converted;
        },
        Arg{"Keyword", Keyword});
    if (isRefused)
        lose("prefix keyword " + quoted(Keyword) + kTooLarge);
    else if (!code && !Keyword.empty())
        lose("unknown prefix keyword " + quoted(Keyword));
    return code.value_or(0);
}

std::int16_t Import::suffixCodeOf(const std::string& Keyword) {
    const std::optional<std::int16_t> code = traced(
        FrameFunction("ConvertSuffixKeywordToCode"), [&] { return SuffixCodeOfKeyword(Keyword); },
        Arg{"Keyword", Keyword});
    // A word that means no effect before a frame means none after it either.
    if (!code && !Keyword.empty() && !MeansNoEffect(Keyword))
        lose("unknown suffix keyword " + quoted(Keyword));
    return code.value_or(0);
}

std::int16_t Import::widthOf(std::string_view number) {
    const std::optional<std::int16_t> width = trapped(FrameFunction("GetLegacyPlayfileFromDisk"), [&] {
        return std::optional(width_.converted(number_, [&] { return RoundToInt16(LeadingNumber(number)); }));
    });
    if (width != 0)
        lose("width " + std::string(number) + (width ? "" : kTooLarge));
    return width.value_or(0);
}

void setPicture(FrameRecord& frame, std::string fileName, bool hasText, bool isCropped) {
    frame.FrameType = numberOf(hasText ? NEW_FRAME_TYPES::FRAME_GRAPHICTEXT : NEW_FRAME_TYPES::FRAME_GRAPHIC);
    frame.PicturefileName = std::move(fileName);
    frame.PictureFileDisplay = isCropped ? 1 : 0;
}

void Import::setFiles(FrameRecord& frame, LegacyReference files, LegacyFileKind kind, bool hasText) {
    if (files.width)
        frame.FontWidth = widthOf(*files.width);
    frame.FrameType = numberOf(NEW_FRAME_TYPES::FRAME_TEXT);
    switch (kind) {
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
        setPicture(frame, std::move(files.fileName), hasText, cropping_.bitmaps);
        break;
    case LegacyFileKind::animation:
        setPicture(frame, std::move(files.fileName), hasText, cropping_.animations);
        break;
    }
}

unsigned flagsOf(const LegacyRecord& record, std::size_t place) {
    return place < record.lineFlags.size() ? record.lineFlags.at(place) : 0U;
}

void Import::setLines(FrameRecord& frame, std::vector<std::string> texts, const LegacyRecord& record) {
    const std::optional<std::int16_t> font = FontOfLegacyCode(record.fontCode);
    if (!font)
        lose("unknown font code " + std::to_string(record.fontCode));
    frame.lines.resize(static_cast<std::int32_t>(texts.size()));
    auto line = frame.lines.begin();
    for (std::size_t place = 0; place < texts.size(); ++place, ++line) {
        line->CurrentLineText = std::move(texts[place]);
        line->LineFontSize = font.value_or(0);
        const unsigned flags = flagsOf(record, place);
        line->Scrolling = (flags & kScrollingFlag) != 0;
        line->Blinking = (flags & kBlinkingFlag) != 0;
        line->Inverse = (flags & kInverseFlag) != 0;
    }
}

/// `lines` is their number in the record. Joined lines all scroll, but blink and are inverse only as the
/// first one.
void Import::loseFlags(const LegacyRecord& record, std::size_t lines, bool isJoined) {
    const unsigned first = flagsOf(record, 0);
    for (std::size_t place = 0; place < std::min(lines, record.lineFlags.size()); ++place) {
        const unsigned flags = flagsOf(record, place);
        if (const unsigned unknown = flags & ~kKnownFlags; unknown != 0)
            lose("unknown flag bits " + hexText(unknown) + " of line " + std::to_string(place + 1));
        if (isJoined && ((flags ^ first) & (kBlinkingFlag | kInverseFlag)) != 0)
            lose("flags " + hexText(flags) + " of line " + std::to_string(place + 1) +
                 ", which is joined to line 1 with flags " + hexText(first));
    }
}

FrameRecord Import::nextFrame(const LegacyRecord& record) {
    ++number_;
    FrameRecord frame;
    const std::string text = textOf(record);
    frame.PrefixCode = prefixCodeOf(record.prefixKeyword);
    frame.DelayTime = record.delay;
    const LegacyReference files = SplitLegacyReference(record.reference);
    const LegacyFileKind kind = files.kind();
    setFiles(frame, files, kind, !text.empty());
    const bool isJoined = IsJoiningKeyword(record.suffixKeyword);
    setLines(frame, isJoined ? std::vector{joined(text)} : linesOf(text), record);
    if (isJoined)
        frame.lines.at(1).Scrolling = true;
    else
        frame.SuffixCode = suffixCodeOf(record.suffixKeyword);
    const auto lineEnds = std::count(text.begin(), text.end(), kLegacyLineEnd);
    loseFlags(record, static_cast<std::size_t>(lineEnds) + 1, isJoined);
    if (kind == LegacyFileKind::none && !files.fileName.empty())
        lose("file of unknown kind " + quoted(files.fileName));
    return frame;
}

/// The records of the file, at most `most` of them; none if the file lacks the mark.
std::vector<LegacyRecord> readRecords(InputFile& file, std::size_t most, LoadOutcome& outcome) {
    LegacyDetails& details = outcome.legacy.emplace();
    details.hasMark = HasLegacyMark(file);
    if (!details.hasMark)
        return {};
    const LegacyExtent extent = ExtentOf(file);
    details.records = extent.records;
    details.bytesAfterRecords = extent.bytesAfter;
    outcome.framesAnnounced = static_cast<std::int32_t>(
        std::min<std::uint64_t>(extent.records, std::numeric_limits<std::int32_t>::max()));
    return ReadLegacyRecords(file, most);
}

/// Reports that the file has more frames than can be numbered. Those that can are kept all the same.
void reportTooManyFrames(std::uint64_t records) {
    trapped(FrameFunction("GetLegacyPlayfileFromDisk"), [&] {
        throw RuntimeError(static_cast<int>(ErrorNumber::overflow),
                           std::string(Describe(ErrorNumber::overflow)) + ": only the first " +
                               std::to_string(kMostFrames) + " of " + std::to_string(records) +
                               " frames are kept");
    });
}

} // namespace

void ImportLegacyPlayfile(InputFile& file, LoadOutcome& outcome, const LoadCircumstances& circumstances) {
    // One more than allowed: the application checks the limit only after it has been passed.
    const auto most =
        static_cast<std::size_t>(std::clamp<std::int32_t>(circumstances.framesAllowed + 1, 0, kMostFrames));
    const std::vector<LegacyRecord> records = readRecords(file, most, outcome);
    const Cropping cropping =
        circumstances.cropping ? circumstances.cropping() : croppingFromPreferences(outcome);
    LegacyDetails& details = *outcome.legacy;
    if (!details.hasMark)
        return;
    if (most == kMostFrames && details.records > most)
        reportTooManyFrames(details.records);
    OneBasedArray<FrameRecord> frames(static_cast<std::int32_t>(records.size()));
    Import import(cropping, details);
    std::transform(records.begin(), records.end(), frames.begin(),
                   [&](const LegacyRecord& record) { return import.nextFrame(record); });
    outcome.playfile.frames = std::move(frames);
    outcome.framesRead = outcome.playfile.frames.upperBound();
    outcome.isComplete =
        records.size() == details.records && details.bytesAfterRecords == 0 && details.losses.empty();
}

} // namespace qrtVistrelClasses4
