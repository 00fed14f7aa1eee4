#include "playfile/ReferenceFinder.h"

#include "platform/Path.h"
#include "platform/Platform.h"
#include "playfile/MediaFiles.h"

namespace qrtVistrelClasses4 {

ReferenceFinder::ReferenceFinder(const std::string& playfile) : folder_(SplitPath(playfile).folder) {}

void ReferenceFinder::find(std::string& reference) {
    if (reference.empty() || FileExists(reference))
        return;
    if (const std::optional<std::string>& beside = besidePlayfile(reference))
        reference = *beside;
}

const std::optional<std::string>& ReferenceFinder::besidePlayfile(const std::string& reference) {
    const auto [known, isNew] = known_.try_emplace(std::string(SplitPath(reference).name));
    if (isNew) {
        FileSystem& files = platform().files();
        const std::string beside = files.existingName(JoinPath(folder_, known->first));
        if (files.kindOf(beside) == EntryKind::file)
            known->second = files.fullName(beside);
    }
    return known->second;
}

} // namespace qrtVistrelClasses4
