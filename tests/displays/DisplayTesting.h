// The lines of a sign in its file with their properties, and signs with a value of their own in every line.
#pragma once

#include "HostTest.h"
#include "displays/DisplayDatabaseClass.h"

#include <functional>
#include <string>
#include <type_traits>
#include <vector>

namespace qrtVistrelClasses4 {

/// A value for each code; 0 is that of blank ones. Codes up to 500 differ, but flags only in their pattern
/// over the hundreds. Nothing in a sign of the codes of one hundred is mended by reading.
template <class Value>
Value valueOf(int code) {
    if constexpr (std::is_same_v<Value, std::string>)
        return code == 0 ? "" : (code % 100 == 2 ? "" : "text ") + std::to_string(code);
    else if constexpr (std::is_same_v<Value, bool>)
        return ((code % 100 >> code / 100) & 1) != 0;
    else
        return static_cast<Value>(code * (sizeof(Value) > 2 ? -65537 : 1));
}

inline std::string inFile(const std::string& text) { return '"' + text + '"'; }
inline std::string inFile(bool flag) { return flag ? "#TRUE#" : "#FALSE#"; }
inline std::string inFile(std::int32_t number) { return std::to_string(number); }

struct DisplayLine {
    int number; ///< From 1.
    const char* property;
    std::function<std::string(int code)> text;              ///< As the file has it.
    std::function<std::string(DisplayDatabaseClass&)> read; ///< In the same form.
    std::function<void(DisplayDatabaseClass&, int code)> write;
    std::int16_t schedule = 0; ///< From 1; 0 for the sign itself.
    bool isTraced() const { return number < 26 || number > 33; }
};

template <class Value, class Given>
DisplayLine Line(int number, const char* property, Value (DisplayDatabaseClass::*read)() const,
                 void (DisplayDatabaseClass::*write)(Given)) {
    return {number, property, [](int code) { return inFile(valueOf<Value>(code)); },
            [=](DisplayDatabaseClass& displays) { return inFile((displays.*read)()); },
            [=](DisplayDatabaseClass& displays, int code) { (displays.*write)(valueOf<Value>(code)); }};
}
template <class Value, class Given>
DisplayLine Line(int number, const char* property, Value (DisplayDatabaseClass::*read)(),
                 void (DisplayDatabaseClass::*write)(Given)) {
    return {number, property, [](int code) { return inFile(valueOf<Value>(code)); },
            [=](DisplayDatabaseClass& displays) { return inFile((displays.*read)()); },
            [=](DisplayDatabaseClass& displays, int code) { (displays.*write)(valueOf<Value>(code)); }};
}

/// All but the two without a property.
inline std::vector<DisplayLine> DisplayLines() {
// clang-format off
#define P(line, name) Line(line, #name, &DisplayDatabaseClass::name, &DisplayDatabaseClass::name)
    std::vector<DisplayLine> lines{
        P(1, DisplayName), P(2, DisplayType), P(3, DisplayHeight), P(4, DisplayWidth), P(5, IsDisplayColor),
        P(6, DefaultColor), P(7, ColorsSupported), P(8, SwitchOperated), P(9, TempProbeInstalled),
        P(10, DisplayIDs), P(11, DaylightSavingsTime), P(12, ScrollPauseDelay), P(13, TempProbeAdjust),
        P(14, TimeZoneAdjustment), P(15, ScrollingTextSpeed), P(16, ResetOnGetParameters),
        P(17, BrightnessLevel), P(18, LightSensorMinimum), P(19, LightSensorMaximum), P(20, PhoneNumber),
        P(21, IPAddress), P(22, CommPort), P(23, BaudRate), P(24, ConnectionMethod),
        P(25, LightSensorInstalled), P(26, FrameSize), P(27, Switch1), P(28, Switch2), P(29, BlinkRateShow),
        P(30, BlinkRateClear), P(31, AppDesc), P(32, BlinkBehavior), P(33, BlinkTimes),
        P(36, BrightnessScheduleDefaultBrightness)};
    for (std::int16_t schedule = 1, line = 37; schedule <= 4; ++schedule)
        for (DisplayLine next : {P(line++, BrightnessScheduleXBrightnessLevel),
                                 P(line++, BrightnessScheduleXStartTime), P(line++, BrightnessScheduleXStopTime)}) {
            next.schedule = schedule;
            lines.push_back(next);
        }
#undef P
    // clang-format on
    return lines;
}
inline const std::vector<DisplayLine> kDisplayLines = DisplayLines();

inline constexpr int kBlank = -1; ///< In the place of a sign's number.

/// Those of sign 0 to 4, or of a blank one.
inline Texts linesOf(int sign) {
    const auto code = [&](int line) { return sign == kBlank ? 0 : 100 * sign + line; };
    Texts lines(48);
    for (const DisplayLine& line : kDisplayLines)
        lines.at(line.number - 1) = line.text(code(line.number));
    lines[1] = std::to_string(code(2)); // the one text that is stored as a number
    for (const int reserved : {34, 35})
        lines.at(reserved - 1) = inFile(valueOf<std::string>(code(reserved)));
    return lines;
}

inline std::string fileText(const Texts& lines) {
    std::string text;
    for (const std::string& line : lines)
        text += line + "\r\n";
    return text;
}
inline std::string fileOf(const std::vector<int>& signs) {
    std::string text;
    for (const int sign : signs)
        text += fileText(linesOf(sign));
    return text;
}

/// A list of signs, and the file that stands for it.
class DisplaysTest : public HostTest {
protected:
    void write(std::string fileName = "Displays.dat") { displays_.WriteAllDisplaysToDisk(fileName); }
    void read(std::string fileName = "Displays.dat") { displays_.RetrieveAllDisplayInfoFromDisk(fileName); }
    /// The list as it is written.
    std::string saved() {
        write();
        return files().content(path_).value_or("no file");
    }
    void load(const std::string& text) {
        files().put(path_, text);
        read();
    }

    DisplayDatabaseClass displays_;
    const std::string path_ = host_.inLibrary("Displays.dat");
};

} // namespace qrtVistrelClasses4
