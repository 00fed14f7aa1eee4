// The playfile: one quoted value a line, in a fixed order, without names or version.
#pragma once

#include "frame/QuotedLines.h"
#include "playfile/FrameRecord.h"

#include <cstdint>
#include <string_view>
#include <tuple>

namespace qrtVistrelClasses4 {

/// A value, or an array of values, of a playfile record.
template <class Record, class Value>
struct PlayfileField {
    std::string_view name;
    Value Record::*member;
};
template <class Record, class Value>
PlayfileField(std::string_view, Value Record::*) -> PlayfileField<Record, Value>;

/// A whole number that old files hold with decimals: it is rounded when read.
template <class Record>
struct RoundedPlayfileField {
    std::string_view name;
    std::int16_t Record::*member;
};
template <class Record>
RoundedPlayfileField(std::string_view, std::int16_t Record::*) -> RoundedPlayfileField<Record>;

/// A frame's values in file order; its number of lines and the lines follow them.
inline constexpr std::tuple kFrameFields{
    PlayfileField{"CMDFile_Name", &FrameRecord::commandfile},
    PlayfileField{"Delay_Time", &FrameRecord::DelayTime},
    RoundedPlayfileField{"Font_Height", &FrameRecord::FontHeight},
    PlayfileField{"FrameInfo_Name", &FrameRecord::FrameName},
    PlayfileField{"FrameInfo_Type", &FrameRecord::FrameType},
    PlayfileField{"Picture", &FrameRecord::PicturefileName},
    PlayfileField{"Prefix_Code", &FrameRecord::PrefixCode},
    PlayfileField{"Suffix_Code", &FrameRecord::SuffixCode},
    PlayfileField{"PictureFile_Display", &FrameRecord::PictureFileDisplay},
    PlayfileField{"PictureFile_Type", &FrameRecord::PictureFileType},
    PlayfileField{"Number_of_Frames_Used", &FrameRecord::TotalDisplayFramesUsedForThisFrame},
    PlayfileField{"GridRow_Height", &FrameRecord::RowHeightForGrid},
    PlayfileField{"CMDFile_SendAsIs", &FrameRecord::SendCommandFileAsIs},
    PlayfileField{"Previous_Frame_Overlay", &FrameRecord::OverlayFrame},
    PlayfileField{"AVI_Frames", &FrameRecord::AVIFrames},
    PlayfileField{"FastScroll", &FrameRecord::FastScroll},
    PlayfileField{"Audio_Name", &FrameRecord::AudioFile},
    PlayfileField{"", &FrameRecord::spareTexts},
    PlayfileField{"WinBackColor", &FrameRecord::WinBackColor},
    PlayfileField{"FixedNumberOfLines", &FrameRecord::FixedNumberOfLines},
    PlayfileField{"", &FrameRecord::spareLongs},
};

/// A line's values in file order.
inline constexpr std::tuple kLineFields{
    PlayfileField{"RTF_Text", &LineRecord::CurrentLineText},
    PlayfileField{"Font", &LineRecord::LineFontSize},
    PlayfileField{"Scrolling", &LineRecord::Scrolling},
    PlayfileField{"Inverse", &LineRecord::Inverse},
    PlayfileField{"Blinking", &LineRecord::Blinking},
    PlayfileField{"CustomFont", &LineRecord::LineCustomFont},
    PlayfileField{"", &LineRecord::spareShorts},
    PlayfileField{"", &LineRecord::spareTexts},
    PlayfileField{"", &LineRecord::spareLongs},
    PlayfileField{"Merge", &LineRecord::Merge},
    PlayfileField{"", &LineRecord::spareFlags},
};

/// What a playfile starts with. Reading throws like `QuotedLineReader::get`.
std::int16_t ReadFrameCount(QuotedLineReader& in);
void WriteFrameCount(QuotedLineWriter& out, std::int32_t count);

/// Reads the values of a frame and gives it as many lines as the file tells; the lines keep what they hold.
/// At an error the values before the bad one have been read.
void ReadFrameValues(QuotedLineReader& in, FrameRecord& frame);
void ReadLineValues(QuotedLineReader& in, LineRecord& line);

/// Writes a frame with its lines.
void WriteFrame(QuotedLineWriter& out, const FrameRecord& frame);

} // namespace qrtVistrelClasses4
