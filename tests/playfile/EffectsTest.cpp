#include "playfile/Effects.h"

#include "TestHost.h"
#include "playfile/FrameInfoClass.h"

#include <gtest/gtest.h>

namespace qrtVistrelClasses4 {
namespace {

TEST(Effects, HaveNames) {
    struct Case {
        std::int16_t code;
        const char *prefix, *suffix;
    };
    const Case cases[] = {{0, "No Effects", "No Effects"},
                          {5, "Reveal from Middle", ""},
                          {10, "", "Reveal to Middle"},
                          {15, "Overlay Frame with Text", ""},
                          {114, "Checker Board On", "Checker Board"},
                          {127, "Border On", "Border Off"},
                          {9999, "PhotoRealistic", "PhotoRealistic"},
                          {11006, "Fade In", "Fade Out"},
                          {20001, "Start Loop [1] times", "End Loop"},
                          {20099, "Start Loop [99] times", ""}};
    for (const Case& row : cases) {
        EXPECT_EQ(PrefixName(row.code), row.prefix) << row.code;
        EXPECT_EQ(SuffixName(row.code), row.suffix) << row.code;
    }
    for (const OptionalEffect& effect : kOptionalEffects)
        if (effect.code != 114 && effect.code != 127) {
            EXPECT_EQ(PrefixName(effect.code), effect.prefixListText);
            EXPECT_EQ(SuffixName(effect.code), effect.suffixListText);
        }
    for (const int code : {-1, 130, 2001, 20000, 20100})
        EXPECT_EQ(PrefixName(static_cast<std::int16_t>(code)) + SuffixName(static_cast<std::int16_t>(code)),
                  "");
}

TEST(Effects, ConvertBackFromTheirTexts) {
    struct Case {
        const char* text;
        std::int16_t prefix, suffix;
    };
    const Case cases[] = {{"Scroll Left to Right", 5001, 5001},
                          {"Reveal from Middle", 5, 0},
                          {"Reveal to Middle", 0, 10},
                          {"Twinkle On", 12005, 0},
                          {"Overlay Frame with Text", 15, 0},
                          {"End Loop", 0, 20001},
                          {"Checker Board", 114, 114},
                          {"Open", 116, 116},
                          {"Border", 127, 127}};
    for (const Case& row : cases) {
        EXPECT_EQ(PrefixCodeOf(row.text), row.prefix) << row.text;
        EXPECT_EQ(SuffixCodeOf(row.text), row.suffix) << row.text;
    }
    // The first three stand on screens all the same.
    for (const char* text :
         {"Checker Board On", "Drop Off", "PhotoRealistic", "wipe on", "", "[]", "[x]", "[-3]", "] ["})
        EXPECT_EQ(PrefixCodeOf(text) + SuffixCodeOf(text), 0) << text;
}

TEST(Effects, TrapTheTextOfALoopInsteadOfConvertingIt) {
    TestHost host;
    FrameInfoClass playfile;
    struct Case {
        const char* text;
        Numbers errors;
    };
    for (const Case& row : {Case{"Start Loop [5] times", {13}}, Case{"7]", {13}}, Case{"[0.5]", {13}},
                            Case{"[0.5", {}}, Case{"]5[", {}}}) {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(playfile.ConvertPrefixStringToCode(row.text), 0);
        EXPECT_EQ(host.reports.takeNumbers(), row.errors);
        EXPECT_EQ(playfile.ConvertSuffixStringToCode(row.text), 0);
        EXPECT_TRUE(host.reports.all.empty());
    }
}

TEST(Effects, HaveKeywordsInTheOlderFormat) {
    struct Case {
        const char* keyword;
        std::int16_t prefix, suffix;
    };
    const Case cases[] = {{"LR", 5001, 5001},   {"RL", 5000, 5000},   {"TB", 5003, 5003},
                          {"BT", 5002, 5002},   {"TW", 12005, 12005}, {"RM", 5, 5},
                          {"FD", 11006, 11006}, {"LD", 10000, 10000}, {"LW", 2000, 2000},
                          {"JO", 1000, 1000},   {"OT", 0, 0},         {"LP", 0, 20001},
                          {"7", 20007, 0},      {"0", 0, 0},          {"-3", 0, 0},
                          {"lr", 0, 0},         {"7X", 0, 0},         {"12767", 32767, 0}};
    for (const Case& row : cases) {
        EXPECT_EQ(PrefixCodeOfKeyword(row.keyword), row.prefix) << row.keyword;
        EXPECT_EQ(SuffixCodeOfKeyword(row.keyword), row.suffix) << row.keyword;
    }
    TestHost host;
    EXPECT_EQ(ConvertPrefixKeywordToCode("12768"), 0);
    EXPECT_EQ(host.reports.takeNumbers(), Numbers{6});
    EXPECT_EQ(ConvertSuffixKeywordToCode("LP"), 20001);
}

} // namespace
} // namespace qrtVistrelClasses4
