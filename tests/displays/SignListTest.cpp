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

} // namespace
} // namespace qrtVistrelClasses4
