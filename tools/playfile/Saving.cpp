#include "tools/playfile/Saving.h"

#include "playfile/LegacyFormat.h"
#include "playfile/OperatorQuestions.h"
#include "tools/playfile/Opening.h"
#include <qrtVistrelClasses4/SavePlayfile.h>

namespace qrtVistrelClasses4 {

bool SaveOpened(const LoadOutcome& opened, const std::string& to, const AnswerOptions& options,
                Session& session) {
    session.errors.aboutFile(to);
    if (HasLegacyEnding(to)) {
        session.errors.add(
            "not saved: a name that ends in PL2 is for the older format, which cannot be saved");
        return false;
    }
    const SaveOutcome saved = SavePlayfile(
        opened.playfile, to, {.wantsCopies = [&] { return Answer(options, AskWhetherToCopyFiles); }});
    if (saved.error) {
        session.errors.add("not saved", *saved.error);
        return false;
    }
    AddLosses(opened, session.errors);
    if (const std::size_t count = saved.failedCopies.size(); count > 0)
        session.errors.add(Counted(count, "reference") +
                           (count == 1 ? " leads to a file" : " lead to files") +
                           " that could not be copied");
    return true;
}

} // namespace qrtVistrelClasses4
