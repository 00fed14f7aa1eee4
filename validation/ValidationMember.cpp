#include "validation/ValidationMember.h"

#include "frame/LastErrorAccess.h"
#include "frame/Traced.h"
#include "playfile/FrameProcedures.h"
#include "validation/MachineCircumstances.h"
#include <qrtVistrelClasses4/FrameInfoClass.h>

#include <vector>

namespace qrtVistrelClasses4 {

bool ValidateAsMember(const FrameInfoClass& playfile, std::string& sReport) {
    return traced(
        {LastErrorAccess::of(playfile), FrameFunction("ValidateThisPlayfile")},
        [&] {
            ValidationCircumstances known =
                CircumstancesOfMachine({playfile.DisplayWidth(), playfile.DisplayHeight()});
            known.framesAllowed = playfile.TotalFramesAllowed();
            const std::vector<Finding> findings = Validate(playfile.Value(), known);
            for (const Finding& finding : findings)
                (sReport += sReport.empty() ? "" : "\r\n") += TextOf(finding);
            return !HasErrors(findings);
        },
        Arg{"sReport", sReport});
}

} // namespace qrtVistrelClasses4
