// What a playfile holds: frames, and the lines of text in them, each record with the table of its members.
#pragma once

#include <qrtVistrelClasses4/Export.h>
#include <qrtVistrelClasses4/FrameTypes.h>
#include <qrtVistrelClasses4/MemberTable.h>
#include <qrtVistrelClasses4/OneBasedArray.h>

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <utility>

namespace QRT_PUBLIC qrtVistrelClasses4 {

/// The font number of lines whose font is in a file of its own.
inline constexpr std::int16_t kCustomFont = 12;

/// A line of text. Texts are 8-bit characters of the ANSI code page.
struct LineRecord {
    /// Font number: 0 to 11 are the numbered fonts, `kCustomFont` is the font in the file
    /// `LineCustomFont`.
    std::int16_t LineFontSize = 0;
    std::string CurrentLineText; ///< May hold embedded sign variables.
    bool Scrolling = false;
    bool Blinking = false;
    bool Inverse = false;
    std::string LineCustomFont; ///< File name of a custom font, used by font number 12; empty for none.
    bool Merge = false;
    // Spare values of the file. They are kept, and have no meaning here.
    std::array<std::int16_t, 2> spareShorts{};
    std::array<std::string, 3> spareTexts;
    std::array<std::int32_t, 3> spareLongs{};
    std::array<bool, 2> spareFlags{};

    bool operator==(const LineRecord&) const = default;
};

struct FrameRecord {
    std::string PicturefileName; ///< Picture or animation file.
    std::string commandfile;     ///< Raw command file of a command frame.
    OneBasedArray<LineRecord> lines;
    std::int16_t FrameType = 0;  ///< A number of `NEW_FRAME_TYPES`, or any other; see `KindOf`.
    std::int16_t FontWidth = 0;  ///< Kept for the application, but files do not hold it.
    std::int16_t FontHeight = 0; ///< Kept for the application.
    std::int16_t PrefixCode = 0; ///< Appear effect.
    double DelayTime = 0;        ///< Seconds that the frame stays.
    std::int16_t SuffixCode = 0; ///< Disappear effect.
    std::string FrameName;
    /// How the picture is placed. Loading an older playfile stores 1 for a cropped picture and 0 for others.
    std::int16_t PictureFileDisplay = 0;
    std::int16_t PictureFileType = 0;                    ///< Kind of picture file; kept for the application.
    std::int16_t TotalDisplayFramesUsedForThisFrame = 0; ///< Frames of the sign that it takes when sent.
    /// Height of the frame's row in the application's grid of frames; the application decides on the unit.
    std::int16_t RowHeightForGrid = 0;
    // Flags are stored as 1 and 0, but files hold other numbers too. Each flag reads those in its own way.
    std::int16_t SendCommandFileAsIs = 0; ///< 1 when the command file is sent unchanged.
    std::int16_t OverlayFrame = 0;        ///< 1 when drawn over the frame before.
    std::int16_t AVIFrames = 0;           ///< Number of pictures in the animation file.
    std::int16_t FastScroll = 0;          ///< 1 when scrolling lines scroll fast.
    std::string AudioFile;                ///< Kept for the application.
    /// Background of the preview: red + 256 * green + 65536 * blue. A negative number means a colour of the
    /// system that it was chosen on; previews draw black instead.
    std::int32_t WinBackColor = 0;
    std::int32_t FixedNumberOfLines = 0; ///< Other than 0: the frame keeps this many lines.
    // Spare values of the file. They are kept, and have no meaning here.
    std::array<std::string, 4> spareTexts;
    std::array<std::int32_t, 3> spareLongs{};

