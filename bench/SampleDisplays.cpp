#include "bench/SampleDisplays.h"

#include "bench/Dice.h"
#include "bench/WholeFile.h"

#include <fmt/compile.h>

#include <array>
#include <string_view>

namespace qrtVistrelClasses4::bench {
namespace {

constexpr std::array<std::string_view, 6> kPlaces{"Pier", "Gate", "Platform", "Car park", "Tunnel", "Hall"};
constexpr std::array<std::string_view, 3> kColors{"Amber", "Red,Green,Amber", ""};
constexpr std::array<std::string_view, 4> kTimes{"12:00 AM", "6:00 AM", "8:00 PM", "11:30 PM"};
constexpr std::array<std::string_view, 3> kFirmware{"V 2.18b", "Rev 1.44", "V 3.02 network"};
constexpr std::array<std::string_view, 3> kBaudRates{"9600", "19200", "115200"};
constexpr std::array<std::int16_t, 5> kTypes{16, 48, 112, 160, 177};
constexpr std::array<std::int16_t, 4> kConnections{kNetworkConnection, kNetworkConnection, kDirectConnection,
                                                   kModemConnection};

std::string numbered(std::string_view text, unsigned number) {
    return std::string(text) + std::to_string(number);
}

void connect(DisplayRecord& display, Dice& dice) {
    display.ConnectionMethod = dice.oneOf(kConnections);
    if (display.ConnectionMethod == kNetworkConnection) {
        display.IPAddress = numbered("10.20.", dice.below(256)) + numbered(".", dice.below(256));
        display.CommPort = "3001";
    } else {
        display.CommPort = numbered("COM", 1 + dice.below(16));
        display.BaudRate = dice.oneOf(kBaudRates);
    }
    if (display.ConnectionMethod == kModemConnection)
        display.PhoneNumber = numbered("+49 40 ", 100000 + dice.below(900000));
}

void setBrightness(DisplayRecord& display, Dice& dice) {
    display.LightSensorInstalled = dice.once(2);
    display.LightSensorMinimum = static_cast<std::int16_t>(dice.below(5));
    display.LightSensorMaximum = static_cast<std::int16_t>(5 + dice.below(5));
    display.BrightnessScheduleDefaultBrightness = 5;
    if (dice.once(2))
        return;
    for (BrightnessSchedule& schedule : display.schedules)
        schedule = {std::string(dice.oneOf(kTimes)), std::string(dice.oneOf(kTimes)),
                    static_cast<std::int16_t>(dice.below(10))};
}

DisplayRecord makeDisplay(std::int16_t number, Dice& dice) {
    DisplayRecord display;
    display.DisplayName = std::string(dice.oneOf(kPlaces)) + ' ' + std::to_string(number);
    display.DisplayType = dice.oneOf(kTypes);
    display.DisplayHeight = 16;
    display.DisplayWidth = static_cast<std::int16_t>(64 + 32 * dice.below(8));
    display.ColorsSupported = dice.oneOf(kColors);
    display.IsDisplayColor = !display.ColorsSupported.empty();
    display.DisplayIDs = std::to_string(1 + dice.below(255));
    display.DaylightSavingsTime = dice.once(2);
    display.TempProbeAdjust = static_cast<std::int16_t>(dice.below(7)) - 3;
    display.FrameSize = 512;
    display.BlinkRateShow = 600;
    display.BlinkRateClear = 400;
    display.AppDesc = dice.oneOf(kFirmware);
    connect(display, dice);
    setBrightness(display, dice);
    return display;
}

void put(fmt::memory_buffer& file, const std::string& text) {
    fmt::format_to(fmt::appender(file), FMT_COMPILE("\"{}\"\r\n"), text);
}
void put(fmt::memory_buffer& file, bool flag) {
    fmt::format_to(fmt::appender(file), FMT_COMPILE("#{}#\r\n"), flag ? "TRUE" : "FALSE");
}
void put(fmt::memory_buffer& file, std::int32_t number) {
    fmt::format_to(fmt::appender(file), FMT_COMPILE("{}\r\n"), number);
}

} // namespace

Displays MakeDisplays(std::int16_t count) {
    Dice dice;
    Displays displays;
    for (std::int16_t number = 1; number <= count; ++number)
        displays.push_back(makeDisplay(number, dice));
    return displays;
}

void SaveWithFmt(const Displays& displays, const std::string& path) {
    fmt::memory_buffer file;
    const auto putValue = [&](std::string_view, const auto& value) { put(file, value); };
    for (const DisplayRecord& display : displays) {
        ForEachValue(display, kDisplayMembers, putValue);
        for (const BrightnessSchedule& schedule : display.schedules)
            ForEachValue(schedule, kScheduleMembers, putValue);
    }
    WriteNewFile(path, {file.data(), file.size()});
}

} // namespace qrtVistrelClasses4::bench
