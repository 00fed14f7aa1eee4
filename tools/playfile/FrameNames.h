// Names of what frames have numbers for.
#pragma once

#include "playfile/Effects.h"
#include "tools/program/AllowedValues.h"
#include <qrtVistrelClasses4/FrameRecord.h>
#include <qrtVistrelClasses4/MemberTable.h>

#include <string>
#include <string_view>

namespace qrtVistrelClasses4 {

/// What kind of frame it is; the number of its kind if that has no name.
inline std::string KindName(const FrameRecord& frame) {
    const std::string_view name = NameOfNumber(kMember<&FrameRecord::FrameType>.name, frame.FrameType);
    return name.empty() ? std::to_string(frame.FrameType) : std::string(name);
}

/// The names of the effects, or their codes if they have none.
inline std::string AppearEffectName(const FrameRecord& frame) {
    return PrefixName(frame.PrefixCode).value_or(std::to_string(frame.PrefixCode));
}
inline std::string DisappearEffectName(const FrameRecord& frame) {
    return SuffixName(frame.SuffixCode).value_or(std::to_string(frame.SuffixCode));
}

} // namespace qrtVistrelClasses4
