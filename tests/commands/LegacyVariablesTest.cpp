#include "commands/LegacyVariables.h"

#include <gtest/gtest.h>

namespace qrtVistrelClasses4 {
namespace {

TEST(LegacyVariables, WhatIsNoPlaceholderStaysAndIsALossIfItLooksLikeOne) {
    using namespace std::string_literals;
    // clang-format off
    const std::vector<std::string> texts[] = {
        {"", "no braces", "{", "{}", "}{", "{time", "time}", "{2}", "{:-)}", "{see below}", "{{}}", "\xff{\xe4}", "{vbl 1\0}"s},
        {"{TIME}", "{ time}", "{time\x1f}", "{vbl}", "{vbl 01}", "{vbl -1}", "{vbl 417}", "{vbl 4294967297}",
         "{vbl 99999999999999999999}", "{cnt 17}", "{date10}", "{vbl {cnt 17}}", "{{temp_k}}"}};
    // clang-format on
    for (const std::size_t count : {0, 1})
        for (const std::string& text : texts[count]) {
            std::vector<std::string> losses;
            EXPECT_EQ(ConvertLegacyVariables(text, losses), text);
            EXPECT_EQ(losses.size(), count) << text;
        }
}

TEST(LegacyVariables, BecomeTheirCodes) {
    const std::pair<const char*, const char*> cases[] = {
        {"a{tdays}b{seconds}c{minutes}d", "abcd"},
        {"{vbl 1}{vbl 20}{vbl 416}{cnt 1}{cnt 16}", "VBL001VBL020VBL416CR01CR16"},
        {"Now {time} or}{date9}{", "Now |h:m| or}|mmmmmmm_dd,_yyy|{"},
        {"{cnt {vbl 1}} {da{tdays}ys}{da{minutes}ys}", "{cnt VBL001} {days}"},
    };
    for (const auto& [text, codes] : cases)
        EXPECT_EQ(ConvertLegacyVariables(text), codes);
    std::vector<std::string> losses;
    EXPECT_EQ(ConvertLegacyVariables("{vbl {days}1} {ti{years}me}", losses), "VBL001 {time}");
    EXPECT_EQ(losses, (std::vector<std::string>{"placeholder \"{days}\", which has no code",
                                                "placeholder \"{years}\", which has no code",
                                                "placeholder \"{time}\", which stays as text"}))
        << "its turn was over";
}

} // namespace
} // namespace qrtVistrelClasses4
