#include "playfile/ReferenceFinder.h"

#include "platform/Path.h"
#include "platform/Platform.h"
#include "playfile/MediaFiles.h"

namespace qrtVistrelClasses4 {

ReferenceFinder::ReferenceFinder(const std::string& playfile)
    : folder_(SplitPath(playfile).folder), names_(platform().files(), folder_) {}

void ReferenceFinder::find(std::string& reference) {
    if (reference.empty() || FileExists(reference))
        return;
    if (const std::optional<std::string>& beside = besidePlayfile(reference))
        reference = *beside;
}

const std::optional<std::string>& ReferenceFinder::besidePlayfile(const std::string& reference) {
    const auto [known, isNew] = known_.try_emplace(std::string(SplitPath(reference).name));
    if (!isNew)
        return known->second;
    FileSystem& files = platform().files();
    std::string beside = JoinPath(folder_, known->first);
    if (files.hasEntry(beside))
        beside = files.existingName(beside); // Windows also finds it in another case
    else if (const auto name = names_.find(known->first))
        beside = JoinPath(folder_, *name);
    if (files.kindOf(beside) == EntryKind::file)
        known->second = NameForPlayfile(files.fullName(beside));
    return known->second;
}

} // namespace qrtVistrelClasses4
