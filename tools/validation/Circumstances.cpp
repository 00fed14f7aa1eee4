#include "tools/validation/Circumstances.h"

#include "tools/commands/StoredCommands.h"
#include "tools/settings/StoredSettings.h"
#include <qrtVistrelClasses4/SignLook.h>

namespace qrtVistrelClasses4 {

ValidationCircumstances LoadValidationCircumstances(ErrorLines& errors) {
    ValidationCircumstances known;
    const Preferences preferences = LoadStoredPreferences(errors);
    if (preferences.DisplayWidth > 0 && preferences.DisplayHeight > 0)
        known.signSize = DotSize{preferences.DisplayWidth, preferences.DisplayHeight};
    known.delayLimits =
        DelayLimitsOf(preferences, LoadStoredTiming(errors).of(Timing::DelayLimitUnit).likely);
    known.offeredEffects = FindOfferedEffects();
    known.commands = WithStoredCommands(errors, [](const CommandTable& commands) { return commands; });
    return known;
}

void UseSign(const DisplayRecord& sign, ValidationCircumstances& circumstances) {
    const SignLook look = SignLookOf(sign);
    if (look.size)
        circumstances.signSize = look.size;
    circumstances.signType = look.type;
    circumstances.showsColors = look.showsColors;
}

} // namespace qrtVistrelClasses4
