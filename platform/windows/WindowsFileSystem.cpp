#include "platform/windows/WindowsFileSystem.h"

#include "platform/Folders.h"
#include "platform/Path.h"
#include "platform/TemporaryFiles.h"
#include "platform/TemporaryName.h"
#include "platform/windows/WindowsNames.h"
#include "platform/windows/WindowsSystem.h"

#include <algorithm>
#include <array>
#include <mutex>
#include <optional>

namespace qrtVistrelClasses4 {
namespace {

constexpr std::uint64_t kLargestFile = std::uint64_t{1} << 31;
constexpr std::size_t kLongestPath = 32768;
constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

/// Whether `path` may be passed to the system, which would cut a name at its first NUL. If not, the thread's
/// last error is set.
bool isUsableName(const std::string& path) {
    const bool isUsable = path.find('\0') == path.npos;
    if (!isUsable)
        ::SetLastError(ERROR_BAD_PATHNAME);
    return isUsable;
}

DWORD attributesOf(const std::string& path) {
    const NoSystemBoxes noBoxes;
    return isUsableName(path) ? ::GetFileAttributesW(WideName(path).c_str()) : INVALID_FILE_ATTRIBUTES;
}

FileHandle openHandle(const std::string& path, DWORD access, DWORD share, DWORD disposition,
                      DWORD flags = FILE_ATTRIBUTE_NORMAL) {
    const NoSystemBoxes noBoxes;
    if (!isUsableName(path))
        return {};
    if (IsDeviceName(path)) { // which need not be a file to be opened, nor to be waited for
        ::SetLastError(ERROR_ACCESS_DENIED);
        return {};
    }
    return FileHandle(
        ::CreateFileW(WideName(path).c_str(), access, share, nullptr, disposition, flags, nullptr));
}

FileHandle openForWriting(const std::string& path, DWORD disposition, DWORD share = FILE_SHARE_READ) {
    return openHandle(path, GENERIC_WRITE, share, disposition);
}

/// `path` opened for reading when it is a file on a disk.
Result<FileHandle> openSource(const std::string& path) {
    FileHandle file = openHandle(path, GENERIC_READ, kShareAll, OPEN_EXISTING);
    if (!file)
        return lastSystemError();
    if (::GetFileType(file.get()) != FILE_TYPE_DISK)
        return SystemError::accessDenied;
    return file;
}

/// Locks an open file until it is closed, for writing or else for reading; waits for others, but not for
/// ever. Also true if the file system has no locks.
bool lockFile(HANDLE file, bool forWriting) {
    constexpr int mostTries = 500;
    constexpr DWORD pause = 10; // milliseconds
    const DWORD flags = LOCKFILE_FAIL_IMMEDIATELY | (forWriting ? LOCKFILE_EXCLUSIVE_LOCK : 0);
    for (int tries = 0; tries < mostTries; ++tries, ::Sleep(pause)) {
        OVERLAPPED fromTheStart{};
        if (::LockFileEx(file, flags, 0, MAXDWORD, MAXDWORD, &fromTheStart))
            return true;
        if (const DWORD code = ::GetLastError(); code != ERROR_LOCK_VIOLATION && code != ERROR_IO_PENDING)
            return true;
    }
    return false;
}

/// Only one process at a time can have the file open. The system removes it when it is closed, also at the
/// end of a process that was ended in the middle of its work.
class WindowsFolderLock final : public FolderLock {
public:
    explicit WindowsFolderLock(const std::string& folder) {
        constexpr ULONGLONG longestWait = 5000; // milliseconds
        constexpr int mostDenials = 20;         // the file may be about to vanish, or this user may make none
        const std::string path = JoinPath(folder, ".vistrel-lock");
        const ULONGLONG start = ::GetTickCount64();
        for (int denials = 0; !open(path) && ::GetTickCount64() - start < longestWait; ::Sleep(1)) {
            const DWORD code = ::GetLastError();
            if (code == ERROR_ACCESS_DENIED ? ++denials == mostDenials : code != ERROR_SHARING_VIOLATION)
                return;
        }
    }

private:
    bool open(const std::string& path) {
        constexpr DWORD flags = FILE_ATTRIBUTE_HIDDEN | FILE_FLAG_DELETE_ON_CLOSE;
        file_ = openHandle(path, GENERIC_WRITE, 0, OPEN_ALWAYS, flags);
        return static_cast<bool>(file_);
    }

