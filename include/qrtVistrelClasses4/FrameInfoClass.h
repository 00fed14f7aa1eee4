// One playfile: its frames and lines, read and written through cursors.
#pragma once

#include <qrtVistrelClasses4/Export.h>
#include <qrtVistrelClasses4/FrameRecord.h>
#include <qrtVistrelClasses4/FrameTypes.h>
#include <qrtVistrelClasses4/LastError.h>
#include <qrtVistrelClasses4/Playfile.h>

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <type_traits>

namespace QRT_PUBLIC qrtVistrelClasses4 {

class ListControl;
struct LoadOutcome;

/// A playfile, and the two cursors that its properties address. Frame and line numbers start at 1. Texts are
/// 8-bit characters of the ANSI code page, passed through unchanged. One thread at a time.
///
/// Traced members trap their errors: the error is reported, and the result is 0, "" or false. Members marked
/// "untraced" throw `RuntimeError` to their caller instead. Either way a property that fails leaves the
/// playfile as it was.
class FrameInfoClass {
public:
    /// Makes twenty empty frames of one line each. No frame is the current one.
    FrameInfoClass();
    ~FrameInfoClass();
    FrameInfoClass(const FrameInfoClass&) = delete;
    FrameInfoClass& operator=(const FrameInfoClass&) = delete;

    static constexpr std::string_view ClassName() { return "FrameInfoClass"; }

    /// The playfile itself. Any member that is not `const` may change it, as may a host while an error or a
    /// question is put before the operator.
    const Playfile& Value() const { return playfile_; }
    /// Replaces the playfile by `playfile`. The cursors stay.
    void Adopt(Playfile playfile);
    /// Takes over the playfile, the cursors and everything else that is set in `other`, which has no frames
    /// afterwards. Nothing changes if `other` is this object.
    void TakeOver(FrameInfoClass& other) noexcept;

    // The playfile.

    /// Always 0: playfiles have no identity number.
    std::int32_t ClassDebugID() const { return 0; }
    /// Number of the frame that frame and line properties address. Any value is kept; it is checked when
    /// used.
    std::int16_t CurrentFrame() const { return readOwn("CurrentFrame", currentFrameNumber_); }
    void CurrentFrame(std::int16_t vData) { writeOwn("CurrentFrame", currentFrameNumber_, vData); }
    /// Number of the line, within the current frame, that line properties address. Checked when used.
    std::int16_t CurrentLineNumber() const { return readOwn("CurrentLineNumber", currentLineNumber_); }
    void CurrentLineNumber(std::int16_t vData) { writeOwn("CurrentLineNumber", currentLineNumber_, vData); }
    /// Size of the sign in pixels.
    std::int16_t DisplayWidth() const { return readOwn("DisplayWidth", displayWidth_); }
    void DisplayWidth(std::int16_t vData) { writeOwn("DisplayWidth", displayWidth_, vData); }
    std::int16_t DisplayHeight() const { return readOwn("DisplayHeight", displayHeight_); }
    void DisplayHeight(std::int16_t vData) { writeOwn("DisplayHeight", displayHeight_, vData); }
    /// Path of the playfile.
    std::string CurrentFileName() const { return readOwn("CurrentFileName", playfile_.fileName); }
    void CurrentFileName(const std::string& vData) { writeOwn("CurrentFileName", playfile_.fileName, vData); }
    /// The most frames that the playfile may have. Only `PasteInfo` and the import of an older playfile
    /// respect it.
    std::int16_t TotalFramesAllowed() const { return readOwn("TotalFramesAllowed", totalFramesAllowed_); }
    void TotalFramesAllowed(std::int16_t vData) {
        writeOwn("TotalFramesAllowed", totalFramesAllowed_, vData);
    }
    /// True if there are unsaved changes. Only the application sets it. Untraced.
    bool PlayFileHasChanged() const { return readUntraced(playFileHasChanged_); }
    void PlayFileHasChanged(bool vData) { writeUntraced(playFileHasChanged_, vData); }
    /// True if the playfile came from the older format. Untraced.
    bool IsLegacy() const { return readUntraced(playfile_.isLegacy); }
    /// If true, no questions are asked. Failures are still shown. Untraced.
    void SetSuppressMessages(bool bNewValue) { writeUntraced(suppressMessages_, bNewValue); }