    bool operator==(const FrameRecord&) const = default;
};

/// Empties the name, files, kind, delay and effects of a frame and leaves it one empty line. Other values
/// stay.
QRT_PUBLIC void EmptyFrame(FrameRecord& frame);

/// What the stored number of a frame's type means. Numbers without a name are kinds of their own.
QRT_PUBLIC NEW_FRAME_TYPES KindOf(const FrameRecord& frame);
/// Whether the frame is not blank. The sign never gets blank frames.
QRT_PUBLIC bool IsUsed(const FrameRecord& frame);
/// Whether the picture of the frame is shown.
QRT_PUBLIC bool HasPicture(const FrameRecord& frame);
/// Whether the lines of the frame are shown.
QRT_PUBLIC bool HasText(const FrameRecord& frame);
/// Whether scrolling lines of the frame scroll fast.
QRT_PUBLIC bool IsFastScroll(const FrameRecord& frame);
/// Whether the flag of overlays is set.
QRT_PUBLIC bool IsOverlay(const FrameRecord& frame);
/// Whether the frame is drawn over the one before it: it is an overlay, or its appear effect says so.
QRT_PUBLIC bool IsDrawnOver(const FrameRecord& frame);

// How a property reaches its member. `get` returns what the property reads, `set` takes what it is given;
// both throw a `RuntimeError` when the value does not fit, and the record then stays as it was. `check`,
// where there is one, throws the error of `set` before a record is looked up.

template <auto member>
struct MemberClass;
template <class Class, class Type, Type Class::*member>
struct MemberClass<member> {
    using Record = Class;
    using Value = Type;
};

/// The member as it is.
template <auto member>
struct PlainAccessor {
    using Record = typename MemberClass<member>::Record;
    using Value = typename MemberClass<member>::Value;
    using Given = std::conditional_t<std::is_arithmetic_v<Value>, Value, const Value&>;
    static Value get(const Record& record) { return record.*member; }
    static void set(Record& record, Given value) { record.*member = value; }
};

/// The stored number as a value of the other enumeration. Setting a number beyond 16 bits is error 6.
struct FrameTypeAccessor {
    static FRAME_TYPES get(const FrameRecord& frame);
    static void set(FrameRecord& frame, FRAME_TYPES type);
};

/// One of a frame's two effect codes. Either both codes are `kPhotoRealistic` or neither is: setting one code
/// to it sets the other, too, and setting anything else removes it from the other.
template <std::int16_t FrameRecord::*code, std::int16_t FrameRecord::*other>
struct CoupledCodeAccessor {
    static std::int16_t get(const FrameRecord& frame) { return frame.*code; }
    static void set(FrameRecord& frame, std::int16_t value);
};
using PrefixCodeAccessor = CoupledCodeAccessor<&FrameRecord::PrefixCode, &FrameRecord::SuffixCode>;
using SuffixCodeAccessor = CoupledCodeAccessor<&FrameRecord::SuffixCode, &FrameRecord::PrefixCode>;

/// Seconds. Infinity and values that are not numbers are error 6, since no file could hold them.
struct DelayAccessor {
    static double get(const FrameRecord& frame) { return frame.DelayTime; }
    static void set(FrameRecord& frame, double seconds);
    static void check(double seconds);
};

/// A flag that reads as its stored number.
struct NumberedFlagAccessor {
    static std::int16_t get(const FrameRecord& frame) { return frame.SendCommandFileAsIs; }
    static void set(FrameRecord& frame, bool on) { frame.SendCommandFileAsIs = on ? 1 : 0; }
};
/// A flag for which any number but 0 is on.
struct OverlayAccessor {
    static bool get(const FrameRecord& frame) { return IsOverlay(frame); }
    static void set(FrameRecord& frame, bool on) { frame.OverlayFrame = on ? 1 : 0; }
};
/// A flag for which only 1 is on.
template <std::int16_t FrameRecord::*flag>
struct OneIsOnAccessor {
    static bool get(const FrameRecord& frame) { return frame.*flag == 1; }
    static void set(FrameRecord& frame, bool on) { frame.*flag = on ? 1 : 0; }
};

/// Stored with 32 bits, read with 16: reading a number beyond those is error 6.
struct LineLimitAccessor {
    static std::int16_t get(const FrameRecord& frame);
    static void set(FrameRecord& frame, std::int32_t count) { frame.FixedNumberOfLines = count; }
};

template <class Setter>
struct SetterArgument;
template <class Record, class Argument>
struct SetterArgument<void (*)(Record&, Argument)> {
    using Type = Argument;
};

/// What is special about a member.
enum class Quirk : std::uint8_t {
    none,
    roundedWhenRead,    ///< A whole number that old files hold with decimals.
    outOfClipboardOnly, ///< Copied out of a clipboard, but not into one, so that it is lost on the way.
    forgivesCursors, ///< With a cursor outside frames or lines it reads empty, and after the last line it is
                     ///< not stored.
    namesFile,       ///< The name of a file.
};

/// The columns of a row that do not depend on the type of its member.
struct MemberColumns {
    constexpr MemberColumns(std::string_view propertyName, Access propertyAccess,
                            std::string_view nameInFiles = {}, int placeInExport = 0,
                            int placeInClipboard = 0, Quirk itsQuirk = Quirk::none)
        : name(propertyName), access(propertyAccess), fileName(nameInFiles), exportPlace(placeInExport),
          clipboardPlace(placeInClipboard), quirk(itsQuirk) {}