    FileHandle file_;
};

/// Reads until `bytes` is full or the file ends. `used` becomes the number of bytes read.
SystemError fill(HANDLE file, std::span<char> bytes, std::size_t& used) {
    const NoSystemBoxes noBoxes;
    constexpr std::size_t largestPiece = std::size_t{1} << 30;
    used = 0;
    while (used < bytes.size()) {
        DWORD count = 0;
        const auto wanted = static_cast<DWORD>(std::min(bytes.size() - used, largestPiece));
        if (!::ReadFile(file, bytes.data() + used, wanted, &count, nullptr))
            return lastSystemError();
        if (count == 0)
            break;
        used += count;
    }
    return SystemError::none;
}

Result<std::uint64_t> sizeOfOpened(HANDLE file) {
    LARGE_INTEGER size{};
    if (!::GetFileSizeEx(file, &size))
        return lastSystemError();
    return static_cast<std::uint64_t>(size.QuadPart);
}

class WindowsInputFile final : public InputFile {
public:
    WindowsInputFile(FileHandle file, std::uint64_t size) : file_(std::move(file)), size_(size) {}

    std::uint64_t size() const override { return size_; }
    Result<std::size_t> readAt(std::uint64_t offset, std::span<char> bytes) override {
        LARGE_INTEGER place{};
        place.QuadPart = static_cast<LONGLONG>(offset);
        std::size_t used = 0;
        if (!::SetFilePointerEx(file_.get(), place, nullptr, FILE_BEGIN))
            return lastSystemError();
        if (const auto error = fill(file_.get(), bytes, used); error != SystemError::none)
            return error;
        return used;
    }

private:
    FileHandle file_;
    std::uint64_t size_;
};

class WindowsOutputFile final : public OutputFile {
public:
    /// Returns false, and sets the thread's last error, if there is no handle.
    bool open(const std::string& path, DWORD disposition, DWORD share = FILE_SHARE_READ) {
        file_ = openForWriting(path, disposition, share);
        return static_cast<bool>(file_);
    }
    HANDLE handle() const { return file_.get(); }

    SystemError write(std::string_view bytes) override;
    SystemError flush() override { return errorUnless(::FlushFileBuffers(file_.get()) != FALSE); }
    SystemError close() override { return errorUnless(file_.close()); }

private:
    static SystemError errorUnless(bool success) { return success ? SystemError::none : lastSystemError(); }

    FileHandle file_;
};

SystemError WindowsOutputFile::write(std::string_view bytes) {
    const NoSystemBoxes noBoxes;
    constexpr std::size_t largestPiece = std::size_t{1} << 30;
    while (!bytes.empty()) {
        DWORD written = 0;
        const auto size = static_cast<DWORD>(std::min(bytes.size(), largestPiece));
        if (!::WriteFile(file_.get(), bytes.data(), size, &written, nullptr))
            return lastSystemError();
        if (written == 0)
            return SystemError::diskFull;
        bytes.remove_prefix(written);
    }
    return SystemError::none;
}

/// Returns when the file `path`, read-only or not, would outlive a power cut.
SystemError flushFile(const std::string& path) {
    const DWORD attributes = attributesOf(path);
    const bool isReadOnly = attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_READONLY);
    if (isReadOnly)
        ::SetFileAttributesW(WideName(path).c_str(), FILE_ATTRIBUTE_NORMAL);
    const FileHandle file = openForWriting(path, OPEN_EXISTING);
    const SystemError error = file && ::FlushFileBuffers(file.get()) ? SystemError::none : lastSystemError();
    if (isReadOnly)
        ::SetFileAttributesW(WideName(path).c_str(), attributes);
    return error;
}

/// Whether `path` is a link that was made to lead to another file. Other entries with a target, such as files
/// that stay on a server until they are read, count as files.
bool isLink(const std::string& path) {
    WIN32_FIND_DATAW data{};
    if (const DWORD attributes = attributesOf(path);
        attributes == INVALID_FILE_ATTRIBUTES || !(attributes & FILE_ATTRIBUTE_REPARSE_POINT))
        return false;
    const HANDLE search = ::FindFirstFileW(WideName(path).c_str(), &data);
    if (search == INVALID_HANDLE_VALUE)
        return false;
    ::FindClose(search);
    return data.dwReserved0 == IO_REPARSE_TAG_SYMLINK;
}

/// Numbers that distinguish the files of this machine.
std::optional<std::array<DWORD, 3>> identity(const std::string& path) {
    const FileHandle file = openHandle(path, 0, kShareAll, OPEN_EXISTING);
    BY_HANDLE_FILE_INFORMATION information{};
    if (!file || !::GetFileInformationByHandle(file.get(), &information))
        return {};
    return std::array{information.dwVolumeSerialNumber, information.nFileIndexHigh,
                      information.nFileIndexLow};
}

} // namespace

