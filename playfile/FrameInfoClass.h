// One playfile: its frames and lines, read and written through cursors.
#pragma once

#include "frame/CallTrace.h"
#include "playfile/FrameRecord.h"
#include "playfile/FrameTypes.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace qrtVistrelClasses4 {

class ListControl;

/// The frames of one playfile and the two cursors that its properties address. Frame and line numbers start
/// at 1. Texts are 8-bit characters of the ANSI code page, passed through unchanged. One thread at a time.
///
/// Traced members trap their errors: the error is reported, and the result is 0, "" or false. Members marked
/// "untraced" throw `RuntimeError` to their caller instead. Either way a property that fails leaves the
/// playfile as it was.
class FrameInfoClass {
public:
    /// Twenty empty frames of one line each, no current frame.
    FrameInfoClass();
    ~FrameInfoClass();
    FrameInfoClass(const FrameInfoClass&) = delete;
    FrameInfoClass& operator=(const FrameInfoClass&) = delete;

    static constexpr std::string_view ClassName() { return "FrameInfoClass"; }

    // The playfile.

    /// Always 0: playfiles draw no identity number.
    std::int32_t ClassDebugID() const { return 0; }
    /// Number of the frame that frame and line properties address. Any value is kept; it is checked when
    /// used.
    std::int16_t CurrentFrame();
    void CurrentFrame(std::int16_t vData);
    /// Number of the line, within the current frame, that line properties address. Checked when used.
    std::int16_t CurrentLineNumber();
    void CurrentLineNumber(std::int16_t vData);
    /// Size of the sign in pixels.
    std::int16_t DisplayWidth();
    void DisplayWidth(std::int16_t vData);
    std::int16_t DisplayHeight();
    void DisplayHeight(std::int16_t vData);
    /// Path of the playfile.
    std::string CurrentFileName();
    void CurrentFileName(const std::string& vData);
    /// The most frames that the playfile may have. Only pasting looks at it.
    std::int16_t TotalFramesAllowed();
    void TotalFramesAllowed(std::int16_t vData);
    /// Whether there are unsaved changes; kept by the application. Untraced.
    bool PlayFileHasChanged();
    void PlayFileHasChanged(bool vData);
    /// Whether the playfile came from the older format. Untraced.
    bool IsLegacy() const { return isLegacy_; }
    /// With true, questions are not asked. Failures are shown all the same. Untraced.
    void SetSuppressMessages(bool bNewValue);

    /// Number of the last frame. Setting it keeps the frames up to the new number, gives each new frame one
    /// empty line, and is error 9 when negative.
    std::int16_t TotalFrames();
    void TotalFrames(std::int16_t vData);
    /// Gives every frame that has no lines one empty line.
    void MakeLineVarsValid();
    /// Empties the name, files, kind, delay, effects and lines of frame number `LineToInit`; other fields
    /// stay.
    void InitFrame(std::int16_t LineToInit);

    // The frame under `CurrentFrame`. Outside the frames: error 9.

    std::string FrameName();
    void FrameName(const std::string& vData);
    /// A number of `NEW_FRAME_TYPES` under this type's name; see `FrameTypes.h`. Beyond 16 bits: error 6.
    FRAME_TYPES FrameType();
    void FrameType(FRAME_TYPES vData);
    /// Appear effect. 9999 is only ever held together with the disappear effect 9999.
    std::int16_t PrefixCode();
    void PrefixCode(std::int16_t vData);
    /// Disappear effect, coupled the same way.
    std::int16_t SuffixCode();
    void SuffixCode(std::int16_t vData);
    /// Seconds that the frame stays on the sign. Infinity, or no number at all, is error 6.
    double DelayTime();
    void DelayTime(double vData);
    std::string PicturefileName();
    void PicturefileName(const std::string& vData);
    std::string commandfile();
    void commandfile(const std::string& vData);
    std::int16_t PictureFileType();
    void PictureFileType(std::int16_t vData);
    std::int16_t PictureFileDisplay();
    void PictureFileDisplay(std::int16_t vData);
    std::int16_t FontWidth();
    void FontWidth(std::int16_t vData);
    std::int16_t FontHeight();
    void FontHeight(std::int16_t vData);
    std::int16_t TotalDisplayFramesUsedForThisFrame();
    void TotalDisplayFramesUsedForThisFrame(std::int16_t vData);
    /// Number of the frame's last line. Setting it keeps the lines up to the new number; negative is error 9.
    std::int16_t TotalLinesAllowed();
    void TotalLinesAllowed(std::int16_t vData);

