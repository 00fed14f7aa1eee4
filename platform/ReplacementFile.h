// Saving without ever losing what was there.
#pragma once

#include "platform/FileSystem.h"

#include <memory>
#include <string>
#include <string_view>

namespace qrtVistrelClasses4 {

/// What is added to the name of a file that is kept before another takes its place.
inline constexpr std::string_view kBackupEnding = ".bak";

/// Where to keep the file `path`. What is kept is never written through a link, which in a folder that others
/// may write could lead to any file of the user: a link there is removed.
std::string MakePlaceForBackup(FileSystem& files, const std::string& path);

/// A new version of a file. It is written beside the old one and takes its place in `commit`, so that a save
/// cut short at any moment leaves the complete old file or the complete new one. Only where the folder takes
/// no new file but the old one may be written is it written in place. Unless committed, the new version is
/// removed.
class ReplacementFile final : public ByteSink {
public:
    /// `files` must outlive this object.
    ReplacementFile(FileSystem& files, const std::string& path);
    ~ReplacementFile() override;
    ReplacementFile(const ReplacementFile&) = delete;
    ReplacementFile& operator=(const ReplacementFile&) = delete;

    /// The first failure so far, opening included. After one, writing does nothing more.
    SystemError error() const { return error_; }
    SystemError write(std::string_view bytes) override;
    SystemError commit();

private:
    SystemError note(SystemError result);
    SystemError writeInPlace();

    FileSystem& files_;
    std::string path_;
    std::string temporaryPath_;
    std::unique_ptr<OutputFile> file_;
    bool inPlace_ = false;
    std::string bytesInPlace_; ///< Kept until they are complete: the old file lives until then.
    SystemError error_ = SystemError::none;
};

} // namespace qrtVistrelClasses4
