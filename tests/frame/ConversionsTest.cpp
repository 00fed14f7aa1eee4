#include "frame/Conversions.h"

#include "ConversionCases.h"
#include "frame/RuntimeError.h"

#include <gtest/gtest.h>

#include <limits>

namespace qrtVistrelClasses4 {
namespace {

/// Compares value and error of each row's text with those of the row.
template <std::size_t size, class Case, class Convert>
void expectConversions(const Case (&rows)[size], Convert convert) {
    for (const Case& row : rows) {
        SCOPED_TRACE(row.text);
        try {
            EXPECT_EQ(convert(row.text), row.value);
            EXPECT_EQ(row.error, 0);
        } catch (const RuntimeError& error) {
            EXPECT_EQ(error.number(), row.error);
        }
    }
}

TEST(Conversions, ReadNumbersAndBooleansFromText) {
    expectConversions(kInt16Cases, TextToInt16);
    expectConversions(kNoInt16Cases, TextToInt16);
    expectConversions(kDoubleCases, TextToDouble);
    expectConversions(kBooleanCases, TextToBoolean);
    EXPECT_EQ(TextToInt32("2147483647"), 2147483647);
    EXPECT_THROW(TextToInt32("2147483648"), RuntimeError);
}

TEST(Conversions, ReadFilesOfPlacesThatWriteADecimalComma) {
    const DoubleCase cases[] = {{"1,25", 1.25},
                                {",5", 0.5},
                                {"-,5", -0.5},
                                {"-0,75", -0.75},
                                {"1,2,3", 0, kTypeMismatch},
                                {"1,2.3", 0, kTypeMismatch}};
    expectConversions(cases, TextToDouble);
}

TEST(Conversions, ReadTheNumberAtTheStartOfAText) {
    const DoubleCase cases[] = {{"12", 12},      {"  7 days", 7},
                                {"-3.5x", -3.5}, {"5] times", 5},
                                {"1e2]", 100},   {"1e", 1},
                                {"", 0},         {"x1", 0},
                                {"+4", 4},       {"1,5", 1},
                                {"infinity", 0}, {"--1", 0},
                                {"- 1", 0},      {"1e999", 0, kOverflow}};
    expectConversions(cases, LeadingNumber);
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
