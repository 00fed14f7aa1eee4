#include "frame/Conversions.h"

#include "ConversionCases.h"
#include "frame/RuntimeError.h"

#include <gtest/gtest.h>

#include <limits>

namespace qrtVistrelClasses4 {
namespace {

/// Runs `convert` and compares value and error with those of `row`.
template <class Case, class Convert>
void expectConversion(const Case& row, Convert convert) {
    SCOPED_TRACE(row.text);
    try {
        EXPECT_EQ(convert(row.text), row.value);
        EXPECT_EQ(row.error, 0);
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.number(), row.error);
    }
}

TEST(Conversions, ReadIntegersFromText) {
    for (const IntegerCase& row : kInt16Cases) {
        expectConversion(row, TextToInt16);
        if (row.error != 0)
            continue;
        EXPECT_EQ(TextToInt32(row.text), row.value) << row.text;
    }
    EXPECT_EQ(TextToInt32("2147483647"), 2147483647);
    EXPECT_THROW(TextToInt32("2147483648"), RuntimeError);
}

TEST(Conversions, ReadDoublesFromText) {
    for (const DoubleCase& row : kDoubleCases)
        expectConversion(row, TextToDouble);
}

TEST(Conversions, ReadFilesOfPlacesThatWriteADecimalComma) {
    const DoubleCase cases[] = {{"1,25", 1.25},
                                {",5", 0.5},
                                {"-,5", -0.5},
                                {"-0,75", -0.75},
                                {"1,2,3", 0, kTypeMismatch},
                                {"1,2.3", 0, kTypeMismatch}};
    for (const DoubleCase& row : cases)
        expectConversion(row, TextToDouble);
}

TEST(Conversions, ReadBooleansFromText) {
    for (const BooleanCase& row : kBooleanCases)
        expectConversion(row, TextToBoolean);
}

TEST(Conversions, ReadTheNumberAtTheStartOfAText) {
    const DoubleCase cases[] = {{"12", 12},      {"  7 days", 7},
                                {"-3.5x", -3.5}, {"5] times", 5},
                                {"1e2]", 100},   {"1e", 1},
                                {"", 0},         {"x1", 0},
                                {"+4", 4},       {"1,5", 1},
                                {"infinity", 0}, {"--1", 0},
                                {"- 1", 0},      {"1e999", 0, kOverflow}};
    for (const DoubleCase& row : cases)
        expectConversion(row, LeadingNumber);
}

TEST(Conversions, WriteNumbersShortly) {
    for (const NumberTextCase& row : kNumberTextCases)
        EXPECT_EQ(NumberToText(row.value), row.text);
    EXPECT_EQ(NumberToText(std::int32_t{-2147483647 - 1}), "-2147483648");
    constexpr double largest = std::numeric_limits<double>::max();
    EXPECT_EQ(TextToDouble(NumberToText(-largest)), -largest) << "rounding must not make it too large";
}

} // namespace
} // namespace qrtVistrelClasses4