SystemError WindowsFileSystem::makeOwnFolderOf(const std::string& path) {
    const NoSystemBoxes noBoxes;
    if (!ownFolders_.lackThatOf(*this, path))
        return SystemError::none;
    return MakeFoldersAbove(*this, path, [](const std::string& folder) {
        return ::CreateDirectoryW(WideName(folder).c_str(), nullptr) ? SystemError::none : lastSystemError();
    });
}

EntryKind WindowsFileSystem::kindOf(const std::string& path) {
    const DWORD attributes = attributesOf(path);
    if (attributes == INVALID_FILE_ATTRIBUTES)
        return EntryKind::missing;
    if (attributes & FILE_ATTRIBUTE_DIRECTORY)
        return EntryKind::folder;
    const bool isDevice = (attributes & FILE_ATTRIBUTE_DEVICE) != 0 || IsDeviceName(path);
    return isDevice ? EntryKind::other : EntryKind::file;
}

bool WindowsFileSystem::hasEntry(const std::string& path) {
    return attributesOf(path) != INVALID_FILE_ATTRIBUTES; // those of a link itself
}

Result<std::uint64_t> WindowsFileSystem::sizeOf(const std::string& path) {
    const NoSystemBoxes noBoxes;
    WIN32_FILE_ATTRIBUTE_DATA data{};
    if (!isUsableName(path) || !::GetFileAttributesExW(WideName(path).c_str(), GetFileExInfoStandard, &data))
        return ownFolders_.answer(*this, path, lastSystemError());
    if ((data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) || IsDeviceName(path))
        return SystemError::accessDenied;
    return (std::uint64_t{data.nFileSizeHigh} << 32) | data.nFileSizeLow;
}

Result<FileBytes> WindowsFileSystem::read(const std::string& path) {
    const auto file = openSource(path);
    if (!file)
        return ownFolders_.answer(*this, path, file.error());
    if (!lockFile(file.value().get(), false))
        return SystemError::inUse;
    const auto size = sizeOfOpened(file.value().get());
    if (!size)
        return size.error();
    if (size.value() > kLargestFile)
        return SystemError::tooLarge;
    const auto room = static_cast<std::size_t>(size.value());
    FileBytes bytes{std::make_unique_for_overwrite<char[]>(room), 0};
    if (const auto error = fill(file.value().get(), {bytes.data.get(), room}, bytes.size);
        error != SystemError::none)
        return error;
    return bytes;
}

Result<std::unique_ptr<InputFile>> WindowsFileSystem::openToRead(const std::string& path) {
    auto file = openSource(path);
    if (!file)
        return ownFolders_.answer(*this, path, file.error());
    const auto size = sizeOfOpened(file.value().get());
    if (!size)
        return size.error();
    return std::unique_ptr<InputFile>(
        std::make_unique<WindowsInputFile>(std::move(file.value()), size.value()));
}

