#include "frame/QuotedLines.h"

#include "TestHost.h"
#include "frame/RuntimeError.h"

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

TEST(QuotedLineReader, ConvertsValues) {
    QuotedLineReader in(
        "\"say \x01hi\x01\"\r\n\"-5\"\r\n\" 2,5 \"\n70000\r\n\"true\"\r\n\"2\"\r\n\"False\"\n\"\"");
    std::string text;
    std::int16_t small = 0;
    double number = 0;
    std::int32_t large = 0;
    bool flags[3] = {false, false, true};
    in.get(text);
    in.get(small);
    in.get(number);
    in.get(large);
    for (bool& flag : flags)
        in.get(flag);
    EXPECT_EQ(text, "say \"hi\"");
    EXPECT_EQ(small, -5);
    EXPECT_EQ(number, 2.5);
    EXPECT_EQ(large, 70000);
    EXPECT_TRUE(flags[0] && flags[1] && !flags[2]);
    in.get(text);
    EXPECT_EQ(text, "");
}

TEST(QuotedLineReader, TellsWhatIsWrong) {
    struct Case {
        const char* text;
        int error;
    };
    for (const Case& row : {Case{"", 62}, Case{"\"x\"\r\n", 13}, Case{"\"\"\r\n", 13},
                            Case{"\"40000\"\r\n", 6}, Case{"\"12\"3\"\r\n", 13}}) {
        SCOPED_TRACE(row.text);
        QuotedLineReader in(row.text);
        std::int16_t number = 0;
        try {
            in.get(number);
            ADD_FAILURE();
        } catch (const RuntimeError& error) {
            EXPECT_EQ(error.number(), row.error);
        }
    }
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
    out.finish();
    ASSERT_EQ(file.commit(), SystemError::none);
    EXPECT_EQ(host.machine.files().content(path),
              " 3 \r\n\"6\x01 sign\"\r\n\"\"\r\n\"-7\"\r\n\"1.25\"\r\n\"True\"\r\n\"" + longText + "\"\r\n");
}

} // namespace
} // namespace qrtVistrelClasses4
