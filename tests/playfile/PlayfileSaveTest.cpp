#include "playfile/FrameInfoClass.h"

#include "PlayfileText.h"
#include "TestHost.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

namespace qrtVistrelClasses4 {
namespace {

/// Names of elements and their values as they stand in the export.
using Elements = std::vector<std::pair<std::string, std::string>>;

/// Of " 1 " and its line end, which a playfile of one frame starts with.
constexpr std::size_t kCountSize = 5;

std::string block(const std::string& tag, const Elements& elements) {
    std::string text = "<" + tag + ">\r\n";
    for (const auto& [name, value] : elements)
        text.append("<" + name + ">\r\n").append("\"" + value + "\"\r\n").append("</" + name + ">\r\n");
    return text + "</" + tag + ">\r\n";
}

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

TEST_F(PlayfileSave, GivesBackFilesByteForByte) {
    Texts texts{playfileText(onePlayfileFrame())}; // with a value in every spare field
    for (const char* name : {"harbour.playfile", "plant.playfile"}) {
        std::ifstream stream(std::string(QRT_SAMPLES_FOLDER "/") + name, std::ios::binary);
        files().put(path_, std::string{std::istreambuf_iterator<char>(stream), {}});
        ASSERT_TRUE(playfile_.GetPlayfileFromDisk(path_) && playfile_.WritePlayfileToDisk(path_)) << name;
        texts.push_back(saved()); // numbers are written shortly from then on
    }
    for (const std::string& text : texts) {
        files().put(path_, text);
        ASSERT_TRUE(playfile_.GetPlayfileFromDisk(path_));
        files().put(path_, "old content");
        EXPECT_TRUE(playfile_.WritePlayfileToDisk(path_));
        EXPECT_EQ(saved(), text);
    }
    EXPECT_TRUE(shown().empty());
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

TEST_F(PlayfileSave, ExportsEveryElementOfFramesAndLinesInOrder) {
    auto values = onePlayfileFrame();
    values[kCommandFile] = "c.cmd";
    values[kDelay] = "1.25";
    values[kPicture] = "p.bmp";
    values[kPictureDisplay] = "3";
    values[kPictureType] = "-4";
    values[kSendAsIs] = "-1";
    values[kOverlay] = "1";
    values[kAviFrames] = "12";
    values[kAudio] = "s.wav";
    values[kLineText] = "6\x01 <sign> & more";
    values[kInverse] = "True";
    values[kLineCustomFont] = "f.cff";
    values[kMerge] = "True";
    const std::string second = playfileText(values).substr(kCountSize);
    values[kSendAsIs] = "0";
    values[kOverlay] = "7";
    values[kLineCount] = "0";
    values.resize(kLineCount + 1);
    files().put(path_, " 2 \r\n" + playfileText(values).substr(kCountSize) + second);
    ASSERT_TRUE(playfile_.GetPlayfileFromDisk(path_));

    Elements frame{
        {"PlayFrameID", "2"},           {"CMDFile_Name", "c.cmd"},    {"CMDFile_SendAsIs", "-1"},
        {"Delay_Time", "1.25"},         {"Font_Height", "16"},        {"FrameInfo_Name", "Welcome"},
        {"FrameInfo_Type", "2"},        {"Picture", "p.bmp"},         {"Prefix_Code", "5001"},
        {"Suffix_Code", "5000"},        {"PictureFile_Display", "3"}, {"PictureFile_Type", "-4"},
        {"Number_of_Frames_Used", "1"}, {"GridRow_Height", "40"},     {"Previous_Frame_Overlay", "-1"},
        {"AVI_Frames", "12"},           {"Audio_Name", "s.wav"},      {"Line_Count", "1"}};
    const Elements line{{"PlayFrameID", "2"}, {"PlayLineID", "1"},     {"RTF_Text", "6\x01 <sign> & more"},
                        {"Font", "6"},        {"Scrolling", "False"},  {"Inverse", "True"},
                        {"Blinking", "True"}, {"CustomFont", "f.cff"}, {"Merge", "True"}};
    const std::string expected = block("PlayFrame", frame) + block("PlayLines", line);
    frame[0].second = "1";
    frame[2].second = "0";
    frame.back().second = "0";
    EXPECT_TRUE(playfile_.WriteXMLToDisk(path_));
    EXPECT_EQ(files().content(path_ + ".xml"), block("PlayFrame", frame) + expected);
    EXPECT_TRUE(host_.reports.all.empty());
}

TEST_F(PlayfileSave, ExportsUnderTheNameThatIsGivenWithAnEndingMore) {
    for (const char* name : {"plain", "a.playfile", "already.xml", "ends in a dot."}) {
        const std::string path = host_.inLibrary(name);
        EXPECT_TRUE(playfile_.WriteXMLToDisk(path));
        EXPECT_TRUE(files().content(path + ".xml")) << name;
        EXPECT_FALSE(files().content(path)) << name;
        EXPECT_EQ(playfile_.CurrentFileName(), path);
    }
}

TEST_F(PlayfileSave, OrExportTellsOfFailureAndKeepsTheOldFile) {
    const struct {
        bool (FrameInfoClass::*write)(const std::string&);
        std::string path, message;
    } cases[] = {
        {&FrameInfoClass::WritePlayfileToDisk, path_,
         "Error writing to file.\r\nCheck if file is read-only and you have rights to "
         "read/write to the playfile folder."},
        {&FrameInfoClass::WriteXMLToDisk, path_ + ".xml", "Error writing to file. Maybe read-only."}};
    playfile_.SetSuppressMessages(true);
    for (const auto& [write, path, message] : cases) {
        ASSERT_TRUE((playfile_.*write)(path_));
        const std::size_t wholeSize = files().content(path).value().size();
        files().put(path, "old");
        for (const std::size_t room : {std::size_t{0}, wholeSize - 1, wholeSize}) {
            files().bytesLeft = room;
            files().setReadOnly(path, room == wholeSize);
            EXPECT_FALSE((playfile_.*write)(path_)) << room;
            ASSERT_EQ(shown().size(), 1u) << "failures are shown even when messages are suppressed";
            EXPECT_EQ(shown()[0].title, "Unable to save playfile");
            EXPECT_EQ(shown()[0].text, message);
            EXPECT_EQ(shown()[0].icon, MessageIcon::critical);
            EXPECT_EQ(files().fileNames(), Texts{path}) << "nothing is left behind";
            EXPECT_EQ(files().content(path), "old");
            shown().clear();
        }
        EXPECT_EQ(playfile_.CurrentFileName(), path_) << "remembered all the same";
        files().bytesLeft.reset();
        files().setReadOnly(path, false);
        ASSERT_EQ(files().remove(path), SystemError::none);
    }
    EXPECT_TRUE(host_.reports.all.empty());
}

} // namespace
} // namespace qrtVistrelClasses4