    std::string_view name; ///< Of the property; "" for spare values.
    Access access;
    std::string_view fileName; ///< In the export and in the description of the file; "" if files lack it.
    int exportPlace;           ///< From 1, in the export; 0 if it lacks the value.
    int clipboardPlace;        ///< From 1, in the order that copies set values; 0 if they lack it.
    Quirk quirk;

    constexpr bool isInFile() const { return !fileName.empty(); }
};

/// A row of a record's table.
template <auto pointer, class Accessor = PlainAccessor<pointer>>
struct PlayfileMember : MemberColumns {
    using MemberColumns::MemberColumns;
    using Record = typename MemberClass<pointer>::Record;
    using Value = decltype(Accessor::get(std::declval<const Record&>()));  ///< What the property reads.
    using Given = typename SetterArgument<decltype(&Accessor::set)>::Type; ///< What it is set to.
    static constexpr auto member = pointer;
    /// Whether the property reads and sets the member as it is.
    static constexpr bool isPlain = std::is_same_v<Accessor, PlainAccessor<pointer>>;
    /// Whether the property is set to a flag that is stored as a number; exports have 0 and -1 for it.
    static constexpr bool isFlagInNumber =
        std::is_same_v<Given, bool> && !std::is_same_v<typename MemberClass<pointer>::Value, bool>;

