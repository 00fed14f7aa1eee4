#include "DisplayTesting.h"

namespace qrtVistrelClasses4 {
namespace {

class DisplayList : public DisplaysTest {
protected:
    std::string names() {
        std::string all;
        for (int number = 1; number <= displays_.TotalDisplays(); ++number)
            all += nameOf(number);
        return all;
    }
};

TEST_F(DisplayList, ShowsItsOperationsOnTheTrace) {
    KeptTrace trace;
    const ScopedTraceRecorder scope(trace);
    {
        DisplayDatabaseClass displays;
        displays.CurrentDisplayNumber(1);
        displays.FindDisplayByName("b");
        displays.Duplicate("A", "C");
        displays.RemoveDisplay(9);
        displays.TranslateConnectionMethodToString(1);
        displays.FrameSize(1);
        displays.GetSignTypeDescription();
    }
    std::erase_if(trace.lines, [](const std::string& line) { return line.starts_with("<"); });
    const std::string total = "> Property (Get) TotalDisplays ()";
    EXPECT_EQ(trace.lines,
              (Texts{"> Sub Class_Initialize ()", "> Property (Let) CurrentDisplayNumber (vData=1)",
                     "> Function FindDisplayByName (theName=b)", total,
                     "> Function Duplicate (NewDisplayName=C)", "> Function FindDisplayByName (theName=A)",
                     total, "> Function RemoveDisplay (displayNumber=9)", total,
                     "> Property (Get) DisplayType ()", "> Sub Class_Terminate ()"}));
}

TEST_F(DisplayList, AddsANameOnceWhateverItsCase) {
    EXPECT_EQ(displays_.FindDisplayByName(""), -1) << "the blank sign is none";
    EXPECT_EQ(displays_.AddNewDisplay(""), -1);
    EXPECT_EQ(displays_.TotalDisplays(), 0);
    EXPECT_EQ(displays_.AddNewDisplay("A"), 1) << "takes the place of the blank sign";
    EXPECT_EQ(displays_.AddNewDisplay("a"), -1);
    EXPECT_EQ(displays_.AddNewDisplay("42"), 2);
    EXPECT_EQ(displays_.AddNewDisplay("#42"), -1);
    EXPECT_EQ(displays_.AddNewDisplay("42"), 3) << "names are looked up as stored";
    EXPECT_EQ(displays_.CurrentDisplayNumber(), 1);
    EXPECT_EQ(names(), "A#42#42");
}

TEST_F(DisplayList, FindsNamesAsStoredWithoutRegardToCase) {
    for (const char* name : {"Pier 1", "12", "\311COLE", "pier 1 ", "pi\xF7"})
        displays_.AddNewDisplay(name);
    const std::pair<const char*, int> cases[] = {{"PIER 1", 1},   {"pier 1 ", 4}, {"12", -1},     {"#12", 2},
                                                 {"\351cole", 3}, {"Pier", -1},   {"pi\xD7", -1}, {"", -1}};
    for (const auto& [name, found] : cases)
        EXPECT_EQ(displays_.FindDisplayByName(name), found) << name;
}

TEST_F(DisplayList, CountsNothingBehindALastSignWithoutName) {
    loadSigns(3);
    displays_.CurrentDisplayNumber(2);
    displays_.DisplayName("");
    EXPECT_EQ(displays_.TotalDisplays(), 3) << "a nameless sign in between is one";
    displays_.CurrentDisplayNumber(3);
    displays_.DisplayName("");
    EXPECT_EQ(displays_.TotalDisplays(), 0);
    EXPECT_EQ(displays_.FindDisplayByName("text 1"), -1);
    EXPECT_FALSE(displays_.RemoveDisplay(1));
    EXPECT_EQ(displays_.Duplicate("text 1", "new"), -1);
    EXPECT_EQ(nameOf(1), "text 1");
    EXPECT_EQ(displays_.AddNewDisplay("text 1"), 1) << "it is not taken";
    EXPECT_EQ(saved(), fileText({displayLines(0)})) << "sign 1 keeps what it had, the others are gone";
}

TEST_F(DisplayList, RemovesOneSignWhole) {
    const struct {
        int number;
        std::vector<int> left;
    } cases[] = {{1, {1, 2}},    {2, {0, 2}},     {3, {0, 1}},        {0, {0, 1, 2}},
                 {4, {0, 1, 2}}, {-1, {0, 1, 2}}, {32767, {0, 1, 2}}, {-32768, {0, 1, 2}}};
    for (const auto& row : cases) {
        SCOPED_TRACE(row.number);
        loadSigns(3);
        displays_.CurrentDisplayNumber(3);
        EXPECT_FALSE(displays_.RemoveDisplay(static_cast<std::int16_t>(row.number)));
        EXPECT_EQ(displays_.CurrentDisplayNumber(), 3);
        std::vector<Texts> left;
        for (const int sign : row.left)
            left.push_back(displayLines(sign));
        EXPECT_EQ(saved(), fileText(left));
    }
    loadSigns(1);
    EXPECT_FALSE(displays_.RemoveDisplay(1));
    EXPECT_EQ(displays_.TotalDisplays(), 0);
    EXPECT_EQ(nameOf(1), "");
    EXPECT_EQ(displays_.AppDesc(), "") << "a blank sign stays";
    EXPECT_FALSE(displays_.RemoveDisplay(1));
    EXPECT_TRUE(host_.reports.all.empty());
}

TEST_F(DisplayList, DuplicatesEveryFieldButTheName) {
    loadSigns(3);
    EXPECT_EQ(displays_.Duplicate("TEXT 101", "77"), 4);
    EXPECT_EQ(displays_.CurrentDisplayNumber(), 1);
    Texts copy = displayLines(1);
    copy[0] = inFile(std::string("#77"));
    const std::string expected = fileText({displayLines(0), displayLines(1), displayLines(2), copy});
    EXPECT_EQ(saved(), expected);
    const struct {
        const char *why, *original, *copy;
    } refused[] = {{"no such sign", "text 9", "new"},
                   {"no name", "text 1", ""},
                   {"the name of another", "text 1", "Text 201"},
                   {"its own name", "text 1", "text 1"},
                   {"a sign without name", "", "new"}};
    for (const auto& row : refused)
        EXPECT_EQ(displays_.Duplicate(row.original, row.copy), -1) << row.why;
    EXPECT_EQ(saved(), expected);
    EXPECT_TRUE(host_.reports.all.empty());
}

TEST_F(DisplayList, NamesConnections) {
    displays_.PhoneNumber("555");
    displays_.IPAddress("10.0.0.5");
    displays_.CommPort("COM1");
    displays_.BaudRate("9600");
    const struct {
        std::int16_t method;
        const char *name, *info;
    } cases[] = {{0, "", ""},
                 {1, "Direct Connect", "COM1:9600"},
                 {2, "Network Connect", "10.0.0.5:COM1"},
                 {3, "Modem Connect", "555:COM1:9600"},
                 {4, "", ""},
                 {-1, "", ""}};
    for (const auto& row : cases) {
        displays_.ConnectionMethod(row.method);
        EXPECT_EQ(displays_.TranslateConnectionMethodToString(row.method), row.name) << row.method;
        EXPECT_EQ(displays_.GetConnectionInfoInString(), row.info) << row.method;
    }
}

TEST_F(DisplayList, DescribesEverySignType) {
    std::string changes, last;
    for (int type = -1; type < 32767; ++type) {
        displays_.DisplayType(std::to_string(type));
        if (const std::string name = displays_.GetSignTypeDescription(); name != last)
            changes += std::to_string(type) + " " + (last = name) + ", ";
    }
    EXPECT_EQ(changes,
              "-1 Generic, 16 Kestrel, 26 Generic, 32 Solvane, 42 Generic, 48 Herald Single Color, "
              "58 Generic, 64 DeskMate, 74 Generic, 80 Herald MultiColor, 90 Generic, 96 Other, "
              "104 One Line Finch, 112 QMX, 122 Generic, 128 Tessel, 138 Generic, 144 ORN, 154 Generic, "
              "160 ZR-7 - PhotoGleam, 161 ZR-7 - ScrollLink, 162 ZR-7 - PhotoTriad, "
              "163 ZR-7 - PhotoGleam, 170 Generic, 176 Meridian-HD, 178 Generic, ");
}

TEST_F(DisplayList, TellsNewFirmwareByOneDigitBeforeTheLastPoint) {
    const struct {
        const char *why, *firmware, *type;
        bool isNew;
    } cases[] = {{"no version", "", "16", false},
                 {"no point", "V 218", "16", false},
                 {"just new", "V 2.18b", "16", true},
                 {"just old", "V 2.17", "16", false},
                 {"one decimal", "2.2", "16", true},
                 {"type before the family", "Rev 1.44", "159", false},
                 {"first type of the family", "Rev 1.44", "160", true},
                 {"last type of the family", "Rev 1.44", "169", true},
                 {"type behind the family", "Rev 1.44", "170", false},
                 {"old in the family", "Rev 1.43", "161", false},
                 {"only one digit before the point", "12.10", "16", false},
                 {"only the last point", "9.1.3", "16", false},
                 {"only two decimals", "2.179", "16", false},
                 {"nothing behind the point", "V 3.", "16", true},
                 {"no digit before the point", "V.99", "16", false}};
    for (const auto& row : cases) {
        displays_.AppDesc(row.firmware);
        displays_.DisplayType(row.type);
        EXPECT_EQ(displays_.UseNew16x16(), row.isNew) << row.why;
    }
    EXPECT_TRUE(host_.reports.all.empty());
    displays_.AppDesc(".99");
    EXPECT_FALSE(displays_.UseNew16x16());
    EXPECT_EQ(host_.reports.takeNumbers(), Numbers{5});
    displays_.CurrentDisplayNumber(2);
    EXPECT_FALSE(displays_.UseNew16x16());
    EXPECT_EQ(displays_.GetConnectionInfoInString(), "");
    EXPECT_EQ(displays_.GetSignTypeDescription(), "");
    EXPECT_EQ(host_.reports.takeNumbers(), (Numbers{9, 9, 9, 13})) << "a type that is not there is no number";
}

} // namespace
} // namespace qrtVistrelClasses4
