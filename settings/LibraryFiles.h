// Where a file of the library is: in the library's or the application's folder, or where a program has been
// installed.
#pragma once

#include "platform/Platform.h"

#include <optional>
#include <string>

namespace qrtVistrelClasses4 {

/// A file that may be in several folders.
struct LibraryFile {
    std::string name{};      ///< Its case does not matter.
    std::string subfolder{}; ///< The folder in those folders that has it; empty if it is directly in them.
    FileUse use = FileUse::kept;
};

/// The place of the file below `folder`, spelt as on the disk.
std::string PlaceIn(const std::string& folder, const LibraryFile& file);

/// The file in the first of the platform's other folders that has it. No value if there is one below
/// `folder`, or none anywhere. A file that the library writes is not looked for elsewhere if `folder` is not
/// the library's own.
std::optional<std::string> FindElsewhere(const std::string& folder, const LibraryFile& file);

/// The file to read: the one below `folder`, or one that is found elsewhere. If there is none, its place
/// below `folder`.
std::string PlaceToRead(const std::string& folder, const LibraryFile& file);

/// Whether `path` is the file in one of the other folders, where nothing is written.
bool IsElsewhere(const std::string& path, const LibraryFile& file);

} // namespace qrtVistrelClasses4
