// A machine in memory, for tests: it is the same in every run, and tests can make it fail.
#pragma once

#include "platform/IniProfileFile.h"
#include "platform/Path.h"
#include "platform/Platform.h"
#include "platform/TreeRegistryStore.h"

#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <tuple>
#include <vector>

namespace qrtVistrelClasses4 {

/// An operation of a `MemoryFileSystem` that is about to happen.
struct FileOperation {
    enum Kind {
        look, ///< For kind, size or right to write.
        list, ///< The names in a folder.
        read,
        open,
        write,
        flush,
        close,
        rename,
        flushFolder,
        remove,
        createFolder,
    };
    Kind kind = look;
    std::string path;
    std::string target;     ///< Of a `rename`.
    std::string_view bytes; ///< Of a `write`.
    OpenMode mode = OpenMode::replace;
};

/// Understands both separators. The roots exist from the start, and one of them is the current folder. One
/// thread at a time.
class MemoryFileSystem final : public FileSystem {
public:
    EntryKind kindOf(const std::string& path) override;
    bool hasEntry(const std::string& path) override { return kindOf(path) != EntryKind::missing; }
    Result<std::uint64_t> sizeOf(const std::string& path) override;
    Result<FileBytes> read(const std::string& path) override;
    Result<std::unique_ptr<InputFile>> openToRead(const std::string& path) override;
    Result<std::unique_ptr<OutputFile>> open(const std::string& path, OpenMode mode) override;
    Result<TemporaryFile> createBeside(const std::string& path) override;
    SystemError mayWrite(const std::string& path) override;
    SystemError moveOver(const std::string& from, const std::string& to) override;
    SystemError flushFolder(const std::string& folder) override;
    SystemError remove(const std::string& path) override;
    SystemError createFolder(const std::string& path) override;
    SystemError copy(const std::string& from, const std::string& to) override;
    SystemError removeLink(const std::string&) override { return SystemError::none; }
    std::string resolveLinks(const std::string& path) override { return path; }
    std::string fullName(const std::string& path) override;
    std::string existingName(const std::string& path) override;
    std::vector<std::string> namesIn(const std::string& folder) override;
    Drive driveOf(const std::string& path) override;
    bool isFixed(const Drive& drive) override;

    /// Makes a file and the folders above it. The observer does not see it.
    void put(const std::string& path, std::string_view content);
    /// The content of a file. No value if there is no such file.
    std::optional<std::string> content(const std::string& path) const;
    void makeFolders(const std::string& path);
    /// The names of all files, in order.
    std::vector<std::string> fileNames() const;
    /// A read-only file cannot be written; in a read-only folder no file can be made, renamed or removed.
    void setReadOnly(const std::string& path, bool readOnly = true);
    /// Paths that start with `prefix` do not lie on a fixed drive.
    void addLooseDrive(const std::string& prefix) { looseDrives_.insert(normal(prefix)); }

    /// The number of bytes that fit on the disk. No value: any number.
    std::optional<std::uint64_t> bytesLeft;
    /// Is called before every operation. If it returns an error, the operation fails with it.
    std::function<SystemError(const FileOperation&)> observer;

private:
    friend class MemoryInputFile;
    friend class MemoryOutputFile;
    struct Entry {
        std::shared_ptr<std::string> content; ///< Null for a folder.
        bool readOnly = false;
    };

    SystemError perform(const FileOperation& operation);
    Result<std::shared_ptr<std::string>> contentToRead(const std::string& path);
    SystemError append(const std::string& path, std::string& content, std::string_view bytes);
    SystemError mayAdd(const std::string& path) const;
    EntryKind kind(const std::string& path) const;
    const Entry* find(const std::string& path) const;
    static std::string normal(std::string_view path);

