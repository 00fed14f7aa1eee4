// Every save of every store, with the power cut before each of its operations and after the last.
#include "Stores.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <map>
#include <set>

namespace qrtVistrelClasses4 {
namespace {

constexpr std::size_t kPiecesOfAWrite = 4;
/// Fates of a change: lost, done, done by half, zeros. Emptying knows only the first two.
constexpr std::size_t kFates = 4;
constexpr std::size_t kMostRests = 4000;

std::string normal(const std::filesystem::path& path) { return path.lexically_normal().string(); }
std::string folderOf(const std::string& path) { return std::filesystem::path(path).parent_path().string(); }

/// A disk that keeps nothing for certain but what was flushed:
///
/// - What was written to a file since it was last flushed may be there or not, each quarter of each write for
///   itself: whole, its first half, not at all (then what was below shows), or as zeros. So may the emptying
///   of the file on opening.
/// - New names, renames and removals of a folder since it was last flushed may have happened or not, each for
///   itself.
/// - A new folder is there when making it returns.
class CutDisk {
public:
    using Files = std::map<std::string, std::string>;

    explicit CutDisk(const Files& files) {
        for (const auto& [path, content] : files) {
            names_[normal(path)] = std::ssize(files_);
            files_.push_back({content, {}, content.size()});
        }
        flushedNames_ = names_;
    }

    /// Notes an operation that succeeds.
    void perform(const FileOperation& operation) {
        const std::string path = normal(operation.path);
        if (operation.kind == FileOperation::open) {
            File& file = fileOf(path);
            if (operation.mode == OpenMode::replace && file.size != 0) {
                file.pending.push_back({true, 0, ""});
                file.size = 0;
            }
        } else if (operation.kind == FileOperation::write) {
            write(fileOf(path), operation.bytes);
        } else if (operation.kind == FileOperation::flush) {
            File& file = fileOf(path);
            const std::size_t everything = choices(file) / (kFates - 1); // 1 in every digit
            file.flushed = remains(file, everything);
            file.pending.clear();
        } else if (operation.kind == FileOperation::rename || operation.kind == FileOperation::remove) {
            Naming naming{{path, -1}};
            if (operation.kind == FileOperation::rename)
                naming.emplace_back(normal(operation.target), names_.at(path));
            for (const auto& [name, file] : naming)
                names_[name] = file;
            std::erase_if(names_, [](const auto& name) { return name.second == -1; });
            pendingNames_.push_back(naming);
        } else if (operation.kind == FileOperation::flushFolder) {
            std::erase_if(pendingNames_, [&](const Naming& naming) {
                const bool isFlushed = folderOf(naming.front().first) == folderOf(path + "/entry");
                for (const auto& [name, file] : isFlushed ? naming : Naming())
                    flushedNames_[name] = file;
                return isFlushed;
            });
        }
    }

    /// Calls `see` for what the disk may hold after a power cut now; for very many, for an even choice of
    /// them.
    template <class See>
    void forEachRest(See see) const {
        std::size_t count = std::size_t{1} << pendingNames_.size();
        for (const File& file : files_)
            count *= choices(file);
        const std::size_t step = count > kMostRests ? count / kMostRests | 1 : 1;
        for (std::size_t rest = 0; rest < count; rest += step) {
            std::size_t choice = rest;
            auto names = flushedNames_;
            for (const Naming& naming : pendingNames_) {
                for (const auto& [name, file] : choice % 2 == 1 ? naming : Naming())
                    names[name] = file;
                choice /= 2;
            }
            std::vector<std::string> contents;
            for (const File& file : files_) {
                contents.push_back(remains(file, choice % choices(file)));
                choice /= choices(file);
            }
            Files files;
            for (const auto& [name, file] : names)
                if (file != -1)
                    files[name] = contents[static_cast<std::size_t>(file)];
            see(files);
        }
    }

private:
    /// A change of a file's bytes: its emptying, or a piece of a write.
    struct Change {
        bool empties;
        std::size_t place;
        std::string bytes;
    };
    struct File {
        std::string flushed;
        std::vector<Change> pending;
        std::size_t size; ///< As the running program sees it.
    };
    /// Names that get another file, or none (-1), in one step.
    using Naming = std::vector<std::pair<std::string, std::ptrdiff_t>>;

    File& fileOf(const std::string& path) {
        const auto [name, isNew] = names_.try_emplace(path, std::ssize(files_));
        if (isNew) {
            files_.push_back({});
            pendingNames_.push_back({*name});
        }
        return files_[static_cast<std::size_t>(name->second)];
    }
    static void write(File& file, std::string_view bytes) {
        const std::size_t size = bytes.size() / kPiecesOfAWrite + 1;
        for (; !bytes.empty(); bytes.remove_prefix(std::min(size, bytes.size()))) {
            file.pending.push_back({false, file.size, std::string(bytes.substr(0, size))});
            file.size += file.pending.back().bytes.size();
        }
    }
    static std::size_t choices(const File& file) {
        return std::size_t{1} << 2 * file.pending.size(); // kFates for each
    }
    /// The digits of `choice` are the fates of the changes, that of the last one first.
    static std::string remains(const File& file, std::size_t choice) {
        std::string content = file.flushed;
        for (std::size_t left = file.pending.size(); left-- > 0;) {
            const Change& change = file.pending[file.pending.size() - 1 - left];
            const std::size_t fate = choice >> 2 * left & (kFates - 1);
            if (fate == 0)
                continue;
            if (change.empties) {
                content.clear();
                continue;
            }
            const std::size_t half = change.bytes.size() / 2;
            const std::string bytes = fate == 1   ? change.bytes
                                      : fate == 2 ? change.bytes.substr(0, half)
                                                  : std::string(change.bytes.size(), '\0');
            content.resize(std::max(content.size(), change.place + bytes.size()));
            content.replace(change.place, bytes.size(), bytes);
        }
        return content;
    }

    std::vector<File> files_;
    std::map<std::string, std::ptrdiff_t> names_, flushedNames_;
    std::vector<Naming> pendingNames_;
};

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
