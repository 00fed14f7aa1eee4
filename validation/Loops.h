// The loops of a playfile.
#pragma once

#include <qrtVistrelClasses4/Playfile.h>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace qrtVistrelClasses4 {

/// Frames that are shown several times. An end closes the innermost loop that is open.
struct Loop {
    std::int32_t firstFrame = 0;
    std::int32_t lastFrame = 0; ///< 0 if no frame ends it.
    std::int32_t rounds = 1;
    std::optional<std::size_t> parent; ///< Place in the list of the innermost closed loop around it.

    bool isClosed() const { return lastFrame != 0; }
};

struct LoopsOfPlayfile {
    std::vector<Loop> loops; ///< In the order of their first frames.
    std::vector<std::int32_t> endsWithoutStart;
};

/// Blank frames are skipped, and so are their codes.
LoopsOfPlayfile LoopsOf(const Playfile& playfile);

} // namespace qrtVistrelClasses4
