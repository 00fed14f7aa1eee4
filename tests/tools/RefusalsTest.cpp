// What the program does not do.
#include "Program.h"

#include "playfile/FrameInfoClass.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <map>

namespace qrtVistrelClasses4 {
namespace {

struct Refusal {
    const char *arguments, *reason;
};

// clang-format off
const Refusal kFailures[] = {
    {"show lobby.PL2", "answered with no; --yes"},
    {"show lobby.PL2 --no", "lobby.PL2: not opened"},
    {"save lobby.PL2 new --no", "lobby.PL2: not opened"},
    {"export lobby.PL2 --out new --no", "lobby.PL2: not opened"},
    {"frames lobby.PL2 insert 1 --out new", "lobby.PL2: not opened"},
    {"frames harbour.playfile paste lobby.PL2 1 --out new", "lobby.PL2: not opened"},
    {"show nosuch.pl2", "File not found (error 53)"},
    {"show not-legacy.PL2 --yes", "not a playfile of the older format"},
    {"show nosuch.playfile", "File not found (error 53)"},
    {"show nosuch/nosuch.playfile", "Path not found (error 76)"},
    {"show db", "Path/File access error (error 75)"},
    {"show anchor.bmp", "Type mismatch (error 13)"},
    {"show harbour.playfile --frame 10", "no frame 10, the last one is 9"},
    {"save cut-short.playfile plant.playfile", "Input past end of file"},
    {"save nosuch plant.playfile", "File not found"},
    {"save harbour.playfile nosuch/plant.playfile", "Error writing to file."},
    {"save harbour.playfile db --yes", "Error writing to file."},
    {"save harbour.playfile lobby.PL2", "not saved: a name that ends in PL2"},
    {"save harbour.playfile new.pl2", "not saved: a name that ends in PL2"},
    {"frames lobby.PL2 insert 1 --yes", "not saved: a name that ends in PL2"},
    {"export cut-short.playfile", "Input past end of file"},
    {"export harbour.playfile --out nosuch/pier", "nosuch/pier.xml: not written"},
    {"frames five insert 0", "five: AT is 0, but 1 to 6 are allowed"},
    {"frames five insert 7 --out new", "AT is 7, but 1 to 6 are allowed"},
    {"frames five delete 6", "FRAMES is 6, but 1 to 5 are allowed"},
    {"frames five delete 0-2", "FRAMES is 0, but 1 to 5 are allowed"},
    {"frames five delete 4-6 --out new", "FRAMES is 6, but 1 to 5 are allowed"},
    {"frames five delete 4-3", "FRAMES ends before it begins"},
    {"frames five move 0 0", "FROM is 0, but 1 to 5 are allowed"},
    {"frames five move 1 70000", "TO is 70000, but 1 to 5 are allowed"},
    {"frames five copy 6 1", "FRAMES is 6, but 1 to 5 are allowed"},
    {"frames five copy 1 7", "AT is 7, but 1 to 6 are allowed"},
    {"frames five paste single 7", "five: AT is 7, but 1 to 6 are allowed"},
    {"frames five paste single 1 --frames 2", "single: FRAMES is 2, but only 1 is allowed"},
    {"frames five paste none 1", "none: FRAMES is 1, but there is no frame"},
    {"frames five paste nosuch 1", "nosuch: File not found (error 53)"},
    {"signs show Nosuch", "Nosuch: there is no sign of that name"},
    {"signs duplicate Gate 42", "42: sign 3 has that name"},
    {"signs add gate", "gate: sign 2 has that name"},
    {"signs add 'one \"two\"'", "one \"two\": DisplayName: a list of signs cannot hold quotes"},
    {"signs set Gate DisplayName='Pier 1'", "sign 1 has that name"},
    {"signs set Gate DisplayName=", "a sign needs a name"},
    {"signs set Gate 'Schedule1.StopTime=\"'", "Gate: Schedule1.StopTime: a list of signs cannot"},
    {"commands get '##bell'", "##bell: there is no command of that key"},
    {"recent remove nosuch", "has no such name"}};
const Refusal kMisuses[] = {
    {"signs set Gate Switch1=1 DisplayWidth=wide", "DisplayWidth: takes a whole number from -32768"},
    {"signs set Gate DisplayWith=1", "DisplayWith: no such property; the nearest name is DisplayWidth"},
    {"signs set Gate =1", "=1: a property takes the form Property=Value"},
    {"signs add New DisplayName=Newer", "New: a new sign cannot be given another name"},
    {"signs add New DisplayWidth", "DisplayWidth: a property takes the form Property=Value"},
    {"settings set DisplayHeight high", "takes a whole number from -32768 to 32767, not \"high\""},
    {"settings set DisplayHeight 40000", "takes a whole number"},
    {"settings set DelayStep 1s", "takes a number"},
    {"settings set BMPCrop perhaps", "takes True or False"},
    {"settings set DisplayID \u042b", "not in Windows-1252"},
    {"settings set DisplayHeigt 32", "the nearest name is DisplayHeight"},
    {"settings set BrightnessScheduleStartTime ''", "BrightnessScheduleStartTime1"},
    {"commands set '##C' 07", "##C: a command that is built in cannot be changed"},
    {"commands set X 0x07", "X: bytes are pairs of hexadecimal digits, not \"0x07\""},
    {"commands set X 7", "not \"7\""},
    {"commands set X ''", "X: a command needs bytes"},
    {"commands set '' 07", "a command needs a key"},
    {"commands set X 0A", "cannot hold the bytes 0A, 0D and FF"},
    {"commands set \u00ff 07", "cannot hold the bytes 0A, 0D and FF"},
    {"commands set \u042b 07", "not in Windows-1252"},
    {"text preview x --at '2026-02-30 14:30'", "2026-02-30"},
    {"text preview x --at '2026-02-28 14:60'", "14:60"},
    {"text preview x --at '2026-02-28 14:30:15'", "14:30:15"},
    {"", ""}, {"bogus", ""}, {"show", ""}, {"show a b", ""}, {"show a --frame 0", ""}, {"show a --frame 40000", ""},
    {"show a --frame two", ""}, {"save a", ""}, {"save a b --yes --no", ""}, {"convert a", ""}, {"convert --to a", ""},
    {"frames a", ""}, {"frames a move 1", ""}, {"frames a delete two", ""}, {"frames a delete 3-", ""},
    {"frames a insert 1 2", ""}, {"signs", ""}, {"signs duplicate Gate", ""}, {"signs set Gate", ""},
    {"settings set DisplayHeight", ""}, {"effects --bogus", ""}, {"--home nosuch effects", ""}};
// clang-format on

/// Names and hashed contents, without the store of settings, which notes where the other files lie.
std::map<std::string, std::size_t> filesIn(const std::string& folder) {
    std::map<std::string, std::size_t> files;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder))
        if (const auto& path = entry.path(); entry.is_regular_file() && path.filename() != "registry")
            files[path.filename().string()] = std::hash<std::string>()(ContentOf(path.string()));
    return files;
}

TEST(Refusals, TellTheReasonAndChangeNothing) {
    const Program vistrel;
    for (const auto& [name, frames] : {std::pair("five", 5), std::pair("single", 1), std::pair("none", 0)}) {
        FrameInfoClass playfile;
        playfile.TotalFrames(static_cast<std::int16_t>(frames));
        ASSERT_TRUE(playfile.WritePlayfileToDisk(vistrel.inHome(name)));
    }
    const auto before = filesIn(vistrel.home());
    const auto expectRefused = [&](const Refusal& refusal, int exitCode) {
        SCOPED_TRACE(refusal.arguments);
        const Outcome outcome = vistrel.run(refusal.arguments);
        EXPECT_EQ(outcome.exitCode, exitCode);
        EXPECT_EQ(outcome.out, "");
        EXPECT_THAT(outcome.err, testing::HasSubstr(refusal.reason));
        EXPECT_TRUE(outcome.err.ends_with('\n'));
        EXPECT_EQ(filesIn(vistrel.home()), before);
    };
    for (const Refusal& refusal : kFailures)
        expectRefused(refusal, 1);
    for (const Refusal& refusal : kMisuses)
        expectRefused(refusal, 2);
}

} // namespace
} // namespace qrtVistrelClasses4
