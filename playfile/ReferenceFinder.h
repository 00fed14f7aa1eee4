// Finding the files that a playfile refers to.
#pragma once

#include "platform/FileNames.h"

#include <optional>
#include <string>
#include <unordered_map>

namespace qrtVistrelClasses4 {

/// Looks for files where a playfile says they are, and then beside the playfile. Remembers what it has seen
/// beside the playfile, so that it is made anew for each load.
class ReferenceFinder {
public:
    /// `playfile` is the path of the playfile.
    explicit ReferenceFinder(const std::string& playfile);

    /// Makes the reference name the file beside the playfile if only that file exists.
    void find(std::string& reference);

private:
    /// The reference to the file, if there is one. It is looked for only once, since frames often share a
    /// picture.
    const std::optional<std::string>& besidePlayfile(const std::string& reference);

    std::string folder_;
    FolderNames names_;                                                 ///< In that folder.
    std::unordered_map<std::string, std::optional<std::string>> known_; ///< By file name.
};

} // namespace qrtVistrelClasses4
