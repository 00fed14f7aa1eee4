// Names of files, which playfiles hold in Windows-1252, and disks in the encoding and case of their own.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>

namespace qrtVistrelClasses4 {

class FileSystem;

/// A name in UTF-8. Letters that are UTF-8 already stay; each other byte is a character of Windows-1252, or
/// on Windows of the system's code page. The name may thus be in either encoding, and even each of its
/// folders.
std::string Utf8FromName(std::string_view name);

/// Whether a name starts with a drive or a host of Windows, on any system. Many lists and settings come from
/// there.
bool IsFullOnWindows(std::string_view name);

/// Whether a file name ends in a dot and `ending`, in any case.
bool HasEnding(std::string_view name, std::string_view ending);

/// The first character of a name in a folder that no name on this machine can have.
std::optional<char> ForbiddenInName(std::string_view name);

/// A path on this machine in the form for a playfile, which other machines read too. If names are in
/// UTF-8, each folder and file name becomes Windows-1252, or the system's code page on Windows, unless that
/// lacks one of its letters. `PathOnDisk`
/// leads back from the result to the file.
std::string NameForPlayfile(const std::string& path);

/// The path under which the disk has what `path` names: `path` itself, or the same in UTF-8. If neither is
/// there, `path`.
std::string PathOnDisk(FileSystem& files, const std::string& path);

/// A name in the form in which names are compared: without the case of letters and in one encoding. Letters
/// that Windows-1252 lacks are taken with their case.
std::string FoldedName(std::string_view name);

/// Whether a folder has an entry, as far as its names say that.
enum class Listed {
    yes,
    no,
    unclear, ///< Only the system knows: the folder has not been listed, or the entry may have a second name.
};

/// The names in one folder. The folder is listed when the first name is looked for, and only then.
class FolderNames {
public:
    /// `files` must outlive this object.
    FolderNames(FileSystem& files, std::string folder) : files_(files), folder_(std::move(folder)) {}

    /// The name in the folder that differs from `name` at most in the case of letters and in its encoding. Of
    /// several, the one that comes first by its bytes, whatever their order in the folder.
    std::optional<std::string> find(std::string_view name);
    /// Whether the folder has an entry of exactly this name. Does not list the folder.
    Listed lists(std::string_view name) const;

private:
    void list();

    FileSystem& files_;
    std::string folder_;
    bool isListed_ = false;
    std::unordered_map<std::string, std::string> names_; ///< By `FoldedName`.
};

/// What `FileSystem::existingName` returns on systems that distinguish the case of letters.
std::string FindExistingName(FileSystem& files, const std::string& path);

} // namespace qrtVistrelClasses4
