#include "commands/PreviewText.h"

#include "TestHost.h"
#include "settings/RegistrySettings.h"

#include <gtest/gtest.h>

namespace qrtVistrelClasses4 {
namespace {

class CommandPreviews : public testing::Test {
protected:
    MemoryFileSystem& files() { return host_.machine.files(); }
    CalendarNames& names() { return host_.machine.calendar; }

    TestHost host_;
    LocalTime& now_ = host_.machine.time = {2024, 3, 5, 9, 5, 59, 2};
    std::string path_ = JoinPath(host_.inLibrary("db"), "VistrelLite.dat");
};

TEST_F(CommandPreviews, ShowsEveryCommandInTheUsersLanguage) {
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
                 {"##F", "##F", "##F"},
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
    now_ = {2009, 12, 31, 0, 0, 0, 6};
    EXPECT_EQ(PreviewCommandText("|m/dd/y|", 0), "12.31.09");
}

TEST_F(CommandPreviews, ShiftsTimesAndLeavesDates) {
    const struct {
        int hour, minute;
        std::int16_t hours;
        const char *clock, *military;
    } cases[] = {
        {0, 0, 0, "12:00 ", "0000"},      {0, 59, 1, "01:59 ", "0159"},    {12, 0, 0, "12:00 ", "1200"},
        {14, 30, 0, "02:30 ", "1430"},    {14, 30, -15, "11:30 ", "2330"}, {23, 1, 1, "12:01 ", "0001"},
        {3, 7, -27, "12:07 ", "0007"},    {3, 7, 57, "12:07 ", "1207"},    {1, 0, 32767, "08:00 ", "0800"},
        {0, 0, -32768, "04:00 ", "1600"},
    };
    for (const auto& row : cases) {
        now_.hour = row.hour;
        now_.minute = row.minute;
        EXPECT_EQ(PreviewCommandText("|h:m|", row.hours), row.clock);
        EXPECT_EQ(PreviewCommandText("|hm|", row.hours), row.military);
        EXPECT_EQ(PreviewCommandText("|m/dd/y|", row.hours), "03/05/24");
    }
}

TEST_F(CommandPreviews, TakesTheEnglishMarkersOutOfATimeAndNoOthers) {
    names().timeSeparator = " h ";
    const std::pair<const char*, const char*> cases[] = {
        {"a.m.", "09 h 05 a.m."}, {"xAMPMyAM", "09 h 05 xy"}, {"APMM", "09 h 05 AM"}};
    for (const auto& [marker, clock] : cases) {
        names().morning = marker;
        EXPECT_EQ(PreviewCommandText("|h:m|", 0), clock);
    }
}

TEST_F(CommandPreviews, CountersAndVariablesNeedNoTable) {
    for (const char* code : {"CR01", "CR02", "CR03", "CR04", "CR05", "CR06", "CR07", "CR08", "CR09", "CR10",
                             "CR11", "CR12", "CR013", "CR14", "CR15", "CR16"})
        EXPECT_EQ(PreviewCommandText(code, 0), code);
    EXPECT_EQ(PreviewCommandText("VBL012", 0), "");
    WriteSetting("Vistrel3", "Variables", "VBL012", "G\374nter");
    EXPECT_EQ(PreviewCommandText("VBL012", 0), "G\374nter");
    EXPECT_EQ(PreviewCommandText("VBL", 0), "");
    EXPECT_TRUE(files().fileNames().empty());
    EXPECT_EQ(PreviewCommandText("CR13", 0), "67824951") << "only \"CR013\" is that counter";
    EXPECT_EQ(PreviewCommandText("CR17", 0), "67824955");
    EXPECT_EQ(PreviewCommandText("vbl", 0), "11898108");
}

TEST_F(CommandPreviews, AnyOtherCodeIsChosenByItsBytesAsANumber) {
    using namespace std::string_literals;
    std::string digits;
    for (int count = 0; count < 300; ++count)
        digits += "120";
    const struct {
        const char* why;
        std::string code, text;
    } cases[] = {{"a zero before the bytes of the time", "zero", "09:05 "},
                 {"the same without a row", "\0\024"s, "09:05 "},
                 {"other bytes with the digits of a date", ",\t", "03/05/24"},
                 {"unknown", "\0A"s, "065"},
                 {"a row without bytes", "empty", "empty"},
                 {"a row without key", "", "##F"},
                 {"too large for 32 bits", "\326JS@\010", "2147483648"},
                 {"20 in the lower 32 bits", "*^`I\020", "4294967316"},
                 {"long", std::string(300, 'x'), digits}};
    files().put(path_, std::string(14, '\n') + "zero\377\0\024\n20\377\024\nempty\n\377\006\n"s);
    for (const auto& row : cases)
        EXPECT_EQ(PreviewCommandText(row.code, 0), row.text) << row.why;
    (void)files().remove(path_);
    EXPECT_EQ(PreviewCommandText("", 0), "") << "no row without key";
    EXPECT_TRUE(host_.reports.all.empty());
}

TEST_F(CommandPreviews, KnowsTheBuiltInCommandsWhenTheTableCannotBeRead) {
    files().put(path_, "table");
    host_.failReads(1, 99);
    for (int time = 0; time < 2; ++time)
        EXPECT_EQ(PreviewCommandText("|mm_d|", 0), "Mar 05");
    EXPECT_EQ(files().content(path_ + ".bak"), "table") << "what was kept first stays";
}

} // namespace
} // namespace qrtVistrelClasses4
