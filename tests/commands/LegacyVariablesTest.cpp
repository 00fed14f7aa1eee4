#include "commands/LegacyVariables.h"

#include <gtest/gtest.h>

#include <random>
#include <utility>
#include <vector>

namespace qrtVistrelClasses4 {
namespace {

using Placeholders = std::vector<std::pair<std::string, std::string>>;

/// With their codes, in the order of replacement.
Placeholders allPlaceholders() {
    Placeholders all = {{"{time}", "|h:m|"}, {"{mtime}", "|hm|"}, {"{temp_c}", "##C"}, {"{temp_f}", "##F"}};
    for (const char* span : {"{tdays}", "{years}", "{months}", "{days}", "{hours}", "{seconds}"})
        all.emplace_back(span, "");
    const char* const dates[] = {
        "|m/dd/y|",         "|mmmmmmm_dd,_yyy|", "|dddddddd_mmmmmmmm_dd,_yyy|", "|mm_d|",
        "|ddddddd|",        "|mmmmmmm_dd,_yyy|", "|dddddddd_mmmmmmmm_dd,_yyy|", "|mm_d|",
        "|mmmmmmm_dd,_yyy|"};
    for (char digit = '1'; const char* date : dates)
        all.emplace_back(std::string("{date") + digit++ + "}", date);
    all.emplace_back("{minutes}", "");
    const auto addNumbered = [&](const std::string& name, const std::string& code, int last, int zeros) {
        for (int number = 1; number <= last; ++number)
            all.emplace_back("{" + name + " " + std::to_string(number) + "}",
                             code + std::to_string(zeros + number).substr(1));
    };
    addNumbered("vbl", "VBL", 416, 1000);
    addNumbered("cnt", "CR", 16, 100);
    return all;
}

TEST(LegacyVariables, WhatIsNoPlaceholderStays) {
    // clang-format off
    const char* const texts[] = {
        "", "no braces", "{", "}", "{}", "}{", "{time", "time}", "{TIME}", "{ time}", "{time }", "{vbl}", "{vbl }", "{vbl 0}",
        "{vbl 01}", "{vbl +1}", "{vbl -1}", "{vbl  1}", "{vbl 1 }", "{vbl1}", "{vbl 417}", "{vbl 4294967297}",
        "{vbl 99999999999999999999}", "{cnt 0}", "{cnt 17}", "{cnt 01}", "{date0}", "{date10}", "{{}}", "{vbl {cnt 17}}",
        "\xff{\xe4}"};
    // clang-format on
    for (const char* text : texts)
        EXPECT_EQ(ConvertLegacyVariables(text), text);
    using namespace std::string_literals;
    EXPECT_EQ(ConvertLegacyVariables("{vbl 1\0}\0{time}"s), "{vbl 1\0}\0|h:m|"s);
}

TEST(LegacyVariables, BecomeTheirCodesAsInOnePassForEach) {
    const auto inPasses = [all = allPlaceholders()](std::string text) {
        for (const auto& [placeholder, code] : all)
            for (std::size_t at = text.find(placeholder); at != text.npos;
                 at = text.find(placeholder, at + code.size()))
                text.replace(at, placeholder.size(), code);
        return text;
    };
    const char* const parts[] = {"{",         "{",       "}",       "}",    "{vbl ",   "{cnt ",  "vbl ",
                                 "1",         "4",       "16",      "416}", "{years}", "{days}", "{hours}",
                                 "{minutes}", "{ti",     "me}",     "{ye",  "ars}",    "date",   "{date9}",
                                 "{vbl 2}",   "{cnt 3}", "{mtime}", "m",    " "};
    ASSERT_EQ(allPlaceholders().size(), 452u);
    for (const auto& [placeholder, code] : allPlaceholders())
        EXPECT_EQ(ConvertLegacyVariables("Now " + placeholder + " or}" + placeholder + placeholder + "{"),
                  "Now " + code + " or}" + code + code + "{");
    EXPECT_EQ(ConvertLegacyVariables("{vbl {years}1} {ti{years}me}"), "VBL001 {time}") << "its turn was over";
    std::mt19937 random(20010203);
    int changed = 0;
    for (int count = 0; count < 20000; ++count) {
        std::string text;
        for (auto left = 1 + random() % 14; left > 0; --left)
            text += parts[random() % std::size(parts)];
        const std::string expected = inPasses(text);
        ASSERT_EQ(ConvertLegacyVariables(text), expected) << text;
        changed += expected != text ? 1 : 0;
    }
    EXPECT_GT(changed, 10000) << "the texts are too tame";
}

} // namespace
} // namespace qrtVistrelClasses4
