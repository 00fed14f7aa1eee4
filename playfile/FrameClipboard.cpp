// Frames are copied: into and out of a clipboard, which is a playfile of its own.
#include "frame/Traced.h"
#include "playfile/FrameInfoClass.h"
#include "playfile/FrameProcedures.h"
#include "playfile/FrameRules.h"

#include <algorithm>
#include <tuple>
#include <utility>

namespace qrtVistrelClasses4 {
namespace {

/// How a property of an own frame is reached, whatever the cursors, where it is not just a member.
template <class Value, class Record, class Given>
struct Rule {
    Value (*get)(const Record&);
    void (*set)(Record&, Given);
};

template <class Value, class Record, class Given>
Rule(Value (*)(const Record&), void (*)(Record&, Given)) -> Rule<Value, Record, Given>;

/// A property that copies take along: of the other playfile, and of an own record.
template <class Value, class Given, class Own>
struct Carried {
    Value (FrameInfoClass::*get)();
    void (FrameInfoClass::*set)(Given);
    Own own;
};
template <class Value, class Given, class Own>
Carried(Value (FrameInfoClass::*)(), void (FrameInfoClass::*)(Given), Own) -> Carried<Value, Given, Own>;

using Playfile = FrameInfoClass;

template <std::int16_t FrameRecord::*member>
std::int16_t stored(const FrameRecord& frame) {
    return frame.*member;
}

/// In the order that they are set in. The codes stand in the order that keeps a coupled pair together.
constexpr std::tuple kCarriedByFrames{
    Carried{&Playfile::commandfile, &Playfile::commandfile, &FrameRecord::commandfile},
    Carried{&Playfile::TotalDisplayFramesUsedForThisFrame, &Playfile::TotalDisplayFramesUsedForThisFrame,
            &FrameRecord::TotalDisplayFramesUsedForThisFrame},
    Carried{&Playfile::DelayTime, &Playfile::DelayTime, &FrameRecord::DelayTime},
    Carried{&Playfile::FontHeight, &Playfile::FontHeight, &FrameRecord::FontHeight},
    Carried{&Playfile::FontWidth, &Playfile::FontWidth, &FrameRecord::FontWidth},
    Carried{&Playfile::FrameName, &Playfile::FrameName, &FrameRecord::FrameName},
    Carried{&Playfile::FrameType, &Playfile::FrameType, Rule{&FrameTypeOf, &SetFrameType}},
    Carried{&Playfile::PicturefileName, &Playfile::PicturefileName, &FrameRecord::PicturefileName},
    Carried{&Playfile::PictureFileDisplay, &Playfile::PictureFileDisplay, &FrameRecord::PictureFileDisplay},
    Carried{&Playfile::PictureFileType, &Playfile::PictureFileType, &FrameRecord::PictureFileType},
    Carried{&Playfile::PrefixCode, &Playfile::PrefixCode,
            Rule{&stored<&FrameRecord::PrefixCode>, &SetPrefixCode}},
    Carried{&Playfile::SuffixCode, &Playfile::SuffixCode,
            Rule{&stored<&FrameRecord::SuffixCode>, &SetSuffixCode}},
    Carried{&Playfile::OverlayFrame, &Playfile::OverlayFrame, Rule{&IsOverlay, &SetOverlay}},
    Carried{&Playfile::AudioFile, &Playfile::AudioFile, &FrameRecord::AudioFile},
    Carried{&Playfile::RowHeightForGrid, &Playfile::RowHeightForGrid, &FrameRecord::RowHeightForGrid},
    Carried{&Playfile::SendCommandFileAsIs, &Playfile::SendCommandFileAsIs,
            Rule{&stored<&FrameRecord::SendCommandFileAsIs>, &SetSendCommandFileAsIs}},
    Carried{&Playfile::AVIFrames, &Playfile::AVIFrames, &FrameRecord::AVIFrames},
    Carried{&Playfile::FastScroll, &Playfile::FastScroll, Rule{&ScrollsFast, &SetScrollsFast}},
    Carried{&Playfile::WinBackColor, &Playfile::WinBackColor, &FrameRecord::WinBackColor},
};

/// `Merge` is carried out of a clipboard only, so that it is lost on the way through one.
constexpr std::tuple kCarriedByLines{
    Carried{&Playfile::CurrentLineText, &Playfile::CurrentLineText, &LineRecord::CurrentLineText},
    Carried{&Playfile::Scrolling, &Playfile::Scrolling, &LineRecord::Scrolling},
    Carried{&Playfile::LineFontSize, &Playfile::LineFontSize, &LineRecord::LineFontSize},
    Carried{&Playfile::LineCustomFont, &Playfile::LineCustomFont, &LineRecord::LineCustomFont},
    Carried{&Playfile::Blinking, &Playfile::Blinking, &LineRecord::Blinking},
    Carried{&Playfile::Inverse, &Playfile::Inverse, &LineRecord::Inverse},
};

template <class Record, class Value>
Value getOwn(const Record& own, Value Record::*member) {
    return own.*member;
}
template <class Record, class Value, class Given>
Value getOwn(const Record& own, Rule<Value, Record, Given> rule) {
    return rule.get(own);
}
template <class Record, class Value>
void setOwn(Record& own, Value Record::*member, Value&& value) {
    own.*member = std::forward<Value>(value);
}
template <class Record, class Value, class Given>
void setOwn(Record& own, Rule<Value, Record, Given> rule, Value value) {
    rule.set(own, static_cast<Given>(value));
}

// `own()` is the own record. It is looked up for every property, because properties of the other playfile
// report their errors, and the host may change any playfile meanwhile.

template <class Own, class Properties>
void copyToOther(Own own, FrameInfoClass& other, const Properties& properties) {
    std::apply([&](const auto&... each) { ((other.*each.set)(getOwn(own(), each.own)), ...); }, properties);
}
template <class Own, class Properties>
void copyFromOther(Own own, FrameInfoClass& other, const Properties& properties) {
    const auto copy = [&](const auto& each) {
        auto value = (other.*each.get)();
        setOwn(own(), each.own, std::move(value));
    };
    std::apply([&](const auto&... each) { (copy(each), ...); }, properties);
}

/// Keeps a playfile that is its own clipboard alive until its frames have been copied.
std::shared_ptr<FrameInfoClass> keepAlive(const FrameInfoClass* playfile,
                                          const std::shared_ptr<FrameInfoClass>& clipboard) {
    return clipboard.get() == playfile ? clipboard : nullptr;
}

} // namespace

void FrameInfoClass::CopyInfo(std::int16_t& CopyFromY, std::int16_t& CopyToY,
                              std::shared_ptr<FrameInfoClass>& MyClipboard) {
    traced(
        FrameSub("CopyInfo"), [&] { copyFrames(CopyFromY, CopyToY, MyClipboard); },
        Arg{"CopyFromY", CopyFromY}, Arg{"CopyToY", CopyToY}, Arg{"MyClipboard", MyClipboard});
}

void FrameInfoClass::copyFrames(std::int16_t& first, std::int16_t& last,
                                std::shared_ptr<FrameInfoClass>& clipboard) {
    const std::shared_ptr<FrameInfoClass> alive = keepAlive(this, clipboard);
    clipboard.reset();
    const auto copies = std::make_shared<FrameInfoClass>();
    clipboard = copies;
    if (first > last)
        std::swap(first, last);
    if (first < 1 || last > frames_.upperBound())
        return;
    copies->TotalFrames(NarrowToInt16(last - first + 1));
    for (std::int32_t number = first; number <= last; ++number)
        PutInfoFromFrameIntoVariable(number, number - first + 1, copies.get());
}

void FrameInfoClass::CutInfo(std::int16_t& CutFromY, std::int16_t& CutToY,
                             std::shared_ptr<FrameInfoClass>& MyClipboard) {
    traced(
        FrameSub("CutInfo"),
        [&] {
            const std::shared_ptr<FrameInfoClass> alive = keepAlive(this, MyClipboard);
            const std::uint64_t errorsBefore = TrappedErrors();
            CopyInfo(CutFromY, CutToY, MyClipboard);
            if (TrappedErrors() != errorsBefore || CutFromY < 1 || CutToY > frames_.upperBound())
                return;
            frames_.erase(CutFromY + 1, CutToY); // all but one at once, since each moves the frames behind
            CurrentFrame(CutFromY);
            DeleteCurrentFrame();
        },
        Arg{"CutFromY", CutFromY}, Arg{"CutToY", CutToY}, Arg{"MyClipboard", MyClipboard});
}

void FrameInfoClass::PasteInfo(std::int16_t PasteTo, FrameInfoClass* MyClipboardInfo) {
    traced(
        FrameSub("PasteInfo"),
        [&] {
            if (!MyClipboardInfo)
                return;
            CurrentFrame(PasteTo);
            std::int32_t count = MyClipboardInfo->TotalFrames();
            insertFrames(count);
            if (PasteTo + count > totalFramesAllowed_)
                count = totalFramesAllowed_ - PasteTo + 1;
            for (std::int32_t number = PasteTo; number < PasteTo + count; ++number)
                PutInfoFromVariableIntoFrame(number, number - PasteTo + 1, MyClipboardInfo);
        },
        Arg{"PasteTo", PasteTo}, Arg{"MyClipboardInfo", MyClipboardInfo});
}

void FrameInfoClass::PutInfoFromFrameIntoVariable(std::int32_t FrameNum, std::int32_t VarFrameNum,
                                                  FrameInfoClass* VarToPlaceIn) {
    traced(
        FrameSub("PutInfoFromFrameIntoVariable"),
        [&] {
            const auto frame = [&]() -> const FrameRecord& { return frames_.at(FrameNum); };
            (void)frame(); // before the other playfile is touched
            VarToPlaceIn->CurrentFrame(NarrowToInt16(VarFrameNum));
            copyToOther(frame, *VarToPlaceIn, kCarriedByFrames);
            VarToPlaceIn->TotalLinesAllowed(NarrowToInt16(frame().lines.upperBound()));
            for (std::int32_t number = 1; number <= frame().lines.upperBound(); ++number) {
                VarToPlaceIn->CurrentLineNumber(NarrowToInt16(number));
                const auto line = [&]() -> const LineRecord& { return frame().lines.at(number); };
                copyToOther(line, *VarToPlaceIn, kCarriedByLines);
            }
        },
        Arg{"FrameNum", FrameNum}, Arg{"VarFrameNum", VarFrameNum}, Arg{"VarToPlaceIn", VarToPlaceIn});
}

void FrameInfoClass::PutInfoFromVariableIntoFrame(std::int32_t FrameNum, std::int32_t VarFrameNum,
                                                  FrameInfoClass* VarToPlaceIn) {
    traced(
        FrameSub("PutInfoFromVariableIntoFrame"),
        [&] {
            const auto frame = [&]() -> FrameRecord& { return frames_.at(FrameNum); };
            (void)frame(); // before the other playfile is touched
            VarToPlaceIn->CurrentFrame(NarrowToInt16(VarFrameNum));
            copyFromOther(frame, *VarToPlaceIn, kCarriedByFrames);
            const std::int16_t lineCount = VarToPlaceIn->TotalLinesAllowed();
            frame().lines.resize(lineCount);
            if (lineCount == 0)
                checkLinesFrom(FrameNum);
            for (std::int32_t number = 1; number <= frame().lines.upperBound(); ++number) {
                VarToPlaceIn->CurrentLineNumber(NarrowToInt16(number));
                const auto line = [&]() -> LineRecord& { return frame().lines.at(number); };
                copyFromOther(line, *VarToPlaceIn, kCarriedByLines);
                line().Merge = VarToPlaceIn->Merge(); // which is read first
            }
        },
        Arg{"FrameNum", FrameNum}, Arg{"VarFrameNum", VarFrameNum}, Arg{"VarToPlaceIn", VarToPlaceIn});
}

bool FrameInfoClass::IsThereAPreviousClone(std::int16_t iFrameNum) {
    return traced(
        FrameFunction("IsThereAPreviousClone"),
        [&] {
            if (iFrameNum > TotalFrames() || iFrameNum < 2)
                return false;
            const FrameRecord& frame = frames_.at(iFrameNum);
            const auto showsSamePicture = [&](const FrameRecord& earlier) {
                return !earlier.PicturefileName.empty() && earlier.PicturefileName == frame.PicturefileName &&
                       earlier.PictureFileDisplay == frame.PictureFileDisplay &&
                       (frame.PrefixCode == kPhotoRealistic || earlier.PrefixCode != kPhotoRealistic);
            };
            const auto sendsSameFile = [&](const FrameRecord& earlier) {
                return !earlier.commandfile.empty() && earlier.commandfile == frame.commandfile;
            };
            return std::any_of(frames_.begin(), frames_.begin() + (iFrameNum - 1),
                               [&](const FrameRecord& earlier) {
                                   return showsSamePicture(earlier) || sendsSameFile(earlier);
                               });
        },
        Arg{"iFrameNum", iFrameNum});
}

} // namespace qrtVistrelClasses4
