// The system's own conversions are the measure of ours, for any inputs.
#include "RandomInputs.h"
#include "frame/Conversions.h"
#include <qrtVistrelClasses4/RuntimeError.h>

#include <gtest/gtest.h>

#include <windows.h>

#include <oleauto.h>

#include <bit>
#include <cmath>

namespace qrtVistrelClasses4 {
namespace {

std::wstring wide(const std::string& text) { return {text.begin(), text.end()}; }

/// A value, and 0 or the number of the error that there is instead of it.
using Outcome = std::pair<double, int>;

template <class Convert, class Input>
Outcome ours(Convert convert, const Input& input) {
    try {
        return {convert(input), 0};
    } catch (const RuntimeError& error) {
        return {0, error.number()};
    }
}

template <class Value, class Convert>
Outcome systems(Convert convert) {
    Value value{};
    const HRESULT result = convert(&value);
    if (result == S_OK)
        return {value, 0};
    return {0, result == DISP_E_OVERFLOW ? 6 : result == DISP_E_TYPEMISMATCH ? 13 : static_cast<int>(result)};
}

/// Leaves out what no file contains, although the system understands it: currency, negative money, thousands
/// and other bases, a sign after the number, and several signs, or blanks after a sign, before it. Also
/// leaves out exponents of many digits, which the system takes for too large even if they are negative.
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
        const auto [number, error] = ours(TextToDouble, text);
        const auto [systemsNumber, systemsError] = systems<double>(by(VarR8FromStr));
        EXPECT_EQ(error, systemsError);
        EXPECT_NEAR(number, systemsNumber, 1e-14 * std::abs(number)) << "the system rounds more than once";
        EXPECT_EQ(ours([](const std::string& flag) { return TextToBoolean(flag) ? -1 : 0; }, text),
                  systems<VARIANT_BOOL>(by(VarBoolFromStr)));
        if (number != 0 && std::abs(number) < 0.5)
            continue; // Wine makes some of these 1
        EXPECT_EQ(ours(TextToInt16, text), systems<SHORT>(by(VarI2FromStr)));
        EXPECT_EQ(ours(TextToInt32, text), systems<LONG>(by(VarI4FromStr)));
    }
}

/// Any bits, or a decimal number of few digits, or one close to a half.
double randomNumber(RandomInputs& random) {
    const double numbers[] = {std::bit_cast<double>(random.bits()), (random.below(400001) - 200000) / 2.0,
                              std::ldexp(random.below(1000000), random.below(80) - 40),
                              (random.below(2000001) - 1000000) * std::pow(10.0, random.below(24) - 16)};
    return numbers[random.below(4)];
}

TEST(SystemConversions, WriteAndRoundRandomNumbersAsWeDo) {
    RandomInputs random;
    for (int left = RandomInputs::count(); left > 0 && !testing::Test::HasFailure(); --left) {
        const double number = randomNumber(random);
        if (!std::isfinite(number))
            continue;
        SCOPED_TRACE(testing::PrintToString(number));
        const auto by = [&](auto convert) { return [=](auto* value) { return convert(number, value); }; };
        EXPECT_EQ(ours(RoundToInt16, number), systems<SHORT>(by(VarI2FromR8)));
        EXPECT_EQ(ours(RoundToInt32, number), systems<LONG>(by(VarI4FromR8)));
        BSTR text = nullptr;
        ASSERT_EQ(VarBstrFromR8(number, LOCALE_INVARIANT, 0, &text), S_OK);
        EXPECT_EQ(wide(NumberToText(number)), std::wstring(text, SysStringLen(text)));
        SysFreeString(text);
    }
}

} // namespace
} // namespace qrtVistrelClasses4
