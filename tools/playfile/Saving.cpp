#include "tools/playfile/Saving.h"

#include "playfile/LegacyFormat.h"
#include "tools/playfile/LegacyLosses.h"

namespace qrtVistrelClasses4 {

ExitCode SavePlayfile(FrameInfoClass& playfile, const std::string& to, const AnswerOptions& options,
                      Session& session) {
    const Answers answers(options);
    session.errors.about(to);
    if (HasLegacyEnding(to)) {
        session.errors.add(
            "not saved: a name that ends in PL2 is for the older format, which cannot be saved");
        return ExitCode::failed;
    }
    const std::string from = playfile.CurrentFileName();
    const bool isConverted = playfile.IsLegacy();
    if (!playfile.WritePlayfileToDisk(to)) {
        session.errors.add("not saved");
        return ExitCode::failed;
    }
    if (isConverted)
        PrintLegacyLosses(from, playfile.TotalFrames(), session);
    return ExitCode::done;
}

} // namespace qrtVistrelClasses4
