// Whole numbers as they are typed.
#pragma once

#include <istream>

namespace qrtVistrelClasses4 {

/// A whole number in decimal. Options that are plain integers also accept octal and hexadecimal numbers.
template <class Value>
struct Decimal {
    Decimal() = default;
    explicit Decimal(Value number) : value(number) {}
    Value value = 0;
};

template <class Value>
std::istream& operator>>(std::istream& in, Decimal<Value>& number) {
    return in >> number.value;
}

} // namespace qrtVistrelClasses4
