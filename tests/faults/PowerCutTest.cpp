// Every save of every store, with the power cut before each of its operations and after the last.
#include "PowerCuts.h"
#include "Stores.h"

#include <gtest/gtest.h>

#include <set>

namespace qrtVistrelClasses4 {
namespace {

using Files = CutDisk::Files;

class PowerCut : public testing::TestWithParam<Store> {
protected:
    ~PowerCut() override {
        RecordProperty("cuts", cuts_);
        RecordProperty("rests", rests_);
    }

    /// What the disk may hold when the power is cut during a save that finds `before`, or right after it.
    struct Rests {
        std::set<Files> during, after;
    };
    Rests cutSave(const Files& before) {
        Stage stage(store_, before);
        stage.subject.hold(Version::next);
        CutDisk disk(before);
        Rests rests;
        const auto cut = [&](std::set<Files>& seen) {
            ++cuts_;
            disk.forEachRest([&](const Files& files) {
                ++rests_;
                seen.insert(files);
            });
        };
        stage.host.machine.files().observer = [&](const FileOperation& operation) {
            if (operation.kind > FileOperation::read) {
                cut(rests.during);
                disk.perform(operation);
            }
            return SystemError::none;
        };
        EXPECT_TRUE(stage.subject.save());
        cut(rests.after);
        stage.host.machine.files().observer = nullptr;
        return rests;
    }
    bool isWhole(const Files& files, const std::string& path) const {
        const auto file = files.find(path);
        return file != files.end() && contents_.versionOf(file->second).has_value();
    }
    bool isWholeOrKept(const Files& files) const {
        return isWhole(files, path_) || (store_.mayLieInPieces() && isWhole(files, path_ + ".bak"));
    }

    const Store store_ = GetParam();
    const Contents contents_{store_};
    const std::string path_ = LongNameHost().inLibrary(store_.file);
    int cuts_ = 0, rests_ = 0;
};

TEST_P(PowerCut, LeavesTheOldContentOrTheNewOne) {
    const Rests rests = cutSave({{path_, contents_.file[0]}});
    for (const Files& files : rests.during) {
        ASSERT_TRUE(isWholeOrKept(files));
        if (!store_.loads())
            continue;
        Stage stage(store_, {{path_, files.at(isWhole(files, path_) ? path_ : path_ + ".bak")}});
        EXPECT_TRUE(stage.subject.load());
        EXPECT_TRUE(stage.subject.text() == contents_.text[0] || stage.subject.text() == contents_.text[1]);
    }
    for (const Files& files : rests.after)
        EXPECT_EQ(files.at(path_), contents_.file[1]) << "saved is saved";
}

TEST_P(PowerCut, NeverLosesAFirstSaveThatHasEnded) {
    for (const Files& files : cutSave({{path_ + ".other", "a file beside it"}}).after)
        EXPECT_EQ(files.count(path_), 1u);
}

class PowerCutAfterAnother : public PowerCut {};

TEST_P(PowerCutAfterAnother, LeavesTheCopyAlone) {
    const Rests rests = cutSave({{path_, contents_.file[0]}});
    cuts_ = rests_ = 0; // of the first cut, which has its own test
    int inPieces = 0, pieces = 0;
    for (const Files& files : rests.during)
        if (!isWhole(files, path_) && inPieces++ % 16 == 0)
            for (const Files& later : cutSave(files).during) {
                EXPECT_TRUE(isWholeOrKept(later));
                pieces += isWhole(later, path_) ? 0 : 1;
            }
    EXPECT_GT(pieces, 0);
}

INSTANTIATE_TEST_SUITE_P(Stores, PowerCutAfterAnother, testing::ValuesIn(StoresThat(&Store::mayLieInPieces)),
                         [](const auto& row) { return std::string(row.param.name); });
INSTANTIATE_TEST_SUITE_P(Stores, PowerCut, testing::ValuesIn(StoresThat(&Store::saves)),
                         [](const auto& row) { return std::string(row.param.name); });

} // namespace
} // namespace qrtVistrelClasses4