    /// Number of the last frame. Setting it keeps the frames up to the new number and gives each new frame
    /// one empty line. A negative number is error 9.
    std::int16_t TotalFrames() const;
    void TotalFrames(std::int16_t vData);
    /// Gives every frame that has no lines one empty line.
    void MakeLineVarsValid();
    /// Empties the name, files, kind, delay, effects and lines of frame number `LineToInit`; other fields
    /// stay.
    void InitFrame(std::int16_t LineToInit);

    // The frame under `CurrentFrame`. A cursor outside the frames is error 9. `FrameRecord` has the meaning
    // and the unit of each value.

    std::string FrameName() const { return read<&FrameRecord::FrameName>(); }
    void FrameName(const std::string& vData) { write<&FrameRecord::FrameName>(vData); }
    /// The kind of the frame, by the numbers of `NEW_FRAME_TYPES` although the type is another one: a value
    /// reads as the name of `FRAME_TYPES` that has its number; see `FrameTypes.h`. A number beyond 16 bits is
    /// error 6.
    FRAME_TYPES FrameType() const { return read<&FrameRecord::FrameType>(); }
    /// Stores the number of `vData`, for callers that hold a stored number. Its names mislead:
    /// `FRAME_TYPES::FRAME_TEXT` stores 3, which is graphic with text. Pass `NEW_FRAME_TYPES` to name a kind.
    void FrameType(FRAME_TYPES vData) { write<&FrameRecord::FrameType>(vData); }
    /// The same property under the type that its numbers have.
    NEW_FRAME_TYPES NewFrameType() const { return MeaningOf(FrameType()); }
    void FrameType(NEW_FRAME_TYPES vData) { FrameType(StoredFrameType(vData)); }
    /// Appear effect. 9999 (PhotoRealistic) is set for both effects or for neither.
    std::int16_t PrefixCode() const { return read<&FrameRecord::PrefixCode>(); }
    void PrefixCode(std::int16_t vData) { write<&FrameRecord::PrefixCode>(vData); }
    /// Disappear effect, coupled in the same way.
    std::int16_t SuffixCode() const { return read<&FrameRecord::SuffixCode>(); }
    void SuffixCode(std::int16_t vData) { write<&FrameRecord::SuffixCode>(vData); }
    /// Seconds that the frame stays on the sign. Infinity, or no number at all, is error 6.
    double DelayTime() const { return read<&FrameRecord::DelayTime>(); }
    void DelayTime(double vData) { write<&FrameRecord::DelayTime>(vData); }
    std::string PicturefileName() const { return read<&FrameRecord::PicturefileName>(); }
    void PicturefileName(const std::string& vData) { write<&FrameRecord::PicturefileName>(vData); }
    std::string commandfile() const { return read<&FrameRecord::commandfile>(); }
    void commandfile(const std::string& vData) { write<&FrameRecord::commandfile>(vData); }
    std::int16_t PictureFileType() const { return read<&FrameRecord::PictureFileType>(); }
    void PictureFileType(std::int16_t vData) { write<&FrameRecord::PictureFileType>(vData); }
    std::int16_t PictureFileDisplay() const { return read<&FrameRecord::PictureFileDisplay>(); }
    void PictureFileDisplay(std::int16_t vData) { write<&FrameRecord::PictureFileDisplay>(vData); }
    std::int16_t FontWidth() const { return read<&FrameRecord::FontWidth>(); }
    void FontWidth(std::int16_t vData) { write<&FrameRecord::FontWidth>(vData); }
    std::int16_t FontHeight() const { return read<&FrameRecord::FontHeight>(); }
    void FontHeight(std::int16_t vData) { write<&FrameRecord::FontHeight>(vData); }
    std::int16_t TotalDisplayFramesUsedForThisFrame() const {
        return read<&FrameRecord::TotalDisplayFramesUsedForThisFrame>();
    }
    void TotalDisplayFramesUsedForThisFrame(std::int16_t vData) {
        write<&FrameRecord::TotalDisplayFramesUsedForThisFrame>(vData);
    }
    /// Number of the frame's last line. Setting it keeps the lines up to the new number. A negative number is
    /// error 9.
    std::int16_t TotalLinesAllowed() const;
    void TotalLinesAllowed(std::int16_t vData);

