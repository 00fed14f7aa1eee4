// Values as text, and files of one value after the other: with delimiters between them, or each in quotes on
// a line of its own.
#include "TestHost.h"
#include "frame/Conversions.h"
#include "frame/DelimitedValues.h"
#include "frame/QuotedLines.h"

#include <gtest/gtest.h>

#include <cfloat>
#include <tuple>

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

template <class Reader>
void expectValues(std::initializer_list<std::tuple<const char*, std::string_view, Texts>> rows) {
    for (const auto& [why, text, expected] : rows) {
        Texts values;
        for (Reader in(text); !in.atEnd();)
            values.emplace_back(in.value());
        EXPECT_EQ(values, expected) << why;
    }
}

/// The value at the start of `text`, or the number of the error as "E13".
template <class Value, class Reader>
std::string taken(const std::string& text) {
    Value value{};
    try {
        Reader(text).get(value);
    } catch (const RuntimeError& error) {
        return "E" + std::to_string(error.number());
    }
    return std::to_string(value);
}

/// Each row is a value with what it is as 16 bits, as 32 bits and as flag, whatever ends it.
template <class Reader>
void expectNumbers(std::initializer_list<std::pair<std::string, std::string>> rows) {
    for (const auto& [value, expected] : rows)
        for (const std::string& text : {value + "\r\n", value + "\n9", value}) {
            const std::string numbers = taken<std::int16_t, Reader>(text) + " " +
                                        taken<std::int32_t, Reader>(text) + " " + taken<bool, Reader>(text);
            EXPECT_EQ(numbers, expected) << text;
        }
}

TEST(DelimitedReader, TakesValuesFromLinesAndFromBetweenCommas) {
    expectValues<DelimitedReader>({
        {"lines, with half an end too", "\"a\"\r\n2\n\"\"\r3\r\n", {"a", "2", "", "3"}},
        {"one line, with blanks everywhere", "  \"a\" ,  b c ,\" d \"", {"a", "b c ", " d "}},
        {"separators in quotes", "\"a,b\r\nc\",2", {"a,b\r\nc", "2"}},
        {"a quote inside a text splits it", "\"6\" sign\"\r\n2", {"6", "sign\"", "2"}},
        {"texts without a separator", "\"a\"\"b\"2", {"a", "b", "2"}},
        {"a quote inside a plain value", "a\"b,c\",2", {"a\"b", "c\"", "2"}},
        {"a comma and a line end are two separators", ",\"a\",\r\n2", {"", "a", "", "2"}},
    });
}

// clang-format off
TEST(DelimitedReader, ConvertsValuesWhateverEndsThem) {
    expectNumbers<DelimitedReader>({
        {"-5", "-5 -5 1"}, {"0", "0 0 0"}, {"  5", "5 5 1"}, {"5 ", "5 5 1"}, {"\"5\"", "5 5 1"}, {".4", "0 0 1"},
        {"32768", "E6 32768 1"}, {"2147483648", "E6 E6 1"}, {"1e999", "E6 E6 E6"}, {"#TRUE#", "E13 E13 1"}, {"#FALSE#", "E13 E13 0"}, {"\"#true#\"", "E13 E13 1"},
        {"True", "E13 E13 E13"}, {"5x", "E13 E13 E13"}, {"\"5", "E62 E62 E62"}});
}

TEST(QuotedLineReader, ConvertsValuesWhateverEndsThem) {
    expectNumbers<QuotedLineReader>({
        {"\"-5\"", "-5 -5 1"}, {"\" 2,5 \"", "2 2 1"}, {"70000", "E6 70000 1"}, {"\"True\"", "E13 E13 1"},
        {"\"False\"", "E13 E13 0"}, {"\" true\t\"", "E13 E13 1"},
        {"\"\"", "E13 E13 E13"}, {"\"12\"3\"", "E13 E13 E13"}});
    EXPECT_EQ((taken<std::int16_t, QuotedLineReader>("")), "E62");
    EXPECT_EQ((taken<double, QuotedLineReader>("\"-2,5\"")), std::to_string(-2.5));
}
// clang-format on

TEST(QuotedLineReader, TakesOneValueFromEachLine) {
    expectValues<QuotedLineReader>({
        {"a plain line is a value, an empty one too", "\"a\"\r\n\r\n\"\"\n 9 ", {"a", "", "", " 9 "}},
        {"blanks around the quotes do not count", "  \"a\"  \r\n", {"a"}},
        {"a quote inside a value of foreign make", "\"6\" sign\"\r\n", {"6\" sign"}},
        {"a text of several lines", "\"one\r\ntwo\r\n\r\n\"\r\n\"b\"\r\n", {"one\r\ntwo\r\n\r\n", "b"}},
        {"a text that starts with a line break", "\"\r\none\"\r\n\"b\"\r\n", {"\r\none", "b"}},
        {"a lost closing quote", "\"a\r\n\"b\"\r\n", {"a", "b"}},
        {"before an indented line", "\"a\r\n \t\"b\"\r\n", {"a", "b"}},
        {"a closing quote between blanks", "\"a\r\n \" \t\r\n\"b\"\n", {"a\r\n ", "b"}},
        {"a lost closing quote two lines before the next", "\"a\r\nx\r\n\"b\"\r\n", {"a", "x", "b"}},
        {"a lost closing quote at the end", "\"a\r\nx\r\n", {"a", "x"}},
        {"a quote alone, a carriage return inside a line", "a\rb\r\n\"", {"a\rb", ""}},
    });
}

TEST(QuotedLineWriter, PutsTextsLargerThanAnyBufferAndNoQuoteInsideThem) {
    MemoryPlatform machine;
    const std::string path = JoinPath(machine.library, "values"), longText(200'000, 'x');
    const auto file = machine.files().open(path, OpenMode::replace);
    QuotedLineWriter out(*file.value());
    out.putPlainLine(longText);
    out.put("6\" sign");
    out.put(longText);
    out.put(1.25);
    out.finish();
    EXPECT_TRUE(machine.files().content(path) ==
                longText + "\r\n\"6\x01 sign\"\r\n\"" + longText + "\"\r\n\"1.25\"\r\n");
}

} // namespace
} // namespace qrtVistrelClasses4
