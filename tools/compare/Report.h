// Differences and playfiles as people and programs read them.
#pragma once

#include "tools/compare/Differences.h"
#include "tools/exchange/JsonOutput.h"

#include <iosfwd>

namespace qrtVistrelClasses4 {

/// A line or more for each change, in the colours of the stream's screen, and the number of changes.
void PrintDifferences(std::ostream& out, const Differences& differences);

/// An array with an object for each change.
void WriteDifferences(JsonOutput& json, const Differences& differences);

/// Every value that is not the usual one on a line of its own. Frames and lines have no numbers, so that
/// those after an inserted one stay as they are.
void PrintFrames(std::ostream& out, const OneBasedArray<FrameRecord>& frames);

} // namespace qrtVistrelClasses4
