// Finding the files that a playfile refers to.
#pragma once

#include "platform/FileNames.h"
#include "playfile/MediaFiles.h"
#include <qrtVistrelClasses4/FrameRecord.h>

#include <optional>
#include <string>
#include <unordered_map>

namespace qrtVistrelClasses4 {

/// Looks for files where a playfile says they are, and then beside the playfile. Remembers what it has seen,
/// since frames often share a picture; it is therefore made anew for each load.
class ReferenceFinder {
public:
    /// `playfile` is the path of the playfile.
    explicit ReferenceFinder(const std::string& playfile);

    /// Makes the reference name the file beside the playfile if only that file exists. Returns what it was
    /// before such a change.
    std::optional<std::string> find(std::string& reference);

    /// A reference to the file that `find` would leave. Nothing if there is none in either place.
    std::optional<std::string> fileOf(const std::string& reference);

private:
    /// A reference to the file of that name beside the playfile, if there is one.
    const std::optional<std::string>& besidePlayfile(const std::string& reference);
    std::optional<std::string> lookBesidePlayfile(const std::string& name);

    std::string folder_;
    FolderNames names_; ///< In that folder.
    FoundFiles existing_;
    std::unordered_map<std::string, std::optional<std::string>> beside_; ///< By file name.
};

/// Gives pictures of `frames` that are found beside `playfile` their full paths, as previews need them.
void FindPictures(OneBasedArray<FrameRecord>& frames, const std::string& playfile);

} // namespace qrtVistrelClasses4
