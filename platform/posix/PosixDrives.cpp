// Whether a path lies on a disk that stays with the machine.
#include "platform/Path.h"
#include "platform/posix/PosixFileSystem.h"
#include "platform/posix/PosixSystem.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <fcntl.h>
#include <limits.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <sys/vfs.h>
#include <unistd.h>

namespace qrtVistrelClasses4 {
namespace {

/// `statfs` numbers of file systems whose files are kept by another machine.
constexpr std::array<std::uint32_t, 12> kNetworkFileSystems{
    0x00006969, // NFS
    0x0000517b, // SMB
    0xff534d42, // CIFS
    0xfe534d42, // SMB 2
    0x0000564c, // NCP
    0x73757245, // Coda
    0x5346414f, // OpenAFS
    0x6b414653, // AFS
    0x01021997, // 9P
    0x00c36400, // Ceph
    0x0bd00bd0, // Lustre
    0x786f4256, // folder shared by a host with its virtual machine
};
constexpr std::uint32_t kUserSpaceFileSystem = 0x65735546; // FUSE

bool isRemovable(dev_t device) {
    const std::string entry =
        "/sys/dev/block/" + std::to_string(major(device)) + ":" + std::to_string(minor(device));
    // A partition has no such file; the disk that it is on lies above it.
    for (const char* name : {"/removable", "/../removable"}) {
        char flag = '0';
        const Descriptor file = openDescriptor(entry + name, O_RDONLY);
        if (file && uninterrupted([&] { return ::read(file.number(), &flag, 1); }) == 1)
            return flag == '1';
    }
    return false;
}

} // namespace

Drive PosixFileSystem::driveOf(const std::string& path) {
    std::string existing = path.substr(0, PATH_MAX); // a longer one is no name of a file
    struct stat status {};
    while (::stat(existing.c_str(), &status) != 0 && existing != ".") {
        std::string folder = FolderOf(existing);
        existing = folder.size() < existing.size() ? std::move(folder) : ".";
    }
    return {status.st_dev, std::move(existing)};
}

bool PosixFileSystem::isFixed(const Drive& drive) {
    struct statfs fileSystem {};
    if (::statfs(drive.place.c_str(), &fileSystem) != 0)
        return false;
    const auto type = static_cast<std::uint32_t>(fileSystem.f_type);
    if (std::ranges::find(kNetworkFileSystems, type) != kNetworkFileSystems.end())
        return false;
    // A user-space file system on a disk of its own shows that disk; the others are mostly other machines.
    if (type == kUserSpaceFileSystem && major(drive.number) == 0)
        return false;
    return !isRemovable(drive.number);
}

} // namespace qrtVistrelClasses4
