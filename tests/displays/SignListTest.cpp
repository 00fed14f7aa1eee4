// The rules of a list of signs, on the value.
#include "DisplayTesting.h"
#include <qrtVistrelClasses4/SignList.h>

namespace qrtVistrelClasses4 {
namespace {

TEST(SignListValue, AddsANameOnceWhateverItsCase) {
    SignList list;
    const std::pair<const char*, int> added[] = {
        {"", -1},         {"Pier 1", 1}, {"pIER 1", -1}, {"pier 1 ", 2}, {"\311COLE", 3},
        {"\351cole", -1}, {"42", 4},     {"#42", -1},    {"42", 5}, // names are looked up as stored
        {"pi\xF7", 6},    {"pi\xD7", 7}};
    for (const auto& [name, number] : added)
        EXPECT_EQ(list.add(name).value_or(-1), number) << name;
}

TEST(SignListValue, KeepsSignsWhole) {
    SignList list;
    list.signs.resize(3);
    for (const std::int16_t number : {std::int16_t{1}, std::int16_t{3}})
        list.signs.at(number) = signOf(number);
    EXPECT_EQ(list.duplicate(3, "77"), 4);
    EXPECT_FALSE(list.duplicate(3, "TEXT 101")) << "the name of another";
    EXPECT_EQ(list.find("#77"), 4) << "a nameless sign in between counts";
    list.remove(1);
    list.signs.at(3).DisplayName = signOf(3).DisplayName;
    EXPECT_TRUE(list.signs.at(3) == signOf(3));
    list.signs.at(3).DisplayName.clear();
    EXPECT_EQ(list.count(), 0);
    EXPECT_EQ(list.add("a"), 1) << "the others are gone";
    list.remove(1);
    EXPECT_TRUE(list.signs.at(1) == DisplayRecord()) << "a blank sign stays";
}

TEST(SignListValue, NamesEverySignType) {
    std::string changes, last;
    for (int type = -1; type < 32767; ++type)
        if (const std::string_view name = SignTypeName(type); name != last)
            changes += std::to_string(type) + " " + (last = name) + ", ";
    EXPECT_EQ(changes,
              "-1 Generic, 16 Kestrel, 26 Generic, 32 Solvane, 42 Generic, 48 Herald Single Color, 58 "
              "Generic, 64 DeskMate, 74 Generic, 80 Herald MultiColor, 90 Generic, 96 Other, 104 One Line "
              "Finch, 112 QMX, 122 Generic, 128 Tessel, 138 Generic, 144 ORN, 154 Generic, 160 ZR-7 - "
              "PhotoGleam, 161 ZR-7 - ScrollLink, 162 ZR-7 - PhotoTriad, 163 ZR-7 - PhotoGleam, 170 Generic, "
              "176 Meridian-HD, 178 Generic, ");
}

} // namespace
} // namespace qrtVistrelClasses4
