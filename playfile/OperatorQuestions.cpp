#include "playfile/OperatorQuestions.h"

#include "settings/OperatorMessages.h"

namespace qrtVistrelClasses4 {
namespace {

bool ask(const char* text, const char* title) {
    return OperatorBoxes().show({text, title, MessageIcon::question, MessageButtons::yesNo}) ==
           MessageAnswer::yes;
}

} // namespace

bool AskWhetherToOpenLegacyPlayfile() {
    return ask(
        "The file that was chosen is a legacy file from Vistrel 2000! I can open this file but you must "
        "be warned that you will not be able to save any changes in this format. You WILL be required to "
        "save as a Vistrel 3 playfile.\r\nDo you wish to proceed!",
        "WARNING! Legacy File");
}

bool AskWhetherToCopyFiles() {
    return ask("At least one file is not on a fixed drive \r\n"
               "This might prevent this playfile to open properly in the future\r\n"
               "Do you want to make a copy of all files in a fixed drive?",
               "File Validation");
}

} // namespace qrtVistrelClasses4