    // Untraced.
    std::int16_t RowHeightForGrid() const { return read<&FrameRecord::RowHeightForGrid>(); }
    void RowHeightForGrid(std::int16_t vData) { write<&FrameRecord::RowHeightForGrid>(vData); }
    /// Reads the stored number: 1 for true.
    std::int16_t SendCommandFileAsIs() const { return read<&FrameRecord::SendCommandFileAsIs>(); }
    void SendCommandFileAsIs(bool vData) { write<&FrameRecord::SendCommandFileAsIs>(vData); }
    /// Stores 1 for true; any stored number but 0 reads as true.
    bool OverlayFrame() const { return read<&FrameRecord::OverlayFrame>(); }
    void OverlayFrame(bool vData) { write<&FrameRecord::OverlayFrame>(vData); }
    std::int16_t AVIFrames() const { return read<&FrameRecord::AVIFrames>(); }
    void AVIFrames(std::int16_t vData) { write<&FrameRecord::AVIFrames>(vData); }
    /// Stores 1 for true; only a stored 1 reads as true.
    bool FastScroll() const { return read<&FrameRecord::FastScroll>(); }
    void FastScroll(bool vData) { write<&FrameRecord::FastScroll>(vData); }
    std::string AudioFile() const { return read<&FrameRecord::AudioFile>(); }
    void AudioFile(const std::string& vData) { write<&FrameRecord::AudioFile>(vData); }
    std::int32_t WinBackColor() const { return read<&FrameRecord::WinBackColor>(); }
    void WinBackColor(std::int32_t vData) { write<&FrameRecord::WinBackColor>(vData); }
    /// Reading a stored number beyond 16 bits is error 6.
    std::int16_t FixedNumberOfLines() const { return read<&FrameRecord::FixedNumberOfLines>(); }
    void FixedNumberOfLines(std::int32_t vData) { write<&FrameRecord::FixedNumberOfLines>(vData); }

    // The line under `CurrentLineNumber`. In a frame without lines, properties read 0, "" or false and store
    // nothing. In any other frame, a cursor outside the lines is error 9.

    /// With a cursor outside frames or lines it reads "", and after the last line it stores nothing. Neither
    /// is an error.
    std::string CurrentLineText() const { return read<&LineRecord::CurrentLineText>(); }
    void CurrentLineText(const std::string& vData) { write<&LineRecord::CurrentLineText>(vData); }
    bool Scrolling() const { return read<&LineRecord::Scrolling>(); }
    void Scrolling(bool vData) { write<&LineRecord::Scrolling>(vData); }
    /// Font number (see `LineRecord`), under either name.
    std::int16_t LineFontSize() const { return read<&LineRecord::LineFontSize>(); }
    void LineFontSize(std::int16_t vData) { write<&LineRecord::LineFontSize>(vData); }
    std::int16_t CurrentLineFont() const { return readRow(kCurrentLineFont); }
    void CurrentLineFont(std::int16_t vData) { writeRow(kCurrentLineFont, vData); }
    // Untraced.
    bool Blinking() const { return read<&LineRecord::Blinking>(); }
    void Blinking(bool vData) { write<&LineRecord::Blinking>(vData); }
    bool Inverse() const { return read<&LineRecord::Inverse>(); }
    void Inverse(bool vData) { write<&LineRecord::Inverse>(vData); }
    bool Merge() const { return read<&LineRecord::Merge>(); }
    void Merge(bool vData) { write<&LineRecord::Merge>(vData); }
    /// File name of a custom font; empty for none.
    std::string LineCustomFont() const { return read<&LineRecord::LineCustomFont>(); }
    void LineCustomFont(const std::string& vData) { write<&LineRecord::LineCustomFont>(vData); }

    // Inserting, removing, moving and copying frames. Nothing here reads or sets `PlayFileHasChanged`.

