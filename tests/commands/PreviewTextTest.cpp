#include "commands/PreviewText.h"

#include "TestHost.h"
#include "settings/RegistrySettings.h"

#include <gtest/gtest.h>

#include <chrono>

namespace qrtVistrelClasses4 {
namespace {

struct Previews : testing::Test {
    MemoryFileSystem& files() { return host_.machine.files(); }
    CalendarNames& names() { return host_.machine.calendar; }

    TestHost host_;
    LocalTime& now_ = host_.machine.time = {2024, 3, 5, 9, 5, 59, 2};
    std::string path_ = JoinPath(host_.inLibrary("db"), "VistrelLite.dat");
};

TEST_F(Previews, ShowEveryCommandInTheUsersLanguage) {
    const struct {
        const char *code, *english, *german;
    } cases[] = {{"|h:m|", "09:05 ", "09:05 "},
                 {"|hm|", "0905", "0905"},
                 {"|m/dd/y|", "03/05/24", "03.05.24"},
                 {"|mmmmmmm_dd,_yyy|", "Mar 05 2024", "M\344r 05 2024"},
                 {"|dddddddd_mmmmmmmm_dd,_yyy|", "Tuesday March 05, 2024", "Dienstag M\344rz 05, 2024"},
                 {"|mm_d|", "Mar 05", "M\344r 05"},
                 {"|ddddddd|", "Tuesday", "Dienstag"},
                 {"|CMMMMMM_DD,_YYY|", "MAR 05 2024", "M\304R 05 2024"},
                 {"|CDDDDDDD_MMMMMMMM_DD,_YYY|", "TUESDAY MARCH 05, 2024", "DIENSTAG M\304RZ 05, 2024"},
                 {"|CM_D|", "MAR 05", "M\304R 05"},
                 {"|CDDDDDD|", "TUESDAY", "DIENSTAG"},
                 {"##C", "##C", "##C"},
                 {"\246", "127", "127"}};
    for (const auto& row : cases)
        EXPECT_EQ(PreviewCommandText(row.code, 0), row.english);
    names().months[2] = "M\344rz";
    names().shortMonths[2] = "M\344r";
    names().weekdays[2] = "Dienstag";
    names().dateSeparator = ".";
    names().morning = "";
    for (const auto& row : cases)
        EXPECT_EQ(PreviewCommandText(row.code, 0), row.german);
}

TEST_F(Previews, ShiftTimesAndLeaveDates) {
    const struct {
        int hour, minute;
        std::int16_t hours;
        const char *clock, *military;
    } cases[] = {{0, 0, 0, "12:00 ", "0000"},     {0, 59, 1, "01:59 ", "0159"},
                 {12, 0, 0, "12:00 ", "1200"},    {14, 30, -15, "11:30 ", "2330"},
                 {23, 1, 1, "12:01 ", "0001"},    {10, 10, 48, "10:10 ", "1010"},
                 {1, 0, 32767, "08:00 ", "0800"}, {0, 0, -32768, "04:00 ", "1600"}};
    for (const auto& row : cases) {
        now_.hour = row.hour;
        now_.minute = row.minute;
        EXPECT_EQ(PreviewCommandText("|h:m|", row.hours), row.clock);
        EXPECT_EQ(PreviewCommandText("|hm|", row.hours), row.military);
        EXPECT_EQ(PreviewCommandText("|m/dd/y|", row.hours), "03/05/24");
    }
    now_ = {2009, 12, 10, 9, 5, 0, 6};
    names().timeSeparator = " h ";
    names().morning = "xAMPMyAM";
    EXPECT_EQ(PreviewCommandText("|h:m|", 0), "09 h 05 xy") << "the English markers are taken out";
    EXPECT_EQ(PreviewCommandText("|m/dd/y|", 0), "12/10/09");
}

TEST_F(Previews, OfCountersAndVariablesNeedNoTable) {
    for (const char* code : {"CR01", "CR12", "CR013", "CR14", "CR16"})
        EXPECT_EQ(PreviewCommandText(code, 0), code);
    EXPECT_EQ(PreviewCommandText("VBL012", 0), "");
    WriteSetting("Vistrel3", "Variables", "VBL012", "G\374nter");
    EXPECT_EQ(PreviewCommandText("VBL012", 0), "G\374nter");
    EXPECT_TRUE(files().fileNames().empty());
    EXPECT_EQ(PreviewCommandText("CR13", 0), "67824951") << "only \"CR013\" is that counter";
}

TEST_F(Previews, OfOtherCodesAreChosenByTheirBytesAsANumber) {
    using namespace std::string_literals;
    const struct {
        const char* why;
        std::string code, text;
    } cases[] = {{"a zero before the bytes of the time", "zero", "09:05 "},
                 {"the same without a row", "\0\024"s, "09:05 "},
                 {"other bytes with the digits of a date", ",\t", "03/05/24"},
                 {"a row without bytes", "empty", "empty"},
                 {"a row without key", "", "##F"},
                 {"bytes that are the key as a number", "20", "20"},
                 {"too large for 32 bits", "\326JS@\010", "2147483648"},
                 {"20 in the lower 32 bits", "*^`I\020", "4294967316"}};
    files().put(path_, std::string(14, '\n') + "zero\377\0\024\n20\377\024\nempty\n\377\006\n"s);
    for (const auto& row : cases)
        EXPECT_EQ(PreviewCommandText(row.code, 0), row.text) << row.why;
}

TEST_F(Previews, EndForTextsAndTablesThatAreMadeToBeLarge) {
    const std::string prefix(100, 'a');
    CommandTable commands = BuiltInCommands();
    for (int number = 10000; number < 15000; ++number)
        commands.set(prefix + std::to_string(number), "\006");
    commands.set("e", std::string(1 << 20, '\006'));
    WriteSetting("Vistrel3", "Variables", "VBL001", std::string(1 << 20, 'v'));
    TextPreviews previews(commands, 0);
    const struct {
        const char* why;
        std::string text, start;
    } cases[] = {{"nearly every key at each place", std::string(100'000, 'a'), "aaa"},
                 {"a large command, many times", std::string(1000, 'e'), "666"},
                 {"a large variable", "|hm|VBL001", "0905v"}};
    for (const auto& row : cases) {
        const std::string shown = previews.of(row.text);
        EXPECT_EQ(shown.size(), kLongestPreview) << row.why;
        EXPECT_TRUE(shown.starts_with(row.start)) << row.why;
    }
    EXPECT_EQ(previews.of(prefix + "12345" + prefix), "##F" + prefix);
    EXPECT_TRUE(files().fileNames().empty());
}

TEST_F(Previews, ShowTheMomentThatTheyAreGiven) {
    using namespace std::chrono;
    TextPreviews previews(BuiltInCommands(), 0);
    EXPECT_EQ(previews.of("|hm|, |m/dd/y|"), "0905, 03/05/24");
    previews.setMoment(local_days(2028y / February / 29) + 23h + 59min);
    EXPECT_EQ(previews.of("|hm|, |m/dd/y|"), "2359, 02/29/28");
    previews.setMoment(local_seconds::max());
    EXPECT_EQ(previews.of("|dddddddd_mmmmmmmm_dd,_yyy|"), "Friday December 31, 9999");
    EXPECT_TRUE(previews.showsTime("at |hm|"));
    EXPECT_FALSE(previews.showsTime("hm ##C VBL001 CR01"));
}

TEST_F(Previews, OfATextReplaceItsCodesFromTheStartOnAndReadAndWriteTheTableOnce) {
    files().put(path_, "");
    WriteSetting("Vistrel3", "Variables", "VBL007", "|hm|");
    int reads = 0, writes = 0;
    files().observer = [&](const FileOperation& operation) {
        reads += operation.kind == FileOperation::read ? 1 : 0;
        writes += operation.kind == FileOperation::rename ? 1 : 0;
        return SystemError::none;
    };
    EXPECT_EQ(PreviewText("A {time}##C|hm||hm|hm|VBL007|hm|20\xa6", 2),
              "A {time}##C11051105hm||hm|110520\xa6");
    EXPECT_EQ(std::pair(reads, writes), std::pair(1, 1));
}

} // namespace
} // namespace qrtVistrelClasses4
