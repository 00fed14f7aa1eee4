// What texts mean as numbers: checked against the library, and on Windows against the system's own
// conversions.
#pragma once

#include <cstdint>

namespace qrtVistrelClasses4 {

inline constexpr int kOverflow = 6;
inline constexpr int kTypeMismatch = 13;

/// `error` is 0 where the text converts.
struct IntegerCase {
    const char* text;
    std::int16_t value;
    int error = 0;
};
/// Halves go to the even neighbour.
inline constexpr IntegerCase kInt16Cases[] = {
    {"0", 0},           {"-12", -12},  {"+7", 7},   {"  42  ", 42},    {"32767", 32767},
    {"-32768", -32768}, {"0.5", 0},    {"1.5", 2},  {"2.5", 2},        {"-2.5", -2},
    {"2.51", 3},        {"1e3", 1000}, {"1E-3", 0}, {"32767.4", 32767}};
inline constexpr IntegerCase kNoInt16Cases[] = {
    {"32767.5", 0, kOverflow}, {"32768", 0, kOverflow},     {"-32769", 0, kOverflow},
    {"1e300", 0, kOverflow},   {"", 0, kTypeMismatch},      {" ", 0, kTypeMismatch},
    {"abc", 0, kTypeMismatch}, {"12abc", 0, kTypeMismatch}, {"1 2", 0, kTypeMismatch},
    {"--1", 0, kTypeMismatch}, {"1.2.3", 0, kTypeMismatch}, {"inf", 0, kTypeMismatch},
    {"nan", 0, kTypeMismatch}};

struct DoubleCase {
    const char* text;
    double value;
    int error = 0;
};
/// Numbers too small to matter are 0.
inline constexpr DoubleCase kDoubleCases[] = {
    {"0.25", 0.25},          {".5", 0.5},           {"5.", 5},    {"-1.25E2", -125},
    {"1e-400", 0},           {"-0.000e-999", 0},    {"0.1", 0.1}, {"1e309", 0, kOverflow},
    {".", 0, kTypeMismatch}, {"", 0, kTypeMismatch}};

struct BooleanCase {
    const char* text;
    bool value;
    int error = 0;
};
inline constexpr BooleanCase kBooleanCases[] = {{"True", true},
                                                {"FALSE", false},
                                                {"tRuE", true},
                                                {"0", false},
                                                {"-1", true},
                                                {"0.25", true},
                                                {"2e1", true},
                                                {"", false, kTypeMismatch},
                                                {"yes", false, kTypeMismatch}};

struct NumberTextCase {
    double value;
    const char* text;
};
inline constexpr NumberTextCase kNumberTextCases[] = {{0, "0"},
                                                      {-0.0, "0"},
                                                      {3, "3"},
                                                      {-12.5, "-12.5"},
                                                      {0.1, "0.1"},
                                                      {1.0 / 3, "0.333333333333333"},
                                                      {123456789012345, "123456789012345"},
                                                      {1e15, "1E+15"},
                                                      {1.5e300, "1.5E+300"},
                                                      {0.0001, "0.0001"}};

} // namespace qrtVistrelClasses4
