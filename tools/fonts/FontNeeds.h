// The characters that the fonts of a playfile must have.
#pragma once

#include <qrtVistrelClasses4/CommandTable.h>
#include <qrtVistrelClasses4/FrameRecord.h>
#include <qrtVistrelClasses4/OneBasedArray.h>

#include <cstdint>
#include <map>

namespace qrtVistrelClasses4 {

/// How often a character is shown, and where it is shown first. Numbers start at 1.
struct Need {
    int times = 0;
    std::int32_t frame = 0;
    std::int32_t line = 0;
};

/// What frames whose texts are drawn need, by character. Codes in texts are replaced as in previews.
std::map<unsigned char, Need> NeedsOf(const OneBasedArray<FrameRecord>& frames, const CommandTable& commands);

} // namespace qrtVistrelClasses4