Result<std::unique_ptr<OutputFile>> WindowsFileSystem::open(const std::string& path, OpenMode mode) {
    if (mode == OpenMode::append && isLink(path))
        return SystemError::accessDenied;
    if (const auto error = makeOwnFolderOf(path); error != SystemError::none)
        return error;
    auto file = std::make_unique<WindowsOutputFile>();
    // Others that replace the file at the same time must be able to open it, and wait for the lock.
    const DWORD share = mode == OpenMode::replace ? kShareAll : FILE_SHARE_READ;
    if (!file->open(path, OPEN_ALWAYS, share))
        return lastSystemError();
    if (::GetFileType(file->handle()) != FILE_TYPE_DISK)
        return SystemError::accessDenied;
    if (mode == OpenMode::append && !::SetFilePointerEx(file->handle(), {}, nullptr, FILE_END))
        return lastSystemError();
    if (mode == OpenMode::replace) {
        if (!lockFile(file->handle(), true))
            return SystemError::inUse;
        if (!::SetEndOfFile(file->handle()))
            return lastSystemError();
    }
    return std::unique_ptr<OutputFile>(std::move(file));
}

Result<TemporaryFile> WindowsFileSystem::createBeside(const std::string& path) {
    if (const auto error = makeOwnFolderOf(path); error != SystemError::none)
        return error;
    std::string target = resolveLinks(path);
    if (const auto error = mayWrite(target); error != SystemError::none)
        return error;
    const std::string folder(SplitPath(target).folder);
    for (;;) {
        std::string name = folder + TemporaryName();
        auto file = std::make_unique<WindowsOutputFile>();
        const std::lock_guard untilNoted(TemporaryFilesInTheMaking());
        if (file->open(name, CREATE_NEW, FILE_SHARE_READ | FILE_SHARE_DELETE)) {
            NoteTemporaryFile(name);
            return TemporaryFile{std::move(name), std::move(file), std::move(target)};
        }
        if (::GetLastError() != ERROR_FILE_EXISTS)
            return lastSystemError();
    }
}

SystemError WindowsFileSystem::mayWrite(const std::string& path) {
    if (IsDeviceName(path))
        return SystemError::accessDenied;
    const DWORD attributes = attributesOf(path);
    if (attributes == INVALID_FILE_ATTRIBUTES) {
        const SystemError error = ownFolders_.answer(*this, path, lastSystemError());
        return error == SystemError::fileNotFound ? SystemError::none : error;
    }
    if (attributes & (FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_READONLY))
        return SystemError::accessDenied;
    // Others that open the file at the same time must not notice.
    return openForWriting(path, OPEN_EXISTING, kShareAll) ? SystemError::none : lastSystemError();
}

SystemError WindowsFileSystem::moveOver(const std::string& from, const std::string& to) {
    const NoSystemBoxes noBoxes;
    constexpr DWORD flags = MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH;
    constexpr int mostTries = 100;
    constexpr DWORD pause = 10; // milliseconds
    if (!isUsableName(from) || !isUsableName(to))
        return lastSystemError();
    for (int tries = 1; !::MoveFileExW(WideName(from).c_str(), WideName(to).c_str(), flags); ++tries) {
        const SystemError error = lastSystemError();
        // Another program may look into the file for a moment.
        const bool mayPass = error == SystemError::accessDenied || error == SystemError::inUse;
        if (!mayPass || tries == mostTries || mayWrite(to) == SystemError::accessDenied)
            return error;
        ::Sleep(pause);
    }
    ForgetTemporaryFile(from);
    return SystemError::none;
}

SystemError WindowsFileSystem::remove(const std::string& path) {
    const NoSystemBoxes noBoxes;
    if (!isUsableName(path) || !::DeleteFileW(WideName(path).c_str()))
        return lastSystemError();
    ForgetTemporaryFile(path);
    return SystemError::none;
}

Result<std::unique_ptr<FolderLock>> WindowsFileSystem::lockFolderOf(const std::string& path) {
    if (const auto error = makeOwnFolderOf(path); error != SystemError::none)
        return error;
    return std::unique_ptr<FolderLock>(std::make_unique<WindowsFolderLock>(FolderOf(path)));
}

SystemError WindowsFileSystem::createFolder(const std::string& path) {
    const NoSystemBoxes noBoxes;
    if (const auto error = makeOwnFolderOf(path); error != SystemError::none)
        return error;
    return isUsableName(path) && ::CreateDirectoryW(WideName(path).c_str(), nullptr) ? SystemError::none
                                                                                     : lastSystemError();
}

