#include "platform/IniProfileFile.h"

#include "platform/ReplacementFile.h"

#include <utility>

namespace qrtVistrelClasses4 {
namespace {

constexpr std::string_view kWideMark = "\xff\xfe";

/// Whether a file is in 16-bit characters, as some editors on Windows save.
bool isWideText(std::string_view bytes) { return bytes.starts_with(kWideMark); }

/// The text in 8-bit characters, "?" for what has none.
FileBytes narrowedText(std::string_view bytes) {
    bytes.remove_prefix(kWideMark.size());
    FileBytes narrow{std::make_unique_for_overwrite<char[]>(bytes.size() / 2), bytes.size() / 2};
    for (std::size_t i = 0; i < narrow.size; ++i)
        narrow.data[i] = bytes[2 * i + 1] == '\0' ? bytes[2 * i] : '?';
    return narrow;
}

} // namespace

std::string IniProfileFile::read(std::string_view section, std::string_view key,
                                 std::string_view defaultValue, std::size_t bufferSize) {
    return ProfileString(index().find(section, key), defaultValue, bufferSize);
}

const IniIndex& IniProfileFile::index() {
    if (!index_) {
        bytes_ = readFile().valueOr({});
        if (isWideText(bytes_.text()))
            bytes_ = narrowedText(bytes_.text());
        index_.emplace(bytes_.text());
    }
    return *index_;
}

void IniProfileFile::write(std::string_view section, std::string_view key, std::string_view value) {
    changes_.push_back({std::string(section), std::string(key), std::string(value)});
}

SystemError IniProfileFile::commit() {
    index_.reset();
    const std::vector<IniChange> changes = std::exchange(changes_, {});
    if (changes.empty())
        return SystemError::none;
    Result<FileBytes> read = readFile();
    if (!read && read.error() != SystemError::fileNotFound)
        return read.error();
    const FileBytes old = std::move(read).valueOr({});
    if (isWideText(old.text()))
        return SystemError::unsupported; // better than a mixture of wide and narrow lines
    const std::optional<std::string> text = ApplyIniChanges(old.text(), changes);
    if (!text)
        return SystemError::none;
    ReplacementFile file(files_, path_);
    (void)file.write(*text); // `commit` reports an error of this
    return file.commit();
}

Result<FileBytes> IniProfileFile::readFile() {
    auto bytes = files_.read(path_);
    if (bytes.error() != SystemError::fileNotFound)
        return bytes;
    std::string existing = files_.existingName(path_);
    if (existing == path_)
        return bytes;
    path_ = std::move(existing);
    return files_.read(path_);
}

} // namespace qrtVistrelClasses4
