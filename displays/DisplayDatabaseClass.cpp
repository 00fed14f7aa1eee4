#include "displays/DisplayDatabaseClass.h"

#include "displays/DisplayNames.h"
#include "displays/DisplayProcedures.h"
#include "frame/Traced.h"

namespace qrtVistrelClasses4 {
namespace {

constexpr Procedure propertyGet(std::string_view name) {
    return DisplayProcedure(ProcedureKind::PropertyGet, name);
}
constexpr Procedure propertyLet(std::string_view name) {
    return DisplayProcedure(ProcedureKind::PropertyLet, name);
}

} // namespace

DisplayDatabaseClass::DisplayDatabaseClass() {
    traced(DisplaySub("Class_Initialize"), [&] {
        displays_.resize(1);
        currentDisplayNumber_ = 1;
    });
}

DisplayDatabaseClass::~DisplayDatabaseClass() {
    traced(DisplaySub("Class_Terminate"), [] {});
}

// How a property reaches its field.

template <class Value>
Value DisplayDatabaseClass::readTraced(std::string_view name, Value DisplayRecord::*member) {
    return traced(propertyGet(name), [&] { return currentDisplay().*member; });
}
template <class Value>
void DisplayDatabaseClass::writeTraced(std::string_view name, Value DisplayRecord::*member,
                                       const Value& vData) {
    traced(
        propertyLet(name), [&] { currentDisplay().*member = vData; }, Arg{"vData", vData});
}
template <class Value>
Value DisplayDatabaseClass::readUntraced(std::string_view name, Value DisplayRecord::*member) {
    return trapped(propertyGet(name), [&] { return currentDisplay().*member; });
}
template <class Value>
void DisplayDatabaseClass::writeUntraced(std::string_view name, Value DisplayRecord::*member,
                                         const Value& vData) {
    trapped(
        propertyLet(name), [&] { currentDisplay().*member = vData; }, Arg{"vData", vData});
}
template <class Value>
Value DisplayDatabaseClass::readSchedule(std::string_view name, Value BrightnessSchedule::*member) {
    return traced(propertyGet(name), [&] { return currentSchedule().*member; });
}
template <class Value>
void DisplayDatabaseClass::writeSchedule(std::string_view name, Value BrightnessSchedule::*member,
                                         const Value& vData) {
    traced(
        propertyLet(name), [&] { currentSchedule().*member = vData; }, Arg{"vData", vData});
}

// The cursors.

std::int16_t DisplayDatabaseClass::CurrentDisplayNumber() {
    return traced(propertyGet("CurrentDisplayNumber"), [&] { return currentDisplayNumber_; });
}
void DisplayDatabaseClass::CurrentDisplayNumber(std::int16_t vData) {
    traced(
        propertyLet("CurrentDisplayNumber"), [&] { currentDisplayNumber_ = vData; }, Arg{"vData", vData});
}

std::int16_t DisplayDatabaseClass::CurrentBrightnessScheduleNumber() {
    return traced(propertyGet("CurrentBrightnessScheduleNumber"), [&] { return currentScheduleNumber_; });
}
void DisplayDatabaseClass::CurrentBrightnessScheduleNumber(std::int16_t vData) {
    traced(
        propertyLet("CurrentBrightnessScheduleNumber"), [&] { currentScheduleNumber_ = vData; },
        Arg{"vData", vData});
}

// Identity and size.

std::string DisplayDatabaseClass::DisplayName() {
    return traced(propertyGet("DisplayName"), [&] {
        std::string& name = currentDisplay().DisplayName;
        return name = EscapeNumericName(name);
    });
}
void DisplayDatabaseClass::DisplayName(const std::string& vData) {
    traced(
        propertyLet("DisplayName"), [&] { currentDisplay().DisplayName = EscapeNumericName(vData); },
        Arg{"vData", vData});
}

std::string DisplayDatabaseClass::DisplayType() {
    return traced(propertyGet("DisplayType"),
                  [&] { return NumberToText(std::int32_t{currentDisplay().DisplayType}); });
}
void DisplayDatabaseClass::DisplayType(const std::string& vData) {
    traced(
        propertyLet("DisplayType"), [&] { currentDisplay().DisplayType = TextToInt16(vData); },
        Arg{"vData", vData});
}

std::int16_t DisplayDatabaseClass::DisplayHeight() {
    return readTraced("DisplayHeight", &DisplayRecord::DisplayHeight);
}
void DisplayDatabaseClass::DisplayHeight(std::int16_t vData) {
    writeTraced("DisplayHeight", &DisplayRecord::DisplayHeight, vData);
}
std::int16_t DisplayDatabaseClass::DisplayWidth() {
    return readTraced("DisplayWidth", &DisplayRecord::DisplayWidth);
}
void DisplayDatabaseClass::DisplayWidth(std::int16_t vData) {
    writeTraced("DisplayWidth", &DisplayRecord::DisplayWidth, vData);
}
std::int32_t DisplayDatabaseClass::FrameSize() {
    return readUntraced("FrameSize", &DisplayRecord::FrameSize);
}
void DisplayDatabaseClass::FrameSize(std::int32_t vData) {
    writeUntraced("FrameSize", &DisplayRecord::FrameSize, vData);
}
std::string DisplayDatabaseClass::AppDesc() { return readUntraced("AppDesc", &DisplayRecord::AppDesc); }
void DisplayDatabaseClass::AppDesc(const std::string& vData) {
    writeUntraced("AppDesc", &DisplayRecord::AppDesc, vData);
}

// Colours.

bool DisplayDatabaseClass::IsDisplayColor() {
    return readTraced("IsDisplayColor", &DisplayRecord::IsDisplayColor);
}
void DisplayDatabaseClass::IsDisplayColor(bool vData) {
    writeTraced("IsDisplayColor", &DisplayRecord::IsDisplayColor, vData);
}
std::string DisplayDatabaseClass::DefaultColor() {
    return readTraced("DefaultColor", &DisplayRecord::DefaultColor);
}
void DisplayDatabaseClass::DefaultColor(const std::string& vData) {
    writeTraced("DefaultColor", &DisplayRecord::DefaultColor, vData);
}
std::string DisplayDatabaseClass::ColorsSupported() {
    return readTraced("ColorsSupported", &DisplayRecord::ColorsSupported);
}
void DisplayDatabaseClass::ColorsSupported(const std::string& vData) {
    writeTraced("ColorsSupported", &DisplayRecord::ColorsSupported, vData);
}

// Connection.

std::int16_t DisplayDatabaseClass::ConnectionMethod() {
    return readTraced("ConnectionMethod", &DisplayRecord::ConnectionMethod);
}
void DisplayDatabaseClass::ConnectionMethod(std::int16_t vData) {
    writeTraced("ConnectionMethod", &DisplayRecord::ConnectionMethod, vData);
}
std::string DisplayDatabaseClass::CommPort() { return readTraced("CommPort", &DisplayRecord::CommPort); }
void DisplayDatabaseClass::CommPort(const std::string& vData) {
    writeTraced("CommPort", &DisplayRecord::CommPort, vData);
}
std::string DisplayDatabaseClass::BaudRate() { return readTraced("BaudRate", &DisplayRecord::BaudRate); }
void DisplayDatabaseClass::BaudRate(const std::string& vData) {
    writeTraced("BaudRate", &DisplayRecord::BaudRate, vData);
}
std::string DisplayDatabaseClass::PhoneNumber() {
    return readTraced("PhoneNumber", &DisplayRecord::PhoneNumber);
}
void DisplayDatabaseClass::PhoneNumber(const std::string& vData) {
    writeTraced("PhoneNumber", &DisplayRecord::PhoneNumber, vData);
}
std::string DisplayDatabaseClass::IPAddress() { return readTraced("IPAddress", &DisplayRecord::IPAddress); }
void DisplayDatabaseClass::IPAddress(const std::string& vData) {
    writeTraced("IPAddress", &DisplayRecord::IPAddress, vData);
}
std::string DisplayDatabaseClass::DisplayIDs() {
    return readTraced("DisplayIDs", &DisplayRecord::DisplayIDs);
}
void DisplayDatabaseClass::DisplayIDs(const std::string& vData) {
    writeTraced("DisplayIDs", &DisplayRecord::DisplayIDs, vData);
}

// Clock, switches and scrolling.

bool DisplayDatabaseClass::SwitchOperated() {
    return readTraced("SwitchOperated", &DisplayRecord::SwitchOperated);
}
void DisplayDatabaseClass::SwitchOperated(bool vData) {
    writeTraced("SwitchOperated", &DisplayRecord::SwitchOperated, vData);
}
std::int16_t DisplayDatabaseClass::Switch1() { return readUntraced("Switch1", &DisplayRecord::Switch1); }
void DisplayDatabaseClass::Switch1(std::int16_t vData) {
    writeUntraced("Switch1", &DisplayRecord::Switch1, vData);
}
std::int16_t DisplayDatabaseClass::Switch2() { return readUntraced("Switch2", &DisplayRecord::Switch2); }
void DisplayDatabaseClass::Switch2(std::int16_t vData) {
    writeUntraced("Switch2", &DisplayRecord::Switch2, vData);
}
bool DisplayDatabaseClass::DaylightSavingsTime() {
    return readTraced("DaylightSavingsTime", &DisplayRecord::DaylightSavingsTime);
}
void DisplayDatabaseClass::DaylightSavingsTime(bool vData) {
    writeTraced("DaylightSavingsTime", &DisplayRecord::DaylightSavingsTime, vData);
}
std::int16_t DisplayDatabaseClass::TimeZoneAdjustment() {
    return readTraced("TimeZoneAdjustment", &DisplayRecord::TimeZoneAdjustment);
}
void DisplayDatabaseClass::TimeZoneAdjustment(std::int16_t vData) {
    writeTraced("TimeZoneAdjustment", &DisplayRecord::TimeZoneAdjustment, vData);
}
std::int32_t DisplayDatabaseClass::ScrollPauseDelay() {
    return readTraced("ScrollPauseDelay", &DisplayRecord::ScrollPauseDelay);
}
void DisplayDatabaseClass::ScrollPauseDelay(std::int32_t vData) {
    writeTraced("ScrollPauseDelay", &DisplayRecord::ScrollPauseDelay, vData);
}
std::int16_t DisplayDatabaseClass::ScrollingTextSpeed() {
    return readTraced("ScrollingTextSpeed", &DisplayRecord::ScrollingTextSpeed);
}
void DisplayDatabaseClass::ScrollingTextSpeed(std::int16_t vData) {
    writeTraced("ScrollingTextSpeed", &DisplayRecord::ScrollingTextSpeed, vData);
}
bool DisplayDatabaseClass::ResetOnGetParameters() {
    return readTraced("ResetOnGetParameters", &DisplayRecord::ResetOnGetParameters);
}
void DisplayDatabaseClass::ResetOnGetParameters(bool vData) {
    writeTraced("ResetOnGetParameters", &DisplayRecord::ResetOnGetParameters, vData);
}
bool DisplayDatabaseClass::TempProbeInstalled() {
    return readTraced("TempProbeInstalled", &DisplayRecord::TempProbeInstalled);
}
void DisplayDatabaseClass::TempProbeInstalled(bool vData) {
    writeTraced("TempProbeInstalled", &DisplayRecord::TempProbeInstalled, vData);
}
std::int16_t DisplayDatabaseClass::TempProbeAdjust() {
    return readTraced("TempProbeAdjust", &DisplayRecord::TempProbeAdjust);
}
void DisplayDatabaseClass::TempProbeAdjust(std::int16_t vData) {
    writeTraced("TempProbeAdjust", &DisplayRecord::TempProbeAdjust, vData);
}

// Blinking.

std::int16_t DisplayDatabaseClass::BlinkRateShow() {
    return readUntraced("BlinkRateShow", &DisplayRecord::BlinkRateShow);
}
void DisplayDatabaseClass::BlinkRateShow(std::int16_t vData) {
    writeUntraced("BlinkRateShow", &DisplayRecord::BlinkRateShow, vData);
}
std::int16_t DisplayDatabaseClass::BlinkRateClear() {
    return readUntraced("BlinkRateClear", &DisplayRecord::BlinkRateClear);
}
void DisplayDatabaseClass::BlinkRateClear(std::int16_t vData) {
    writeUntraced("BlinkRateClear", &DisplayRecord::BlinkRateClear, vData);
}
std::string DisplayDatabaseClass::BlinkBehavior() {
    return readUntraced("BlinkBehavior", &DisplayRecord::BlinkBehavior);
}
void DisplayDatabaseClass::BlinkBehavior(const std::string& vData) {
    writeUntraced("BlinkBehavior", &DisplayRecord::BlinkBehavior, vData);
}
std::string DisplayDatabaseClass::BlinkTimes() {
    return readUntraced("BlinkTimes", &DisplayRecord::BlinkTimes);
}
void DisplayDatabaseClass::BlinkTimes(const std::string& vData) {
    writeUntraced("BlinkTimes", &DisplayRecord::BlinkTimes, vData);
}

// Brightness.

std::int16_t DisplayDatabaseClass::BrightnessLevel() {
    return readTraced("BrightnessLevel", &DisplayRecord::BrightnessLevel);
}
void DisplayDatabaseClass::BrightnessLevel(std::int16_t vData) {
    writeTraced("BrightnessLevel", &DisplayRecord::BrightnessLevel, vData);
}
bool DisplayDatabaseClass::LightSensorInstalled() {
    return readTraced("LightSensorInstalled", &DisplayRecord::LightSensorInstalled);
}
void DisplayDatabaseClass::LightSensorInstalled(bool vData) {
    writeTraced("LightSensorInstalled", &DisplayRecord::LightSensorInstalled, vData);
}
std::int16_t DisplayDatabaseClass::LightSensorMinimum() {
    return readTraced("LightSensorMinimum", &DisplayRecord::LightSensorMinimum);
}
void DisplayDatabaseClass::LightSensorMinimum(std::int16_t vData) {
    writeTraced("LightSensorMinimum", &DisplayRecord::LightSensorMinimum, vData);
}
std::int16_t DisplayDatabaseClass::LightSensorMaximum() {
    return traced(propertyGet("LightSensorMaximum"), [&] {
        std::int16_t& level = currentDisplay().LightSensorMaximum;
        if (level == 0)
            level = kUnsetLightSensorMaximum;
        return level;
    });
}
void DisplayDatabaseClass::LightSensorMaximum(std::int16_t vData) {
    writeTraced("LightSensorMaximum", &DisplayRecord::LightSensorMaximum, vData);
}
std::int16_t DisplayDatabaseClass::BrightnessScheduleDefaultBrightness() {
    return readTraced("BrightnessScheduleDefaultBrightness",
                      &DisplayRecord::BrightnessScheduleDefaultBrightness);
}
void DisplayDatabaseClass::BrightnessScheduleDefaultBrightness(std::int16_t vData) {
    writeTraced("BrightnessScheduleDefaultBrightness", &DisplayRecord::BrightnessScheduleDefaultBrightness,
                vData);
}

std::string DisplayDatabaseClass::BrightnessScheduleXStartTime() {
    return readSchedule("BrightnessScheduleXStartTime", &BrightnessSchedule::StartTime);
}
void DisplayDatabaseClass::BrightnessScheduleXStartTime(const std::string& vData) {
    writeSchedule("BrightnessScheduleXStartTime", &BrightnessSchedule::StartTime, vData);
}

std::string DisplayDatabaseClass::BrightnessScheduleXStopTime() {
    return readSchedule("BrightnessScheduleXStopTime", &BrightnessSchedule::StopTime);
}
void DisplayDatabaseClass::BrightnessScheduleXStopTime(const std::string& vData) {
    writeSchedule("BrightnessScheduleXStopTime", &BrightnessSchedule::StopTime, vData);
}

std::int16_t DisplayDatabaseClass::BrightnessScheduleXBrightnessLevel() {
    return readSchedule("BrightnessScheduleXBrightnessLevel", &BrightnessSchedule::BrightnessLevel);
}
void DisplayDatabaseClass::BrightnessScheduleXBrightnessLevel(std::int16_t vData) {
    writeSchedule("BrightnessScheduleXBrightnessLevel", &BrightnessSchedule::BrightnessLevel, vData);
}

} // namespace qrtVistrelClasses4
