#include "commands/LegacyVariables.h"

#include <gtest/gtest.h>

namespace qrtVistrelClasses4 {
namespace {

TEST(LegacyVariables, BecomeTheirCodesAndWhatHasNoneIsALoss) {
    std::vector<std::string> losses;
    EXPECT_EQ(ConvertLegacyVariables("Now {time} or}{vbl 7}{cnt 16}{{see} {1}", losses),
              "Now |h:m| or}VBL007CR16{{see} {1}");
    EXPECT_EQ(ConvertLegacyVariables("{vbl {days}1} {ti{years}me}", losses), "VBL001 {time}");
    EXPECT_EQ(losses, (std::vector<std::string>{"placeholder \"{see}\", which stays as text",
                                                "placeholder \"{days}\", which has no code",
                                                "placeholder \"{years}\", which has no code",
                                                "placeholder \"{time}\", which stays as text"}))
        << "the turn of the time was over";
}

} // namespace
} // namespace qrtVistrelClasses4
