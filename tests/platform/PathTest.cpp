#include "platform/Path.h"

#include <gtest/gtest.h>

namespace qrtVistrelClasses4 {
namespace {

#ifdef _WIN32
constexpr bool kOnWindows = true;
#else
constexpr bool kOnWindows = false;
#endif
const std::string kSeparator(1, kPathSeparator);

TEST(Path, JoinsWithExactlyOneSeparator) {
    EXPECT_EQ(JoinPath("folder", "name"), "folder" + kSeparator + "name");
    EXPECT_EQ(JoinPath("folder" + kSeparator, "name"), "folder" + kSeparator + "name");
    EXPECT_EQ(JoinPath("folder\\", "name"), kOnWindows ? "folder\\name" : "folder\\/name")
        << "elsewhere a backslash is part of a folder's name";
    EXPECT_EQ(JoinPath("", "name"), "name");
    EXPECT_EQ(JoinPath("folder", ""), "folder" + kSeparator);
}

TEST(Path, SplitsBehindTheLastSeparator) {
    const struct {
        const char* why;
        std::string path, folder, name;
    } cases[] = {
        {"of Windows, on every machine", "C:\\a\\b.bmp", "C:\\a\\", "b.bmp"},
        {"of this machine", "a" + kSeparator + "b.bmp", "a" + kSeparator, "b.bmp"},
        {"slash", "C:/a/b", "C:/a/", "b"},
        {"a drive without a folder", "C:b.bmp", kOnWindows ? "C:" : "", kOnWindows ? "b.bmp" : "C:b.bmp"},
        {"no folder", "b.bmp", "", "b.bmp"},
        {"no name", "a\\", "a\\", ""},
        {"nothing", "", "", ""},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        EXPECT_EQ(SplitPath(c.path).folder, c.folder);
        EXPECT_EQ(SplitPath(c.path).name, c.name);
    }
}

TEST(Path, KnowsARootedPath) {
    for (const char* onDrive : {"C:\\a", "C:/a", "C:a"})
        EXPECT_EQ(IsRootedPath(onDrive), kOnWindows) << onDrive;
    EXPECT_EQ(IsRootedPath("/a"), !kOnWindows);
    for (const char* relative : {"", "a", "a\\b", "\\\\host\\share"})
        EXPECT_FALSE(IsRootedPath(relative)) << relative;
}

} // namespace
} // namespace qrtVistrelClasses4
