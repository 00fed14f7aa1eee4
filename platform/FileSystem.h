// The files and folders of one machine.
#pragma once

#include "platform/SystemError.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace qrtVistrelClasses4 {

enum class EntryKind { missing, file, folder, pipe, other };

/// The bytes of a file, owned.
struct FileBytes {
    std::unique_ptr<char[]> data;
    std::size_t size = 0;
    std::string_view text() const { return {data.get(), size}; }
};

/// What the system knows one version of a file by. A default-constructed stamp is that of no file.
struct FileStamp {
    std::uint64_t device = 0, file = 0, size = 0;
    std::uint64_t modified = 0; ///< When its bytes changed last, in a unit of the system's.
    std::uint64_t changed = 0;  ///< The same for its bytes, its rights and its names.
    bool operator==(const FileStamp&) const = default;
};

/// A file being read in pieces, from anywhere in it.
class InputFile {
public:
    virtual ~InputFile() = default;
    /// The size in bytes that the file had when it was opened.
    virtual std::uint64_t size() const = 0;
    /// Reads up to `bytes.size()` bytes starting at `offset`. Returns the number read, which is smaller at
    /// the end of the file.
    virtual Result<std::size_t> readAt(std::uint64_t offset, std::span<char> bytes) = 0;
};

/// Receives bytes, one piece after another.
class ByteSink {
public:
    virtual ~ByteSink() = default;
    virtual SystemError write(std::string_view bytes) = 0;
};

/// A file being written, from its first byte to its last. The destructor closes it and ignores errors;
/// `close` reports them.
class OutputFile : public ByteSink {
public:
    /// Returns when all bytes written so far are safe from a power cut.
    virtual SystemError flush() = 0;
    /// Must be the last call.
    virtual SystemError close() = 0;
};

/// A disk, or another place with a tree of files of its own.
struct Drive {
    std::uint64_t number = 0; ///< Distinguishes the drives that are in this machine at the same time.
    std::string place;        ///< A path on it.
};

/// While it lives, other processes that lock the same folder wait.
class FolderLock {
public:
    virtual ~FolderLock() = default;
};

struct TemporaryFile {
    std::string path;
    std::unique_ptr<OutputFile> file;
    std::string target; ///< The file beside it that it may replace, when links are followed.
};

enum class OpenMode {
    replace, ///< Makes or empties the file. Others who do this meanwhile wait, and in the end fail with
             ///< `inUse`.
    append,  ///< Makes the file, or writes after its last byte; never through a link.
};

/// Names are 8-bit texts that are passed to the system unchanged; a name with a NUL is `folderNotFound`.
/// Operations follow symbolic links unless their comments say otherwise. Several threads may use the same
/// object.
class FileSystem {
public:
    virtual ~FileSystem() = default;

    virtual EntryKind kindOf(const std::string& path) = 0;
    /// True if `path` names anything, be it a link that leads nowhere.
    virtual bool hasEntry(const std::string& path) = 0;
    /// The size of the file `path` in bytes.
    virtual Result<std::uint64_t> sizeOf(const std::string& path) = 0;
    /// Reads the whole file. Waits while somebody has it open to replace it. A folder or a device is
    /// `accessDenied`, a file of more than 2 GiB `tooLarge`.
    virtual Result<FileBytes> read(const std::string& path) = 0;
    /// The same, but no bytes if the file is still the version that `stamp` is of. `stamp` becomes that of
    /// the version read, or that of no file if a later change might not show in it.
    virtual Result<std::optional<FileBytes>> readIfChanged(const std::string& path, FileStamp& stamp) {
        stamp = {};
        Result<FileBytes> bytes = read(path);
        if (!bytes)
            return bytes.error();
        return std::optional(std::move(bytes).value());
    }

    /// A folder or a device is `accessDenied`.
    virtual Result<std::unique_ptr<InputFile>> openToRead(const std::string& path) = 0;

    /// A folder, a device or a pipe is `accessDenied`; so is a link, to append.
    virtual Result<std::unique_ptr<OutputFile>> open(const std::string& path, OpenMode mode) = 0;
    /// Makes an empty file with a new name beside the file that `path` leads to. It gets the rights of that
    /// file, if that exists (on Windows: the rights that the folder gives). Fails where `mayWrite` does.
    virtual Result<TemporaryFile> createBeside(const std::string& path) = 0;
    /// Whether `open` with `replace` would succeed: `none` for a writable file, and for a missing file in an
    /// existing folder. Changes nothing.
    virtual SystemError mayWrite(const std::string& path) = 0;
    /// Renames `from` to `to`, in the same folder and in one step. An existing file `to` is replaced.
    virtual SystemError moveOver(const std::string& from, const std::string& to) = 0;
    /// Returns when renames in `folder` are safe from a power cut.
    virtual SystemError flushFolder(const std::string& folder) = 0;
    virtual SystemError remove(const std::string& path) = 0;

    /// Locks the folder of `path` against other processes that lock it, too. If it is one of the library's
    /// own, it is made first. Without locks in the file system, or if another process keeps its lock for
    /// seconds, the result locks nothing: that is better than not saving a setting.
    virtual Result<std::unique_ptr<FolderLock>> lockFolderOf(const std::string& /*path*/) {
        return std::unique_ptr<FolderLock>();
    }

    /// Makes one folder. The folder above it must exist.
    virtual SystemError createFolder(const std::string& path) = 0;
    /// Replaces a file `to` when the copy is complete. Copying a file onto itself does nothing.
    virtual SystemError copy(const std::string& from, const std::string& to) = 0;

    /// Removes `path` if it is a link. The file that it leads to stays.
    virtual SystemError removeLink(const std::string& path) = 0;
    /// The file that `path` leads to when links are followed. Replacing that file keeps the links.
    virtual std::string resolveLinks(const std::string& path) = 0;
    /// The full path of `path`, which may be relative to the current folder. Links are not followed.
    virtual std::string fullName(const std::string& path) = 0;
    /// `path` as it is spelt on the disk, if only the case of letters in the file name differs, or the
    /// encoding of `path` (see `PathOnDisk`). Otherwise `path` unchanged.
    virtual std::string existingName(const std::string& path) = 0;
    /// The names of all entries in `folder`, in any order. None if it cannot be listed.
    virtual std::vector<std::string> namesIn(const std::string& folder) = 0;

    /// The drive that `path` lies on. On Windows the first letter of `path` is taken for it. Elsewhere it is
    /// the file system that the path leads to, or the nearest folder above that exists.
    virtual Drive driveOf(const std::string& path) = 0;
    /// Whether the drive is always in this machine. On Windows, what `driveOf` makes of network names is not,
    /// and mostly what it makes of relative names is not.
    virtual bool isFixed(const Drive& drive) = 0;
};

} // namespace qrtVistrelClasses4
