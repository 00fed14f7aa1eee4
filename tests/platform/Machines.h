// The machines that the contract tests run on: one in memory, and the one that the tests run on.
#pragma once

#include "TempFolder.h"
#include "platform/memory/MemoryPlatform.h"

#include <gtest/gtest.h>

#ifndef _WIN32
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace qrtVistrelClasses4 {

class MemoryMachine {
public:
    Platform& platform() { return machine_; }
    std::string file(const std::string& name) { return JoinPath(machine_.library, name); }
    std::ptrdiff_t fileCount() { return std::ssize(machine_.files().fileNames()); }
    void protect(const std::string& path) { machine_.files().setReadOnly(path); }

private:
    MemoryPlatform machine_;
};

/// Leaves everything outside a folder of its own alone.
class SystemMachine {
public:
    Platform& platform() { return *platform_; }
    std::string file(const std::string& name) { return folder_.file(name); }
    std::ptrdiff_t fileCount() {
        using Entries = std::filesystem::directory_iterator;
        return std::distance(Entries(folder_.path()), Entries());
    }
    void protect(const std::string& path) {
        using std::filesystem::perms;
        std::filesystem::permissions(path, perms::owner_read | perms::group_read | perms::others_read);
#ifndef _WIN32
        constexpr uid_t nobody = 65534; // no file is read-only for root
        ASSERT_EQ(::chmod(folder_.path().c_str(), 0777), 0);
        ASSERT_TRUE(::getuid() != 0 || ::seteuid(nobody) == 0);
#endif
    }
#ifndef _WIN32
    ~SystemMachine() { (void)!::seteuid(::getuid()); }
#endif

private:
    TempFolder folder_;
    std::unique_ptr<Platform> platform_ = makePlatform({folder_.path()});
};

template <class Machine>
class OnEveryMachine : public testing::Test {
protected:
    Platform& platform() { return machine.platform(); }
    FileSystem& files() { return platform().files(); }
    std::string file(const std::string& name) { return machine.file(name); }

    /// Writes without the care that `ReplacementFile` takes.
    void put(const std::string& path, std::string_view content, OpenMode mode = OpenMode::replace) {
        const auto file = files().open(path, mode);
        ASSERT_EQ(file.error(), SystemError::none);
        EXPECT_EQ(file.value()->write(content), SystemError::none);
        EXPECT_EQ(file.value()->close(), SystemError::none);
    }
    /// The text of a file, or "(missing)".
    std::string textOf(const std::string& path) {
        const auto bytes = files().read(path);
        return bytes ? std::string(bytes.value().text()) : "(missing)";
    }

    Machine machine;
};

#ifdef _WIN32
/// With the registry and the profile functions of the system.
class SystemMachineWithoutHome : public SystemMachine {
public:
    Platform& platform() { return *own_; }

private:
    std::unique_ptr<Platform> own_ = makePlatform();
};
using Machines = testing::Types<MemoryMachine, SystemMachine, SystemMachineWithoutHome>;
#else
using Machines = testing::Types<MemoryMachine, SystemMachine>;
#endif

} // namespace qrtVistrelClasses4
