#include "playfile/ReferenceFinder.h"

#include "platform/Path.h"
#include "platform/Platform.h"
#include "platform/Remembered.h"

#include <utility>

namespace qrtVistrelClasses4 {

ReferenceFinder::ReferenceFinder(const std::string& playfile)
    : folder_(SplitPath(playfile).folder), names_(platform().files(), folder_) {}

std::optional<std::string> ReferenceFinder::find(std::string& reference) {
    if (reference.empty() || FileExists(reference, existing_))
        return std::nullopt;
    const std::optional<std::string>& beside = besidePlayfile(reference);
    return beside ? std::optional(std::exchange(reference, *beside)) : std::nullopt;
}

std::optional<std::string> ReferenceFinder::fileOf(const std::string& reference) {
    return existing_.has(reference) ? reference : besidePlayfile(reference);
}

const std::optional<std::string>& ReferenceFinder::besidePlayfile(const std::string& reference) {
    const std::string name(SplitPath(reference).name);
    return Remembered(beside_, name, [&] { return lookBesidePlayfile(name); });
}

std::optional<std::string> ReferenceFinder::lookBesidePlayfile(const std::string& name) {
    FileSystem& files = platform().files();
    std::string beside = JoinPath(folder_, name);
    const Listed listed = names_.lists(name);
    if (listed == Listed::unclear) {
        if (files.hasEntry(beside))
            beside = files.existingName(beside); // Windows also finds it in another case
        else if (const auto other = names_.find(name))
            return besidePlayfile(*other);
        else
            return std::nullopt;
    }
    if (listed == Listed::no)
        return std::nullopt;
    if (files.kindOf(beside) != EntryKind::file)
        return std::nullopt;
    return NameForPlayfile(files.fullName(beside));
}

void FindPictures(OneBasedArray<FrameRecord>& frames, const std::string& playfile) {
    ReferenceFinder finder(playfile);
    for (FrameRecord& frame : frames)
        finder.find(frame.PicturefileName);
}

} // namespace qrtVistrelClasses4
