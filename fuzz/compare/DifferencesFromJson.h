// What "vistrel diff --json" prints, read back.
#pragma once

#include "tools/compare/Differences.h"

#include <string>

namespace qrtVistrelClasses4 {

/// The changes of these frames; of those that both playfiles have, JSON has only what differs. Throws an
/// error of the JSON library or of the standard library if the text is not what is printed.
Differences DifferencesFromJson(const std::string& text, const OneBasedArray<FrameRecord>& before);

} // namespace qrtVistrelClasses4