    /// Inserts an empty frame at the cursor, which stays: the frame there and all frames after it move up by
    /// one. The new frame keeps the settings that `InitFrame` leaves alone. Pass true as `bLast` if the
    /// cursor is on the last frame: the new frame then becomes the last one, the cursor moves to it, and no
    /// other frame moves. If `bLast` is true but there is a frame after the cursor, that frame is emptied.
    /// `bLast` comes back true if the cursor is on the last frame but one. More than 32767 frames are error 6
    /// and change nothing. A cursor outside the frames is error 9, but a frame is added all the same: with a
    /// cursor below 1 it is a second copy of the first frame, otherwise an empty last frame.
    void InsertFrame(bool& bLast);
    void InsertFrame();
    /// Removes the frame at the cursor and sets the cursor to the one before. The only frame is emptied
    /// instead. A cursor outside the frames is error 9 and changes nothing.
    void DeleteCurrentFrame();
    /// Moves frame `From` to the place of frame `WhereTo`; the frames between them move by one. If the
    /// numbers are equal, nothing happens, even outside the frames. Otherwise a number outside the frames is
    /// error 9 and changes nothing.
    void MoveFrame(std::int16_t From, std::int16_t WhereTo);

    /// Puts a new playfile into `MyClipboard`, with copies of the frames from one number to the other. The
    /// numbers come back in rising order. If one of them is outside the frames, the new playfile has twenty
    /// empty frames. `Merge` and `FixedNumberOfLines` are not copied.
    void CopyInfo(std::int16_t& CopyFromY, std::int16_t& CopyToY,
                  std::shared_ptr<FrameInfoClass>& MyClipboard);
    /// Does the same, and then removes the frames as `DeleteCurrentFrame` does. Frames that could not be
    /// copied stay. The trace shows a call for each frame if a recorder listens, otherwise one call for all
    /// of them.
    void CutInfo(std::int16_t& CutFromY, std::int16_t& CutToY, std::shared_ptr<FrameInfoClass>& MyClipboard);
    /// Sets the cursor to `PasteTo` and puts copies of all frames of the clipboard there; the frames from
    /// `PasteTo` on move up. Copies that would get numbers above `TotalFramesAllowed` are left out. If fewer
    /// frames can be inserted than are copied, the remaining copies replace existing frames. Every insertion
    /// or copy at a place that does not exist is an error of its own. Uses the clipboard's cursors. A null
    /// clipboard does nothing. The trace shows each insertion if a recorder listens, otherwise none after the
    /// first one that succeeds.
    void PasteInfo(std::int16_t PasteTo, FrameInfoClass* MyClipboardInfo);

    /// `HasPreviousClone` of the playfile.
    bool IsThereAPreviousClone(std::int16_t iFrameNum) const;

    // Counts over all frames, by their kind.

    /// All but blank frames.
    std::int16_t HowManyUsedFramesAreThere() const;
    std::int16_t HowManyGraphicsAreThere() const;
    std::int16_t HowManyTextFramesAreThere() const;
    std::int16_t HowManyGraphicTextFramesAreThere() const;
    std::int16_t HowManyCommandFileFramesAreThere() const;
    /// `TotalDelaySeconds` of the playfile.
    std::int32_t WhatsTheTotalOfAllDelaysForThisFile() const;

    // What the playfile takes on a sign.

    /// Lines of the frame at the cursor that scroll. A cursor outside the frames is error 9.
    std::int16_t HowManyScrollingLinesInThisFrame() const;
    /// `CountDisplayFrames` of the playfile. A number beyond 16 bits is error 6.
    std::int16_t HowManyUsedDisplayFramesAreThere() const;
    /// Number of `CustomFontsOf` the playfile.
    std::int16_t HowManyCustomFontsAreThere() const;
    /// `SizeOfCustomFonts` of the playfile. A number beyond 32 bits is error 6.
    std::int32_t WhatsTheTotalSizeOfAllCustomFonts() const;
    /// Seconds that one pass through the playfile likely takes, loops run through; see `PlayTimeOf`. The size
    /// of the sign is `DisplayWidth` by `DisplayHeight`, or where one of them is not above 0, that of the
    /// preferences, which also have its speeds. A preference, a command or a value of "SignTiming.ini" that
    /// cannot be read is reported as a quiet error, and its default is used.
    double WhatsTheTotalPlayTime() const;

