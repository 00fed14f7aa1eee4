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

TEST(SignListValue, KeepsCopiesWholeAndNothingOfTheLastSignRemoved) {
    SignList list;
    list.signs.resize(1);
    list.signs.at(1) = signOf(1);
    EXPECT_EQ(list.duplicate(1, "77"), 2);
    EXPECT_FALSE(list.duplicate(1, "TEXT 101")) << "the name of another";
    list.remove(1);
    list.signs.at(1).DisplayName = signOf(1).DisplayName;
    EXPECT_TRUE(list.signs.at(1) == signOf(1));
    list.remove(1);
    EXPECT_TRUE(list.signs.at(1) == DisplayRecord()) << "a blank sign stays";
}

} // namespace
} // namespace qrtVistrelClasses4
