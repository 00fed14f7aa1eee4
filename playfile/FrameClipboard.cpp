// Copying frames into and out of a clipboard, which is a playfile of its own.
#include "frame/Conversions.h"
#include "frame/Traced.h"
#include "playfile/FrameProcedures.h"
#include "playfile/MemberOrder.h"
#include <qrtVistrelClasses4/FrameInfoClass.h>

#include <type_traits>
#include <utility>

namespace qrtVistrelClasses4 {
namespace {

/// Keeps a playfile that is its own clipboard alive until its frames have been copied.
std::shared_ptr<FrameInfoClass> keepAlive(const FrameInfoClass* playfile,
                                          const std::shared_ptr<FrameInfoClass>& clipboard) {
    return clipboard.get() == playfile ? clipboard : nullptr;
}

} // namespace

// `own()` returns the record of this playfile. It is called again for every property: properties of the other
// playfile report their errors, and the host may change any playfile while it receives a report.

template <class Own>
bool FrameInfoClass::copyToOther(Own own, FrameInfoClass& other) {
    using Record = std::remove_cvref_t<decltype(own())>;
    bool isCopied = true;
    ForEachPlacedRow<kMembersOf<Record>, ClipboardOrder>([&](const auto& row) {
        using Given = typename std::remove_cvref_t<decltype(row)>::Given;
        if (row.quirk != Quirk::outOfClipboardOnly)
            isCopied = other.writeRow(row, static_cast<Given>(row.get(own()))) && isCopied;
    });
    return isCopied;
}
template <class Own>
void FrameInfoClass::copyFromOther(Own own, const FrameInfoClass& other) {
    using Record = std::remove_cvref_t<decltype(own())>;
    ForEachPlacedRow<kMembersOf<Record>, ClipboardOrder>([&](const auto& row) {
        using Given = typename std::remove_cvref_t<decltype(row)>::Given;
        const auto value = other.readRow(row);
        row.set(own(), static_cast<Given>(value));
    });
}

void FrameInfoClass::CopyInfo(std::int16_t& CopyFromY, std::int16_t& CopyToY,
                              std::shared_ptr<FrameInfoClass>& MyClipboard) {
    (void)copyFrames(CopyFromY, CopyToY, MyClipboard);
}

bool FrameInfoClass::copyFrames(std::int16_t& CopyFromY, std::int16_t& CopyToY,
                                std::shared_ptr<FrameInfoClass>& MyClipboard) {
    return traced(
        {lastError_, FrameSub("CopyInfo")}, [&] { return fillClipboard(CopyFromY, CopyToY, MyClipboard); },
        Arg{"CopyFromY", CopyFromY}, Arg{"CopyToY", CopyToY}, Arg{"MyClipboard", MyClipboard});
}

bool FrameInfoClass::fillClipboard(std::int16_t& first, std::int16_t& last,
                                   std::shared_ptr<FrameInfoClass>& clipboard) {
    const std::shared_ptr<FrameInfoClass> alive = keepAlive(this, clipboard);
    clipboard.reset();
    const auto copies = std::make_shared<FrameInfoClass>();
    clipboard = copies;
    if (first > last)
        std::swap(first, last);
    if (first < 1 || last > playfile_.frames.upperBound())
        return false;
    copies->TotalFrames(NarrowToInt16(last - first + 1));
    bool areCopied = true;
    for (std::int32_t number = first; number <= last; ++number)
        areCopied = PutInfoFromFrameIntoVariable(number, number - first + 1, copies.get()) && areCopied;
    return areCopied;
}

void FrameInfoClass::CutInfo(std::int16_t& CutFromY, std::int16_t& CutToY,
                             std::shared_ptr<FrameInfoClass>& MyClipboard) {
    traced(
        {lastError_, FrameSub("CutInfo")},
        [&] {
            const std::shared_ptr<FrameInfoClass> alive = keepAlive(this, MyClipboard);
            if (!copyFrames(CutFromY, CutToY, MyClipboard))
                return;
            std::int32_t left = CutToY - CutFromY + 1;
            if (!StepsAreCounted()) { // all but one at once, since each moves the frames after it
                playfile_.frames.erase(CutFromY + 1, CutToY);
                left = 1;
            }
            for (; left > 0; --left) {
                CurrentFrame(CutFromY);
                DeleteCurrentFrame();
            }
        },
        Arg{"CutFromY", CutFromY}, Arg{"CutToY", CutToY}, Arg{"MyClipboard", MyClipboard});
}

void FrameInfoClass::PasteInfo(std::int16_t PasteTo, FrameInfoClass* MyClipboardInfo) {
    traced(
        {lastError_, FrameSub("PasteInfo")},
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

bool FrameInfoClass::PutInfoFromFrameIntoVariable(std::int32_t FrameNum, std::int32_t VarFrameNum,
                                                  FrameInfoClass* VarToPlaceIn) {
    return traced(
        {lastError_, FrameSub("PutInfoFromFrameIntoVariable")},
        [&] {
            const auto frame = [&]() -> const FrameRecord& { return playfile_.frames.at(FrameNum); };
            VarToPlaceIn->CurrentFrame(NarrowToInt16(VarFrameNum));
            bool isCopied = copyToOther(frame, *VarToPlaceIn);
            isCopied = VarToPlaceIn->resizeLines(NarrowToInt16(frame().lines.upperBound())) && isCopied;
            for (std::int32_t number = 1; number <= frame().lines.upperBound(); ++number) {
                VarToPlaceIn->CurrentLineNumber(NarrowToInt16(number));
                const auto line = [&]() -> const LineRecord& { return frame().lines.at(number); };
                isCopied = copyToOther(line, *VarToPlaceIn) && isCopied;
            }
            return isCopied;
        },
        Arg{"FrameNum", FrameNum}, Arg{"VarFrameNum", VarFrameNum}, Arg{"VarToPlaceIn", VarToPlaceIn});
}

void FrameInfoClass::PutInfoFromVariableIntoFrame(std::int32_t FrameNum, std::int32_t VarFrameNum,
                                                  FrameInfoClass* VarToPlaceIn) {
    traced(
        {lastError_, FrameSub("PutInfoFromVariableIntoFrame")},
        [&] {
            const auto frame = [&]() -> FrameRecord& { return playfile_.frames.at(FrameNum); };
            VarToPlaceIn->CurrentFrame(NarrowToInt16(VarFrameNum));
            copyFromOther(frame, *VarToPlaceIn);
            const std::int16_t lineCount = VarToPlaceIn->TotalLinesAllowed();
            frame().lines.resize(lineCount);
            if (lineCount == 0)
                checkLinesFrom(FrameNum);
            for (std::int32_t number = 1; number <= frame().lines.upperBound(); ++number) {
                VarToPlaceIn->CurrentLineNumber(NarrowToInt16(number));
                const auto line = [&]() -> LineRecord& { return frame().lines.at(number); };
                copyFromOther(line, *VarToPlaceIn);
            }
        },
        Arg{"FrameNum", FrameNum}, Arg{"VarFrameNum", VarFrameNum}, Arg{"VarToPlaceIn", VarToPlaceIn});
}

bool FrameInfoClass::IsThereAPreviousClone(std::int16_t iFrameNum) const {
    return traced(
        {lastError_, FrameFunction("IsThereAPreviousClone")},
        [&] { return iFrameNum <= TotalFrames() && HasPreviousClone(playfile_, iFrameNum); },
        Arg{"iFrameNum", iFrameNum});
}

} // namespace qrtVistrelClasses4
