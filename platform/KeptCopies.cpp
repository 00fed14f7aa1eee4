#include "platform/KeptCopies.h"

#include "platform/Path.h"

#include <utility>

namespace qrtVistrelClasses4 {
namespace {

struct Place {
    std::string path;
    bool holdsCopy = false;
};

/// The first free name for a copy of `path`, or the one before it that holds such a copy.
Result<Place> findPlace(FileSystem& files, const std::string& path, int number) {
    const auto bytes = files.read(path);
    if (bytes.error() == SystemError::fileNotFound)
        return bytes.error();
    for (;; ++number) {
        std::string place = path + std::string(kBackupEnding) + (number > 1 ? std::to_string(number) : "");
        if (files.kindOf(place) == EntryKind::missing)
            (void)files.removeLink(place); // one to nothing: the copy would be made where it leads
        const auto size = files.sizeOf(place);
        if (size.error() == SystemError::fileNotFound)
            return Place{std::move(place)};
        if (!size && files.kindOf(place) == EntryKind::missing)
            return size.error(); // what is there cannot be seen
        if (size && bytes && size.value() == bytes.value().size &&
            files.read(place).valueOr({}).text() == bytes.value().text())
            return Place{std::move(place), true};
    }
}

SystemError renameTo(FileSystem& files, const std::string& path, const std::string& place) {
    if (files.mayWrite(path) != SystemError::none || files.resolveLinks(path) != path)
        return SystemError::accessDenied;
    const SystemError error = files.moveOver(path, place);
    if (error == SystemError::none) // a power cut must not undo this once there is another file `path`
        (void)files.flushFolder(std::string(SplitPath(path).folder));
    return error;
}

} // namespace

std::string MakePlaceForBackup(FileSystem& files, const std::string& path) {
    std::string backup = path + std::string(kBackupEnding);
    (void)files.removeLink(backup); // one that stays cannot be written over either
    return backup;
}

Result<std::string> KeepAside(FileSystem& files, const std::string& path, IfNotCopied ifNotCopied,
                              int firstNumber) {
    auto place = findPlace(files, path, firstNumber);
    if (!place)
        return place.error();
    if (!place.value().holdsCopy) {
        const SystemError error = files.copy(path, place.value().path);
        const bool isRenamed = error != SystemError::none && ifNotCopied == IfNotCopied::rename &&
                               renameTo(files, path, place.value().path) == SystemError::none;
        if (error != SystemError::none && !isRenamed)
            return error;
    }
    return std::move(place.value().path);
}

bool IsNameOfCopy(std::string_view name, std::string_view original) {
    if (!name.starts_with(original) || !name.substr(original.size()).starts_with(kBackupEnding))
        return false;
    name.remove_prefix(original.size() + kBackupEnding.size());
    return name.find_first_not_of("0123456789") == name.npos;
}

} // namespace qrtVistrelClasses4
