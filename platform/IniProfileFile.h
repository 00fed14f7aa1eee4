// Profile files for machines without profile functions of their own.
#pragma once

#include "platform/FileSystem.h"
#include "platform/IniText.h"
#include "platform/ProfileFile.h"

#include <optional>
#include <string>
#include <vector>

namespace qrtVistrelClasses4 {

/// Parses the file once, on the first read. `commit` makes all writes together, in one new version of the
/// file. Reads do not see writes that are not committed.
class IniProfileFile : public ProfileFile {
public:
    /// `files` must outlive this object. The case of letters in the file name does not matter.
    IniProfileFile(FileSystem& files, std::string path) : files_(files), path_(std::move(path)) {}

    std::string read(std::string_view section, std::string_view key, std::string_view defaultValue,
                     std::size_t bufferSize) override;
    void write(std::string_view section, std::string_view key, std::string_view value) override;
    SystemError commit() override;

protected:
    FileSystem& files() { return files_; }
    const std::string& path() const { return path_; }

private:
    Result<FileBytes> readFile();
    const IniIndex& index();

    FileSystem& files_;
    std::string path_;
    FileBytes bytes_; ///< `index_` refers to these.
    std::optional<IniIndex> index_;
    std::vector<IniChange> changes_;
};

} // namespace qrtVistrelClasses4
