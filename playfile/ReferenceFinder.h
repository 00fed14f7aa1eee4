// Finding the files that a playfile refers to.
#pragma once

#include <optional>
#include <string>
#include <unordered_map>

namespace qrtVistrelClasses4 {

/// Looks for files where a playfile says they are, and then beside the playfile.
class ReferenceFinder {
public:
    /// `playfile` is the path of the playfile.
    explicit ReferenceFinder(const std::string& playfile);

    /// Makes the reference name the file beside the playfile if only that file exists.
    void find(std::string& reference);

private:
    /// Full name of the file, if there is one. It is looked for only once, since frames often share a
    /// picture.
    const std::optional<std::string>& besidePlayfile(const std::string& reference);

    std::string folder_;
    std::unordered_map<std::string, std::optional<std::string>> known_; ///< By file name.
};

} // namespace qrtVistrelClasses4
