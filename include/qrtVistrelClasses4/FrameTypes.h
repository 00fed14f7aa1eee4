// The kinds of frame, in the two numberings that the application's screens and files use.
#pragma once

#include <qrtVistrelClasses4/Export.h>

#include <cstdint>

namespace QRT_PUBLIC qrtVistrelClasses4 {

/// The numbering that the `FrameType` property is declared with.
enum class FRAME_TYPES : std::int32_t {
    FRAME_BLANK = 0,
    FRAME_GRAPHIC = 1,
    FRAME_GRAPHICTEXT = 2,
    FRAME_TEXT = 3,
    FRAME_CMD = 4,
};

/// What stored numbers mean, here and in files. Text and graphic with text have each other's numbers, and
/// scripts pass these values through the `FRAME_TYPES` property.
enum class NEW_FRAME_TYPES : std::int32_t {
    FRAME_BLANK = 0,
    FRAME_GRAPHIC = 1,
    FRAME_TEXT = 2,
    FRAME_GRAPHICTEXT = 3,
    FRAME_CMD = 4,
};

/// `type` as the `FrameType` property takes it: the same number under the other enumeration.
constexpr FRAME_TYPES StoredFrameType(NEW_FRAME_TYPES type) { return static_cast<FRAME_TYPES>(type); }
/// What the number in a `FrameType` property means.
constexpr NEW_FRAME_TYPES MeaningOf(FRAME_TYPES stored) { return static_cast<NEW_FRAME_TYPES>(stored); }

} // namespace qrtVistrelClasses4
