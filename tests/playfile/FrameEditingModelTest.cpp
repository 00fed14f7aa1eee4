#include "FrameEditingModel.h"

#include <gtest/gtest.h>

#include <random>

namespace qrtVistrelClasses4 {
namespace {

TEST(FrameEditingModel, AgreesWithAListThroughLongEdits) {
    TestHost host;
    for (unsigned seed = 1; seed <= 40; ++seed) {
        PlayfileAndModel pair{std::mt19937(seed)};
        for (int step = 1; step <= 500; ++step) {
            SCOPED_TRACE("seed " + std::to_string(seed) + ", step " + std::to_string(step) + ": " +
                         pair.step());
            ASSERT_EQ(pair.difference(host.reports), "");
        }
    }
}

} // namespace
} // namespace qrtVistrelClasses4
