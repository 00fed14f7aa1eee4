#include "playfile/FrameInfoClass.h"

#include "PlayfileText.h"
#include "TestHost.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

namespace qrtVistrelClasses4 {
namespace {

class PlayfileSave : public testing::Test {
protected:
    MemoryFileSystem& files() { return host_.machine.files(); }
    std::vector<Message>& shown() { return host_.machine.messageBoxes().shown; }
    std::string saved() { return files().content(path_).value_or("no file"); }
    /// Two frames whose files are on a drive that may go away.
    void useLooseDrive() {
        files().addLooseDrive(loose_);
        files().put(JoinPath(loose_, "one.bmp"), "a picture");
        files().put(JoinPath(loose_, "two.cmd"), "commands");
        playfile_.TotalFrames(2);
        playfile_.CurrentFrame(1);
        playfile_.PicturefileName(JoinPath(loose_, "one.bmp"));
        playfile_.CurrentFrame(2);
        playfile_.commandfile(JoinPath(loose_, "two.cmd"));
    }
    Texts references() {
        playfile_.CurrentFrame(1);
        const std::string picture = playfile_.PicturefileName();
        playfile_.CurrentFrame(2);
        return {picture, playfile_.commandfile()};
    }

    TestHost host_;
    FrameInfoClass playfile_;
    std::string path_ = host_.inLibrary("a.playfile");
    std::string loose_ = host_.inLibrary("floppy");
    std::string data_ = host_.inLibrary("Data");
};

TEST_F(PlayfileSave, GivesBackTheFileThatWasLoadedByteForByte) {
    const std::string text = playfileText(onePlayfileFrame());
    files().put(path_, text);
    ASSERT_TRUE(playfile_.GetPlayfileFromDisk(path_));
    files().put(path_, "old content");
    EXPECT_TRUE(playfile_.WritePlayfileToDisk(path_));
    EXPECT_EQ(saved(), text) << "spare values included";
    EXPECT_TRUE(shown().empty());
}

TEST_F(PlayfileSave, GivesBackTheSamples) {
    for (const char* name : {"harbour.playfile", "plant.playfile"}) {
        SCOPED_TRACE(name);
        std::ifstream stream(std::string(QRT_SAMPLES_FOLDER "/") + name, std::ios::binary);
        const std::string text{std::istreambuf_iterator<char>(stream), {}};
        ASSERT_FALSE(text.empty());
        files().put(path_, text);
        ASSERT_TRUE(playfile_.GetPlayfileFromDisk(path_));
        ASSERT_TRUE(playfile_.WritePlayfileToDisk(path_));
        const std::string once = saved();
        ASSERT_TRUE(playfile_.GetPlayfileFromDisk(path_));
        ASSERT_TRUE(playfile_.WritePlayfileToDisk(path_));
        EXPECT_EQ(saved(), once);
    }
}

TEST_F(PlayfileSave, KeepsEveryTextWhole) {
    using namespace std::string_literals;
    playfile_.TotalFrames(1);
    playfile_.CurrentFrame(1);
    for (const std::string& text :
         {"6\" sign"s, "\""s, "two\r\nlines"s, "\r\n"s, "ends in a line break\r\n"s, "line feed\nalone"s,
          " blanks "s, "\xA6\xE9\x80"s, "nul\0byte"s, "say \"\r\n\"x\""s}) {
        SCOPED_TRACE(text);
        playfile_.CurrentLineText(text);
        playfile_.FrameName(text);
        ASSERT_TRUE(playfile_.WritePlayfileToDisk(path_));
        FrameInfoClass loaded;
        ASSERT_TRUE(loaded.GetPlayfileFromDisk(path_));
        loaded.CurrentFrame(1);
        EXPECT_EQ(loaded.CurrentLineText(), text);
        EXPECT_EQ(loaded.FrameName(), text);
    }
}

TEST_F(PlayfileSave, AsksOnceAndCopiesFilesFromDrivesThatMayGoAway) {
    useLooseDrive();
    host_.machine.messageBoxes().answers = {MessageAnswer::yes};
    EXPECT_TRUE(playfile_.WritePlayfileToDisk(path_));
    ASSERT_EQ(shown().size(), 1u);
    EXPECT_EQ(shown()[0].title, "File Validation");
    EXPECT_EQ(shown()[0].text,
              "At least one file is not on a fixed drive \r\nThis might prevent this playfile to open "
              "properly in the future\r\nDo you want to make a copy of all files in a fixed drive?");
    EXPECT_EQ(shown()[0].buttons, MessageButtons::yesNo);
    const Texts copies{JoinPath(data_, "one.bmp"), JoinPath(data_, "two.cmd")};
    EXPECT_EQ(references(), copies) << "replaced in memory as well as in the file";
    for (const std::string& copy : copies)
        EXPECT_NE(saved().find("\"" + copy + "\""), std::string::npos);
    EXPECT_EQ(files().content(copies[1]), "commands");
    EXPECT_TRUE(playfile_.WritePlayfileToDisk(path_));
    EXPECT_EQ(shown().size(), 1u) << "the copies lie on a fixed drive";
}

TEST_F(PlayfileSave, LeavesReferencesAloneWithoutConsent) {
    useLooseDrive();
    const Texts before = references();
    playfile_.SetSuppressMessages(true);
    EXPECT_TRUE(playfile_.WritePlayfileToDisk(path_));
    EXPECT_TRUE(shown().empty()) << "suppressed: not asked, and taken for No";
    EXPECT_EQ(references(), before);
    playfile_.SetSuppressMessages(false);
    for (const std::size_t questions : {1u, 2u}) {
        EXPECT_TRUE(playfile_.WritePlayfileToDisk(path_));
        EXPECT_EQ(shown().size(), questions) << "every save asks anew";
    }
    EXPECT_EQ(references(), before);
    EXPECT_EQ(files().kindOf(data_), EntryKind::missing);
}

TEST_F(PlayfileSave, NeverLosesAReferenceThatCannotBeCopied) {
    useLooseDrive();
    (void)files().remove(JoinPath(loose_, "one.bmp"));
    host_.machine.messageBoxes().answers = {MessageAnswer::yes};
    EXPECT_TRUE(playfile_.WritePlayfileToDisk(path_));
    EXPECT_EQ(host_.reports.takeNumbers(), Numbers{53});
    EXPECT_EQ(references(), (Texts{JoinPath(loose_, "one.bmp"), JoinPath(data_, "two.cmd")}));
}

TEST_F(PlayfileSave, TellsOfFailureAndKeepsTheOldFile) {
    ASSERT_TRUE(playfile_.WritePlayfileToDisk(path_));
    const std::size_t wholeSize = saved().size();
    const std::string old = "the old playfile";
    files().put(path_, old);
    playfile_.SetSuppressMessages(true);
    const auto expectFailure = [&](const char* why) {
        SCOPED_TRACE(why);
        shown().clear();
        EXPECT_FALSE(playfile_.WritePlayfileToDisk(path_));
        ASSERT_EQ(shown().size(), 1u) << "failures are shown even when messages are suppressed";
        EXPECT_EQ(shown()[0].title, "Unable to save playfile");
        EXPECT_EQ(shown()[0].text,
                  "Error writing to file.\r\nCheck if file is read-only and you have rights to "
                  "read/write to the playfile folder.");
        EXPECT_EQ(shown()[0].icon, MessageIcon::critical);
        EXPECT_EQ(saved(), old);
        EXPECT_EQ(files().fileNames(), Texts{path_}) << "nothing is left behind";
    };
    files().bytesLeft = 100;
    expectFailure("disk full");
    files().bytesLeft = wholeSize - 1;
    expectFailure("disk full at the last byte");
    files().bytesLeft.reset();
    files().setReadOnly(path_);
    expectFailure("read-only file");
    EXPECT_EQ(playfile_.CurrentFileName(), path_);
    EXPECT_TRUE(host_.reports.all.empty());
}

TEST_F(PlayfileSave, WritesInPlaceWhereTheFolderTakesNoNewFile) {
    files().put(path_, "the old playfile");
    files().setReadOnly(host_.machine.library);
    EXPECT_TRUE(playfile_.WritePlayfileToDisk(path_));
    EXPECT_EQ(saved().substr(0, 8), " 20 \r\n\"\"");
    EXPECT_FALSE(playfile_.WritePlayfileToDisk(host_.inLibrary("new.playfile")));
}

} // namespace
} // namespace qrtVistrelClasses4