    static Value get(const Record& record) { return Accessor::get(record); }
    static void set(Record& record, Given value) { Accessor::set(record, value); }
    static void check(Given value) {
        if constexpr (requires { Accessor::check(value); })
            Accessor::check(value);
    }
};

inline constexpr std::string_view kSpare = "Spare";

/// In file order. A frame's number of lines and the lines follow it in the file.
inline constexpr std::tuple kFrameMembers{
    // clang-format off
    PlayfileMember<&FrameRecord::commandfile>{"commandfile", Access::traced, "CMDFile_Name", 1, 1, Quirk::namesFile},
    PlayfileMember<&FrameRecord::DelayTime, DelayAccessor>{"DelayTime", Access::traced, "Delay_Time", 3, 3},
    PlayfileMember<&FrameRecord::FontHeight>{"FontHeight", Access::traced, "Font_Height", 4, 4, Quirk::roundedWhenRead},
    PlayfileMember<&FrameRecord::FontWidth>{"FontWidth", Access::traced, "", 0, 5},
    PlayfileMember<&FrameRecord::FrameName>{"FrameName", Access::traced, "FrameInfo_Name", 5, 6},
    PlayfileMember<&FrameRecord::FrameType, FrameTypeAccessor>{"FrameType", Access::traced, "FrameInfo_Type", 6, 7},
    PlayfileMember<&FrameRecord::PicturefileName>{"PicturefileName", Access::traced, "Picture", 7, 8, Quirk::namesFile},
    PlayfileMember<&FrameRecord::PrefixCode, PrefixCodeAccessor>{"PrefixCode", Access::traced, "Prefix_Code", 8, 11},
    PlayfileMember<&FrameRecord::SuffixCode, SuffixCodeAccessor>{"SuffixCode", Access::traced, "Suffix_Code", 9, 12},
    PlayfileMember<&FrameRecord::PictureFileDisplay>{"PictureFileDisplay", Access::traced, "PictureFile_Display", 10, 9},
    PlayfileMember<&FrameRecord::PictureFileType>{"PictureFileType", Access::traced, "PictureFile_Type", 11, 10},
    PlayfileMember<&FrameRecord::TotalDisplayFramesUsedForThisFrame>{"TotalDisplayFramesUsedForThisFrame", Access::traced, "Number_of_Frames_Used", 12, 2},
    PlayfileMember<&FrameRecord::RowHeightForGrid>{"RowHeightForGrid", Access::untraced, "GridRow_Height", 13, 15},
    PlayfileMember<&FrameRecord::SendCommandFileAsIs, NumberedFlagAccessor>{"SendCommandFileAsIs", Access::untraced, "CMDFile_SendAsIs", 2, 16},
    PlayfileMember<&FrameRecord::OverlayFrame, OverlayAccessor>{"OverlayFrame", Access::untraced, "Previous_Frame_Overlay", 14, 13},
    PlayfileMember<&FrameRecord::AVIFrames>{"AVIFrames", Access::untraced, "AVI_Frames", 15, 17},
    PlayfileMember<&FrameRecord::FastScroll, OneIsOnAccessor<&FrameRecord::FastScroll>>{"FastScroll", Access::untraced, "FastScroll", 0, 18},
    PlayfileMember<&FrameRecord::AudioFile>{"AudioFile", Access::untraced, "Audio_Name", 16, 14, Quirk::namesFile},
    PlayfileMember<&FrameRecord::spareTexts>{"", Access::none, kSpare},
    PlayfileMember<&FrameRecord::WinBackColor>{"WinBackColor", Access::untraced, "WinBackColor", 0, 19},
    PlayfileMember<&FrameRecord::FixedNumberOfLines, LineLimitAccessor>{"FixedNumberOfLines", Access::untraced, "FixedNumberOfLines"},
    PlayfileMember<&FrameRecord::spareLongs>{"", Access::none, kSpare},
    // clang-format on
};

/// In file order.
inline constexpr std::tuple kLineMembers{
    // clang-format off
    PlayfileMember<&LineRecord::CurrentLineText>{"CurrentLineText", Access::traced, "RTF_Text", 1, 1, Quirk::forgivesCursors},
    PlayfileMember<&LineRecord::LineFontSize>{"LineFontSize", Access::traced, "Font", 2, 3},
    PlayfileMember<&LineRecord::Scrolling>{"Scrolling", Access::traced, "Scrolling", 3, 2},
    PlayfileMember<&LineRecord::Inverse>{"Inverse", Access::untraced, "Inverse", 4, 6},
    PlayfileMember<&LineRecord::Blinking>{"Blinking", Access::untraced, "Blinking", 5, 5},
    PlayfileMember<&LineRecord::LineCustomFont>{"LineCustomFont", Access::untraced, "CustomFont", 6, 4, Quirk::namesFile},
    PlayfileMember<&LineRecord::spareShorts>{"", Access::none, kSpare},
    PlayfileMember<&LineRecord::spareTexts>{"", Access::none, kSpare},
    PlayfileMember<&LineRecord::spareLongs>{"", Access::none, kSpare},
    PlayfileMember<&LineRecord::Merge>{"Merge", Access::untraced, "Merge", 7, 7, Quirk::outOfClipboardOnly},
    PlayfileMember<&LineRecord::spareFlags>{"", Access::none, kSpare},
    // clang-format on
};

/// The table that has the rows of a record.
template <class Record>
inline constexpr const auto& kMembersOf = kFrameMembers;
template <>
inline constexpr const auto& kMembersOf<LineRecord> = kLineMembers;

/// The row of a member of either record.
template <auto member>
inline constexpr const auto&
    kMember = std::get<RowIndex(kMembersOf<typename MemberClass<member>::Record>, member)>(
        kMembersOf<typename MemberClass<member>::Record>);
template <auto member>
using RowOf = std::remove_cvref_t<decltype(kMember<member>)>;

/// A second name of a line's font. It is in no table, so that files and copies hold the number only once.
inline constexpr PlayfileMember<&LineRecord::LineFontSize> kCurrentLineFont{"CurrentLineFont",
                                                                            Access::traced};

} // namespace qrtVistrelClasses4
