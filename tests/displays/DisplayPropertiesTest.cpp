#include "DisplayTesting.h"

namespace qrtVistrelClasses4 {
namespace {

class DisplayProperties : public DisplaysTest {};

TEST_F(DisplayProperties, StartWithOneBlankSignUnderTheCursor) {
    EXPECT_EQ(displays_.ClassDebugID(), 0);
    EXPECT_EQ(displays_.TotalDisplays(), 0);
    EXPECT_EQ(displays_.CurrentDisplayNumber(), 1);
    EXPECT_EQ(displays_.CurrentBrightnessScheduleNumber(), 0);
    forAll(displays_, [&]<class Value, class Given>(DisplayProperty<Value, Given> property, int line) {
        const std::string where = property.name;
        const Value value = (displays_.*property.read)();
        if constexpr (std::is_same_v<Value, std::string>)
            EXPECT_EQ(value, line == 2 ? "0" : "") << where;
        else
            EXPECT_EQ(value, line == 19 ? Value(9) : Value()) << where;
    });
    EXPECT_TRUE(host_.reports.all.empty());
}

TEST_F(DisplayProperties, KeepEverySignAndScheduleApartInMemoryAndInTheFile) {
    std::vector<Texts> expected;
    for (std::int16_t sign = 0; sign < 5; ++sign) {
        displays_.AddNewDisplay("sign " + std::to_string(sign));
        displays_.CurrentDisplayNumber(static_cast<std::int16_t>(sign + 1));
        forAll(displays_, [&]<class Value, class Given>(DisplayProperty<Value, Given> property, int line) {
            (displays_.*property.write)(displayValue<Value>(sign, line));
        });
        expected.push_back(displayLines(sign));
        for (const int line : kReservedLines)
            expected.back().at(line - 1) = "\"\"";
    }
    EXPECT_EQ(saved(), fileText(expected));

    loadSigns(5);
    for (std::int16_t sign = 0; sign < 5; ++sign) {
        displays_.CurrentDisplayNumber(static_cast<std::int16_t>(sign + 1));
        forAll(displays_, [&]<class Value, class Given>(DisplayProperty<Value, Given> property, int line) {
            EXPECT_EQ((displays_.*property.read)(), displayValue<Value>(sign, line)) << property.name;
        });
    }
    EXPECT_TRUE(host_.reports.all.empty());
}

TEST_F(DisplayProperties, TrapACursorOutsideTheListOrTheSchedules) {
    loadSigns(3);
    const auto expectTrapped = [&]<class Value, class Given>(const DisplayProperty<Value, Given>& property,
                                                             std::size_t stackSize) {
        SCOPED_TRACE(property.name);
        const Value value = displayValue<Value>(4, property.line);
        (displays_.*property.write)(value);
        EXPECT_EQ((displays_.*property.read)(), Value());
        ASSERT_EQ(host_.reports.all.size(), 2u);
        for (const ErrorReport& report : host_.reports.all) {
            const bool isLet = &report == &host_.reports.all[0];
            EXPECT_EQ(report.procedure.module, "DisplayDatabaseClass.cls");
            EXPECT_EQ(report.procedure.procedure,
                      (isLet ? "Property (Let) " : "Property (Get) ") + std::string(property.name));
            EXPECT_EQ(report.procedure.arguments, isLet ? "(vData=" + TraceText(value) + ")" : "()");
            EXPECT_EQ(report.stack.size(), stackSize) << "on the trace, or not";
        }
        EXPECT_EQ(host_.reports.takeNumbers(), (Numbers{9, 9}));
    };
    const auto expectTrappedTraced = [&](const auto& property) { expectTrapped(property, 1); };
    displays_.CurrentBrightnessScheduleNumber(1);
    for (const int cursor : {0, -1, 4, 32767}) {
        displays_.CurrentDisplayNumber(static_cast<std::int16_t>(cursor));
        forEach(kTracedProperties, expectTrappedTraced);
        forEach(kScheduleProperties, expectTrappedTraced);
        forEach(kUntracedProperties, [&](const auto& property) { expectTrapped(property, 0); });
    }
    displays_.CurrentDisplayNumber(1);
    for (const int cursor : {0, -1, 5, 32767}) {
        displays_.CurrentBrightnessScheduleNumber(static_cast<std::int16_t>(cursor));
        forEach(kScheduleProperties, expectTrappedTraced);
    }
    EXPECT_EQ(saved(), fileText({displayLines(0), displayLines(1), displayLines(2)}));
}

TEST_F(DisplayProperties, GuardNamesThatReadAsPlainNumbers) {
    const struct {
        const char *given, *stored;
    } cases[] = {
        {"12", "#12"},        {"-5", "#-5"},      {"12.5", "#12.5"}, {"0", "#0"},        {"#12", "#12"},
        {"1E+15", "#1E+15"},  {"12.50", "12.50"}, {" 12", " 12"},    {"12 ", "12 "},     {"+5", "+5"},
        {"007", "007"},       {"-0", "-0"},       {"1e3", "1e3"},    {"1e999", "1e999"}, {"12,5", "12,5"},
        {"Pier 1", "Pier 1"}, {"&H10", "&H10"},   {"", ""}};
    for (const auto& row : cases) {
        SCOPED_TRACE(row.given);
        displays_.DisplayName(row.given);
        EXPECT_EQ(displays_.DisplayName(), row.stored);
        Texts lines = displayLines(0);
        lines[0] = inFile(std::string(row.given));
        load(fileText({lines, displayLines(1)})); // which takes any name
        EXPECT_EQ(displays_.DisplayName(), row.stored) << "guarded by reading it";
        lines[0] = inFile(std::string(row.stored));
        EXPECT_EQ(saved(), fileText({lines, displayLines(1)})) << "and stored so";
    }
    EXPECT_TRUE(host_.reports.all.empty());
}

TEST_F(DisplayProperties, MakeAnUnsetSensorMaximumTheHighestWhenItIsRead) {
    displays_.AddNewDisplay("A");
    const std::string unset = saved();
    EXPECT_EQ(displays_.LightSensorMaximum(), 9);
    EXPECT_NE(saved(), unset) << "stored as well";
    displays_.LightSensorMaximum(-3);
    EXPECT_EQ(displays_.LightSensorMaximum(), -3);
}

TEST_F(DisplayProperties, TakeTheSignTypeAsText) {
    const struct {
        const char *given, *read;
        Numbers errors;
    } cases[] = {{"7", "7", {}},    {" 160 ", "160", {}}, {"-2.5", "-2", {}},
                 {"x", "-2", {13}}, {"", "-2", {13}},     {"32768", "-2", {6}}};
    for (const auto& row : cases) {
        displays_.DisplayType(row.given);
        EXPECT_EQ(displays_.DisplayType(), row.read) << row.given;
        EXPECT_EQ(host_.reports.takeNumbers(), row.errors) << row.given;
    }
}

} // namespace
} // namespace qrtVistrelClasses4
