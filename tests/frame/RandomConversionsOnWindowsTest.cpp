// The system's own conversions are the measure of ours, for any inputs.
#include "RandomInputs.h"
#include "frame/Conversions.h"
#include "frame/RuntimeError.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <oleauto.h>

#include <bit>
#include <cmath>
#include <cstdlib>
#include <string>

namespace qrtVistrelClasses4 {
namespace {

std::wstring wide(const std::string& text) { return {text.begin(), text.end()}; }

/// A value as text with all its digits, or an error.
template <class Value>
std::string shown(Value value) {
    char text[40];
    std::snprintf(text, sizeof text, "%.17g", static_cast<double>(value == 0 ? Value{} : value));
    return text;
}

template <class Convert>
std::string ours(Convert convert) {
    try {
        return shown(convert());
    } catch (const RuntimeError& error) {
        return "error " + std::to_string(error.number());
    }
}

template <class SystemValue, class Convert>
std::string systems(Convert convert) {
    SystemValue value{};
    switch (const HRESULT result = convert(&value)) {
    case S_OK:
        return shown(value);
    case DISP_E_OVERFLOW:
        return "error 6";
    case DISP_E_TYPEMISMATCH:
        return "error 13";
    default:
        return "result " + std::to_string(result);
    }
}

/// Equal, but for the last bits of a number, which the system's own arithmetic rounds more than once.
testing::AssertionResult areClose(const std::string& ours, const std::string& systems) {
    if (ours == systems)
        return testing::AssertionSuccess();
    const bool areNumbers = !ours.starts_with("error") && !systems.starts_with("error");
    const double left = areNumbers ? std::stod(ours) : 0;
    const double right = areNumbers ? std::stod(systems) : 0;
    if (areNumbers && std::abs(left - right) <= 1e-14 * std::abs(left))
        return testing::AssertionSuccess();
    return testing::AssertionFailure() << ours << " is not " << systems;
}

/// Not drawn, as no file holds it: what stands for money, negative money, thousands and other bases, a sign
/// behind the number, and several signs or blanks behind one before it, all of which the system understands;
/// exponents of many digits, which it takes for too large even when they are negative.
std::string randomNumberText(RandomInputs& random) {
    const std::string_view sign = random.below(2) == 0 ? "" : random.below(2) == 0 ? "-" : "+";
    std::string text = random.text({" ", "  ", "\t"}, 1).append(sign);
    text += random.text({"0", "1", "2", "5", "9", "49", "50", "32767", "2147483647", "000", ".", ".5", "1 2",
                         "x", "True", "false"},
                        5);
    if (random.below(3) == 0)
        text += random.text({"e3", "E-2", "e30", "E+7", "e-20", "e", "E ", "e-", "1e1"}, 1);
    return text + random.text({" "}, 2);
}

TEST(SystemConversions, ReadRandomTextsAsWeDo) {
    RandomInputs random;
    for (int left = RandomInputs::count(); left > 0 && !testing::Test::HasFailure(); --left) {
        const std::string text = randomNumberText(random);
        SCOPED_TRACE("\"" + text + "\"");
        const auto by = [&](auto convert) {
            return [=](auto* value) { return convert(wide(text).data(), LOCALE_INVARIANT, 0, value); };
        };
        EXPECT_TRUE(areClose(ours([&] { return TextToDouble(text); }), systems<double>(by(VarR8FromStr))));
        EXPECT_EQ(ours([&] { return TextToBoolean(text) ? -1 : 0; }),
                  systems<VARIANT_BOOL>(by(VarBoolFromStr)));
        if (const double number = std::abs(std::strtod(text.c_str(), nullptr)); number > 0 && number < 0.5)
            continue; // Wine makes some of these 1
        EXPECT_EQ(ours([&] { return TextToInt16(text); }), systems<SHORT>(by(VarI2FromStr)));
        EXPECT_EQ(ours([&] { return TextToInt32(text); }), systems<LONG>(by(VarI4FromStr)));
    }
}

/// Any bits, or a decimal number of few digits, or one close to a half.
double randomNumber(RandomInputs& random) {
    switch (random.below(4)) {
    case 0:
        return std::bit_cast<double>(random.bits());
    case 1:
        return (random.below(400001) - 200000) / 2.0;
    case 2:
        return std::ldexp(static_cast<double>(random.bits() % 1000000), random.below(80) - 40);
    default:
        return (random.below(2000001) - 1000000) * std::pow(10.0, random.below(24) - 16);
    }
}

TEST(SystemConversions, WriteAndRoundRandomNumbersAsWeDo) {
    RandomInputs random;
    for (int left = RandomInputs::count(); left > 0 && !testing::Test::HasFailure(); --left) {
        const double number = randomNumber(random);
        if (!std::isfinite(number))
            continue;
        SCOPED_TRACE(shown(number));
        const auto by = [&](auto convert) { return [=](auto* value) { return convert(number, value); }; };
        EXPECT_EQ(ours([&] { return RoundToInt16(number); }), systems<SHORT>(by(VarI2FromR8)));
        EXPECT_EQ(ours([&] { return RoundToInt32(number); }), systems<LONG>(by(VarI4FromR8)));
        BSTR text = nullptr;
        ASSERT_EQ(VarBstrFromR8(number, LOCALE_INVARIANT, 0, &text), S_OK);
        EXPECT_EQ(wide(NumberToText(number)), std::wstring(text, SysStringLen(text)));
        SysFreeString(text);
    }
}

} // namespace
} // namespace qrtVistrelClasses4