    std::map<std::string, Entry> entries_; ///< By path without a separator at its end.
    std::set<std::string> looseDrives_;
    unsigned temporaryFiles_ = 0;
};

class MemoryRegistryStore final : public TreeRegistryStore {
public:
    /// Is called before every look and every change. If it returns an error, a change fails with it, and a
    /// look finds nothing.
    std::function<SystemError()> observer;

private:
    SystemError perform() { return observer ? observer() : SystemError::none; }
    const RegistryTree& tree() override { return perform() == SystemError::none ? tree_ : nothing_; }
    SystemError change(const Edit& edit) override {
        RegistryTree changed = tree_;
        SystemError error = perform();
        if (error == SystemError::none)
            error = edit(changed);
        if (error == SystemError::none)
            std::swap(tree_, changed);
        return error;
    }

    RegistryTree tree_;
    const RegistryTree nothing_{};
};

/// Keeps what is shown. Takes the next of `answers`; without one, it answers `no`, or `ok` if that is the
/// only button.
class MemoryMessageBoxes final : public MessageBoxes {
public:
    MessageAnswer show(const Message& message) override;
    bool attended() override { return isAttended; }

    std::vector<Message> shown;
    std::deque<MessageAnswer> answers;
    bool isAttended = true;
};

/// Keeps what is written.
class MemoryConsole final : public Console {
public:
    bool isTerminal(StandardStream) override { return false; }
    Terminal terminal() override { return {}; }
    SystemError write(StandardStream stream, std::string_view text) override {
        (stream == StandardStream::output ? output : error) += text;
        return SystemError::none;
    }

    std::string output, error;
};

/// Answers as tests say.
class MemoryInspection final : public Inspection {
public:
    std::string systemName() override { return "memory"; }
    SystemError mayAddTo(const std::string&) override { return SystemError::none; }
    std::vector<Bitness> registryViews() override { return views; }
    std::optional<std::string> registered(const RegistrationKey& key) override {
        const auto found = registrations.find({key.view, key.whom, key.path});
        return found == registrations.end() ? std::nullopt : std::optional(found->second);
    }
    SystemError mayChange(const RegistrationKey&) override { return SystemError::none; }
    Result<ModuleFacts> factsOf(const std::string& path) override {
        const auto found = modules.find(path);
        return found == modules.end() ? Result<ModuleFacts>(SystemError::fileNotFound) : found->second;
    }

    std::vector<Bitness> views;
    std::map<std::tuple<Bitness, RegisteredFor, std::string>, std::string> registrations;
    std::map<std::string, ModuleFacts> modules; ///< By path.
};

class MemoryPlatform final : public Platform {
public:
    MemoryPlatform();

    MemoryFileSystem& files() override { return files_; }
    MemoryRegistryStore& registry() override { return registry_; }
    MemoryMessageBoxes& messageBoxes() override { return boxes_; }
    MemoryConsole& console() override { return console_; }
    MemoryInspection& inspection() override { return inspection_; }
    using Platform::openProfile;
    std::unique_ptr<ProfileFile> openProfile(const std::string& path, const std::string& original) override {
        return std::make_unique<IniProfileFile>(files_, profiles_, path, original);
    }
    std::string systemProfilePath() override { return JoinPath(library, "win.ini"); }
    std::string libraryFolder() override { return library; }
    std::optional<std::string> logFolder() override { return logs; }
    std::vector<std::string> otherFolders(FileUse use) override { return others[use]; }
    std::optional<std::string> specialFolder(int number) override;
    std::optional<std::string> environmentVariable(const std::string& name) override;
    LocalTime localTime() override { return time; }
    CalendarNames calendarNames() override { return calendar; }

    std::string library;                                ///< The library's folder; exists from the start.
    std::optional<std::string> logs;                    ///< The folder of the log, if it has its own.
    std::map<FileUse, std::vector<std::string>> others; ///< The other folders; none at the start.
    std::map<int, std::string>
        specialFolders; ///< By shell number; the documents folder exists from the start.
    std::map<std::string, std::string> environment;
    LocalTime time{2001, 2, 3, 4, 5, 6, 6};
    CalendarNames calendar = EnglishCalendarNames();

private:
    MemoryFileSystem files_;
    IniFileCache profiles_{files_};
    MemoryRegistryStore registry_;
    MemoryMessageBoxes boxes_;
    MemoryConsole console_;
    MemoryInspection inspection_;
};

} // namespace qrtVistrelClasses4
