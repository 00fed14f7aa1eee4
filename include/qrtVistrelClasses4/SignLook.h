// What a preview needs to know of a sign.
#pragma once

#include <qrtVistrelClasses4/Export.h>
#include <qrtVistrelClasses4/Raster.h>

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace QRT_PUBLIC qrtVistrelClasses4 {

struct DisplayRecord;

inline constexpr Color kAmber = Rgb(255, 170, 0);

/// By default, an amber sign of no special type.
struct SignLook {
    std::optional<DotSize> size;
    Color color = kAmber;
    bool showsColors = false; ///< Otherwise each dot is `color` or dark.
    std::int16_t type = 0;    ///< Number of the sign type.

    /// The sign's own colour at half its brightness.
    Color dimmed() const;
};

/// Names of the colours that a sign's LEDs may have.
QRT_PUBLIC std::vector<std::string_view> LedColorNames();

/// The look of a sign. A colour whose name is unknown is amber. A sign without a width or a height has no
/// size.
QRT_PUBLIC SignLook SignLookOf(const DisplayRecord& sign);

} // namespace qrtVistrelClasses4
