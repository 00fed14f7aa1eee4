#include "DisplayTesting.h"

namespace qrtVistrelClasses4 {
namespace {

class DisplayList : public DisplaysTest {};

TEST_F(DisplayList, AddsANameOnceWhateverItsCase) {
    const std::pair<const char*, int> added[] = {
        {"", -1},         {"Pier 1", 1}, {"pIER 1", -1}, {"pier 1 ", 2}, {"\311COLE", 3},
        {"\351cole", -1}, {"42", 4},     {"#42", -1},    {"42", 5}, // names are looked up as stored
        {"pi\xF7", 6},    {"pi\xD7", 7}};
    for (const auto& [name, number] : added)
        EXPECT_EQ(displays_.AddNewDisplay(name), number) << name;
    EXPECT_EQ(displays_.FindDisplayByName("PIER 1"), 1);
    EXPECT_EQ(displays_.FindDisplayByName("42"), -1);
}

TEST_F(DisplayList, CountsNothingBehindALastSignWithoutName) {
    load(fileOf({0, 1, 2}));
    displays_.CurrentDisplayNumber(2);
    displays_.DisplayName("");
    EXPECT_EQ(displays_.FindDisplayByName("text 201"), 3) << "a nameless sign in between is one";
    displays_.CurrentDisplayNumber(3);
    displays_.DisplayName("");
    EXPECT_EQ(displays_.TotalDisplays(), 0);
    displays_.RemoveDisplay(1);
    EXPECT_EQ(displays_.AddNewDisplay("text 1"), 1) << "it is not taken";
    EXPECT_EQ(saved(), fileOf({0})) << "sign 1 keeps what it had, the others are gone";
}

TEST_F(DisplayList, RemovesAndDuplicatesSignsWhole) {
    const std::pair<std::int16_t, std::vector<int>> cases[] = {
        {1, {1, 2}}, {2, {0, 2}}, {3, {0, 1}}, {0, {0, 1, 2}}, {4, {0, 1, 2}}};
    for (const auto& [number, left] : cases) {
        load(fileOf({0, 1, 2}));
        EXPECT_FALSE(displays_.RemoveDisplay(number));
        EXPECT_EQ(saved(), fileOf(left)) << number;
    }
    EXPECT_EQ(displays_.Duplicate("TEXT 101", "77"), 4);
    EXPECT_EQ(displays_.Duplicate("text 9", "new"), -1) << "no such sign";
    EXPECT_EQ(displays_.Duplicate("text 1", "Text 201"), -1) << "the name of another";
    Texts copy = linesOf(1);
    copy[0] = "\"#77\"";
    EXPECT_EQ(saved(), fileOf({0, 1, 2}) + fileText(copy));
    load(fileOf({0}));
    displays_.RemoveDisplay(1);
    EXPECT_EQ(displays_.TotalDisplays(), 0);
    EXPECT_EQ(displays_.AppDesc(), "") << "a blank sign stays";
}

TEST_F(DisplayList, NamesConnections) {
    displays_.PhoneNumber("555");
    displays_.IPAddress("10.0.0.5");
    displays_.CommPort("COM1");
    displays_.BaudRate("9600");
    std::string described;
    for (std::int16_t method = 0; method <= 4; ++method) {
        displays_.ConnectionMethod(method);
        described += displays_.TranslateConnectionMethodToString(method) + " ";
        described += displays_.GetConnectionInfoInString() + ", ";
    }
    EXPECT_EQ(described,
              " , Direct Connect COM1:9600, Network Connect 10.0.0.5:COM1, Modem Connect 555:COM1:9600,  , ");
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
    } cases[] = {{"no point", "V 218", "16", false},
                 {"just new", "V 2.18b", "16", true},
                 {"first type of the family", "Rev 1.44", "160", true},
                 {"type behind the family", "Rev 1.44", "170", false},
                 {"only one digit before the point", "12.10", "16", false},
                 {"nothing behind the point", "V 3.", "16", true}};
    for (const auto& row : cases) {
        displays_.AppDesc(row.firmware);
        displays_.DisplayType(row.type);
        EXPECT_EQ(displays_.UseNew16x16(), row.isNew) << row.why;
    }
    displays_.AppDesc(".99");
    EXPECT_FALSE(displays_.UseNew16x16());
    displays_.CurrentDisplayNumber(2);
    EXPECT_EQ(displays_.GetSignTypeDescription(), "");
    EXPECT_EQ(takeErrors(), (Numbers{5, 9, 13})) << "a type that is not there is no number";
}

} // namespace
} // namespace qrtVistrelClasses4
