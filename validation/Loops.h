// The loops of a playfile.
#pragma once

#include <qrtVistrelClasses4/Playfile.h>

#include <cstdint>
#include <vector>

namespace qrtVistrelClasses4 {

/// Frames that are shown several times. An end closes the innermost loop that is open.
struct Loop {
    std::int32_t first = 0; ///< Frame that starts it.
    std::int32_t last = 0;  ///< Frame that ends it; 0 if none does.
    std::int32_t rounds = 1;
    std::int32_t parent = -1; ///< Place in the list of the loop that is open when it starts; -1 if none is.
    bool isClosed = false;
};

struct LoopsOfPlayfile {
    std::vector<Loop> loops; ///< In the order of their first frames.
    std::vector<std::int32_t> endsWithoutStart;
};

/// Blank frames are skipped, and so are their codes.
LoopsOfPlayfile LoopsOf(const Playfile& playfile);

} // namespace qrtVistrelClasses4
