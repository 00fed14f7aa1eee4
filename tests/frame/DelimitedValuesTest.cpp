#include "frame/DelimitedValues.h"

#include "TestHost.h"

#include <gtest/gtest.h>

namespace qrtVistrelClasses4 {
namespace {

TEST(DelimitedReader, TakesValuesFromLinesAndFromBetweenCommas) {
    const struct {
        const char* why;
        std::string_view text;
        Texts values;
    } cases[] = {
        {"usual lines", "\"a\"\r\n2\r\n\"\"\r\n", {"a", "2", ""}},
        {"one line", "\"a\",2,\"b c\"", {"a", "2", "b c"}},
        {"half a line end", "1\n\"a\"\r2\n", {"1", "a", "2"}},
        {"blanks before a value", "   2,  \"a\"", {"2", "a"}},
        {"blanks inside and behind a plain value", "a b ,2", {"a b ", "2"}},
        {"blanks behind a closing quote", "\"a\"  \r\n\" b \" ,2", {"a", " b ", "2"}},
        {"separators in quotes", "\"a,b\r\nc\",2", {"a,b\r\nc", "2"}},
        {"a quote inside a text splits it", "\"6\" sign\"\r\n2", {"6", "sign\"", "2"}},
        {"texts without a separator", "\"a\"\"b\"2", {"a", "b", "2"}},
        {"a quote inside a plain value", "a\"b,c\",2", {"a\"b", "c\"", "2"}},
        {"empty values", ",\r\n\r\n2", {"", "", "", "2"}},
        {"a comma and a line end are two separators", "\"a\",\r\n2", {"a", "", "2"}},
        {"nothing", "", {}},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.why);
        DelimitedReader in(row.text);
        Texts values;
        while (!in.atEnd())
            values.emplace_back(in.value());
        EXPECT_EQ(values, row.values);
    }
}

/// The value at the start of `text`, or the number of the error as "E13". Behind a value stands `rest`.
template <class Value>
std::string taken(const std::string& text, const std::string& rest = "") {
    Value value{};
    DelimitedReader in(text);
    try {
        in.get(value);
    } catch (const RuntimeError& error) {
        return "E" + std::to_string(error.number());
    }
    EXPECT_EQ(in.atEnd() ? "" : in.value(), rest);
    return std::to_string(value);
}

TEST(DelimitedReader, ConvertsValuesWhateverEndsThem) {
    // clang-format off
    const struct {
        const char *text, *values; ///< As 16 bits, as 32 bits and as flag.
    } cases[] = {
        {"5", "5 5 1"}, {"-5", "-5 -5 1"}, {"+5", "5 5 1"}, {"0", "0 0 0"}, {"007", "7 7 1"}, {"  5", "5 5 1"},
        {"5 ", "5 5 1"}, {"\"5\"", "5 5 1"}, {"2.5", "2 2 1"}, {"0.25", "0 0 1"}, {"1e3", "1000 1000 1"},
        {"32767", "32767 32767 1"}, {"32768", "E6 32768 1"}, {"-32769", "E6 -32769 1"},
        {"2147483647", "E6 2147483647 1"}, {"2147483648", "E6 E6 1"}, {"1e999", "E6 E6 E6"},
        {"#TRUE#", "E13 E13 1"}, {"#true#", "E13 E13 1"}, {"#FALSE#", "E13 E13 0"}, {"#False#", "E13 E13 0"},
        {"\"#TRUE#\"", "E13 E13 1"}, {"#TRUE", "E13 E13 E13"}, {"True", "E13 E13 E13"}, {"5x", "E13 E13 E13"},
        {"\"\"", "E13 E13 E13"}};
    // clang-format on
    const std::pair<std::string, std::string> endings[] = {
        {"\r\n9\r\n", "9"}, {"\n9", "9"}, {",9", "9"}, {"\r\n", ""}, {"", ""}};
    for (const auto& row : cases)
        for (const auto& [ending, rest] : endings) {
            const std::string text = row.text + ending;
            EXPECT_EQ(taken<std::int16_t>(text, rest) + " " + taken<std::int32_t>(text, rest) + " " +
                          taken<bool>(text, rest),
                      row.values)
                << text;
        }
    for (const char* text : {"", "  ", "\"5", "\"5\r\n6\r\n"})
        EXPECT_EQ(taken<std::int16_t>(text), "E62") << text;
}

TEST(DelimitedWriter, PutsEveryValueOnALineOfItsOwn) {
    TestHost host;
    const std::string path = host.inLibrary("values");
    const std::string longText(200'000, 'x'); // larger than any buffer
    const auto file = ValueOf(host.machine.files().open(path, OpenMode::replace));
    DelimitedWriter out(*file);
    out.put("6\" sign, \xE9");
    out.put("");
    out.put(-2147483647 - 1);
    out.put(std::int16_t{7});
    out.put(true);
    out.put(false);
    out.put(longText);
    out.finish();
    EXPECT_EQ(host.machine.files().content(path),
              "\"6\" sign, \xE9\"\r\n\"\"\r\n-2147483648\r\n7\r\n#TRUE#\r\n#FALSE#\r\n\"" + longText +
                  "\"\r\n");
}

} // namespace
} // namespace qrtVistrelClasses4
