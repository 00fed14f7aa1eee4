#include "preview/PictureMember.h"

#include "frame/LastErrorAccess.h"
#include "frame/SystemErrors.h"
#include "frame/Traced.h"
#include "platform/CodePage.h"
#include "playfile/FrameProcedures.h"
#include "preview/FaultText.h"
#include <qrtVistrelClasses4/DisplayRecord.h>
#include <qrtVistrelClasses4/FrameInfoClass.h>
#include <qrtVistrelClasses4/FramePicture.h>

namespace qrtVistrelClasses4 {
namespace {

/// Reports a fault in the picture of frame `number`, without a box.
void reportFault(const PreviewFault& fault, std::int16_t number) {
    const RuntimeError reason = fault.error.value_or(RuntimeError(ErrorNumber::invalidProcedureCall));
    std::string text = "Frame " + std::to_string(fault.frame > 0 ? fault.frame : number);
    if (fault.line > 0)
        text += ", line " + std::to_string(fault.line);
    text += ": " + TextOfFault(fault, reason.description());
    ReportQuietly(RuntimeError(reason.number(), CodePageFromUtf8(text).value_or(text)));
}

} // namespace

bool SavePictureAsMember(const FrameInfoClass& playfile, std::int16_t iFrameNum, const std::string& sFileName,
                         std::int16_t iScale) {
    return traced(
        {LastErrorAccess::of(playfile), FrameFunction("SavePictureOfFrame")},
        [&] {
            DisplayRecord sign;
            sign.DisplayWidth = playfile.DisplayWidth();
            sign.DisplayHeight = playfile.DisplayHeight();
            const SavedPicture saved =
                SavePictureOfFrame(playfile.Value(), iFrameNum, SignLookOf(sign), sFileName, iScale);
            Check(saved.error);
            for (const PreviewFault& fault : saved.faults)
                reportFault(fault, iFrameNum);
            return true;
        },
        Arg{"iFrameNum", iFrameNum}, Arg{"sFileName", sFileName}, Arg{"iScale", iScale});
}

} // namespace qrtVistrelClasses4
