#include "displays/DisplayFormat.h"

#include <algorithm>

namespace qrtVistrelClasses4 {
namespace {

constexpr std::string_view kUnsetNetworkPort = "3001";
constexpr std::int16_t kUnsetBlinkRateShow = 600;
constexpr std::int16_t kUnsetBlinkRateClear = 400;

bool isUnset(const std::string& port) {
    try {
        return LeadingNumber(port) <= 0;
    } catch (const RuntimeError&) { // too large a number is one
        return false;
    }
}

template <class Record, class Value>
void getField(DelimitedReader& in, Record& record, Value Record::*member) {
    in.get(record.*member);
}
template <class Value>
void getField(DelimitedReader& in, DisplayRecord& display, MendedField<Value> field) {
    in.get(display.*field.member);
    field.mend(display);
}
template <class Record, class Fields>
void getAll(DelimitedReader& in, Record& record, const Fields& fields) {
    std::apply([&](auto... field) { (getField(in, record, field), ...); }, fields);
}

template <class Record, class Value>
void putField(DelimitedWriter& out, const Record& record, Value Record::*member) {
    out.put(record.*member);
}
template <class Value>
void putField(DelimitedWriter& out, const DisplayRecord& display, MendedField<Value> field) {
    out.put(display.*field.member);
}
template <class Record, class Fields>
void putAll(DelimitedWriter& out, const Record& record, const Fields& fields) {
    std::apply([&](auto... field) { (putField(out, record, field), ...); }, fields);
}

} // namespace

void MendLightSensorMaximum(DisplayRecord& display) {
    std::int16_t& maximum = display.LightSensorMaximum;
    if (maximum == 0)
        maximum = kUnsetLightSensorMaximum;
    maximum = std::max(maximum, display.LightSensorMinimum);
}

void MendNetworkPort(DisplayRecord& display) {
    if (display.ConnectionMethod == kNetworkConnection && isUnset(display.CommPort))
        display.CommPort = kUnsetNetworkPort;
}

void MendBlinkRateShow(DisplayRecord& display) {
    if (display.BlinkRateShow == 0)
        display.BlinkRateShow = kUnsetBlinkRateShow;
}

void MendBlinkRateClear(DisplayRecord& display) {
    if (display.BlinkRateClear == 0)
        display.BlinkRateClear = kUnsetBlinkRateClear;
}

void ReadDisplay(DelimitedReader& in, DisplayRecord& display) {
    getAll(in, display, kDisplayFields);
    for (BrightnessSchedule& schedule : display.schedules)
        getAll(in, schedule, kScheduleFields);
}

void WriteDisplay(DelimitedWriter& out, const DisplayRecord& display) {
    putAll(out, display, kDisplayFields);
    for (const BrightnessSchedule& schedule : display.schedules)
        putAll(out, schedule, kScheduleFields);
}

} // namespace qrtVistrelClasses4
