#include "PlayfileText.h"
#include "TestHost.h"
#include "playfile/FrameInfoClass.h"

#include <gtest/gtest.h>

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

class XmlExport : public testing::Test {
protected:
    MemoryFileSystem& files() { return host_.machine.files(); }
    bool load(const std::string& text) {
        files().put(path_, text);
        return playfile_.GetPlayfileFromDisk(path_);
    }

    TestHost host_;
    FrameInfoClass playfile_;
    std::string path_ = host_.inLibrary("a.playfile");
    std::string export_ = path_ + ".xml";
};

TEST_F(XmlExport, WritesEveryElementOfFramesAndLinesInOrder) {
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
    const std::string first = playfileText(values).substr(kCountSize);
    values[kSendAsIs] = "0";
    values[kOverlay] = "7";
    values[kLineCount] = "0";
    values.resize(kLineCount + 1);
    ASSERT_TRUE(load(" 2 \r\n" + first + playfileText(values).substr(kCountSize)));

    Elements frame{
        {"PlayFrameID", "1"},           {"CMDFile_Name", "c.cmd"},    {"CMDFile_SendAsIs", "-1"},
        {"Delay_Time", "1.25"},         {"Font_Height", "16"},        {"FrameInfo_Name", "Welcome"},
        {"FrameInfo_Type", "2"},        {"Picture", "p.bmp"},         {"Prefix_Code", "5001"},
        {"Suffix_Code", "5000"},        {"PictureFile_Display", "3"}, {"PictureFile_Type", "-4"},
        {"Number_of_Frames_Used", "1"}, {"GridRow_Height", "40"},     {"Previous_Frame_Overlay", "-1"},
        {"AVI_Frames", "12"},           {"Audio_Name", "s.wav"},      {"Line_Count", "1"}};
    const Elements line{{"PlayFrameID", "1"}, {"PlayLineID", "1"},     {"RTF_Text", "6\x01 <sign> & more"},
                        {"Font", "6"},        {"Scrolling", "False"},  {"Inverse", "True"},
                        {"Blinking", "True"}, {"CustomFont", "f.cff"}, {"Merge", "True"}};
    std::string expected = block("PlayFrame", frame) + block("PlayLines", line);
    frame[0].second = "2";
    frame[2].second = "0";
    frame.back().second = "0";
    expected += block("PlayFrame", frame);
    EXPECT_TRUE(playfile_.WriteXMLToDisk(path_));
    EXPECT_EQ(files().content(export_), expected);
    EXPECT_TRUE(host_.reports.all.empty());
}

TEST_F(XmlExport, NumbersFramesAndTheirLinesFromOne) {
    playfile_.TotalFrames(2);
    playfile_.CurrentFrame(2);
    playfile_.TotalLinesAllowed(2);
    ASSERT_TRUE(playfile_.WriteXMLToDisk(path_));
    const std::string text = files().content(export_).value();
    std::string numbers;
    for (std::size_t at = text.find("ID>\r\n\""); at != std::string::npos;
         at = text.find("ID>\r\n\"", at + 1))
        numbers += text[at + 6];
    EXPECT_EQ(numbers, "1"
                       "11"
                       "2"
                       "21"
                       "22")
        << "frame 1, its line, frame 2, its lines";
}

TEST_F(XmlExport, LeavesNothingOfAnOlderExport) {
    files().put(export_, "an older export");
    playfile_.TotalFrames(0);
    EXPECT_TRUE(playfile_.WriteXMLToDisk(path_));
    EXPECT_EQ(files().content(export_), "") << "no frames";
}

TEST_F(XmlExport, AddsItsEndingToWhateverNameIsGiven) {
    for (const char* name : {"plain", "a.playfile", "already.xml", "ends in a dot."}) {
        const std::string path = host_.inLibrary(name);
        EXPECT_TRUE(playfile_.WriteXMLToDisk(path));
        EXPECT_TRUE(files().content(path + ".xml")) << name;
        EXPECT_FALSE(files().content(path)) << name;
        EXPECT_EQ(playfile_.CurrentFileName(), path);
    }
}

TEST_F(XmlExport, TellsOfFailureAndKeepsTheOldExport) {
    ASSERT_TRUE(playfile_.WriteXMLToDisk(path_));
    const std::size_t wholeSize = files().content(export_).value().size();
    const std::string old = "the old export";
    files().put(export_, old);
    playfile_.SetSuppressMessages(true);
    auto& shown = host_.machine.messageBoxes().shown;
    const auto expectFailure = [&](const char* why) {
        SCOPED_TRACE(why);
        shown.clear();
        EXPECT_FALSE(playfile_.WriteXMLToDisk(path_));
        ASSERT_EQ(shown.size(), 1u) << "failures are shown even when messages are suppressed";
        EXPECT_EQ(shown[0].title, "Unable to save playfile");
        EXPECT_EQ(shown[0].text, "Error writing to file. Maybe read-only.");
        EXPECT_EQ(shown[0].icon, MessageIcon::critical);
        EXPECT_EQ(files().content(export_), old);
        EXPECT_EQ(files().fileNames(), Texts{export_}) << "nothing is left behind";
    };
    files().bytesLeft = 0;
    expectFailure("disk full");
    files().bytesLeft = wholeSize - 1;
    expectFailure("disk full at the last byte");
    files().bytesLeft.reset();
    files().setReadOnly(export_);
    expectFailure("read-only file");
    EXPECT_EQ(playfile_.CurrentFileName(), path_) << "remembered all the same";
    EXPECT_TRUE(host_.reports.all.empty());
}

} // namespace
} // namespace qrtVistrelClasses4
