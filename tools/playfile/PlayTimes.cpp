#include "tools/playfile/PlayTimes.h"

#include "tools/commands/StoredCommands.h"
#include "tools/settings/StoredSettings.h"
#include <qrtVistrelClasses4/SignLook.h>

namespace qrtVistrelClasses4 {

PlayTimeCircumstances LoadPlayTimeCircumstances(ErrorLines& errors) {
    PlayTimeCircumstances circumstances = PlayTimeCircumstancesOf(LoadStoredPreferences(errors));
    circumstances.timing = LoadStoredTiming(errors);
    circumstances.commands =
        WithStoredCommands(errors, [](const CommandTable& commands) { return commands; });
    return circumstances;
}

void UseSign(const DisplayRecord& sign, PlayTimeCircumstances& circumstances) {
    const SignLook look = SignLookOf(sign);
    circumstances.sign = look.size.value_or(circumstances.sign);
    circumstances.signType = look.type;
    circumstances.scrollingTextSpeed = sign.ScrollingTextSpeed;
    circumstances.scrollPauseDelay = sign.ScrollPauseDelay;
}

} // namespace qrtVistrelClasses4
