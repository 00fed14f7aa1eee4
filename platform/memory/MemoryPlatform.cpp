#include "platform/memory/MemoryPlatform.h"

#include "platform/FileNames.h"
#include "platform/ReplacementFile.h"

#include <algorithm>
#include <cstring>

namespace qrtVistrelClasses4 {
namespace {

std::string parentOf(std::string_view path) {
    std::string_view folder = SplitPath(path).folder;
    while (!folder.empty() && IsPathSeparator(folder.back()))
        folder.remove_suffix(1);
    return std::string(folder);
}

const std::string kCurrentFolder = kPathSeparator == '\\' ? "C:\\" : "/";

bool isRelative(std::string_view path) {
    const bool hasDrive = path.size() >= 2 && path[1] == ':';
    return !path.empty() && !IsPathSeparator(path.front()) && !hasDrive;
}

/// Without the separator at its end, the root is "", and the root of a drive is "C:".
bool isRoot(std::string_view path) { return path.empty() || (path.size() == 2 && path[1] == ':'); }

FileBytes copyOf(std::string_view bytes) {
    FileBytes copy{std::make_unique_for_overwrite<char[]>(bytes.size()), bytes.size()};
    bytes.copy(copy.data.get(), bytes.size());
    return copy;
}

} // namespace

class MemoryInputFile final : public InputFile {
public:
    explicit MemoryInputFile(std::shared_ptr<const std::string> content, MemoryFileSystem& files,
                             std::string path)
        : content_(std::move(content)), files_(files), path_(std::move(path)) {}

    std::uint64_t size() const override { return content_->size(); }
    Result<std::size_t> readAt(std::uint64_t offset, std::span<char> bytes) override {
        if (const auto error = files_.perform({FileOperation::read, path_, {}, {}});
            error != SystemError::none)
            return error;
        if (offset >= content_->size())
            return std::size_t{0};
        return content_->copy(bytes.data(), bytes.size(), static_cast<std::size_t>(offset));
    }

private:
    std::shared_ptr<const std::string> content_;
    MemoryFileSystem& files_;
    std::string path_;
};

/// Writes to the content it was opened on, also after a rename.
class MemoryOutputFile final : public OutputFile {
public:
    MemoryOutputFile(MemoryFileSystem& files, std::string path, std::shared_ptr<std::string> content)
        : files_(files), path_(std::move(path)), content_(std::move(content)) {}

