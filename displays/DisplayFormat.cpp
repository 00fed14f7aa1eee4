#include "displays/DisplayFormat.h"

#include "frame/Conversions.h"

#include <algorithm>
#include <type_traits>

namespace qrtVistrelClasses4 {
namespace {

constexpr std::int16_t kUsualLightSensorMaximum = 9;
constexpr std::string_view kUsualNetworkPort = "3001";

bool isUnset(const std::string& port) {
    try {
        return LeadingNumber(port) <= 0;
    } catch (const RuntimeError&) { // a number that is too large is left as the port
        return false;
    }
}

/// Hands each value of a sign, its schedules included, to `visit(value, mend)` in file order. `mend` is
/// called after the value was read; it is null for most.
template <class Display, class Visit>
void forEachValue(Display& display, const Visit& visit) {
    ForEachRow(kDisplayMembers, [&]<class Row>(const Row& row) {
        if constexpr (requires { row.elements; })
            for (auto& schedule : display.*row.member)
                ForEachRow(row.elements, [&](const auto& part) { visit(schedule.*part.member, nullptr); });
        else
            visit(display.*row.member, row.mend);
    });
}

} // namespace

std::int16_t UsualMaximumIfUnset(const std::int16_t& maximum) {
    return maximum == 0 ? kUsualLightSensorMaximum : maximum;
}

bool MendLightSensorMaximum(DisplayRecord& sign) {
    const std::int16_t read = sign.LightSensorMaximum;
    sign.LightSensorMaximum = std::max(UsualMaximumIfUnset(read), sign.LightSensorMinimum);
    return sign.LightSensorMaximum != read;
}

bool MendNetworkPort(DisplayRecord& sign) {
    const bool isMended = sign.ConnectionMethod == kNetworkConnection && isUnset(sign.CommPort);
    if (isMended)
        sign.CommPort = kUsualNetworkPort;
    return isMended;
}

bool ReadDisplay(DelimitedReader& in, DisplayRecord& display) {
    bool isMended = false;
    forEachValue(display, [&](auto& value, auto mend) {
        in.get(value);
        if constexpr (!std::is_null_pointer_v<decltype(mend)>)
            isMended = (mend && mend(display)) || isMended;
    });
    return isMended;
}

void SkipDisplay(DelimitedReader& in, DisplayRecord& scratch) {
    forEachValue(scratch, [&]<class Value>(Value& value, auto) {
        if constexpr (std::is_same_v<Value, std::string>)
            in.skipText();
        else
            in.get(value);
    });
}

void WriteDisplay(DelimitedWriter& out, const DisplayRecord& display) {
    forEachValue(display, [&](const auto& value, auto) { out.put(value); });
}

} // namespace qrtVistrelClasses4
