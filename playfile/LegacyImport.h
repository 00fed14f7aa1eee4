// Playfiles of the older generation: their records become frames.
#pragma once

#include <qrtVistrelClasses4/LoadPlayfile.h>

namespace qrtVistrelClasses4 {

/// Reads the older playfile that `outcome.playfile` is named after, and fills in the rest of the outcome. An
/// error is thrown, and the frames then stay as they were.
void ImportLegacyPlayfile(LoadOutcome& outcome, const LoadCircumstances& circumstances);

} // namespace qrtVistrelClasses4
