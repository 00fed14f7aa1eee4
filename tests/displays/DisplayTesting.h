// The properties of a sign by their lines in its file, and signs with a value of their own in every line.
#pragma once

#include "TestHost.h"
#include "displays/DisplayDatabaseClass.h"

#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <type_traits>

namespace qrtVistrelClasses4 {

template <class Value, class Given>
struct DisplayProperty {
    int line; ///< From 1.
    const char* name;
    Value (DisplayDatabaseClass::*read)();
    void (DisplayDatabaseClass::*write)(Given);
};
template <class Value, class Given>
DisplayProperty(int, const char*, Value (DisplayDatabaseClass::*)(), void (DisplayDatabaseClass::*)(Given))
    -> DisplayProperty<Value, Given>;
// clang-format off
#define P(line, name) DisplayProperty{line, #name, &DisplayDatabaseClass::name, &DisplayDatabaseClass::name}
inline constexpr std::tuple kTracedProperties{
    P(1, DisplayName), P(2, DisplayType), P(3, DisplayHeight), P(4, DisplayWidth), P(5, IsDisplayColor),
    P(6, DefaultColor), P(7, ColorsSupported), P(8, SwitchOperated), P(9, TempProbeInstalled),
    P(10, DisplayIDs), P(11, DaylightSavingsTime), P(12, ScrollPauseDelay), P(13, TempProbeAdjust),
    P(14, TimeZoneAdjustment), P(15, ScrollingTextSpeed), P(16, ResetOnGetParameters), P(17, BrightnessLevel),
    P(18, LightSensorMinimum), P(19, LightSensorMaximum), P(20, PhoneNumber), P(21, IPAddress),
    P(22, CommPort), P(23, BaudRate), P(24, ConnectionMethod), P(25, LightSensorInstalled),
    P(36, BrightnessScheduleDefaultBrightness)};
inline constexpr std::tuple kUntracedProperties{
    P(26, FrameSize), P(27, Switch1), P(28, Switch2), P(29, BlinkRateShow), P(30, BlinkRateClear),
    P(31, AppDesc), P(32, BlinkBehavior), P(33, BlinkTimes)};
/// Their lines are those of the first schedule; each next one stands three lines on.
inline constexpr std::tuple kScheduleProperties{
    P(37, BrightnessScheduleXBrightnessLevel), P(38, BrightnessScheduleXStartTime),
    P(39, BrightnessScheduleXStopTime)};
#undef P
// clang-format on
inline constexpr int kReservedLines[] = {34, 35}; // texts without a property
inline constexpr int kLinesOfADisplay = 48;

/// Calls `visit` for each of them.
template <class Properties, class Visit>
void forEach(const Properties& properties, Visit visit) {
    std::apply([&](const auto&... property) { (visit(property), ...); }, properties);
}

/// Calls `visit(property, line)` for each of a sign, those of its schedules once for each schedule, which is
/// selected before. It is the sign under the cursor, if any.
template <class Visit>
void forAll(DisplayDatabaseClass& displays, Visit visit) {
    const auto visitAsItStands = [&](const auto& property) { visit(property, property.line); };
    forEach(kTracedProperties, visitAsItStands);
    forEach(kUntracedProperties, visitAsItStands);
    for (std::int16_t schedule = 1; schedule <= 4; ++schedule) {
        displays.CurrentBrightnessScheduleNumber(schedule);
        forEach(kScheduleProperties,
                [&](const auto& property) { visit(property, property.line + 3 * (schedule - 1)); });
    }
}

/// Tells lines and signs below 5 apart; flags only by their pattern over the signs. Nothing in it is mended
/// by reading.
template <class Value>
Value displayValue(int sign, int line) {
    const int number = 100 * sign + line;
    if constexpr (std::is_same_v<Value, std::string>)
        return (line == 2 ? "" : "text ") + std::to_string(number);
    else if constexpr (std::is_same_v<Value, bool>)
        return ((line >> sign) & 1) != 0;
    else
        return static_cast<Value>(number * (sizeof(Value) > 2 ? -65537 : 1));
}

inline std::string inFile(const std::string& text) { return '"' + text + '"'; }
inline std::string inFile(bool flag) { return flag ? "#TRUE#" : "#FALSE#"; }
inline std::string inFile(std::int32_t number) { return std::to_string(number); }

/// The lines of a sign whose values `valueOf` gives by type and line.
template <class ValueOf>
Texts linesOf(ValueOf valueOf) {
    Texts lines(kLinesOfADisplay);
    const auto put = [&]<class Value, class Given>(const DisplayProperty<Value, Given>&, int line) {
        using Stored = std::conditional_t<std::is_same_v<Value, std::int16_t>, std::int32_t, Value>;
        lines.at(line - 1) = inFile(Stored{valueOf(Value(), line)});
    };
    DisplayDatabaseClass unused;
    forAll(unused, put);
    lines.at(1) = std::to_string(valueOf(std::int16_t(), 2)); // the one text that is stored as a number
    for (const int line : kReservedLines)
        lines.at(line - 1) = inFile(valueOf(std::string(), line));
    return lines;
}

inline Texts displayLines(int sign) {
    return linesOf([&]<class Value>(Value, int line) { return displayValue<Value>(sign, line); });
}

inline std::string fileText(const std::vector<Texts>& signs) {
    std::string text;
    for (const Texts& lines : signs)
        for (const std::string& line : lines)
            text += line + "\r\n";
    return text;
}

/// A list of signs on a machine in memory, and the file that stands for it.
class DisplaysTest : public testing::Test {
protected:
    MemoryFileSystem& files() { return host_.machine.files(); }
    void write() {
        std::string fileName = "Displays.dat";
        displays_.WriteAllDisplaysToDisk(fileName);
    }
    /// The list as it is written.
    std::string saved() {
        write();
        return files().content(path_).value_or("no file");
    }
    void load(const std::string& text) {
        files().put(path_, text);
        std::string fileName = "Displays.dat";
        displays_.RetrieveAllDisplayInfoFromDisk(fileName);
    }
    /// Signs 0 to `count - 1`.
    void loadSigns(int count) {
        std::vector<Texts> signs;
        for (int sign = 0; sign < count; ++sign)
            signs.push_back(displayLines(sign));
        load(fileText(signs));
    }
    std::string nameOf(int number) {
        displays_.CurrentDisplayNumber(static_cast<std::int16_t>(number));
        return displays_.DisplayName();
    }

    TestHost host_;
    DisplayDatabaseClass displays_;
    std::string path_ = host_.inLibrary("Displays.dat");
};

} // namespace qrtVistrelClasses4