    // Effects.

    /// Names of effect codes, "" for a code without one.
    std::string ConvertPrefixCodeToString(std::int16_t code) const;
    std::string ConvertSuffixCodeToString(std::int16_t code) const;
    /// Codes of effect names, 0 for any other text. A loop's name never converts back: it is error 13,
    /// trapped.
    std::int16_t ConvertPrefixStringToCode(const std::string& CodeString) const;
    std::int16_t ConvertSuffixStringToCode(const std::string& CodeString) const;
    /// Fills the lists with the effects that are offered, each item's data being the code. A null list is
    /// skipped.
    void FillEffectList(ListControl* prefixList, ListControl* suffixList);
    /// If "NewEffects.ini" exists, offers the optional effects from now on and fills both pairs of lists; the
    /// second pair ends without its loop items. True only for the one call in the process that does so:
    /// what is offered is one atomic flag, which all objects and threads share.
    bool LoadNewEffectLists(ListControl* prefixList1, ListControl* suffixList1, ListControl* prefixList2,
                            ListControl* suffixList2);
    /// Fills the lists of a dialog, always without their loop items.
    void RefreshEffectLists(ListControl* prefixList, ListControl* suffixList);

    // The file.

    /// Loads the file over the frames, as `LoadPlayfileOver` does, and remembers its name. False if the file
    /// cannot be read to its end; what was read until then stays. A name ending in "PL2" is one of the older
    /// format: at most `TotalFramesAllowed` frames and one more are read, and then the operator is asked,
    /// unless suppressed, whether to go on. The answer "no" gives false, but the frames stay.
    bool GetPlayfileFromDisk(const std::string& sFileName);
    /// Saves all frames and remembers the name. Asks once, unless suppressed, whether files on drives that
    /// may go away are to be copied into the application's data folder. False if the file cannot be written:
    /// a message box has then informed the operator, and the existing file is unchanged.
    bool WritePlayfileToDisk(const std::string& sFileName);
    /// Exports all frames for other tools into `sFileName` + ".xml", and remembers the name without ".xml".
    /// False if the file cannot be written: a message box has then informed the operator, and the existing
    /// file is unchanged.
    bool WriteXMLToDisk(const std::string& sFileName);

    /// Number and description of the error of the last call, see `LastError`; 0 and "" if it had none.
    /// Untraced.
    std::int32_t LastErrorNumber() const { return lastError_.number(); }
    std::string LastErrorDescription() const { return lastError_.description(); }

private:
    friend struct LastErrorAccess;

    const FrameRecord& currentFrame() const { return playfile_.frames.at(currentFrameNumber_); }
    FrameRecord& currentFrame() { return playfile_.frames.at(currentFrameNumber_); }

    /// The line under the cursors; null if its property reads empty or is not stored. Any other cursor
    /// outside the lines is error 9.
    const LineRecord* lineToRead(Quirk quirk) const;
    LineRecord* lineToWrite(Quirk quirk);

    // How a property reaches its value: in this object, in the frame or in the line under the cursors.

    bool readUntraced(bool field) const {
        lastError_.begin();
        return field;
    }
    void writeUntraced(bool& field, bool vData) {
        lastError_.begin();
        field = vData;
    }
    template <class Type>
    Type readOwn(std::string_view name, const Type& field) const;
    template <class Type>
    void writeOwn(std::string_view name, Type& field, const Type& vData);

    /// Properties of one kind: those of a record that read a `Value` and are set to a `Given`. Plain ones are
    /// reached by a pointer to their member, others by the functions of their row.
    template <Access access, class Record, class Value, class Given, bool isPlain>
    struct Property {
        using Getter = std::conditional_t<isPlain, Value Record::*, Value (*)(const Record&)>;
        using Setter = std::conditional_t<isPlain, Value Record::*, void (*)(Record&, Given)>;
        static Value read(const FrameInfoClass& playfile, const MemberColumns& row, Getter get);
        /// `check`, if any, is called before the record is looked up. False after an error that was trapped.
        static bool write(FrameInfoClass& playfile, const MemberColumns& row, Setter set, Given vData,
                          void (*check)(Given) = nullptr);

