#include "platform/Wildcards.h"

#include "Machines.h"
#include "platform/CodePage.h"

#include <gmock/gmock.h>

namespace qrtVistrelClasses4 {
namespace {

TEST(Wildcards, MatchNamesInAnyCase) {
    const std::tuple<const char*, const char*, bool> cases[] = {{"a.playfile", "*.PLAYFILE", true},
                                                                {"a.playfile", "?.playfile", true},
                                                                {"a.playfile", "*", true},
                                                                {"a", "*.*", true},
                                                                {"a", "a?", false},
                                                                {"\u00c4\u0434", "?\u0434", true},
                                                                {"\u00e9", "\u00c9", AreNamesUtf8()},
                                                                {".a", "*", false},
                                                                {".a", ".*", true},
                                                                {"..", ".*", false},
                                                                {"abcab", "*ab", true},
                                                                {"abcabd", "*ab", false},
                                                                {"aXbXc", "a*b*c", true},
                                                                {"", "*", true},
                                                                {"a", "", false}};
    for (const auto& [name, pattern, matches] : cases)
        EXPECT_EQ(MatchesPattern(name, pattern), matches) << name << ' ' << pattern;
    const std::string many(10'000, 'a');
    EXPECT_FALSE(MatchesPattern(many, "*a*a*a*a*a*a*a*a*b")) << "and takes no time";
}

TEST(Wildcards, BecomeTheSortedPathsOfFilesInEachPart) {
    MemoryPlatform machine;
    const auto path = [&](const std::string& name) { return JoinPath(machine.library, name); };
    const std::string one = path(JoinPath("old1", "b.PL2")), two = path(JoinPath("old2", "a.pl2"));
    for (const std::string& file : {two, one, path("a.PL2"), path(JoinPath("new", "a.PL2"))}) {
        machine.files().makeFolders(FolderOf(file));
        machine.files().put(file, "");
    }
    const auto expand = [&](const std::string& pattern) { return ExpandWildcards(machine.files(), pattern); };
    EXPECT_EQ(expand(path(JoinPath("old*", "*.pl2"))), (std::vector{one, two}));
    EXPECT_EQ(expand(path(JoinPath("old?", "a.pl2"))), std::vector{two});
    EXPECT_EQ(expand(path("o*")), (std::vector{path("old1"), path("old2")}));
    EXPECT_EQ(expand(path("*.none")), std::vector{path("*.none")}) << "so that an error names it";
    EXPECT_EQ(expand("ferry?"), std::vector<std::string>{"ferry?"});
    EXPECT_EQ(expand("-"), std::vector<std::string>{"-"});
}

} // namespace
} // namespace qrtVistrelClasses4
