#include "validation/MachineCircumstances.h"

#include "playfile/PlaySettings.h"

#include <utility>

namespace qrtVistrelClasses4 {

ValidationCircumstances CircumstancesOfMachine(DotSize sign) {
    PlaySettings settings = LoadPlaySettings();
    ValidationCircumstances known;
    if (const DotSize size = settings.sizeOf(sign); size.width > 0 && size.height > 0)
        known.signSize = size;
    known.showsColors = settings.preferences.DoesDisplaySupportColor;
    known.delayLimits =
        DelayLimitsOf(settings.preferences, settings.timing.of(Timing::DelayLimitUnit).likely);
    known.offeredEffects = FindOfferedEffects();
    known.commands = std::move(settings.commands);
    return known;
}

} // namespace qrtVistrelClasses4
