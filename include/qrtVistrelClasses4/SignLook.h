// What a preview needs to know of a sign.
#pragma once

#include <qrtVistrelClasses4/Raster.h>

#include <cstdint>
#include <optional>

namespace qrtVistrelClasses4 {

struct DisplayRecord;

inline constexpr Color kAmber = Rgb(255, 170, 0);

/// By default, an amber sign of no special type.
struct SignLook {
    std::optional<DotSize> size;
    Color color = kAmber;
    bool showsColors = false; ///< Otherwise pixels of pictures are brighter or darker dots of `color`.
    std::int16_t type = 0;    ///< Number of the sign type.

    /// The colour of a dot for a pixel of a picture. A pixel that is nearly black gives a dark dot, 0.
    Color dotFor(Color pixel) const;
    /// The sign's own colour at half its brightness.
    Color dimmed() const;
};

/// The look of a sign. A colour whose name is unknown is amber. A sign without a width or a height has no
/// size.
SignLook SignLookOf(const DisplayRecord& sign);

} // namespace qrtVistrelClasses4
