#include "platform/IniProfileFile.h"

#include "platform/ReplacementFile.h"

#include <utility>

namespace qrtVistrelClasses4 {

std::string IniProfileFile::read(std::string_view section, std::string_view key,
                                 std::string_view defaultValue, std::size_t bufferSize) {
    if (!index_) {
        bytes_ = readFile().value;
        index_.emplace(bytes_.text());
    }
    return ProfileString(index_->find(section, key), defaultValue, bufferSize);
}

void IniProfileFile::write(std::string_view section, std::string_view key, std::string_view value) {
    changes_.push_back({std::string(section), std::string(key), std::string(value)});
}

SystemError IniProfileFile::commit() {
    index_.reset();
    const std::vector<IniChange> changes = std::exchange(changes_, {});
    if (changes.empty())
        return SystemError::none;
    const Result<FileBytes> old = readFile();
    if (!old && old.error != SystemError::fileNotFound)
        return old.error;
    const std::optional<std::string> text = ApplyIniChanges(old.value.text(), changes);
    if (!text)
        return SystemError::none;
    ReplacementFile file(files_, path_);
    (void)file.write(*text); // a failure is kept and told by `commit`
    return file.commit();
}

Result<FileBytes> IniProfileFile::readFile() {
    auto bytes = files_.read(path_);
    if (bytes.error != SystemError::fileNotFound)
        return bytes;
    std::string existing = files_.existingName(path_);
    if (existing == path_)
        return bytes;
    path_ = std::move(existing);
    return files_.read(path_);
}

} // namespace qrtVistrelClasses4
