// Profile files for machines without profile functions of their own.
#pragma once

#include "platform/FileSystem.h"
#include "platform/IniText.h"
#include "platform/ProfileFile.h"

#include <memory>
#include <mutex>
#include <string>
#include <vector>

namespace qrtVistrelClasses4 {

/// The file whose values were read last. Several threads may use the same object.
class IniFileCache {
public:
    /// `files` must outlive this object.
    explicit IniFileCache(FileSystem& files) : files_(files) {}

    struct Content {
        explicit Content(FileBytes given);
        FileBytes bytes;
        IniValues values; ///< They refer to `bytes`.
    };
    /// The content that the file has now.
    Result<std::shared_ptr<const Content>> read(const std::string& path);

private:
    struct Version {
        std::string path;
        FileStamp stamp;
        std::shared_ptr<const Content> content;
    };
    Version lastVersion();

    FileSystem& files_;
    std::mutex mutex_;
    Version last_;
};

/// Parses the file once, on the first read. `commit` makes all writes together, in one new version of the
/// file, and under a lock, so that two programs that save at the same time keep each other's keys. Reads do
/// not see writes that are not committed.
class IniProfileFile final : public ProfileFile {
public:
    /// `files` and `cache` must outlive this object. The case of letters in the file name does not matter.
    /// While the file is missing, `original` is read in its place, if there is one.
    IniProfileFile(FileSystem& files, IniFileCache& cache, std::string path, std::string original)
        : files_(files), cache_(cache), path_(std::move(path)), original_(std::move(original)) {}

    std::string read(std::string_view section, std::string_view key, std::string_view defaultValue,
                     std::size_t bufferSize) override;
    void write(std::string_view section, std::string_view key, std::string_view value) override;
    void remove(std::string_view section, std::string_view key) override;
    SystemError commit() override;

private:
    template <class Read>
    auto readFile(Read read);
    const IniFileCache::Content& content();

    FileSystem& files_;
    IniFileCache& cache_;
    std::string path_;
    std::string original_;
    std::shared_ptr<const IniFileCache::Content> content_; ///< Null before the first read.
    IniValues::Cursor cursor_;                             ///< In `content_`.
    std::vector<IniChange> changes_;
};

} // namespace qrtVistrelClasses4
