// What the frames of a playfile refer to, and how loading and saving change it.
#pragma once

#include <qrtVistrelClasses4/Export.h>
#include <qrtVistrelClasses4/FrameRecord.h>

#include <cstdint>
#include <string>

namespace QRT_PUBLIC qrtVistrelClasses4 {

/// A file that a frame refers to.
struct FrameReference {
    std::int32_t frame = 0; ///< From 1.
    std::string FrameRecord::*member = nullptr;
    std::string file;

    bool operator==(const FrameReference&) const = default;
};

/// A reference that now leads to another place.
struct ChangedReference {
    FrameReference reference; ///< The reference before the change.
    std::string now;          ///< Full name.

    bool operator==(const ChangedReference&) const = default;
};

} // namespace qrtVistrelClasses4
