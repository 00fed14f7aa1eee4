#include "playfile/FrameInfoClass.h"

#include "frame/Traced.h"
#include "playfile/FrameProcedures.h"
#include "playfile/FrameRules.h"

#include <algorithm>
#include <cmath>

namespace qrtVistrelClasses4 {
namespace {

constexpr std::int16_t kFramesAtCreation = 20;
constexpr std::int16_t kTotalFramesAllowed = 1048;

constexpr Procedure propertyGet(std::string_view name) {
    return FrameProcedure(ProcedureKind::PropertyGet, name);
}
constexpr Procedure propertyLet(std::string_view name) {
    return FrameProcedure(ProcedureKind::PropertyLet, name);
}

} // namespace

FrameInfoClass::FrameInfoClass() {
    traced(FrameSub("Class_Initialize"), [&] {
        playFileHasChanged_ = false;
        frames_.resize(kFramesAtCreation);
        MakeLineVarsValid();
        currentLineNumber_ = 1;
        totalFramesAllowed_ = kTotalFramesAllowed;
    });
}

FrameInfoClass::~FrameInfoClass() {
    traced(FrameSub("Class_Terminate"), [] {});
}

// How a property reaches its field: once for each place a field can be in, traced and untraced.

template <class Value>
Value FrameInfoClass::readObject(std::string_view name, const Value& field) {
    return traced(propertyGet(name), [&] { return field; });
}
template <class Value>
void FrameInfoClass::writeObject(std::string_view name, Value& field, const Value& vData) {
    traced(
        propertyLet(name), [&] { field = vData; }, Arg{"vData", vData});
}

template <class Value>
Value FrameInfoClass::readFrame(std::string_view name, Value FrameRecord::*member) {
    return traced(propertyGet(name), [&] { return currentFrame().*member; });
}
template <class Value>
void FrameInfoClass::writeFrame(std::string_view name, Value FrameRecord::*member, const Value& vData) {
    traced(
        propertyLet(name), [&] { currentFrame().*member = vData; }, Arg{"vData", vData});
}

template <class Value>
Value FrameInfoClass::readLine(Value LineRecord::*member) {
    return hasLines() ? currentLine().*member : Value();
}
template <class Value>
void FrameInfoClass::writeLine(Value LineRecord::*member, const Value& vData) {
    if (hasLines())
        currentLine().*member = vData;
}

// The playfile.

std::int16_t FrameInfoClass::CurrentFrame() { return readObject("CurrentFrame", currentFrameNumber_); }
void FrameInfoClass::CurrentFrame(std::int16_t vData) {
    writeObject("CurrentFrame", currentFrameNumber_, vData);
}

std::int16_t FrameInfoClass::CurrentLineNumber() {
    return readObject("CurrentLineNumber", currentLineNumber_);
}
void FrameInfoClass::CurrentLineNumber(std::int16_t vData) {
    writeObject("CurrentLineNumber", currentLineNumber_, vData);
}

std::int16_t FrameInfoClass::DisplayWidth() { return readObject("DisplayWidth", displayWidth_); }
void FrameInfoClass::DisplayWidth(std::int16_t vData) { writeObject("DisplayWidth", displayWidth_, vData); }

std::int16_t FrameInfoClass::DisplayHeight() { return readObject("DisplayHeight", displayHeight_); }
void FrameInfoClass::DisplayHeight(std::int16_t vData) {
    writeObject("DisplayHeight", displayHeight_, vData);
}

std::string FrameInfoClass::CurrentFileName() { return readObject("CurrentFileName", currentFileName_); }
void FrameInfoClass::CurrentFileName(const std::string& vData) {
    writeObject("CurrentFileName", currentFileName_, vData);
}

std::int16_t FrameInfoClass::TotalFramesAllowed() {
    return readObject("TotalFramesAllowed", totalFramesAllowed_);
}
void FrameInfoClass::TotalFramesAllowed(std::int16_t vData) {
    writeObject("TotalFramesAllowed", totalFramesAllowed_, vData);
}

bool FrameInfoClass::PlayFileHasChanged() { return playFileHasChanged_; }
void FrameInfoClass::PlayFileHasChanged(bool vData) { playFileHasChanged_ = vData; }

void FrameInfoClass::SetSuppressMessages(bool bNewValue) { suppressMessages_ = bNewValue; }

std::int16_t FrameInfoClass::TotalFrames() {
    return traced(propertyGet("TotalFrames"), [&] { return NarrowToInt16(frames_.upperBound()); });
}
void FrameInfoClass::TotalFrames(std::int16_t vData) {
    traced(
        propertyLet("TotalFrames"),
        [&] {
            resizeFrames(vData);
            MakeLineVarsValid();
        },
        Arg{"vData", vData});
}

void FrameInfoClass::resizeFrames(std::int32_t count) {
    frames_.resize(count);
    checkLinesFrom(count + 1);
}

void FrameInfoClass::checkLinesFrom(std::int32_t number) {
    firstFrameToCheck_ = std::min(firstFrameToCheck_, number);
}

void FrameInfoClass::MakeLineVarsValid() {
    traced(FrameSub("MakeLineVarsValid"), [&] {
        for (; firstFrameToCheck_ <= frames_.upperBound(); ++firstFrameToCheck_)
            if (auto& lines = frames_.at(firstFrameToCheck_).lines; lines.empty())
                lines.resize(1);
    });
}

void FrameInfoClass::InitFrame(std::int16_t LineToInit) {
    traced(
        FrameSub("InitFrame"),
        [&] {
            FrameRecord& frame = frames_.at(LineToInit);
            frame.commandfile.clear();
            frame.PicturefileName.clear();
            frame.AudioFile.clear();
            frame.FrameType = 0;
            frame.DelayTime = 0;
            frame.FrameName.clear();
            frame.PrefixCode = 0;
            frame.SuffixCode = 0;
            frame.lines = OneBasedArray<LineRecord>(1);
        },
        Arg{"LineToInit", LineToInit});
}

// The frame under the cursor.

std::string FrameInfoClass::FrameName() { return readFrame("FrameName", &FrameRecord::FrameName); }
void FrameInfoClass::FrameName(const std::string& vData) {
    writeFrame("FrameName", &FrameRecord::FrameName, vData);
}

FRAME_TYPES FrameInfoClass::FrameType() {
    return traced(propertyGet("FrameType"), [&] { return FrameTypeOf(currentFrame()); });
}
void FrameInfoClass::FrameType(FRAME_TYPES vData) {
    traced(
        propertyLet("FrameType"), [&] { SetFrameType(currentFrame(), vData); }, Arg{"vData", vData});
}

std::int16_t FrameInfoClass::PrefixCode() { return readFrame("PrefixCode", &FrameRecord::PrefixCode); }
void FrameInfoClass::PrefixCode(std::int16_t vData) {
    traced(
        propertyLet("PrefixCode"), [&] { SetPrefixCode(currentFrame(), vData); }, Arg{"vData", vData});
}

std::int16_t FrameInfoClass::SuffixCode() { return readFrame("SuffixCode", &FrameRecord::SuffixCode); }
void FrameInfoClass::SuffixCode(std::int16_t vData) {
    traced(
        propertyLet("SuffixCode"), [&] { SetSuffixCode(currentFrame(), vData); }, Arg{"vData", vData});
}

double FrameInfoClass::DelayTime() { return readFrame("DelayTime", &FrameRecord::DelayTime); }
void FrameInfoClass::DelayTime(double vData) {
    traced(
        propertyLet("DelayTime"),
        [&] {
            if (!std::isfinite(vData)) // no file could hold it
                throw RuntimeError(ErrorNumber::overflow);
            currentFrame().DelayTime = vData;
        },
        Arg{"vData", vData});
}

std::string FrameInfoClass::PicturefileName() {
    return readFrame("PicturefileName", &FrameRecord::PicturefileName);
}
void FrameInfoClass::PicturefileName(const std::string& vData) {
    writeFrame("PicturefileName", &FrameRecord::PicturefileName, vData);
}

std::string FrameInfoClass::commandfile() { return readFrame("commandfile", &FrameRecord::commandfile); }
void FrameInfoClass::commandfile(const std::string& vData) {
    writeFrame("commandfile", &FrameRecord::commandfile, vData);
}

std::int16_t FrameInfoClass::PictureFileType() {
    return readFrame("PictureFileType", &FrameRecord::PictureFileType);
}
void FrameInfoClass::PictureFileType(std::int16_t vData) {
    writeFrame("PictureFileType", &FrameRecord::PictureFileType, vData);
}

std::int16_t FrameInfoClass::PictureFileDisplay() {
    return readFrame("PictureFileDisplay", &FrameRecord::PictureFileDisplay);
}
void FrameInfoClass::PictureFileDisplay(std::int16_t vData) {
    writeFrame("PictureFileDisplay", &FrameRecord::PictureFileDisplay, vData);
}

std::int16_t FrameInfoClass::FontWidth() { return readFrame("FontWidth", &FrameRecord::FontWidth); }
void FrameInfoClass::FontWidth(std::int16_t vData) {
    writeFrame("FontWidth", &FrameRecord::FontWidth, vData);
}

std::int16_t FrameInfoClass::FontHeight() { return readFrame("FontHeight", &FrameRecord::FontHeight); }
void FrameInfoClass::FontHeight(std::int16_t vData) {
    writeFrame("FontHeight", &FrameRecord::FontHeight, vData);
}

std::int16_t FrameInfoClass::TotalDisplayFramesUsedForThisFrame() {
    return readFrame("TotalDisplayFramesUsedForThisFrame", &FrameRecord::TotalDisplayFramesUsedForThisFrame);
}
void FrameInfoClass::TotalDisplayFramesUsedForThisFrame(std::int16_t vData) {
    writeFrame("TotalDisplayFramesUsedForThisFrame", &FrameRecord::TotalDisplayFramesUsedForThisFrame, vData);
}

std::int16_t FrameInfoClass::TotalLinesAllowed() {
    return traced(propertyGet("TotalLinesAllowed"),
                  [&] { return NarrowToInt16(currentFrame().lines.upperBound()); });
}
void FrameInfoClass::TotalLinesAllowed(std::int16_t vData) {
    traced(
        propertyLet("TotalLinesAllowed"),
        [&] {
            currentFrame().lines.resize(vData);
            if (vData == 0)
                checkLinesFrom(currentFrameNumber_);
        },
        Arg{"vData", vData});
}

std::int16_t FrameInfoClass::RowHeightForGrid() { return currentFrame().RowHeightForGrid; }
void FrameInfoClass::RowHeightForGrid(std::int16_t vData) { currentFrame().RowHeightForGrid = vData; }

std::int16_t FrameInfoClass::SendCommandFileAsIs() { return currentFrame().SendCommandFileAsIs; }
void FrameInfoClass::SendCommandFileAsIs(bool vData) { SetSendCommandFileAsIs(currentFrame(), vData); }

bool FrameInfoClass::OverlayFrame() { return IsOverlay(currentFrame()); }
void FrameInfoClass::OverlayFrame(bool vData) { SetOverlay(currentFrame(), vData); }

std::int16_t FrameInfoClass::AVIFrames() { return currentFrame().AVIFrames; }
void FrameInfoClass::AVIFrames(std::int16_t vData) { currentFrame().AVIFrames = vData; }

bool FrameInfoClass::FastScroll() { return ScrollsFast(currentFrame()); }
void FrameInfoClass::FastScroll(bool vData) { SetScrollsFast(currentFrame(), vData); }

std::string FrameInfoClass::AudioFile() {
    return untraced([&] { return currentFrame().AudioFile; });
}
void FrameInfoClass::AudioFile(const std::string& vData) {
    untraced([&] { currentFrame().AudioFile = vData; });
}

std::int32_t FrameInfoClass::WinBackColor() { return currentFrame().WinBackColor; }
void FrameInfoClass::WinBackColor(std::int32_t vData) { currentFrame().WinBackColor = vData; }

std::int16_t FrameInfoClass::FixedNumberOfLines() { return NarrowToInt16(currentFrame().FixedNumberOfLines); }
void FrameInfoClass::FixedNumberOfLines(std::int32_t vData) { currentFrame().FixedNumberOfLines = vData; }

// The line under the cursors.

std::string FrameInfoClass::CurrentLineText() {
    return traced(propertyGet("CurrentLineText"), [&] {
        if (!frames_.contains(currentFrameNumber_) || !currentFrame().lines.contains(currentLineNumber_))
            return std::string();
        return currentLine().CurrentLineText;
    });
}
void FrameInfoClass::CurrentLineText(const std::string& vData) {
    traced(
        propertyLet("CurrentLineText"),
        [&] {
            if (currentFrame().lines.upperBound() >= currentLineNumber_)
                writeLine(&LineRecord::CurrentLineText, vData);
        },
        Arg{"vData", vData});
}

bool FrameInfoClass::Scrolling() {
    return traced(propertyGet("Scrolling"), [&] { return readLine(&LineRecord::Scrolling); });
}
void FrameInfoClass::Scrolling(bool vData) {
    traced(
        propertyLet("Scrolling"), [&] { writeLine(&LineRecord::Scrolling, vData); }, Arg{"vData", vData});
}

std::int16_t FrameInfoClass::LineFontSize() {
    return traced(propertyGet("LineFontSize"), [&] { return readLine(&LineRecord::LineFontSize); });
}
void FrameInfoClass::LineFontSize(std::int16_t vData) {
    traced(
        propertyLet("LineFontSize"), [&] { writeLine(&LineRecord::LineFontSize, vData); },
        Arg{"vData", vData});
}

std::int16_t FrameInfoClass::CurrentLineFont() {
    return traced(propertyGet("CurrentLineFont"), [&] { return readLine(&LineRecord::LineFontSize); });
}
void FrameInfoClass::CurrentLineFont(std::int16_t vData) {
    traced(
        propertyLet("CurrentLineFont"), [&] { writeLine(&LineRecord::LineFontSize, vData); },
        Arg{"vData", vData});
}

bool FrameInfoClass::Blinking() { return readLine(&LineRecord::Blinking); }
void FrameInfoClass::Blinking(bool vData) { writeLine(&LineRecord::Blinking, vData); }

bool FrameInfoClass::Inverse() { return readLine(&LineRecord::Inverse); }
void FrameInfoClass::Inverse(bool vData) { writeLine(&LineRecord::Inverse, vData); }

bool FrameInfoClass::Merge() { return readLine(&LineRecord::Merge); }
void FrameInfoClass::Merge(bool vData) { writeLine(&LineRecord::Merge, vData); }

std::string FrameInfoClass::LineCustomFont() {
    return untraced([&] { return readLine(&LineRecord::LineCustomFont); });
}
void FrameInfoClass::LineCustomFont(const std::string& vData) {
    untraced([&] { writeLine(&LineRecord::LineCustomFont, vData); });
}

} // namespace qrtVistrelClasses4
