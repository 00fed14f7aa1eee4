#include "Program.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace qrtVistrelClasses4 {
namespace {

using testing::HasSubstr;

TEST(Recent, FilesAreAddedInFrontAndRemoved) {
    const Program vistrel;
    EXPECT_EQ(vistrel.run("recent add 'c:\\signs\\PLANT.playfile'").exitCode, 0);
    EXPECT_EQ(vistrel.run("recent add Caf\u00e9").exitCode, 0);
    EXPECT_EQ(vistrel.run("recent remove CAF\u00c9 --json").out,
              "[\n  \"c:\\\\signs\\\\PLANT.playfile\",\n  \"C:\\\\Signs\\\\harbour.playfile\"\n]\n");
    EXPECT_THAT(vistrel.run("recent remove CAF\u00c9").err, HasSubstr("has no such name"));
    EXPECT_THAT(vistrel.run("recent add 'a\"b'").err, HasSubstr("cannot hold quotes"));
    std::filesystem::remove(vistrel.inHome("VistrelLite.MRU"));
    EXPECT_EQ(vistrel.run("recent list").out, "No files\n");
    std::filesystem::create_symlink("nosuch/list", vistrel.inHome("VistrelLite.MRU"));
    EXPECT_THAT(vistrel.run("recent add x").err, HasSubstr("recent files: Path not found (error 76)"));
}

} // namespace
} // namespace qrtVistrelClasses4
