#include "frame/QuotedLines.h"

#include "TestHost.h"
#include "frame/RuntimeError.h"
#include "platform/ReplacementFile.h"

#include <gtest/gtest.h>

namespace qrtVistrelClasses4 {
namespace {

TEST(QuotedLineReader, TakesOneValueFromEachLine) {
    const struct {
        const char* why;
        std::string_view text;
        Texts values;
    } cases[] = {
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
    for (const auto& row : cases) {
        SCOPED_TRACE(row.why);
        QuotedLineReader in(row.text);
        Texts values;
        while (!in.atEnd())
            values.emplace_back(in.value());
        EXPECT_EQ(values, row.values);
    }
}

TEST(QuotedLineReader, ConvertsValues) {
    QuotedLineReader in("\"say \x01hi\x01\"\r\n\"-5\"\r\n\" 2,5 \"\n70000\r\n\"true\"\r\n\"2\"\r\n\"False\"");
    const auto expectNext = [&](auto wanted) {
        decltype(wanted) value{};
        in.get(value);
        EXPECT_EQ(value, wanted);
    };
    expectNext(std::string("say \"hi\""));
    expectNext(std::int16_t{-5});
    expectNext(2.5);
    expectNext(std::int32_t{70000});
    expectNext(true);
    expectNext(true);
    expectNext(false);
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