    // Untraced.
    std::int16_t RowHeightForGrid();
    void RowHeightForGrid(std::int16_t vData);
    /// Reads the stored number: 1 for true.
    std::int16_t SendCommandFileAsIs();
    void SendCommandFileAsIs(bool vData);
    /// Stores 1 for true; any stored number but 0 reads as true.
    bool OverlayFrame();
    void OverlayFrame(bool vData);
    std::int16_t AVIFrames();
    void AVIFrames(std::int16_t vData);
    /// Stores 1 for true; only a stored 1 reads as true.
    bool FastScroll();
    void FastScroll(bool vData);
    std::string AudioFile();
    void AudioFile(const std::string& vData);
    std::int32_t WinBackColor();
    void WinBackColor(std::int32_t vData);
    /// Reading a stored number beyond 16 bits is error 6.
    std::int16_t FixedNumberOfLines();
    void FixedNumberOfLines(std::int32_t vData);

    // The line under `CurrentLineNumber`. A frame without lines reads 0, "" or false and stores nothing; else
    // outside the lines: error 9.

    /// Outside frames or lines it reads "", and behind the last line it stores nothing, without an error.
    std::string CurrentLineText();
    void CurrentLineText(const std::string& vData);
    bool Scrolling();
    void Scrolling(bool vData);
    /// Font number, under either name.
    std::int16_t LineFontSize();
    void LineFontSize(std::int16_t vData);
    std::int16_t CurrentLineFont();
    void CurrentLineFont(std::int16_t vData);
    // Untraced.
    bool Blinking();
    void Blinking(bool vData);
    bool Inverse();
    void Inverse(bool vData);
    bool Merge();
    void Merge(bool vData);
    /// File name of a custom font; empty for none.
    std::string LineCustomFont();
    void LineCustomFont(const std::string& vData);

    // Frames in other places. Nothing here looks at `PlayFileHasChanged`.

    /// Makes room for an empty frame at the cursor, which stays: the frame there and those behind it move up
    /// by one. The new frame keeps the settings that `InitFrame` leaves alone. With `bLast`, which belongs to
    /// a cursor on the last frame, the cursor goes to the next frame instead, and no frame moves; were there
    /// a frame behind the cursor, it would be emptied. `bLast` comes back true when the cursor is on the last
    /// frame but one. More than 32767 frames are error 6 and change nothing. A cursor outside the frames is
    /// error 9 as well as a frame more: below 1 the first frame is there twice then, else an empty one is
    /// last.
    void InsertFrame(bool& bLast);
    void InsertFrame();
    /// Takes out the frame at the cursor, and sets the cursor to the one before. The only frame is emptied
    /// instead. A cursor outside the frames is error 9 and changes nothing.
    void DeleteCurrentFrame();
    /// Moves frame `From` to the place of frame `WhereTo`; those between close up. Equal numbers do nothing,
    /// whatever they are; else a number outside the frames is error 9 and changes nothing.
    void MoveFrame(std::int16_t From, std::int16_t WhereTo);

    /// Puts a new playfile into `MyClipboard`, with copies of the frames between the two numbers, which come
    /// back in rising order. With one of them outside the frames the new playfile has its twenty empty
    /// frames. `Merge` and `FixedNumberOfLines` are not copied.
    void CopyInfo(std::int16_t& CopyFromY, std::int16_t& CopyToY,
                  std::shared_ptr<FrameInfoClass>& MyClipboard);
    /// The same, and takes the frames out, as `DeleteCurrentFrame` does one by one, though on the trace it
    /// does so once for all. They stay when they could not be copied.
    void CutInfo(std::int16_t& CutFromY, std::int16_t& CutToY, std::shared_ptr<FrameInfoClass>& MyClipboard);
    /// Sets the cursor to `PasteTo` and puts copies of all frames of the clipboard there; the frames from
    /// `PasteTo` on move up. What would pass `TotalFramesAllowed` is left out, but when nothing more can be
    /// inserted the copies replace the frames that are there. Every insertion and every copy that does not
    /// find its place is an error of its own. Uses the clipboard's cursors. A null clipboard does nothing.
    /// The trace shows the first insertion that finds its place, which stands for those behind it.
    void PasteInfo(std::int16_t PasteTo, FrameInfoClass* MyClipboardInfo);

    /// Whether a frame before this one shows the same picture in the same way, or sends the same command
    /// file, so that the sign needs no second copy of the file. Names are compared exactly.
    bool IsThereAPreviousClone(std::int16_t iFrameNum);

    // Counts over all frames, by their kind.

    /// All but blank frames.
    std::int16_t HowManyUsedFramesAreThere();
    std::int16_t HowManyGraphicsAreThere();
    std::int16_t HowManyTextFramesAreThere();
    std::int16_t HowManyGraphicTextFramesAreThere();
    std::int16_t HowManyCommandFileFramesAreThere();
    /// Seconds of all but blank frames, rounded after each frame, halves to the even number: delays of 0.5
    /// never add up. Beyond 32 bits: error 6.
    std::int32_t WhatsTheTotalOfAllDelaysForThisFile();

    // Effects.

