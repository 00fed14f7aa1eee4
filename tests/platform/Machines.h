// The machines that the contract tests run on: one in memory, and the one that the tests run on.
#pragma once

#include "TempFolder.h"
#include "platform/memory/MemoryPlatform.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

#ifndef _WIN32
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace qrtVistrelClasses4 {

class MemoryMachine {
public:
    Platform& platform() { return machine_; }
    std::string file(const std::string& name) { return JoinPath(machine_.library, name); }
    std::size_t fileCount() { return machine_.files().fileNames().size(); }
    void protect(const std::string& path) { machine_.files().setReadOnly(path); }

private:
    MemoryPlatform machine_;
};

/// Leaves everything outside a folder of its own alone.
class SystemMachine {
public:
    Platform& platform() { return *platform_; }
    std::string file(const std::string& name) { return folder_.file(name); }
    std::size_t fileCount() {
        const std::filesystem::directory_iterator entries(folder_.path());
        return static_cast<std::size_t>(std::distance(begin(entries), end(entries)));
    }
    void protect(const std::string& path) {
        using std::filesystem::perms;
        std::filesystem::permissions(path, perms::owner_read | perms::group_read | perms::others_read);
        becomeOrdinary();
    }

#ifdef _WIN32
private:
    void becomeOrdinary() {}
#else
    ~SystemMachine() {
        if (isRoot_)
            (void)!::seteuid(0);
    }

private:
    /// No file is read-only for root.
    void becomeOrdinary() {
        constexpr uid_t nobody = 65534;
        if (!isRoot_)
            return;
        ASSERT_EQ(::chmod(folder_.path().c_str(), 0777), 0);
        ASSERT_EQ(::seteuid(nobody), 0);
    }

    const bool isRoot_ = ::geteuid() == 0;
#endif
    TempFolder folder_;
    std::unique_ptr<Platform> platform_ = makePlatform({folder_.path()});
};

template <class Machine>
class OnEveryMachine : public testing::Test {
protected:
    Platform& platform() { return machine.platform(); }
    FileSystem& files() { return platform().files(); }

    /// Writes without the care that `ReplacementFile` takes.
    void put(const std::string& path, std::string_view content, OpenMode mode = OpenMode::replace) {
        auto file = files().open(path, mode);
        ASSERT_EQ(file.error, SystemError::none);
        EXPECT_EQ(file.value->write(content), SystemError::none);
        EXPECT_EQ(file.value->close(), SystemError::none);
    }
    /// The text of a file, or "(missing)".
    std::string textOf(const std::string& path) {
        const auto bytes = files().read(path);
        return bytes ? std::string(bytes.value.text()) : "(missing)";
    }

    Machine machine;
};

using Machines = testing::Types<MemoryMachine, SystemMachine>;

struct MachineName {
    template <class Machine>
    static std::string GetName(int) {
        return std::is_same_v<Machine, MemoryMachine> ? "Memory" : "System";
    }
};

} // namespace qrtVistrelClasses4
