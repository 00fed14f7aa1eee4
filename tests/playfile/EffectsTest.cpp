#include "playfile/Effects.h"

#include "TestHost.h"
#include "playfile/FrameInfoClass.h"

#include <gtest/gtest.h>

namespace qrtVistrelClasses4 {
namespace {

struct Named {
    std::int16_t code;
    const char* name;
};

TEST(Effects, HaveNames) {
    const Named prefixes[] = {{0, "No Effects"},
                              {5, "Reveal from Middle"},
                              {10, ""},
                              {15, "Overlay Frame with Text"},
                              {114, "Checker Board On"},
                              {116, "Open from Middle On"},
                              {127, "Border On"},
                              {128, "Barrel Vertical On"},
                              {129, "Barrel Horizontal On"},
                              {130, ""},
                              {1000, "Jump On"},
                              {2000, "Wipe On"},
                              {2001, ""},
                              {5000, "Scroll Right to Left"},
                              {5002, "Scroll Bottom to Top"},
                              {9999, "PhotoRealistic"},
                              {10000, "Horizontal Line Drop"},
                              {11006, "Fade In"},
                              {12005, "Twinkle On"},
                              {20000, ""},
                              {20001, "Start Loop [1] times"},
                              {20005, "Start Loop [5] times"},
                              {20099, "Start Loop [99] times"},
                              {20100, ""},
                              {-1, ""}};
    for (const Named& row : prefixes)
        EXPECT_EQ(PrefixName(row.code), row.name) << row.code;
    const Named suffixes[] = {{0, "No Effects"},
                              {5, ""},
                              {10, "Reveal to Middle"},
                              {15, ""},
                              {114, "Checker Board"},
                              {116, "Open from Middle Off"},
                              {127, "Border Off"},
                              {5003, "Scroll Top to Bottom"},
                              {9999, "PhotoRealistic"},
                              {11006, "Fade Out"},
                              {20000, ""},
                              {20001, "End Loop"},
                              {20002, ""}};
    for (const Named& row : suffixes)
        EXPECT_EQ(SuffixName(row.code), row.name) << row.code;
}

TEST(Effects, ConvertBackFromTheirTexts) {
    const Named prefixes[] = {{0, "No Effects"},
                              {5001, "Scroll Left to Right"},
                              {5, "Reveal from Middle"},
                              {12005, "Twinkle On"},
                              {2000, "Wipe On"},
                              {15, "Overlay Frame with Text"},
                              {114, "Checker Board"},
                              {127, "Border"},
                              {129, "Barrel Horizontal"},
                              {116, "Open"},
                              // Texts that screens show but that never convert back.
                              {0, "Checker Board On"},
                              {0, "Drop On"},
                              {0, "PhotoRealistic"},
                              {0, "wipe on"},
                              {0, "Reveal to Middle"},
                              {0, "End Loop"},
                              {0, ""},
                              {0, "[]"},
                              {0, "[x]"},
                              {0, "[-3]"}};
    for (const Named& row : prefixes)
        EXPECT_EQ(PrefixCodeOf(row.name), row.code) << row.name;
    const Named suffixes[] = {{0, "No Effects"},
                              {10, "Reveal to Middle"},
                              {11006, "Fade Out"},
                              {20001, "End Loop"},
                              {114, "Checker Board"},
                              {128, "Barrel Vertical"},
                              {0, "Checker Board Off"},
                              {0, "Drop Off"},
                              {0, "PhotoRealistic"},
                              {0, "Start Loop [5] times"},
                              {0, "Overlay Frame with Text"},
                              {0, "] ["}};
    for (const Named& row : suffixes)
        EXPECT_EQ(SuffixCodeOf(row.name), row.code) << row.name;
}

TEST(Effects, TrapTheTextOfALoopInsteadOfConvertingIt) {
    TestHost host;
    FrameInfoClass playfile;
    struct Case {
        const char* text;
        Numbers errors;
    };
    const Case cases[] = {{"Start Loop [5] times", {13}},
                          {"7]", {13}},
                          {"[0.5]", {13}},
                          {"[0.5", {}},
                          {"]5[", {}},
                          {"a [ b", {}}};
    for (const Case& row : cases) {
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
                          {"lr", 0, 0},         {"", 0, 0},           {"XX", 0, 0}};
    for (const Case& row : cases) {
        EXPECT_EQ(PrefixCodeOfKeyword(row.keyword), row.prefix) << row.keyword;
        EXPECT_EQ(SuffixCodeOfKeyword(row.keyword), row.suffix) << row.keyword;
    }
    EXPECT_EQ(PrefixCodeOfKeyword("7X"), 0);
    EXPECT_EQ(PrefixCodeOfKeyword("12767"), 32767);
    TestHost host;
    EXPECT_EQ(ConvertPrefixKeywordToCode("12768"), 0);
    EXPECT_EQ(host.reports.takeNumbers(), Numbers{6});
    EXPECT_EQ(ConvertSuffixKeywordToCode("LP"), 20001);
}

} // namespace
} // namespace qrtVistrelClasses4
