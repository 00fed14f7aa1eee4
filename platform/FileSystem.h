// The files and folders of one machine.
#pragma once

#include "platform/SystemError.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>

namespace qrtVistrelClasses4 {

enum class EntryKind { missing, file, folder, other };

/// The bytes of a file, owned.
struct FileBytes {
    std::unique_ptr<char[]> data;
    std::size_t size = 0;
    std::string_view text() const { return {data.get(), size}; }
};

/// A file being read in pieces, from anywhere in it.
class InputFile {
public:
    virtual ~InputFile() = default;
    /// Bytes that the file held when it was opened.
    virtual std::uint64_t size() const = 0;
    /// Fills `bytes` with those from `offset` on. The number of them: less at the end of the file.
    virtual Result<std::size_t> readAt(std::uint64_t offset, std::span<char> bytes) = 0;
};

/// What takes bytes, one piece after another.
class ByteSink {
public:
    virtual ~ByteSink() = default;
    virtual SystemError write(std::string_view bytes) = 0;
};

/// A file being written, from its first byte to its last. Destroying it closes it without a word; `close`
/// tells of what only closing finds out.
class OutputFile : public ByteSink {
public:
    /// Returns when what was written so far would outlive a power cut.
    virtual SystemError flush() = 0;
    /// No other call may follow.
    virtual SystemError close() = 0;
};

struct TemporaryFile {
    std::string path;
    std::unique_ptr<OutputFile> file;
};

enum class OpenMode {
    replace, ///< Makes the file, or empties it. One at a time: others wait, and fail with `inUse` in the end.
    append,  ///< Makes the file, or writes behind its last byte; never through a link.
};

/// Names are 8-bit texts handed to the system unchanged; one that holds a NUL is `folderNotFound`. Operations
/// follow symbolic links unless they say otherwise.
class FileSystem {
public:
    virtual ~FileSystem() = default;

    virtual EntryKind kindOf(const std::string& path) = 0;
    /// True if `path` names anything, be it a link that leads nowhere.
    virtual bool hasEntry(const std::string& path) = 0;
    /// Size in bytes of the file `path`.
    virtual Result<std::uint64_t> sizeOf(const std::string& path) = 0;
    /// The whole file, never while an `open` to replace it is writing. A folder or a device is
    /// `accessDenied`, more than 2 GiB `tooLarge`.
    virtual Result<FileBytes> read(const std::string& path) = 0;

    /// A folder or a device is `accessDenied`.
    virtual Result<std::unique_ptr<InputFile>> openToRead(const std::string& path) = 0;

    /// A folder, a device or a pipe is `accessDenied`, and a link that is to be appended to.
    virtual Result<std::unique_ptr<OutputFile>> open(const std::string& path, OpenMode mode) = 0;
    /// Makes an empty file under a fresh name in the folder of `path`, with the rights that the file `path`
    /// has when there is one (on Windows: those of the folder).
    virtual Result<TemporaryFile> createBeside(const std::string& path) = 0;
    /// Whether `open` with `replace` would be let: `none` for a writable file, and for a missing one whose
    /// folder exists. Changes nothing.
    virtual SystemError mayWrite(const std::string& path) = 0;
    /// Renames `from`, in one step, to `to` in the same folder, taking the place of a file that is there.
    virtual SystemError moveOver(const std::string& from, const std::string& to) = 0;
    /// Returns when renames in `folder` would outlive a power cut.
    virtual SystemError flushFolder(const std::string& folder) = 0;
    virtual SystemError remove(const std::string& path) = 0;

    /// Makes one level.
    virtual SystemError createFolder(const std::string& path) = 0;
    /// A file at `to` is replaced when the copy is complete. A file copied onto itself is left alone.
    virtual SystemError copy(const std::string& from, const std::string& to) = 0;

    /// Removes `path` when it is a link; what it leads to stays.
    virtual SystemError removeLink(const std::string& path) = 0;
    /// The file that `path` leads to after following links, so that replacing it keeps the link.
    virtual std::string resolveLinks(const std::string& path) = 0;
    /// `path` with the current folder in front of it when it is relative; links stay as they are.
    virtual std::string fullName(const std::string& path) = 0;
    /// `path` with its last part spelt as on the disk when only the case of its letters differs; else as
    /// given.
    virtual std::string existingName(const std::string& path) = 0;

    /// Whether `path` lies on a disk that stays with this machine. Windows goes by the first letter, as given
    /// (so a network name never lies on one, a relative name rarely); elsewhere the path is resolved and the
    /// file system behind it decides.
    virtual bool isFixedDrive(const std::string& path) = 0;
};

} // namespace qrtVistrelClasses4