    SystemError write(std::string_view bytes) override { return files_.append(path_, *content_, bytes); }
    SystemError flush() override { return files_.perform({FileOperation::flush, path_, {}, {}}); }
    SystemError close() override { return files_.perform({FileOperation::close, path_, {}, {}}); }

private:
    MemoryFileSystem& files_;
    std::string path_;
    std::shared_ptr<std::string> content_;
};

std::string MemoryFileSystem::normal(std::string_view path) {
    std::string result = isRelative(path) ? kCurrentFolder : "";
    for (const char character : path) {
        const bool repeats = IsPathSeparator(character) && !result.empty() && result.back() == kPathSeparator;
        if (!repeats)
            result += IsPathSeparator(character) ? kPathSeparator : character;
    }
    while (!result.empty() && result.back() == kPathSeparator)
        result.pop_back();
    return result;
}

SystemError MemoryFileSystem::perform(const FileOperation& operation) {
    return observer ? observer(operation) : SystemError::none;
}

const MemoryFileSystem::Entry* MemoryFileSystem::find(const std::string& path) const {
    const auto entry = entries_.find(normal(path));
    return entry == entries_.end() ? nullptr : &entry->second;
}

EntryKind MemoryFileSystem::kind(const std::string& path) const {
    if (const Entry* entry = find(path))
        return entry->content ? EntryKind::file : EntryKind::folder;
    return !path.empty() && isRoot(normal(path)) ? EntryKind::folder : EntryKind::missing;
}

/// Whether the folder of `path` takes a new entry.
SystemError MemoryFileSystem::mayAdd(const std::string& path) const {
    if (path.find('\0') != path.npos)
        return SystemError::folderNotFound;
    const std::string folder = parentOf(normal(path));
    const Entry* entry = find(folder);
    if (!entry)
        return isRoot(folder) ? SystemError::none : SystemError::folderNotFound;
    if (entry->content)
        return SystemError::folderNotFound;
    return entry->readOnly ? SystemError::accessDenied : SystemError::none;
}

EntryKind MemoryFileSystem::kindOf(const std::string& path) {
    if (perform({FileOperation::look, path, {}, {}}) != SystemError::none)
        return EntryKind::missing;
    return kind(path);
}

Result<std::uint64_t> MemoryFileSystem::sizeOf(const std::string& path) {
    if (const auto error = perform({FileOperation::look, path, {}, {}}); error != SystemError::none)
        return error;
    const Entry* entry = find(path);
    if (entry && entry->content)
        return std::uint64_t{entry->content->size()};
    if (kind(path) == EntryKind::folder)
        return SystemError::accessDenied;
    return mayAdd(path) == SystemError::folderNotFound ? SystemError::folderNotFound
                                                       : SystemError::fileNotFound;
}

Result<std::shared_ptr<std::string>> MemoryFileSystem::contentToRead(const std::string& path) {
    if (const auto error = perform({FileOperation::read, path, {}, {}}); error != SystemError::none)
        return error;
    const Entry* entry = find(path);
    if (entry && entry->content)
        return entry->content;
    if (kind(path) == EntryKind::folder)
        return SystemError::accessDenied;
    return mayAdd(path) == SystemError::folderNotFound ? SystemError::folderNotFound
                                                       : SystemError::fileNotFound;
}

Result<FileBytes> MemoryFileSystem::read(const std::string& path) {
    const auto content = contentToRead(path);
    if (!content)
        return content.error();
    return copyOf(*content.value());
}

Result<std::unique_ptr<InputFile>> MemoryFileSystem::openToRead(const std::string& path) {
    auto content = contentToRead(path);
    if (!content)
        return content.error();
    return std::unique_ptr<InputFile>(
        std::make_unique<MemoryInputFile>(std::move(content.value()), *this, path));
}

SystemError MemoryFileSystem::mayWrite(const std::string& path) {
    if (const auto error = perform({FileOperation::look, path, {}, {}}); error != SystemError::none)
        return error;
    const Entry* entry = find(path);
    if (entry && entry->content)
        return entry->readOnly ? SystemError::accessDenied : SystemError::none;
    if (kind(path) == EntryKind::folder)
        return SystemError::accessDenied;
    return mayAdd(path) == SystemError::folderNotFound ? SystemError::folderNotFound : SystemError::none;
}

Result<std::unique_ptr<OutputFile>> MemoryFileSystem::open(const std::string& path, OpenMode mode) {
    if (const auto error = perform({FileOperation::open, path, {}, {}, mode}); error != SystemError::none)
        return error;
    const Entry* old = find(path);
    if (kind(path) == EntryKind::folder || (old && old->readOnly))
        return SystemError::accessDenied;
    if (!old)
        if (const auto error = mayAdd(path); error != SystemError::none)
            return error;
    const auto content = old ? old->content : std::make_shared<std::string>();
    std::unique_ptr<OutputFile> file = std::make_unique<MemoryOutputFile>(*this, path, content);
    if (!old) // as late as this, since it stays
        entries_[normal(path)].content = content;
    if (mode == OpenMode::replace)
        content->clear();
    return file;
}

Result<TemporaryFile> MemoryFileSystem::createBeside(const std::string& path) {
    if (const auto error = mayWrite(path); error != SystemError::none)
        return error;
    const std::string name = ".vistrel-" + std::to_string(++temporaryFiles_) + ".tmp";
    std::string temporaryPath = std::string(SplitPath(path).folder) + name;
    TemporaryFile beside{std::move(temporaryPath), nullptr, path};
    auto file = open(beside.path, OpenMode::replace);
    if (!file)
        return file.error();
    beside.file = std::move(file.value()); // after all that takes memory, since the file stays
    return beside;
}

SystemError MemoryFileSystem::append(const std::string& path, std::string& content, std::string_view bytes) {
    if (const auto error = perform({FileOperation::write, path, {}, bytes}); error != SystemError::none)
        return error;
    const std::size_t fitting =
        static_cast<std::size_t>(std::min<std::uint64_t>(bytes.size(), bytesLeft.value_or(bytes.size())));
    content += bytes.substr(0, fitting);
    if (bytesLeft)
        *bytesLeft -= fitting;
    return fitting == bytes.size() ? SystemError::none : SystemError::diskFull;
}

SystemError MemoryFileSystem::moveOver(const std::string& from, const std::string& to) {
    if (const auto error = perform({FileOperation::rename, from, to, {}}); error != SystemError::none)
        return error;
    const Entry* source = find(from);
    if (!source || !source->content)
        return SystemError::fileNotFound;
    const Entry* old = find(to);
    if (kind(to) == EntryKind::folder || (old && old->readOnly))
        return SystemError::accessDenied;
    if (const auto error = mayAdd(to); error != SystemError::none)
        return error;
    Entry moved = *source;
    entries_.erase(normal(from));
    entries_[normal(to)] = std::move(moved);
    return SystemError::none;
}

SystemError MemoryFileSystem::flushFolder(const std::string& folder) {
    return perform({FileOperation::flushFolder, folder, {}, {}});
}

SystemError MemoryFileSystem::remove(const std::string& path) {
    if (const auto error = perform({FileOperation::remove, path, {}, {}}); error != SystemError::none)
        return error;
    const Entry* entry = find(path);
    const SystemError folderAnswer = mayAdd(path);
    if (!entry)
        return folderAnswer == SystemError::folderNotFound ? folderAnswer : SystemError::fileNotFound;
    if (!entry->content || folderAnswer != SystemError::none)
        return SystemError::accessDenied;
    entries_.erase(normal(path));
    return SystemError::none;
}

SystemError MemoryFileSystem::createFolder(const std::string& path) {
    if (const auto error = perform({FileOperation::createFolder, path, {}, {}}); error != SystemError::none)
        return error;
    if (kind(path) != EntryKind::missing)
        return SystemError::alreadyExists;
    if (const auto error = mayAdd(path); error != SystemError::none)
        return error;
    entries_[normal(path)] = {};
    return SystemError::none;
}

SystemError MemoryFileSystem::copy(const std::string& from, const std::string& to) {
    const auto bytes = read(from);
    if (!bytes || normal(from) == normal(to))
        return bytes.error();
    ReplacementFile file(*this, to);
    (void)file.write(bytes.value().text()); // `commit` reports an error of this
    return file.commit();
}

std::string MemoryFileSystem::fullName(const std::string& path) {
    return isRelative(path) ? JoinPath(kCurrentFolder, path) : path;
}

std::string MemoryFileSystem::existingName(const std::string& path) { return FindExistingName(*this, path); }

std::vector<std::string> MemoryFileSystem::namesIn(const std::string& folder) {
    std::vector<std::string> names;
    if (perform({FileOperation::list, folder, {}, {}}) != SystemError::none)
        return names;
    const std::string listed = normal(folder.empty() ? kCurrentFolder : folder);
    for (const auto& [path, entry] : entries_)
        if (parentOf(path) == listed)
            names.emplace_back(SplitPath(path).name);
    return names;
}

Drive MemoryFileSystem::driveOf(const std::string& path) {
    std::string place = normal(path);
    const auto loose =
        std::ranges::find_if(looseDrives_, [&](const auto& prefix) { return place.starts_with(prefix); });
    return {static_cast<std::uint64_t>(std::distance(looseDrives_.begin(), loose)), std::move(place)};
}

bool MemoryFileSystem::isFixed(const Drive& drive) { return drive.number == looseDrives_.size(); }

void MemoryFileSystem::put(const std::string& path, std::string_view content) {
    makeFolders(parentOf(normal(path)));
    entries_[normal(path)] = {std::make_shared<std::string>(content)};
}

std::optional<std::string> MemoryFileSystem::content(const std::string& path) const {
    const Entry* entry = find(path);
    return entry && entry->content ? std::optional(*entry->content) : std::nullopt;
}

void MemoryFileSystem::makeFolders(const std::string& path) {
    const std::string folder = normal(path);
    if (isRoot(folder))
        return;
    makeFolders(parentOf(folder));
    entries_.try_emplace(folder);
}

std::vector<std::string> MemoryFileSystem::fileNames() const {
    std::vector<std::string> names;
    for (const auto& [name, entry] : entries_)
        if (entry.content)
            names.push_back(name);
    return names;
}

void MemoryFileSystem::setReadOnly(const std::string& path, bool readOnly) {
    entries_.at(normal(path)).readOnly = readOnly;
}

MessageAnswer MemoryMessageBoxes::show(const Message& message) {
    shown.push_back(message);
    if (answers.empty())
        return message.buttons == MessageButtons::yesNo ? MessageAnswer::no : MessageAnswer::ok;
    const MessageAnswer answer = answers.front();
    answers.pop_front();
    return answer;
}

MemoryPlatform::MemoryPlatform() {
    library = JoinPath(kCurrentFolder, "library");
    specialFolders[kDocumentsFolder] = JoinPath(kCurrentFolder, "documents");
    files_.makeFolders(library);
    files_.makeFolders(specialFolders[kDocumentsFolder]);
}

std::optional<std::string> MemoryPlatform::environmentVariable(const std::string& name) {
    const auto found = environment.find(name);
    return found == environment.end() ? std::nullopt : std::optional(found->second);
}

std::optional<std::string> MemoryPlatform::specialFolder(int number) {
    const auto folder = specialFolders.find(number);
    return folder == specialFolders.end() ? std::nullopt : std::optional(folder->second);
}

} // namespace qrtVistrelClasses4
