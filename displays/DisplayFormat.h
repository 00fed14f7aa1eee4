// The list of signs as a file: one value a line, sign after sign, without names, count or version.
#pragma once

#include "frame/DelimitedValues.h"
#include <qrtVistrelClasses4/DisplayRecord.h>

#include <tuple>

namespace qrtVistrelClasses4 {

/// Number of values of a sign, each of which is written on a line of its own.
inline constexpr int kValuesOfADisplay =
    static_cast<int>(std::tuple_size_v<decltype(kDisplayMembers)> - 1 +
                     kSchedulesOfADisplay * std::tuple_size_v<decltype(kScheduleMembers)>);

/// Reads one sign and mends the values that old files leave empty; returns whether there were any. After an
/// error, the values before the bad one have been read.
bool ReadDisplay(DelimitedReader& in, DisplayRecord& display);
/// Reads one sign without keeping its texts. Fails where `ReadDisplay` does; `scratch` only takes the
/// numbers.
void SkipDisplay(DelimitedReader& in, DisplayRecord& scratch);
void WriteDisplay(DelimitedWriter& out, const DisplayRecord& display);

} // namespace qrtVistrelClasses4
