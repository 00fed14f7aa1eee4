// Where the measured files lie.
#pragma once

#include <filesystem>
#include <random>
#include <string>

namespace qrtVistrelClasses4::bench {

/// A fresh folder, removed with all it holds; on a memory file system where the machine has one, so that no
/// disk is measured.
class BenchFolder {
public:
    BenchFolder() { std::filesystem::create_directory(path_); }
    ~BenchFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    BenchFolder(const BenchFolder&) = delete;
    BenchFolder& operator=(const BenchFolder&) = delete;

    std::string path() const { return path_.string(); }
    std::string file(const std::string& name) const { return (path_ / name).string(); }
    /// A new folder for a library to live in, which holds the fonts of signs.
    std::string homeWithFonts(const std::string& name) const {
        std::filesystem::create_directory(path_ / name);
        std::filesystem::copy(QRT_SAMPLES_FOLDER "/bin", path_ / name / "bin");
        return file(name);
    }
    /// One that also has the custom font of the generated lines.
    std::string homeWithCustomFont(const std::string& name) const {
        const std::filesystem::path custom = std::filesystem::path(homeWithFonts(name)) / "CustomFonts";
        std::filesystem::create_directory(custom);
        std::filesystem::copy(QRT_SAMPLES_FOLDER "/CustomFonts/FNT4X8.CFF", custom / "FNT8X8.CFF");
        return file(name);
    }
    bool isInMemory() const { return inMemory_; }

private:
    static constexpr const char* kMemoryFileSystem = "/dev/shm";

    bool inMemory_ = std::filesystem::is_directory(kMemoryFileSystem);
    std::filesystem::path path_ =
        (inMemory_ ? std::filesystem::path(kMemoryFileSystem) : std::filesystem::temp_directory_path()) /
        ("vistrel-bench-" + std::to_string(std::random_device()()));
};

} // namespace qrtVistrelClasses4::bench
