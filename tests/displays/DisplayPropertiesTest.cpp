#include "DisplayTesting.h"

namespace qrtVistrelClasses4 {
namespace {

std::string text(const std::string& value) { return value; }
std::string text(std::int32_t value) { return std::to_string(value); }

class DisplayProperties : public DisplaysTest {
protected:
    /// Calls `visit(name, member, get, set)` for each property, in file order.
    template <class Visit>
    void forEachProperty(Visit visit) {
// clang-format off
#define PROPERTY(name, inSign) visit(#name, [=](auto& sign) -> auto& { return sign.inSign; }, \
        [&] { return displays_.name(); }, [&](const auto& value) { \
            if constexpr (requires { displays_.name(value); }) displays_.name(value); \
            else displays_.name(text(value)); });
#define P(name) PROPERTY(name, name)
#define S(name) PROPERTY(BrightnessScheduleX##name, schedules.at(number).name)
        P(DisplayName) P(DisplayType) P(DisplayHeight) P(DisplayWidth) P(IsDisplayColor) P(DefaultColor)
        P(ColorsSupported) P(SwitchOperated) P(TempProbeInstalled) P(DisplayIDs) P(DaylightSavingsTime)
        P(ScrollPauseDelay) P(TempProbeAdjust) P(TimeZoneAdjustment) P(ScrollingTextSpeed) P(ResetOnGetParameters)
        P(BrightnessLevel) P(LightSensorMinimum) P(LightSensorMaximum) P(PhoneNumber) P(IPAddress) P(CommPort)
        P(BaudRate) P(ConnectionMethod) P(LightSensorInstalled) P(FrameSize) P(Switch1) P(Switch2) P(BlinkRateShow)
        P(BlinkRateClear) P(AppDesc) P(BlinkBehavior) P(BlinkTimes) P(BrightnessScheduleDefaultBrightness)
        for (std::int16_t number = 1; number <= 4; ++number) {
            displays_.CurrentBrightnessScheduleNumber(number);
            S(BrightnessLevel) S(StartTime) S(StopTime)
        }
        // clang-format on
    }
};

TEST_F(DisplayProperties, KeepEverySignAndScheduleApart) {
    load(fileOf({0, 1, 2, 3, 4}));
    SignList expected = displays_.Value();
    for (std::int16_t sign = 1; sign <= 5; ++sign) {
        displays_.CurrentDisplayNumber(sign);
        SwitchTrace(sign > 1);
        int code = 100 * (sign - 1);
        forEachProperty([&](const std::string& name, auto member, auto get, auto set) {
            auto& value = member(expected.signs.at(sign));
            using Value = std::remove_reference_t<decltype(value)>;
            code += code % 100 == 33 ? 3 : 1; // two lines have no property
            KeptTrace trace;
            const ScopedTraceRecorder scope(trace);
            EXPECT_EQ(text(get()), text(valueOf<Value>(code))) << name;
            set(value = valueOf<Value>(code + 500)); // flags change in one of the signs at least
            EXPECT_TRUE(displays_.Value() == expected) << name;
            const bool isTraced = sign > 1 && (code % 100 < 26 || code % 100 > 33);
            EXPECT_EQ(trace.lines.empty() ? "" : trace.lines[1],
                      isTraced ? "< Property (Get) " + name + " ()" : "");
        });
    }
}

TEST_F(DisplayProperties, TrapACursorOutsideTheListOrTheSchedules) {
    displays_.CurrentDisplayNumber(2);
    forEachProperty([&](const std::string& name, auto member, auto get, auto set) {
        for (const bool traceIsOn : {false, true}) {
            SwitchTrace(traceIsOn);
            DisplayRecord sign = signOf(4);
            set(member(sign));
            EXPECT_EQ(get(), decltype(get())());
            EXPECT_EQ(host_.reports.all.back().procedure.procedure, "Property (Get) " + name);
            EXPECT_EQ(takeErrors(), (Numbers{9, 9}));
        }
    });
    displays_.CurrentDisplayNumber(1);
    displays_.CurrentBrightnessScheduleNumber(5);
    displays_.BrightnessScheduleXStopTime("lost");
    EXPECT_EQ(takeErrors(), Numbers{9});
}

TEST_F(DisplayProperties, GuardNamesThatReadAsPlainNumbers) {
    const std::pair<const char*, const char*> cases[] = {
        {"12", "#12"},      {"-5", "#-5"},  {"12.5", "#12.5"},  {"1E+15", "#1E+15"},  {"#12", "#12"},
        {"12.50", "12.50"}, {" 12", " 12"}, {"1e999", "1e999"}, {"Pier 1", "Pier 1"}, {"", ""}};
    for (const auto& [given, stored] : cases) {
        displays_.DisplayName(given);
        EXPECT_EQ(displays_.Value().signs.at(1).DisplayName, stored);
    }
    DisplayRecord sign = signOf(0);
    sign.DisplayName = "12";
    load(fileWith(sign)); // which takes any name
    EXPECT_EQ(saved(), fileWith(sign));
    EXPECT_EQ(displays_.DisplayName(), sign.DisplayName = "#12");
    displays_.LightSensorMaximum(0);
    EXPECT_EQ(displays_.LightSensorMaximum(), sign.LightSensorMaximum = 9);
    EXPECT_EQ(saved(), fileWith(sign)) << "stored by reading them";
}

TEST_F(DisplayProperties, ShowNewFirmwareByOneDigitBeforeTheLastPoint) {
    const std::tuple<const char*, const char*, bool> cases[] = {
        {"V 218", "16", false},     {"V 2.18b", "16", true}, {"Rev 1.44", "160", true},
        {"Rev 1.44", "170", false}, {"12.10", "16", false},  {"V 3.", "16", true},
        {".99", "16", false}};
    for (const auto& [firmware, type, isNew] : cases) {
        displays_.AppDesc(firmware);
        displays_.DisplayType(type);
        EXPECT_EQ(displays_.UseNew16x16(), isNew) << firmware << ", type " << type;
    }
    EXPECT_EQ(displays_.GetSignTypeDescription(), "Kestrel");
    EXPECT_EQ(SignTypeName(25), "Kestrel");
    EXPECT_EQ(SignTypeName(26), "Generic");
    displays_.CurrentDisplayNumber(2);
    EXPECT_EQ(displays_.GetSignTypeDescription(), "");
    EXPECT_EQ(takeErrors(), (Numbers{5, 9})) << "a sign that is not there is one error";
}

} // namespace
} // namespace qrtVistrelClasses4
