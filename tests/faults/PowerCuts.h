// What a disk may hold when the power fails.
#pragma once

#include "platform/memory/MemoryPlatform.h"

#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace qrtVistrelClasses4 {

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

    explicit CutDisk(const Files& files);
    /// Notes an operation that succeeds.
    void perform(const FileOperation& operation);
    /// Calls `see` for what the disk may hold after a power cut now; for very many, for an even choice of
    /// them.
    void forEachRest(const std::function<void(const Files&)>& see) const;

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
    using Naming = std::vector<std::pair<std::string, int>>;

    int fileOf(const std::string& path);
    void write(File& file, std::string_view bytes);
    static std::string remains(const File& file, std::size_t choice);
    static std::size_t choices(const File& file);

    std::vector<File> files_;
    std::map<std::string, int> names_, flushedNames_;
    std::vector<Naming> pendingNames_;
};

} // namespace qrtVistrelClasses4
