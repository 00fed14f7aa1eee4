// Loads and saves with each of their allocations failing in turn.
#include "Allocations.h"
#include "Stores.h"

#include <qrtVistrelClasses4/DisplayDatabaseClass.h>
#include <qrtVistrelClasses4/FrameInfoClass.h>
#include <qrtVistrelClasses4/MostRecentlyUsed.h>
#include <qrtVistrelClasses4/SettingsInfoClass.h>
#include <qrtVistrelClasses4/clsCommandInterface.h>

#include <gtest/gtest.h>

namespace qrtVistrelClasses4 {
namespace {

bool reportsFailures(const Store& store) {
    return store.saves() && store.loads() && !store.is(Store::loadsSilently);
}

class AllocationFailure : public testing::TestWithParam<Store> {};

TEST_P(AllocationFailure, LosesNothingAndLeavesAUsableObject) {
    const Store& store = GetParam();
    const Contents contents(store);
    int number = 0;
    for (const bool isSave : {false, true}) {
        bool hasFailed = true;
        for (int allocation = 1; hasFailed && !HasFailure(); ++allocation, ++number) {
            SCOPED_TRACE((isSave ? "save, allocation " : "load, allocation ") + std::to_string(allocation));
            Stage stage(store);
            if (isSave)
                stage.subject.hold(Version::next);
            FailAllocation(allocation);
            const bool succeeded = isSave ? stage.subject.save() : stage.subject.load();
            hasFailed = AllocationHasFailed();
            FailAllocation(0);
            if (!succeeded) {
                EXPECT_FALSE(stage.host.reports.all.empty() &&
                             stage.host.machine.messageBoxes().shown.empty());
            }
            for (const int error : stage.host.reports.takeNumbers())
                EXPECT_EQ(error, 7) << "out of memory";
            const auto version = contents.versionOf(stage.file());
            const bool isKept = store.is(Store::keepsCopy) && contents.versionOf(stage.copy());
            EXPECT_TRUE(!isSave     ? version == Version::old
                        : succeeded ? version == Version::next
                                    : version || isKept);
            EXPECT_FALSE(stage.hasTemporaryFiles());
            EXPECT_TRUE(stage.subject.saveAs(Version::next) || stage.subject.saveAs(Version::next))
                << "in the end";
            EXPECT_EQ(contents.versionOf(stage.file()), Version::next);
            EXPECT_TRUE(stage.subject.load());
            EXPECT_EQ(stage.subject.text(), contents.text[1]);
        }
    }
    RecordProperty("runs", number);
}

INSTANTIATE_TEST_SUITE_P(Stores, AllocationFailure, testing::ValuesIn(StoresThat(reportsFailures)),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(Construction, TrapsTheLackOfMemory) {
    bool hasFailed = true;
    for (int allocation = 1; hasFailed; ++allocation) {
        TestHost host;
        FailAllocation(allocation);
        EXPECT_NO_THROW((SettingsInfoClass(), MostRecentlyUsed(), clsCommandInterface(), FrameInfoClass(),
                         DisplayDatabaseClass()));
        hasFailed = AllocationHasFailed();
        FailAllocation(0);
    }
}

} // namespace
} // namespace qrtVistrelClasses4