    private:
        // The steps of `read` and `write`, for what the access is while they run.
        template <Access now>
        [[gnu::noinline]] static Value readAs(const FrameInfoClass& playfile, const MemberColumns& row,
                                              Getter get);
        template <Access now>
        [[gnu::noinline]] static bool writeAs(FrameInfoClass& playfile, const MemberColumns& row, Setter set,
                                              Given vData, void (*check)(Given));
    };
    template <class Row>
    using PropertyOf = Property<kMember<Row::member>.access, typename Row::Record, typename Row::Value,
                                typename Row::Given, Row::isPlain>;

    template <class Row>
    typename Row::Value readRow(const Row& row) const {
        if constexpr (Row::isPlain)
            return PropertyOf<Row>::read(*this, row, Row::member);
        else
            return PropertyOf<Row>::read(*this, row, &Row::get);
    }
    template <class Row>
    bool writeRow(const Row& row, typename Row::Given vData) {
        if constexpr (Row::isPlain)
            return PropertyOf<Row>::write(*this, row, Row::member, vData);
        else
            return PropertyOf<Row>::write(*this, row, &Row::set, vData, &Row::check);
    }
    template <auto member>
    typename RowOf<member>::Value read() const {
        return readRow(kMember<member>);
    }
    template <auto member>
    void write(typename RowOf<member>::Given vData) {
        writeRow(kMember<member>, vData);
    }

    // The bodies of public members, with whether all of their steps succeeded.

    bool resizeLines(std::int16_t vData);     ///< `TotalLinesAllowed`
    bool giveLines();                         ///< `MakeLineVarsValid`
    bool emptyFrame(std::int16_t LineToInit); ///< `InitFrame`
    bool insertFrame(bool& bLast);            ///< `InsertFrame`
    /// `CopyInfo`. False also for a number outside the frames.
    bool copyFrames(std::int16_t& CopyFromY, std::int16_t& CopyToY,
                    std::shared_ptr<FrameInfoClass>& MyClipboard);

    /// Makes the place for a new frame, which may still hold the content of the frame that moved away.
    void placeFrame(bool& bLast);
    /// Calls `InsertFrame` up to `count` times, but not beyond `TotalFramesAllowed`. Once a frame has been
    /// inserted without an error, the others are copies of it, all inserted in one step unless steps are
    /// counted.
    void insertFrames(std::int32_t count);
    bool fillClipboard(std::int16_t& first, std::int16_t& last, std::shared_ptr<FrameInfoClass>& clipboard);
    bool PutInfoFromFrameIntoVariable(std::int32_t FrameNum, std::int32_t VarFrameNum,
                                      FrameInfoClass* VarToPlaceIn);
    void PutInfoFromVariableIntoFrame(std::int32_t FrameNum, std::int32_t VarFrameNum,
                                      FrameInfoClass* VarToPlaceIn);
    /// Sets what copies of frames take along through the properties of `other`. `own()` returns the record
    /// that is read.
    template <class Own>
    static bool copyToOther(Own own, FrameInfoClass& other);
    template <class Own>
    static void copyFromOther(Own own, const FrameInfoClass& other);
    std::int16_t countFrames(std::string_view name, NEW_FRAME_TYPES kind) const;

    /// Has `MakeLineVarsValid` look again at the frames from `number` on.
    void checkLinesFrom(std::int32_t number);
    bool GetLegacyPlayfileFromDisk(const std::string& sFileName);
    /// Loads the file over the frames. Throws an error if the file cannot be read to its end.
    LoadOutcome load(const std::string& sFileName);

    Playfile playfile_;
    /// All frames before this number have lines, so that growing one by one need not look at them again.
    std::int32_t firstFrameToCheck_ = 1;
    std::int16_t currentFrameNumber_ = 0;
    std::int16_t currentLineNumber_ = 0;
    std::int16_t displayWidth_ = 0;
    std::int16_t displayHeight_ = 0;
    std::int16_t totalFramesAllowed_ = 0;
    bool playFileHasChanged_ = false;
    bool suppressMessages_ = false;
    mutable LastError lastError_;
};

} // namespace qrtVistrelClasses4
