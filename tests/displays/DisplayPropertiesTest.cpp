#include "DisplayTesting.h"

namespace qrtVistrelClasses4 {
namespace {

class DisplayProperties : public DisplaysTest {};

TEST_F(DisplayProperties, OfANewSignAreBlankButForTheHighestSensorMaximum) {
    EXPECT_EQ(displays_.ClassDebugID(), 0);
    EXPECT_EQ(displays_.CurrentDisplayNumber(), 1);
    EXPECT_EQ(displays_.CurrentBrightnessScheduleNumber(), 0);
    displays_.AddNewDisplay("A");
    Texts lines = linesOf(kBlank);
    lines[0] = "\"A\"";
    EXPECT_EQ(saved(), fileText(lines));
    EXPECT_EQ(displays_.LightSensorMaximum(), 9);
    lines[18] = "9";
    EXPECT_EQ(saved(), fileText(lines)) << "stored by reading it";
}

TEST_F(DisplayProperties, KeepEverySignAndScheduleApartInMemoryAndInTheFile) {
    std::string written;
    for (std::int16_t sign = 0; sign < 5; ++sign) {
        displays_.AddNewDisplay("sign " + std::to_string(sign));
        displays_.CurrentDisplayNumber(sign + 1);
        for (const DisplayLine& line : kDisplayLines) {
            displays_.CurrentBrightnessScheduleNumber(line.schedule);
            line.write(displays_, 100 * sign + line.number);
        }
        Texts lines = linesOf(sign);
        lines[33] = lines[34] = "\"\"";
        written += fileText(lines);
    }
    EXPECT_EQ(saved(), written);
    load(fileOf({0, 1, 2, 3, 4}));
    for (std::int16_t sign = 0; sign < 5; ++sign) {
        displays_.CurrentDisplayNumber(sign + 1);
        for (const DisplayLine& line : kDisplayLines) {
            displays_.CurrentBrightnessScheduleNumber(line.schedule);
            EXPECT_EQ(line.read(displays_), line.text(100 * sign + line.number)) << line.property;
        }
    }
    EXPECT_EQ(saved(), fileOf({0, 1, 2, 3, 4}));
}

TEST_F(DisplayProperties, TrapACursorOutsideTheListOrTheSchedules) {
    load(fileOf({0, 1, 2}));
    const std::pair<std::int16_t, std::int16_t> cursors[] = {{0, 1}, {4, 1}, {1, 0}, {1, 5}};
    for (const auto& [display, schedule] : cursors)
        for (const DisplayLine& line : kDisplayLines) {
            displays_.CurrentDisplayNumber(display);
            displays_.CurrentBrightnessScheduleNumber(schedule);
            if (display == 1 && line.schedule == 0)
                continue;
            line.write(displays_, 402); // a number as a sign type, too
            EXPECT_EQ(line.read(displays_), line.text(0));
            Texts told;
            for (const auto& [error, procedure, stack] : std::exchange(host_.reports.all, {}))
                told.push_back(std::to_string(error.number()) + " " + procedure.module + " " +
                               procedure.procedure + (stack.empty() ? " untraced" : ""));
            const std::string start = "9 DisplayDatabaseClass.cls Property ";
            const std::string end = line.property + std::string(line.isTraced() ? "" : " untraced");
            EXPECT_EQ(told, (Texts{start + "(Let) " + end, start + "(Get) " + end}));
        }
    EXPECT_EQ(saved(), fileOf({0, 1, 2}));
}

TEST_F(DisplayProperties, GuardNamesThatReadAsPlainNumbers) {
    const std::pair<const char*, const char*> cases[] = {
        {"12", "#12"},      {"-5", "#-5"},  {"12.5", "#12.5"},  {"1E+15", "#1E+15"},  {"#12", "#12"},
        {"12.50", "12.50"}, {" 12", " 12"}, {"1e999", "1e999"}, {"Pier 1", "Pier 1"}, {"", ""}};
    for (const auto& [given, stored] : cases) {
        displays_.DisplayName(given);
        EXPECT_EQ(displays_.DisplayName(), stored);
    }
    Texts lines = linesOf(0);
    lines[0] = "\"12\"";
    load(fileText(lines)); // which takes any name
    EXPECT_EQ(displays_.DisplayName(), "#12");
    lines[0] = "\"#12\"";
    EXPECT_EQ(saved(), fileText(lines)) << "guarded by reading it";
}

} // namespace
} // namespace qrtVistrelClasses4
