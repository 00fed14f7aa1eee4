#include "frame/Conversions.h"

#include "frame/RuntimeError.h"

#include <gtest/gtest.h>

#include <cfloat>

#ifdef _WIN32
#include <windows.h>

#include <oleauto.h>
#endif

namespace qrtVistrelClasses4 {
namespace {

constexpr int kOverflow = 6;
constexpr int kTypeMismatch = 13;

/// What a text means as a number. `error` is 0 where it converts.
template <class Value>
struct TextCase {
    const char* text;
    Value value;
    int error = 0;
};

// clang-format off
/// Halves go to the even neighbour.
constexpr TextCase<std::int16_t> kInt16Cases[] = {
    {"0", 0}, {"-12", -12}, {"+7", 7}, {"  42  ", 42}, {"32767", 32767}, {"-32768", -32768}, {"0.5", 0}, {"1.5", 2},
    {"2.5", 2}, {"-2.5", -2}, {"2.51", 3}, {"1e3", 1000}, {"1E-3", 0}, {"32767.4", 32767}, {"32767.5", 0, kOverflow},
    {"32768", 0, kOverflow}, {"-32769", 0, kOverflow}, {"1e300", 0, kOverflow}, {"", 0, kTypeMismatch},
    {" ", 0, kTypeMismatch}, {"abc", 0, kTypeMismatch}, {"12abc", 0, kTypeMismatch}, {"1 2", 0, kTypeMismatch},
    {"--1", 0, kTypeMismatch}, {"1.2.3", 0, kTypeMismatch}, {"inf", 0, kTypeMismatch}, {"nan", 0, kTypeMismatch}};
/// Numbers too small to matter are 0.
constexpr TextCase<double> kDoubleCases[] = {
    {"0.25", 0.25}, {".5", 0.5}, {"5.", 5}, {"-1.25E2", -125}, {"1e-400", 0}, {"-0.000e-999", 0}, {"0.1", 0.1},
    {"1e309", 0, kOverflow}, {".", 0, kTypeMismatch}, {"", 0, kTypeMismatch}, {"1e309x", 0, kTypeMismatch}};
constexpr TextCase<bool> kBooleanCases[] = {
    {"True", true}, {"FALSE", false}, {"tRuE", true}, {"0", false}, {"-1", true}, {"0.25", true}, {"2e1", true},
    {"", false, kTypeMismatch}, {"yes", false, kTypeMismatch}};
constexpr struct {
    double value;
    const char* text;
} kNumberTextCases[] = {
    {0, "0"}, {-0.0, "0"}, {3, "3"}, {-12.5, "-12.5"}, {0.1, "0.1"}, {1.0 / 3, "0.333333333333333"},
    {123456789012345, "123456789012345"}, {1e15, "1E+15"}, {1.5e300, "1.5E+300"}, {0.0001, "0.0001"},
    {3.420440673828125, "3.42044067382813"}, {-500000000000.0625, "-500000000000.063"}};
/// Files of places that write a decimal comma.
constexpr TextCase<double> kCommaCases[] = {
    {"1,25", 1.25}, {",5", 0.5}, {"-,5", -0.5}, {"-0,75", -0.75}, {"1,2,3", 0, kTypeMismatch},
    {"1,2.3", 0, kTypeMismatch}};
/// Numbers at the start of a text.
constexpr TextCase<double> kLeadingCases[] = {
    {"12", 12}, {"  7 days", 7}, {"-3.5x", -3.5}, {"5] times", 5}, {"1e2]", 100}, {"1e", 1}, {"", 0}, {"x1", 0},
    {"+4", 4}, {"1,5", 1}, {"infinity", 0}, {"--1", 0}, {"- 1", 0}, {"1e999", 0, kOverflow},
    {"1e-99999999999999999999", 0}, {"1e99999999999999999999", 0, kOverflow}};
// clang-format on

template <class Value, std::size_t size, class Convert>
void expectConversions(const TextCase<Value> (&rows)[size], Convert convert) {
    for (const TextCase<Value>& row : rows) {
        SCOPED_TRACE(row.text);
        try {
            EXPECT_EQ(static_cast<Value>(convert(row.text)), row.value);
            EXPECT_EQ(row.error, 0);
        } catch (const RuntimeError& error) {
            EXPECT_EQ(error.number(), row.error);
        }
    }
}

TEST(Conversions, ReadNumbersAndBooleansFromText) {
    expectConversions(kInt16Cases, TextToInt16);
    expectConversions(kDoubleCases, TextToDouble);
    expectConversions(kCommaCases, TextToDouble);
    expectConversions(kBooleanCases, TextToBoolean);
    expectConversions(kLeadingCases, LeadingNumber);
    EXPECT_EQ(TextToInt32("2147483647"), 2147483647);
    EXPECT_THROW(TextToInt32("2147483648"), RuntimeError);
}

TEST(Conversions, WriteNumbersShortly) {
    for (const auto& row : kNumberTextCases)
        EXPECT_EQ(NumberToText(row.value), row.text);
    EXPECT_EQ(NumberToText(std::int32_t{-2147483647 - 1}), "-2147483648");
    EXPECT_EQ(TextToDouble(NumberToText(-DBL_MAX)), -DBL_MAX) << "rounding must not make it too large";
}

#ifdef _WIN32
std::wstring wide(const char* text) { return {text, text + std::char_traits<char>::length(text)}; }

template <class Value, class Function>
auto bySystem(Function convert) {
    return [convert](const char* text) {
        Value value{};
        const HRESULT result = convert(wide(text).data(), LOCALE_INVARIANT, 0, &value);
        if (result != S_OK)
            throw RuntimeError(result == DISP_E_OVERFLOW       ? kOverflow
                               : result == DISP_E_TYPEMISMATCH ? kTypeMismatch
                                                               : static_cast<int>(result),
                               "");
        return value;
    };
}

TEST(Conversions, AgreeWithThoseOfTheSystem) {
    expectConversions(kInt16Cases, bySystem<SHORT>(VarI2FromStr));
    expectConversions(kDoubleCases, bySystem<double>(VarR8FromStr));
    expectConversions(kBooleanCases, bySystem<VARIANT_BOOL>(VarBoolFromStr));
    for (const auto& row : kNumberTextCases) {
        BSTR text = nullptr;
        ASSERT_EQ(VarBstrFromR8(row.value, LOCALE_INVARIANT, 0, &text), S_OK);
        EXPECT_EQ(std::wstring(text, SysStringLen(text)), wide(row.text));
        SysFreeString(text);
    }
}
#endif

} // namespace
} // namespace qrtVistrelClasses4
