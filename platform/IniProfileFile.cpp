#include "platform/IniProfileFile.h"

#include "platform/ReplacementFile.h"

#include <optional>
#include <utility>

namespace qrtVistrelClasses4 {
namespace {

constexpr std::string_view kWideMark = "\xff\xfe";
/// All preferences fit in it.
constexpr std::size_t kUsualChanges = 64;

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

IniFileCache::Content::Content(FileBytes given)
    : bytes(isWideText(given.text()) ? narrowedText(given.text()) : std::move(given)), values(bytes.text()) {}

IniFileCache::Version IniFileCache::lastVersion() {
    const std::lock_guard lock(mutex_);
    return last_;
}

Result<std::shared_ptr<const IniFileCache::Content>> IniFileCache::read(const std::string& path) {
    Version version = lastVersion();
    if (version.path != path)
        version = {path, {}, nullptr};
    // Not under the lock, since the file may be in use or on a slow drive.
    auto changed = files_.readIfChanged(path, version.stamp);
    if (!changed)
        return changed.error();
    if (std::optional<FileBytes>& bytes = changed.value()) {
        version.content = std::make_shared<const Content>(std::move(*bytes));
        const std::lock_guard lock(mutex_);
        last_ = version;
    }
    return version.content;
}

/// The result of `read`, which reads a file, for `path_` under the name that it has on the disk.
template <class Read>
auto IniProfileFile::readFile(Read read) {
    const auto isMissing = [](SystemError error) {
        return error == SystemError::fileNotFound || error == SystemError::folderNotFound;
    };
    auto result = read(path_);
    if (!isMissing(result.error()))
        return result;
    if (std::string existing = files_.existingName(path_); existing != path_) {
        path_ = std::move(existing);
        result = read(path_);
    }
    if (isMissing(result.error()) && !original_.empty())
        if (auto original = read(original_))
            return original;
    return result;
}

std::string IniProfileFile::read(std::string_view section, std::string_view key,
                                 std::string_view defaultValue, std::size_t bufferSize) {
    return ProfileString(content().values.find(section, key, cursor_), defaultValue, bufferSize);
}

const IniFileCache::Content& IniProfileFile::content() {
    if (!content_)
        content_ = readFile([&](const std::string& path) { return cache_.read(path); }).valueOr(nullptr);
    if (!content_) // there is no such file
        content_ = std::make_shared<const IniFileCache::Content>(FileBytes());
    return *content_;
}

void IniProfileFile::write(std::string_view section, std::string_view key, std::string_view value) {
    if (changes_.empty())
        changes_.reserve(kUsualChanges);
    changes_.push_back({std::string(section), std::string(key), std::string(value)});
}

void IniProfileFile::remove(std::string_view section, std::string_view key) {
    changes_.push_back({std::string(section), std::string(key), std::nullopt});
}

SystemError IniProfileFile::commit() {
    content_.reset();
    cursor_ = {};
    const std::vector<IniChange> changes = std::exchange(changes_, {});
    if (changes.empty())
        return SystemError::none;
    // The folder that holds the file itself, whatever link leads to it.
    const auto lock = files_.lockFolderOf(files_.resolveLinks(files_.existingName(path_)));
    if (!lock)
        return lock.error();
    Result<FileBytes> read = readFile([&](const std::string& path) { return files_.read(path); });
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

} // namespace qrtVistrelClasses4