SystemError WindowsFileSystem::copy(const std::string& from, const std::string& to) {
    const NoSystemBoxes noBoxes;
    if (!isUsableName(from))
        return lastSystemError();
    const auto source = identity(from);
    if (source && source == identity(to))
        return SystemError::none;
    auto temporary = createBeside(to);
    if (!temporary)
        return temporary.error();
    temporary.value().file.reset();
    const std::string& copied = temporary.value().path;
    SystemError error = ::CopyFileW(WideName(from).c_str(), WideName(copied).c_str(), FALSE)
                            ? SystemError::none
                            : lastSystemError();
    if (error == SystemError::none)
        error = flushFile(copied);
    if (error == SystemError::none)
        error = moveOver(copied, temporary.value().target);
    if (error != SystemError::none) {
        ::SetFileAttributesW(WideName(copied).c_str(), FILE_ATTRIBUTE_NORMAL); // it may have become read-only
        (void)remove(copied);
    }
    return error;
}

SystemError WindowsFileSystem::removeLink(const std::string& path) {
    return isLink(path) ? remove(path) : SystemError::none;
}

std::string WindowsFileSystem::resolveLinks(const std::string& path) {
    const DWORD attributes = attributesOf(path);
    if (attributes == INVALID_FILE_ATTRIBUTES || !(attributes & FILE_ATTRIBUTE_REPARSE_POINT))
        return path;
    const FileHandle file = openHandle(path, 0, kShareAll, OPEN_EXISTING);
    std::wstring target(kLongestPath, L'\0');
    const DWORD length = file
                             ? ::GetFinalPathNameByHandleW(file.get(), target.data(),
                                                           static_cast<DWORD>(target.size()), VOLUME_NAME_DOS)
                             : 0;
    if (length == 0 || length >= target.size())
        return path;
    target.resize(length);
    return NameFromWide(target);
}

std::string WindowsFileSystem::fullName(const std::string& path) {
    std::wstring full(kLongestPath, L'\0');
    const DWORD length =
        ::GetFullPathNameW(WideName(path).c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr);
    if (length == 0 || length >= full.size())
        return path;
    full.resize(length);
    return NameFromWide(full);
}

std::string WindowsFileSystem::existingName(const std::string& path) {
    const NoSystemBoxes noBoxes;
    // A name with wildcards would find some other file.
    if (path.find_first_of("*?") != path.npos)
        return path;
    WIN32_FIND_DATAW data{};
    const HANDLE search = ::FindFirstFileW(WideName(path).c_str(), &data);
    if (search == INVALID_HANDLE_VALUE)
        return path;
    ::FindClose(search);
    const SplitPathResult parts = SplitPath(path);
    // If the file was found by its short name, the name differs in more than case.
    return ::lstrcmpiW(data.cFileName, WideName(parts.name).c_str()) == 0
               ? std::string(parts.folder) + NameFromWide(data.cFileName)
               : path;
}

std::vector<std::string> WindowsFileSystem::namesIn(const std::string& folder) {
    const NoSystemBoxes noBoxes;
    std::vector<std::string> names;
    WIN32_FIND_DATAW data{};
    const std::string pattern = JoinPath(folder, "*");
    const HANDLE search =
        isUsableName(pattern) ? ::FindFirstFileW(WideName(pattern).c_str(), &data) : INVALID_HANDLE_VALUE;
    if (search == INVALID_HANDLE_VALUE)
        return names;
    do
        names.push_back(NameFromWide(data.cFileName));
    while (::FindNextFileW(search, &data));
    ::FindClose(search);
    return names;
}

Drive WindowsFileSystem::driveOf(const std::string& path) {
    if (path.empty())
        return {};
    return {static_cast<unsigned char>(path.front()), path.substr(0, 1) + ":\\"};
}

bool WindowsFileSystem::isFixed(const Drive& drive) {
    return ::GetDriveTypeA(drive.place.c_str()) == DRIVE_FIXED;
}

} // namespace qrtVistrelClasses4
