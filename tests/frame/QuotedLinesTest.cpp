#include "frame/QuotedLines.h"

#include "TestHost.h"
#include "frame/RuntimeError.h"
#include "platform/ReplacementFile.h"

#include <gtest/gtest.h>

namespace qrtVistrelClasses4 {
namespace {

/// All values of a text, one after another.
Texts valuesOf(std::string_view text) {
    QuotedLineReader in(text);
    Texts values;
    while (!in.atEnd())
        values.emplace_back(in.value());
    return values;
}

TEST(QuotedLineReader, TakesOneValueFromEachLine) {
    struct Case {
        const char* why;
        std::string_view text;
        Texts values;
    };
    const Case cases[] = {
        {"usual lines", "\"a\"\r\n\"\"\r\n\"c d\"\r\n", {"a", "", "c d"}},
        {"line feed alone ends a line", "\"a\"\n\"b\"\n", {"a", "b"}},
        {"the last line may lack its end", "\"a\"\r\n\"b\"", {"a", "b"}},
        {"a plain line is a value", " 9 \r\n\"a\"\r\n", {" 9 ", "a"}},
        {"an empty line is a value", "\r\n\"a\"\r\n", {"", "a"}},
        {"blanks around the quotes do not count", "  \"a\"  \r\n", {"a"}},
        {"a quote inside a value of foreign make", "\"6\" sign\"\r\n", {"6\" sign"}},
        {"a text of several lines", "\"one\r\ntwo\r\nthree\"\r\n\"b\"\r\n", {"one\r\ntwo\r\nthree", "b"}},
        {"a text that ends in a line break", "\"one\r\n\"\r\n\"b\"\r\n", {"one\r\n", "b"}},
        {"a text that starts with a line break", "\"\r\none\"\r\n\"b\"\r\n", {"\r\none", "b"}},
        {"a lost closing quote", "\"a\r\n\"b\"\r\n", {"a", "b"}},
        {"a lost closing quote two lines before the next", "\"a\r\nx\r\n\"b\"\r\n", {"a", "x", "b"}},
        {"a lost closing quote at the end", "\"a\r\nx\r\n", {"a", "x"}},
        {"a quote alone at the end", "\"", {""}},
        {"a carriage return inside a value", "\"a\rb\"\r\n", {"a\rb"}},
        {"nothing", "", {}},
    };
    for (const Case& row : cases) {
        SCOPED_TRACE(row.why);
        EXPECT_EQ(valuesOf(row.text), row.values);
    }
}

template <class Value>
Value next(QuotedLineReader& in) {
    Value value{};
    in.get(value);
    return value;
}

TEST(QuotedLineReader, ConvertsValues) {
    QuotedLineReader in(
        "\"say \x01hi\x01\"\r\n\"-5\"\r\n\" 2,5 \"\n70000\r\n\"true\"\r\n\"2\"\r\n\"False\"\n\"\"");
    EXPECT_EQ(next<std::string>(in), "say \"hi\"");
    EXPECT_EQ(next<std::int16_t>(in), -5);
    EXPECT_EQ(next<double>(in), 2.5);
    EXPECT_EQ(next<std::int32_t>(in), 70000);
    EXPECT_TRUE(next<bool>(in));
    EXPECT_TRUE(next<bool>(in));
    EXPECT_FALSE(next<bool>(in));
    EXPECT_EQ(next<std::string>(in), "");
}

TEST(QuotedLineReader, TellsWhatIsWrong) {
    const auto errorOf = [](std::string_view text) {
        std::int16_t number = 0;
        try {
            QuotedLineReader(text).get(number);
            return 0;
        } catch (const RuntimeError& error) {
            return error.number();
        }
    };
    EXPECT_EQ(errorOf(""), 62);
    EXPECT_EQ(errorOf("\"40000\"\r\n"), 6);
    for (const char* text : {"\"x\"\r\n", "\"\"\r\n", "\"12\"3\"\r\n"})
        EXPECT_EQ(errorOf(text), 13) << text;
}

TEST(QuotedLineWriter, WritesWhatTheReaderReads) {
    TestHost host;
    const std::string path = host.inLibrary("values");
    const std::string longText(200'000, 'x'); // larger than any buffer
    ReplacementFile file(host.machine.files(), path);
    QuotedLineWriter out(file);
    out.putPlainLine(" 3 ");
    out.put(std::string("6\" sign"));
    out.put(std::string());
    out.put(std::int32_t{-7});
    out.put(1.25);
    out.put(true);
    out.put(longText);
    out.putPlainLine(longText);
    out.finish();
    ASSERT_EQ(file.commit(), SystemError::none);
    EXPECT_EQ(host.machine.files().content(path),
              " 3 \r\n\"6\x01 sign\"\r\n\"\"\r\n\"-7\"\r\n\"1.25\"\r\n\"True\"\r\n\"" + longText + "\"\r\n" +
                  longText + "\r\n");
}

} // namespace
} // namespace qrtVistrelClasses4