    /// Names of effect codes, "" for a code without one.
    std::string ConvertPrefixCodeToString(std::int16_t code);
    std::string ConvertSuffixCodeToString(std::int16_t code);
    /// Codes of effect names, 0 for any other text. A loop's name never converts back: it is error 13,
    /// trapped.
    std::int16_t ConvertPrefixStringToCode(const std::string& CodeString);
    std::int16_t ConvertSuffixStringToCode(const std::string& CodeString);
    /// Fills the lists with the effects that are offered, each item's data being the code. A null list is
    /// skipped.
    void FillEffectList(ListControl* prefixList, ListControl* suffixList);
    /// Offers the optional effects from now on, when "NewEffects.ini" exists, and fills both pairs of lists;
    /// the second pair ends without its loop items. True only for the one call of the process that did so.
    bool LoadNewEffectLists(ListControl* prefixList1, ListControl* suffixList1, ListControl* prefixList2,
                            ListControl* suffixList2);
    /// Fills the lists of a dialog, in every case without their loop items.
    void RefreshEffectLists(ListControl* prefixList, ListControl* suffixList);

    // The file.

    /// Fills the frames from the file, resized to its number, and remembers its name. Missing picture and
    /// command files are looked for beside the playfile. False when the file cannot be read to its end; the
    /// frames read until then stay. A name ending in "PL2" is one of the older format: its frames are
    /// converted, as far as `TotalFramesAllowed` and one more, and then the operator is asked, unless
    /// suppressed, whether to go on; false for no, too, but the frames stay.
    bool GetPlayfileFromDisk(const std::string& sFileName);
    /// Saves all frames and remembers the name. Asks once, unless suppressed, whether files on drives that
    /// may go away are to be copied into the application's data folder. False after telling the operator that
    /// the file cannot be written; the file that was there then stays as it was.
    bool WritePlayfileToDisk(const std::string& sFileName);
    /// Exports all frames for other tools into `sFileName` + ".xml", and remembers the name without ".xml".
    /// False after telling the operator that the file cannot be written; the file that was there then stays
    /// as it was.
    bool WriteXMLToDisk(const std::string& sFileName);

private:
    FrameRecord& currentFrame() { return frames_.at(currentFrameNumber_); }
    bool hasLines() { return !currentFrame().lines.empty(); }
    LineRecord& currentLine() { return currentFrame().lines.at(currentLineNumber_); }

    template <class Value>
    Value readObject(std::string_view name, const Value& field);
    template <class Value>
    void writeObject(std::string_view name, Value& field, const Value& vData);
    template <class Value>
    Value readFrame(std::string_view name, Value FrameRecord::*member);
    template <class Value>
    void writeFrame(std::string_view name, Value FrameRecord::*member, const Value& vData);
    template <class Value>
    Value readLine(Value LineRecord::*member);
    template <class Value>
    void writeLine(Value LineRecord::*member, const Value& vData);

    void insertFrame(bool& bLast);
    /// Runs `InsertFrame` so often, but not beyond `TotalFramesAllowed`. The frames behind the first one that
    /// finds its place without an error are equal to it, and inserted at once: each moves the frames behind.
    void insertFrames(std::int32_t count);
    void copyFrames(std::int16_t& first, std::int16_t& last, std::shared_ptr<FrameInfoClass>& clipboard);
    void PutInfoFromFrameIntoVariable(std::int32_t FrameNum, std::int32_t VarFrameNum,
                                      FrameInfoClass* VarToPlaceIn);
    void PutInfoFromVariableIntoFrame(std::int32_t FrameNum, std::int32_t VarFrameNum,
                                      FrameInfoClass* VarToPlaceIn);
    template <class Counts>
    std::int16_t countFrames(std::string_view name, Counts counts);

    void resizeFrames(std::int32_t count);
    /// Has `MakeLineVarsValid` look again at the frames from `number` on.
    void checkLinesFrom(std::int32_t number);
    void writeXml(const std::string& path);
    void readPlayfile(const std::string& sFileName);
    bool GetLegacyPlayfileFromDisk(const std::string& sFileName);
    /// False when the file is not of the older format; the frames then stay as they were.
    bool readLegacyPlayfile(const std::string& sFileName);
    void writePlayfile(const std::string& sFileName);

    OneBasedArray<FrameRecord> frames_;
    /// All frames before this number have lines, so that growing one by one need not look at them again.
    std::int32_t firstFrameToCheck_ = 1;
    std::int16_t currentFrameNumber_ = 0;
    std::int16_t currentLineNumber_ = 0;
    std::int16_t displayWidth_ = 0;
    std::int16_t displayHeight_ = 0;
    std::int16_t totalFramesAllowed_ = 0;
    std::string currentFileName_;
    bool playFileHasChanged_ = false;
    bool isLegacy_ = false;
    bool suppressMessages_ = false;
};

} // namespace qrtVistrelClasses4
