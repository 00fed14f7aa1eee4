// Playfiles as JSON.
#pragma once

#include "tools/exchange/RecordKinds.h"
#include <qrtVistrelClasses4/FrameRecord.h>

#include <limits>
#include <string_view>

namespace qrtVistrelClasses4 {

/// The key of the number of a frame's lines, which no member of a frame has.
inline constexpr std::string_view kLineCountKey = "TotalLinesAllowed";
/// The keys of a file and its frames, where those of several files are together.
inline constexpr std::string_view kFileKey = "file";
inline constexpr std::string_view kFramesKey = "frames";

/// Whether a text comes back as it was from a playfile, where line ends may be in texts: it has no character
/// that a playfile has for a quote.
bool CanBeInPlayfile(std::string_view ansi);

template <>
struct Exchanged<LineRecord> {
    static constexpr const auto& rows = kLineMembers;
    static constexpr std::int32_t most = std::numeric_limits<std::int16_t>::max();
    static bool canHold(std::string_view ansi) { return CanBeInPlayfile(ansi); }
};

template <>
struct Exchanged<FrameRecord> {
    static constexpr const auto& rows = kFrameMembers;
    static constexpr std::int32_t most = std::numeric_limits<std::int16_t>::max();
    static bool canHold(std::string_view ansi) { return CanBeInPlayfile(ansi); }
    /// Adds the number of lines, and the lines.
    static void addMembers(JsonKind& kind);
};

/// A list of frames in either of the forms that "vistrel show --json" prints: an array, or an object with the
/// name of the file, which is ignored, and the array.
const JsonKind& KindOfPlayfile();

} // namespace qrtVistrelClasses4
