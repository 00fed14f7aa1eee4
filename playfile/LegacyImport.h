// Playfiles of the older generation: their records become frames.
#pragma once

#include "platform/FileSystem.h"
#include <qrtVistrelClasses4/LoadPlayfile.h>

namespace qrtVistrelClasses4 {

/// Reads an older playfile, and fills in the outcome but for its name. An error is thrown, and the frames
/// then stay as they were.
void ImportLegacyPlayfile(InputFile& file, LoadOutcome& outcome, const LoadCircumstances& circumstances);

} // namespace qrtVistrelClasses4
