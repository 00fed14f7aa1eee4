// Playfiles as lists of records, so that tests give and compare all that they hold.
#pragma once

#include "frame/RuntimeError.h"
#include "platform/Path.h"
#include "platform/Platform.h"
#include "platform/ReplacementFile.h"
#include "playfile/FrameInfoClass.h"
#include "playfile/PlayfileFormat.h"

#include <cstddef>
#include <ostream>
#include <string>
#include <type_traits>
#include <vector>

namespace qrtVistrelClasses4 {

using Records = std::vector<FrameRecord>;
using Shorts = std::vector<std::int16_t>;

inline constexpr std::int16_t kSmallest = -32768;
inline constexpr std::int16_t kLargest = 32767;

/// How a test that fails shows a frame.
inline void PrintTo(const FrameRecord& frame, std::ostream* out) {
    *out << "\"" << frame.FrameName << "\" of " << frame.lines.upperBound() << " lines";
}

/// Counts up as values are drawn from it; flags follow its bits.
class ValueSource {
public:
    explicit ValueSource(int first) : next_(first) {}
    template <class Value>
    void draw(Value& value) {
        if constexpr (std::is_same_v<Value, std::string>)
            value = "text " + std::to_string(next_);
        else if constexpr (std::is_same_v<Value, bool>)
            value = ((next_ ^ (next_ >> 2)) & 1) != 0;
        else
            value = static_cast<Value>(next_ * (sizeof(Value) > 2 ? 65537.25 : 1));
        ++next_;
    }
    template <class Value, std::size_t count>
    void draw(std::array<Value, count>& values) {
        for (Value& value : values)
            draw(value);
    }
    template <class Record, class Fields>
    void drawAll(Record& record, const Fields& fields) {
        std::apply([&](const auto&... field) { (draw(record.*field.member), ...); }, fields);
    }

private:
    int next_;
};

/// A frame named by a letter, with a value of its own in every other field too.
inline FrameRecord filledFrame(char name, int lineCount = 2) {
    ValueSource values(200 * (name - 'A' + 1));
    FrameRecord frame;
    values.drawAll(frame, kFrameFields);
    values.draw(frame.FontWidth);
    frame.FrameName = name;
    frame.lines.resize(lineCount);
    for (LineRecord& line : frame.lines)
        values.drawAll(line, kLineFields);
    return frame;
}

inline Records filledFrames(const std::string& names) {
    Records frames;
    for (const char name : names)
        frames.push_back(filledFrame(name));
    return frames;
}

inline FrameRecord emptyFrame() {
    FrameRecord frame;
    frame.lines.resize(1);
    return frame;
}

/// What `InitFrame` leaves of a frame.
inline FrameRecord emptied(FrameRecord frame) {
    frame.commandfile = frame.PicturefileName = frame.AudioFile = frame.FrameName = "";
    frame.FrameType = frame.PrefixCode = frame.SuffixCode = 0;
    frame.DelayTime = 0;
    frame.lines = emptyFrame().lines;
    return frame;
}

/// A frame that has gone through the properties of a playfile into one that holds `below` in its place, of
/// which the values stay that no property carries.
inline FrameRecord carriedOver(const FrameRecord& below, FrameRecord frame) {
    frame.SendCommandFileAsIs = frame.SendCommandFileAsIs != 0 ? 1 : 0;
    frame.OverlayFrame = frame.OverlayFrame != 0 ? 1 : 0;
    frame.FastScroll = frame.FastScroll == 1 ? 1 : 0;
    if (frame.SuffixCode == 9999)
        frame.PrefixCode = 9999;
    else if (frame.PrefixCode == 9999)
        frame.PrefixCode = 0;
    frame.FixedNumberOfLines = below.FixedNumberOfLines;
    frame.spareTexts = below.spareTexts;
    frame.spareLongs = below.spareLongs;
    OneBasedArray<LineRecord> linesBelow = below.lines;
    linesBelow.resize(frame.lines.upperBound());
    for (int number = 1; number <= linesBelow.upperBound(); ++number) {
        LineRecord& line = frame.lines.at(number);
        LineRecord& old = linesBelow.at(number);
        line.spareShorts = old.spareShorts;
        line.spareTexts = old.spareTexts;
        line.spareLongs = old.spareLongs;
        line.spareFlags = old.spareFlags;
    }
    return frame;
}

/// The same into a new clipboard, which `Merge` never gets into.
inline FrameRecord copied(const FrameRecord& frame) {
    FrameRecord copy = carriedOver(emptyFrame(), frame);
    for (LineRecord& line : copy.lines)
        line.Merge = false;
    return copy;
}

inline std::string recordsPath() { return JoinPath(platform().libraryFolder(), "records.playfile"); }

/// Fills the playfile by loading a file, and by the one property that files lack. The cursor is left alone.
inline void putRecords(FrameInfoClass& playfile, const Records& frames) {
    ReplacementFile file(platform().files(), recordsPath());
    QuotedLineWriter out(file);
    WriteFrameCount(out, static_cast<std::int32_t>(frames.size()));
    for (const FrameRecord& frame : frames)
        WriteFrame(out, frame);
    out.finish();
    Check(file.commit());
    playfile.GetPlayfileFromDisk(recordsPath());
    const std::int16_t cursor = playfile.CurrentFrame();
    for (std::size_t index = 0; index < frames.size(); ++index) {
        playfile.CurrentFrame(static_cast<std::int16_t>(index + 1));
        playfile.FontWidth(frames[index].FontWidth);
    }
    playfile.CurrentFrame(cursor);
}

inline Records recordsOf(FrameInfoClass& playfile) {
    playfile.WritePlayfileToDisk(recordsPath());
    const FileBytes bytes = ValueOf(platform().files().read(recordsPath()));
    QuotedLineReader in(bytes.text());
    Records frames(static_cast<std::size_t>(ReadFrameCount(in)));
    const std::int16_t cursor = playfile.CurrentFrame();
    std::int16_t number = 0;
    for (FrameRecord& frame : frames) {
        ReadFrameValues(in, frame);
        for (LineRecord& line : frame.lines)
            ReadLineValues(in, line);
        playfile.CurrentFrame(++number);
        frame.FontWidth = playfile.FontWidth();
    }
    playfile.CurrentFrame(cursor);
    return frames;
}

/// The first letters of the frames' names in order, "_" for a frame without a name.
inline std::string orderOf(const Records& frames) {
    std::string order;
    for (const FrameRecord& frame : frames)
        order += frame.FrameName.empty() ? '_' : frame.FrameName.front();
    return order;
}

} // namespace qrtVistrelClasses4
