#include "commands/LegacyVariables.h"

#include <gtest/gtest.h>

namespace qrtVistrelClasses4 {
namespace {

TEST(LegacyVariables, WhatIsNoPlaceholderStays) {
    using namespace std::string_literals;
    // clang-format off
    const std::string texts[] = {
        "", "no braces", "{", "}", "{}", "}{", "{time", "time}", "{TIME}", "{ time}", "{time }", "{vbl}", "{vbl }", "{vbl 0}",
        "{vbl 01}", "{vbl +1}", "{vbl -1}", "{vbl 1 }", "{vbl 417}", "{vbl 4294967297}", "{vbl 99999999999999999999}",
        "{cnt 17}", "{date0}", "{date10}", "{{}}", "{vbl {cnt 17}}", "\xff{\xe4}", "{vbl 1\0}"s};
    // clang-format on
    for (const std::string& text : texts)
        EXPECT_EQ(ConvertLegacyVariables(text), text);
}

TEST(LegacyVariables, BecomeTheirCodes) {
    const std::pair<const char*, const char*> cases[] = {
        {"{time}{mtime}{temp_c}{temp_f}", "|h:m||hm|##C##F"},
        {"a{tdays}b{years}c{months}d{days}e{hours}f{seconds}g{minutes}h", "abcdefgh"},
        {"{date1}{date2}{date3}", "|m/dd/y||mmmmmmm_dd,_yyy||dddddddd_mmmmmmmm_dd,_yyy|"},
        {"{date4}{date5}{date6}", "|mm_d||ddddddd||mmmmmmm_dd,_yyy|"},
        {"{date7}{date8}{date9}", "|dddddddd_mmmmmmmm_dd,_yyy||mm_d||mmmmmmm_dd,_yyy|"},
        {"{vbl 1}{vbl 20}{vbl 416}{cnt 1}{cnt 16}", "VBL001VBL020VBL416CR01CR16"},
        {"Now {time} or}{time}{", "Now |h:m| or}|h:m|{"},
        {"{vbl {years}1} {ti{years}me}", "VBL001 {time}"}, // its turn was over
        {"{cnt {vbl 1}} {da{tdays}ys}{da{minutes}ys}", "{cnt VBL001} {days}"},
    };
    for (const auto& [text, codes] : cases)
        EXPECT_EQ(ConvertLegacyVariables(text), codes);
}

} // namespace
} // namespace qrtVistrelClasses4
