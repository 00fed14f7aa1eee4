// Replacing files without the risk of losing the old content.
#pragma once

#include "platform/FileSystem.h"

#include <memory>
#include <string>
#include <string_view>

namespace qrtVistrelClasses4 {

/// A new version of a file. It is written beside the old version and replaces it in `commit`, so that a save
/// that is interrupted leaves either the complete old file or the complete new one. If the folder accepts no
/// new file, but the old file is writable, that one is overwritten. A new version that is not committed is
/// removed.
class ReplacementFile final : public ByteSink {
public:
    /// `files` must outlive this object.
    ReplacementFile(FileSystem& files, std::string path);
    ~ReplacementFile() override;
    ReplacementFile(const ReplacementFile&) = delete;
    ReplacementFile& operator=(const ReplacementFile&) = delete;

    /// The first error so far, including those of opening. After an error nothing more is written.
    SystemError error() const { return error_; }
    SystemError write(std::string_view bytes) override;
    SystemError commit();
    /// True if the old file is overwritten, so that a failure may leave a piece of the new version.
    bool isInPlace() const { return inPlace_; }

private:
    /// Like `commit`, but a power cut may bring the old version back until the folder is flushed.
    SystemError commitUnflushed();
    SystemError note(SystemError result);
    SystemError writeInPlace();

    FileSystem& files_;
    std::string path_;
    std::string temporaryPath_;
    std::unique_ptr<OutputFile> file_;
    bool inPlace_ = false;
    std::string bytesInPlace_; ///< Collected until `commit`, so that the old file stays until then.
    SystemError error_ = SystemError::none;
};

} // namespace qrtVistrelClasses4
