// Making the changes that findings propose.
#include <qrtVistrelClasses4/Validation.h>

#include "frame/ErrorTrap.h"

#include <limits>
#include <type_traits>

namespace qrtVistrelClasses4 {
namespace {

template <class Value>
bool setNumber(Value& value, double number) {
    if constexpr (std::is_same_v<Value, bool>) {
        value = number != 0;
        return true;
    } else if constexpr (std::is_arithmetic_v<Value>) {
        constexpr auto least = static_cast<double>(std::numeric_limits<Value>::lowest());
        constexpr auto most = static_cast<double>(std::numeric_limits<Value>::max());
        const bool fits = number >= least && number <= most;
        if (fits)
            value = static_cast<Value>(number);
        return fits;
    } else {
        return false;
    }
}

/// The member is set as it is: the fix of one effect code must not change the other.
template <class Record>
bool setProperty(Record& record, std::string_view property, double number) {
    bool isSet = false;
    ForEachRow(kMembersOf<Record>, [&](const auto& row) {
        if (!property.empty() && row.name == property)
            isSet = setNumber(record.*row.member, number);
    });
    return isSet;
}

} // namespace

bool ApplyFix(Playfile& playfile, const Finding& finding) try {
    if (!finding.fix || !playfile.frames.contains(finding.frame))
        return false;
    FrameRecord& frame = playfile.frames.at(finding.frame);
    if (finding.line == 0)
        return setProperty(frame, finding.property, *finding.fix);
    return frame.lines.contains(finding.line) &&
           setProperty(frame.lines.at(finding.line), finding.property, *finding.fix);
} catch (...) {
    RethrowAsRuntimeError();
}

} // namespace qrtVistrelClasses4
