// Every load and save of every store, with each of its operations failing in turn.
#include "Faults.h"
#include "Stores.h"
#include "platform/LetterCase.h"

#include <gtest/gtest.h>

namespace qrtVistrelClasses4 {
namespace {

class FaultInjection : public testing::TestWithParam<Store> {
protected:
    ~FaultInjection() override { RecordProperty("runs", runs_); }

    /// Calls `run(fault, lasting, number)` until it says that there was no such operation.
    template <class Run>
    void forEveryFault(Run run) {
        for (const Fault& fault : kFaults)
            for (const Lasting lasting : {Lasting::once, Lasting::fromThenOn})
                for (int number = 1; !HasFailure(); ++number, ++runs_) {
                    SCOPED_TRACE(std::string(fault.name) + (lasting == Lasting::once ? " once" : "") +
                                 ", operation " + std::to_string(number));
                    if (!run(fault, lasting, number))
                        break;
                }
    }
    void expectWhole(Stage& stage, bool isSaved = false) {
        const auto version = contents_.versionOf(stage.file());
        const bool isKept = store_.is(Store::keepsCopy) && contents_.versionOf(stage.copy());
        EXPECT_TRUE(version || isKept) << stage.file().value_or("").substr(0, 500);
        EXPECT_TRUE(version == Version::next || !isSaved);
    }
    void expectTold(Stage& stage, const Fault& fault, const char* title) {
        const auto& shown = stage.host.machine.messageBoxes().shown;
        ASSERT_EQ(shown.size(), title ? 1u : 0u);
        EXPECT_TRUE(!title || (shown[0].title == title && shown[0].icon == MessageIcon::critical));
        for (const ErrorReport& report : stage.host.reports.all)
            EXPECT_TRUE(report.error.number() == fault.errorNumber || report.error.isQuiet());
    }
    void expectUsable(Stage& stage) {
        stage.forgetMessages();
        if (!store_.saves())
            return;
        EXPECT_TRUE(stage.subject.saveAs(Version::next));
        expectWhole(stage, true);
        if (!store_.loads())
            return;
        stage.renew();
        EXPECT_TRUE(stage.subject.load());
        EXPECT_EQ(stage.subject.text(), contents_.text[1]);
    }

    const Store store_ = GetParam();
    const Contents contents_{store_};
    int runs_ = 0;
};

TEST_P(FaultInjection, ASaveThatFailsSaysSoAndLosesNothing) {
    if (!store_.saves())
        GTEST_SKIP();
    forEveryFault([&](const Fault& fault, Lasting lasting, int number) {
        Stage stage(store_);
        stage.subject.hold(Version::next);
        {
            const FaultScope scope(stage.host.machine, fault, number, lasting);
            const bool isSaved = stage.subject.save();
            if (!scope.hasHit())
                return false;
            expectWhole(stage, isSaved);
            EXPECT_TRUE(!stage.hasTemporaryFiles() || scope.hasHitRemove());
            expectTold(stage, fault, isSaved ? nullptr : store_.title);
        }
        expectUsable(stage);
        return true;
    });
}

TEST_P(FaultInjection, ASecondFailureLosesNothingEither) {
    if (!store_.is(Store::keepsCopy)) // a file that is replaced in one step fails the same way twice
        GTEST_SKIP();
    for (const bool afresh : {false, true})
        forEveryFault([&](const Fault& fault, Lasting lasting, int number) {
            bool hasHit = true;
            for (int second = 1; hasHit && !HasFailure(); ++second, ++runs_) {
                SCOPED_TRACE("then operation " + std::to_string(second));
                Stage stage(store_);
                const auto failingSave = [&](int operation) {
                    stage.subject.hold(Version::next);
                    const FaultScope scope(stage.host.machine, fault, operation, lasting);
                    stage.subject.save();
                    return scope.hasHit();
                };
                if (!failingSave(number))
                    return false;
                if (afresh)
                    stage.renew();
                hasHit = failingSave(second);
                expectWhole(stage);
            }
            return true;
        });
}

TEST_P(FaultInjection, ALoadThatFailsSaysSoAndChangesNothing) {
    if (!store_.loads())
        GTEST_SKIP();
    forEveryFault([&](const Fault& fault, Lasting lasting, int number) {
        Stage stage(store_);
        {
            const FaultScope scope(stage.host.machine, fault, number, lasting);
            const bool isLoaded = stage.subject.load();
            if (!scope.hasHit())
                return false;
            const bool mayBeEmpty = store_.is(Store::mayStart) && fault.error == SystemError::folderNotFound;
            if (isLoaded && !store_.is(Store::loadsSilently) && !mayBeEmpty) {
                EXPECT_EQ(stage.subject.text(), contents_.text[0]) << "taken for loaded";
            }
            EXPECT_TRUE(isLoaded || !stage.host.reports.all.empty());
            expectTold(stage, fault, nullptr);
            EXPECT_EQ(contents_.versionOf(stage.file()), Version::old);
        }
        expectUsable(stage);
        return true;
    });
}

class StoreWithPlace : public FaultInjection {};

TEST_P(StoreWithPlace, IsFoundInAnyCaseAndSaved) {
    for (const bool isRemembered : {false, true}) {
        const auto [folder, name] = SplitPath(store_.file);
        const std::string upperFolder = isRemembered ? std::string(folder) : AnsiUpperCase(folder);
        const std::string upper = LongNameHost().inLibrary(upperFolder + AnsiUpperCase(name));
        Stage stage(store_, isRemembered ? Stage::Files() : Stage::Files{{upper, contents_.file[0]}});
        (void)stage.host.machine.files().remove(stage.path);
        stage.host.machine.files().put(upper, contents_.file[0]);
        stage.renew();
        EXPECT_TRUE(stage.subject.load());
        EXPECT_EQ(stage.subject.text(), contents_.text[0]);
        EXPECT_TRUE(stage.subject.saveAs(Version::next));
        EXPECT_EQ(stage.host.machine.files().content(upper), contents_.file[1]);
        EXPECT_FALSE(stage.file());
    }
}

TEST_P(StoreWithPlace, IsReadBesideTheProgramButNotWrittenThere) {
    const std::string program = LongNameHost().inLibrary("program"), beside = JoinPath(program, store_.file);
    Stage stage(store_, {{beside, contents_.file[0]}});
    stage.host.machine.others[FileUse::kept] = {stage.host.inLibrary("none"), program};
    stage.renew();
    EXPECT_TRUE(stage.subject.load());
    EXPECT_EQ(stage.subject.text(), contents_.text[0]);
    EXPECT_TRUE(stage.subject.saveAs(Version::next));
    EXPECT_EQ(stage.host.machine.files().content(beside), contents_.file[0]);
    EXPECT_EQ(stage.file(), contents_.file[1]);
}

INSTANTIATE_TEST_SUITE_P(Stores, StoreWithPlace, testing::ValuesIn(StoresThat([](const Store& store) {
                             return store.is(Store::hasPlace);
                         })),
                         [](const auto& row) { return std::string(row.param.name); });
INSTANTIATE_TEST_SUITE_P(Stores, FaultInjection, testing::ValuesIn(Stores()),
                         [](const auto& row) { return std::string(row.param.name); });

} // namespace
} // namespace qrtVistrelClasses4
