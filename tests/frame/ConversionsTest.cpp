#include "frame/Conversions.h"

#include <qrtVistrelClasses4/RuntimeError.h>

#include <gtest/gtest.h>

#include <cfloat>

namespace qrtVistrelClasses4 {
namespace {

/// Each row is a text and what it converts to, the number of an error as "E6". Flags are 0 and 1.
template <class Convert>
void expectConversions(Convert convert, std::initializer_list<std::pair<const char*, std::string>> rows) {
    for (const auto& [text, expected] : rows) {
        SCOPED_TRACE(text);
        try {
            EXPECT_EQ(NumberToText(static_cast<double>(convert(text))), expected);
        } catch (const RuntimeError& error) {
            EXPECT_EQ("E" + std::to_string(error.number()), expected);
        }
    }
}

// clang-format off
TEST(Conversions, ReadTextsWithHalvesRoundedToTheEvenNeighbourAndTooSmallNumbersTakenFor0) {
    expectConversions(TextToInt16, {
        {"0", "0"}, {"+7", "7"}, {"  42  ", "42"}, {"0.5", "0"}, {"1.5", "2"}, {"2.5", "2"}, {"-2.5", "-2"},
        {"2.51", "3"}, {"1e3", "1000"}, {"32767.4", "32767"}, {"32767.5", "E6"}, {"-32768", "-32768"},
        {"-32769", "E6"}, {"1e300", "E6"}, {" ", "E13"}, {"abc", "E13"}, {"12abc", "E13"}, {"--1", "E13"},
        {"1.2.3", "E13"}, {"inf", "E13"}});
    expectConversions(TextToInt32, {{"2147483647", "2147483647"}, {"2147483648", "E6"}});
    expectConversions(TextToDouble, {
        {".5", "0.5"}, {"5.", "5"}, {"-1.25E2", "-125"}, {"1e-400", "0"}, {"-0.000e-999", "0"},
        {"1e309", "E6"}, {".", "E13"}, {"", "E13"}, {"1e309x", "E13"}, {"-,5", "-0.5"}, {"1,25", "1.25"},
        {"1,2,3", "E13"}, {"1,2.3", "E13"}});
    expectConversions(LeadingNumber, {
        {"  7 days", "7"}, {"-3.5x", "-3.5"}, {"1e2]", "100"}, {"1e", "1"}, {"", "0"}, {"x1", "0"},
        {"+4", "4"}, {"1,5", "1"}, {"infinity", "0"}, {"--1", "0"}, {"1e999", "E6"},
        {"1e-99999999999999999999", "0"}, {"1e99999999999999999999", "E6"}});
    expectConversions(TextToBoolean, {
        {"tRuE", "1"}, {"FALSE", "0"}, {"0", "0"}, {"-1", "1"}, {"0.25", "1"}, {"", "E13"}, {"yes", "E13"}});
}

TEST(Conversions, WriteNumbersWith15DigitsAtTheMost) {
    const std::pair<double, const char*> cases[] = {
        {-0.0, "0"}, {-12.5, "-12.5"}, {1.0 / 3, "0.333333333333333"}, {123456789012345, "123456789012345"},
        {1e15, "1E+15"}, {1.5e300, "1.5E+300"}, {0.0001, "0.0001"}, {3.420440673828125, "3.42044067382813"},
        {-500000000000.0625, "-500000000000.063"}};
    for (const auto& [number, text] : cases)
        EXPECT_EQ(NumberToText(number), text);
    EXPECT_EQ(NumberToText(std::int32_t{-2147483647 - 1}), "-2147483648");
    EXPECT_EQ(TextToDouble(NumberToText(-DBL_MAX)), -DBL_MAX) << "rounding must not make it too large";
}
// clang-format on

} // namespace
} // namespace qrtVistrelClasses4
