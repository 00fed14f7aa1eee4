// What texts mean as numbers: checked against the library, and on Windows against the system's own
// conversions.
#pragma once

#include <array>
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
inline constexpr std::array kInt16Cases{
    IntegerCase{"0", 0},
    IntegerCase{"-12", -12},
    IntegerCase{"+7", 7},
    IntegerCase{"  42  ", 42},
    IntegerCase{"32767", 32767},
    IntegerCase{"-32768", -32768},
    IntegerCase{"0.5", 0},    // halves go to the even neighbour
    IntegerCase{"1.5", 2},    //
    IntegerCase{"2.5", 2},    //
    IntegerCase{"-2.5", -2},  //
    IntegerCase{"2.51", 3},   //
    IntegerCase{"1e3", 1000}, //
    IntegerCase{"1E-3", 0},
    IntegerCase{"32767.4", 32767},
    IntegerCase{"32767.5", 0, kOverflow},
    IntegerCase{"32768", 0, kOverflow},
    IntegerCase{"-32769", 0, kOverflow},
    IntegerCase{"1e300", 0, kOverflow},
    IntegerCase{"", 0, kTypeMismatch},
    IntegerCase{" ", 0, kTypeMismatch},
    IntegerCase{"abc", 0, kTypeMismatch},
    IntegerCase{"12abc", 0, kTypeMismatch},
    IntegerCase{"1 2", 0, kTypeMismatch},
    IntegerCase{"--1", 0, kTypeMismatch},
    IntegerCase{"1.2.3", 0, kTypeMismatch},
    IntegerCase{"inf", 0, kTypeMismatch},
    IntegerCase{"nan", 0, kTypeMismatch},
    IntegerCase{"Start Loop [5] times", 0, kTypeMismatch},
};

struct DoubleCase {
    const char* text;
    double value;
    int error = 0;
};
inline constexpr std::array kDoubleCases{
    DoubleCase{"0.25", 0.25},
    DoubleCase{".5", 0.5},
    DoubleCase{"5.", 5},
    DoubleCase{"-1.25E2", -125},
    DoubleCase{"1e-400", 0}, // too small to matter
    DoubleCase{"-0.000e-999", 0},
    DoubleCase{"0.1", 0.1},
    DoubleCase{"1e309", 0, kOverflow},
    DoubleCase{".", 0, kTypeMismatch},
    DoubleCase{"", 0, kTypeMismatch},
};

struct BooleanCase {
    const char* text;
    bool value;
    int error = 0;
};
inline constexpr std::array kBooleanCases{
    BooleanCase{"True", true},
    BooleanCase{"FALSE", false},
    BooleanCase{"tRuE", true},
    BooleanCase{"0", false},
    BooleanCase{"-1", true},
    BooleanCase{"0.25", true},
    BooleanCase{"2e1", true},
    BooleanCase{"", false, kTypeMismatch},
    BooleanCase{"yes", false, kTypeMismatch},
};

struct NumberTextCase {
    double value;
    const char* text;
};
inline constexpr std::array kNumberTextCases{
    NumberTextCase{0, "0"},
    NumberTextCase{-0.0, "0"},
    NumberTextCase{3, "3"},
    NumberTextCase{-12.5, "-12.5"},
    NumberTextCase{0.1, "0.1"},
    NumberTextCase{1.0 / 3, "0.333333333333333"},
    NumberTextCase{123456789012345, "123456789012345"},
    NumberTextCase{1e15, "1E+15"},
    NumberTextCase{1.5e300, "1.5E+300"},
    NumberTextCase{0.0001, "0.0001"},
};

} // namespace qrtVistrelClasses4
