// A folder of its own for a test, gone when the test is over.
#pragma once

#include <filesystem>
#include <random>
#include <string>

namespace qrtVistrelClasses4 {

class TempFolder {
public:
    TempFolder() {
        do
            path_ = std::filesystem::temp_directory_path() /
                    ("vistrel-test-" + std::to_string(std::random_device{}()));
        while (!std::filesystem::create_directory(path_));
    }
    ~TempFolder() {
        std::error_code ignored; // a test that has failed already should not end the program
        using Entries = std::filesystem::recursive_directory_iterator;
        for (const auto& entry : Entries(path_, ignored))
            if (!entry.is_symlink())
                std::filesystem::permissions(entry.path(), std::filesystem::perms::owner_write,
                                             std::filesystem::perm_options::add, ignored);
        std::filesystem::remove_all(path_, ignored);
    }
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    std::string path() const { return path_.string(); }
    std::string file(const std::string& name) const { return (path_ / name).string(); }

private:
    std::filesystem::path path_;
};

} // namespace qrtVistrelClasses4
