// Names are compared where they lie: a search through all signs must not copy them.
#include "Allocations.h"
#include "TestHost.h"
#include "displays/DisplayDatabaseClass.h"

#include <gtest/gtest.h>

namespace qrtVistrelClasses4 {
namespace {

TEST(FindDisplayByName, AllocatesNothingHoweverManySignsItPasses) {
    constexpr std::int16_t kSigns = 500;
    TestHost host;
    const std::string text(100, 'x'); // longer than what a string holds without memory of its own
    DisplayDatabaseClass displays;
    for (std::int16_t number = 1; number <= kSigns; ++number)
        displays.AddNewDisplay(text + std::to_string(number));

    const std::string last = std::string(text.size(), 'X') + std::to_string(kSigns);
    ASSERT_TRUE(TraceIsOn());
    EXPECT_EQ(AllocationsIn([&] { EXPECT_EQ(displays.FindDisplayByName(last), kSigns); }), 0);
    EXPECT_EQ(AllocationsIn([&] { EXPECT_EQ(displays.FindDisplayByName(text), -1); }), 0);
    EXPECT_EQ(host.reports.takeNumbers(), Numbers());
}

} // namespace
} // namespace qrtVistrelClasses4
