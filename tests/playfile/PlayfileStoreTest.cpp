// Playfiles loaded, saved and exported.
#include "TestHost.h"
#include "playfile/FrameInfoClass.h"
#include "settings/RegistrySettings.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <fstream>
#include <iterator>

namespace qrtVistrelClasses4 {
namespace {

/// The values of a playfile with one frame of one line, by their lines in the file: the first is the count.
Texts oneFrame() {
    // clang-format off
    return {" 1 ", "c.cmd", "1.25", "16", "Welcome", "2", "p.bmp", "5001", "5000", "3", "-4", "7", "40", "1", "1", "12",
            "1", "s.wav", "s", "t", "u", "v", "70000", "9", "1", "-2", "3", "1",
            "6\x01 <sign> & more", "6", "False", "True", "False", "f.cff", "7", "-8", "x", "", "z", "4", "5", "-6",
            "True", "True", "False"};
    // clang-format on
}
constexpr std::size_t kLineCount = 27;

std::string fileOf(const Texts& values) {
    std::string text = values.at(0) + "\r\n";
    for (std::size_t line = 1; line < values.size(); ++line)
        text += "\"" + values[line] + "\"\r\n";
    return text;
}
std::string withoutCount(const std::string& file) { return file.substr(5); }

struct PlayfileStore : testing::Test {
    PlayfileStore() { files().makeFolders(folder_); }
    MemoryFileSystem& files() { return host_.machine.files(); }
    std::vector<Message>& shown() { return host_.machine.messageBoxes().shown; }
    bool load(const std::string& text) {
        files().put(path_, text);
        const bool result = playfile_.GetPlayfileFromDisk(path_);
        playfile_.CurrentFrame(1);
        return result;
    }
    bool loadWith(std::size_t line, const std::string& value) {
        Texts values = oneFrame();
        values.at(line) = value;
        return load(fileOf(values));
    }
    template <class Value>
    void expectRead(const char* why, std::size_t line, const std::string& value,
                    Value (FrameInfoClass::*property)() const, std::type_identity_t<Value> expected) {
        EXPECT_TRUE(loadWith(line, value)) << why;
        EXPECT_EQ((playfile_.*property)(), expected) << why;
    }
    std::string saved() { return files().content(path_).value_or("no file"); }

    TestHost host_;
    FrameInfoClass playfile_;
    std::string folder_ = host_.inLibrary("plays");
    std::string path_ = JoinPath(folder_, "a.playfile");
};

TEST_F(PlayfileStore, ReadsEveryValueIntoItsProperty) {
    ASSERT_TRUE(load(fileOf(oneFrame())));
    FrameInfoClass& p = playfile_;
    EXPECT_EQ(std::tuple(p.commandfile(), p.DelayTime(), p.FontHeight(), p.FrameName(),
                         MeaningOf(p.FrameType()), p.PicturefileName(), p.PrefixCode(), p.SuffixCode(),
                         p.PictureFileDisplay(), p.PictureFileType(), p.TotalDisplayFramesUsedForThisFrame(),
                         p.RowHeightForGrid(), p.AVIFrames(), p.AudioFile(), p.WinBackColor(),
                         p.FixedNumberOfLines()),
              std::tuple("c.cmd", 1.25, 16, "Welcome", NEW_FRAME_TYPES::FRAME_TEXT, "p.bmp", 5001, 5000, 3,
                         -4, 7, 40, 12, "s.wav", 70000, 9));
    EXPECT_EQ(std::tuple(p.CurrentFileName(), p.TotalFrames(), p.TotalLinesAllowed(), p.CurrentLineText(),
                         p.CurrentLineFont(), p.Inverse(), p.Blinking(), p.LineCustomFont(), p.Merge()),
              std::tuple(path_, 1, 1, "6\" <sign> & more", 6, true, false, "f.cff", true));
    EXPECT_TRUE(host_.reports.all.empty());
}

TEST_F(PlayfileStore, ConvertsWhatOtherPlacesAndVersionsWrote) {
    using P = FrameInfoClass;
    expectRead("a decimal comma", 2, "1,25", &P::DelayTime, 1.25);
    expectRead("a font height with decimals", 3, "15.6", &P::FontHeight, 16);
    expectRead("half a dot goes to the even height", 3, "12.5", &P::FontHeight, 12);
    expectRead("the old wipe as prefix", 7, "2001", &P::PrefixCode, 2000);
    expectRead("the old wipe as suffix", 8, "2001", &P::SuffixCode, 2000);
    expectRead("9999 on one side only is kept", 7, "9999", &P::SuffixCode, 5000);
    expectRead("a flag as a number", 30, "-1", &P::Scrolling, true);
    expectRead("fast scrolling stored as -1 reads as off", 16, "-1", &P::FastScroll, false);
    expectRead("an overlay stored as -1 reads as on", 14, "-1", &P::OverlayFrame, true);
    expectRead("as-is stored as -1 reads as stored", 13, "-1", &P::SendCommandFileAsIs, -1);
    WriteSetting("Vistrel3", "Settings", "AppPath", folder_);
    expectRead("the old font 2 is a custom font now", 29, "2", &P::LineFontSize, 12);
    EXPECT_EQ(playfile_.LineCustomFont(), JoinPath(JoinPath(folder_, "CustomFonts"), "FNT4X8.CFF"));
}

TEST_F(PlayfileStore, FindsMissingFilesBesideThePlayfile) {
    const std::string elsewhere = host_.inLibrary("here.bmp"), beside = JoinPath(folder_, "Moved.bmp");
    for (const std::string& picture : {elsewhere, JoinPath(folder_, "here.bmp"), beside})
        files().put(picture, "picture");
    const struct {
        const char* why;
        std::string reference, found;
    } cases[] = {{"a reference that holds is kept", elsewhere, elsewhere},
                 {"a file that moved along", "Q:\\Signs\\Moved.bmp", beside},
                 {"spelt otherwise", "Q:\\Signs\\MOVED.BMP", beside},
                 {"a name alone says no place", "Moved.bmp", beside},
                 {"a file that is nowhere", "Q:\\Signs\\gone.bmp", "Q:\\Signs\\gone.bmp"},
                 {"a folder is no file", folder_, folder_}};
    using P = FrameInfoClass;
    for (const auto& row : cases) {
        expectRead(row.why, 6, row.reference, &P::PicturefileName, row.found);
        expectRead(row.why, 1, row.reference, &P::commandfile, row.found);
    }
}

TEST_F(PlayfileStore, TellsWhatIsWrongAndKeepsTheFramesReadBefore) {
    for (const char* text : {"", "\r\n", " -1 \r\n", " 40000 \r\n", "PK\x03\x04"})
        EXPECT_FALSE(load(text)) << text;
    EXPECT_FALSE(playfile_.GetPlayfileFromDisk(host_.inLibrary("missing.playfile")));
    EXPECT_FALSE(playfile_.GetPlayfileFromDisk(JoinPath(host_.inLibrary("nowhere"), "a.playfile")));
    EXPECT_EQ(host_.reports.takeNumbers(), (Numbers{62, 13, 9, 6, 13, 53, 76}));
    EXPECT_EQ(playfile_.CurrentFileName(), JoinPath(host_.inLibrary("nowhere"), "a.playfile"));
    EXPECT_EQ(playfile_.TotalFrames(), 20);
    const std::string twoFrames = " 2 \r\n" + withoutCount(fileOf(oneFrame()));
    EXPECT_FALSE(load(twoFrames)) << "no second frame";
    EXPECT_FALSE(load(twoFrames + "\"\"\r\n\"soon\"\r\n")) << "a delay that is no number";
    for (const char* count : {"-1", "32767"})
        EXPECT_FALSE(loadWith(kLineCount, count));
    EXPECT_EQ(host_.reports.takeNumbers(), (Numbers{62, 13, 9, 62}));
    EXPECT_EQ(playfile_.FrameName(), "Welcome");
    EXPECT_TRUE(load(" 0 \r\n")) << "a playfile without frames is one";
    EXPECT_EQ(playfile_.TotalFrames(), 0);
}

TEST_F(PlayfileStore, KeepsTheWholeFramesOfAFileThatIsCutShort) {
    const std::string first = fileOf(oneFrame()),
                      both = " 2 \r\n" + withoutCount(first) + withoutCount(first);
    for (std::size_t size = 0; size <= both.size(); ++size) {
        playfile_.TotalFrames(0);
        EXPECT_EQ(load(both.substr(0, size)), size + 3 >= both.size())
            << "the last quote and line end may be missing";
        playfile_.TotalFrames(std::min<std::int16_t>(playfile_.TotalFrames(), 1));
        EXPECT_TRUE(playfile_.WritePlayfileToDisk(path_));
        EXPECT_TRUE(saved() == first || size < first.size()) << size;
    }
}

TEST_F(PlayfileStore, GivesBackFilesByteForByte) {
    Texts texts{fileOf(oneFrame())};
    for (const char* name : {"harbour.playfile", "plant.playfile"}) {
        std::ifstream stream(std::string(QRT_SAMPLES_FOLDER "/") + name, std::ios::binary);
        ASSERT_TRUE(load({std::istreambuf_iterator<char>(stream), {}}) &&
                    playfile_.WritePlayfileToDisk(path_));
        texts.push_back(saved()); // numbers are written shortly from then on
    }
    for (const std::string& text : texts) {
        ASSERT_TRUE(load(text));
        files().put(path_, "old content");
        EXPECT_TRUE(playfile_.WritePlayfileToDisk(path_));
        EXPECT_EQ(saved(), text);
    }
}

TEST_F(PlayfileStore, CopiesFilesFromDrivesThatMayGoAwayIfTheOperatorWantsIt) {
    const std::string loose = host_.inLibrary("floppy"), data = host_.inLibrary("Data");
    const Texts originals{JoinPath(loose, "one.bmp"), JoinPath(loose, "two.cmd")};
    const Texts copies{JoinPath(data, "one.bmp"), JoinPath(data, "two.cmd")};
    files().addLooseDrive(loose);
    files().put(originals[1], "commands");
    playfile_.TotalFrames(1);
    playfile_.CurrentFrame(1);
    playfile_.PicturefileName(originals[0]);
    playfile_.commandfile(originals[1]);
    const auto savedReferences = [&] {
        EXPECT_TRUE(playfile_.WritePlayfileToDisk(path_));
        for (const std::string& reference : {playfile_.PicturefileName(), playfile_.commandfile()})
            EXPECT_NE(saved().find("\"" + reference + "\""), std::string::npos);
        return Texts{playfile_.PicturefileName(), playfile_.commandfile()};
    };
    playfile_.SetSuppressMessages(true);
    EXPECT_EQ(savedReferences(), originals) << "taken for No";
    EXPECT_TRUE(shown().empty());
    playfile_.SetSuppressMessages(false);
    host_.machine.messageBoxes().answers = {MessageAnswer::no, MessageAnswer::yes, MessageAnswer::yes};
    EXPECT_EQ(savedReferences(), originals);
    EXPECT_EQ(files().kindOf(data), EntryKind::missing);
    EXPECT_EQ(savedReferences(), (Texts{originals[0], copies[1]})) << "one is not there";
    EXPECT_EQ(host_.reports.takeNumbers(), Numbers{53});
    files().put(originals[0], "a picture");
    for (int time = 0; time < 2; ++time)
        EXPECT_EQ(savedReferences(), copies);
    EXPECT_EQ(files().content(copies[0]), "a picture");
    ASSERT_EQ(shown().size(), 3u) << "once for a save, until all lie on fixed drives";
    EXPECT_EQ(shown()[0].title, "File Validation");
    EXPECT_EQ(shown()[0].text,
              "At least one file is not on a fixed drive \r\nThis might prevent this playfile to open "
              "properly in the future\r\nDo you want to make a copy of all files in a fixed drive?");
    EXPECT_EQ(shown()[0].buttons, MessageButtons::yesNo);
}

TEST_F(PlayfileStore, LetsTheHostChangeTheFramesWhileItAsks) {
    struct BusyHost final : MessageBoxes {
        MessageAnswer show(const Message& message) override {
            playfile->TotalFrames(total);
            return message.buttons == MessageButtons::yesNo ? MessageAnswer::yes : MessageAnswer::ok;
        }
        bool attended() override { return true; }
        FrameInfoClass* playfile = nullptr;
        std::int16_t total = 0;
    } host;
    const ScopedMessageBoxes scope(host);
    host.playfile = &playfile_;
    files().addLooseDrive("Q:");
    for (const std::int16_t total : std::array<std::int16_t, 3>{0, 1, 30000}) {
        SCOPED_TRACE(total);
        host.total = total;
        playfile_.TotalFrames(2);
        playfile_.CurrentFrame(1);
        playfile_.PicturefileName("Q:\\gone.bmp");
        files().put(path_, "old");
        EXPECT_EQ(playfile_.WritePlayfileToDisk(path_), total > 1) << "a frame that has gone is not saved";
        EXPECT_EQ(saved().substr(0, 3), total > 1 ? " 2 " : "old");
        EXPECT_EQ(playfile_.TotalFrames(), total);
    }
}

TEST_F(PlayfileStore, LoadsTheFramesOfTheFileWhateverTheHostDoesMeanwhile) {
    files().observer = [&](const FileOperation& operation) {
        if (operation.kind == FileOperation::look && operation.path == folder_)
            playfile_.TotalFrames(0);
        return SystemError::none;
    };
    EXPECT_TRUE(loadWith(1, folder_));
    EXPECT_EQ(playfile_.FrameName(), "Welcome");
}

TEST_F(PlayfileStore, CopiesAFileOnceUnlessAnotherOfItsNameComesBetween) {
    const std::string loose = host_.inLibrary("floppy"), copy = JoinPath(host_.inLibrary("Data"), "one.bmp");
    const std::string a = JoinPath(loose, "one.bmp"), b = JoinPath(JoinPath(loose, "other"), "one.bmp");
    files().addLooseDrive(loose);
    files().put(a, "picture A");
    files().put(b, "picture B");
    int copies = 0;
    files().observer = [&](const FileOperation& operation) {
        copies += operation.kind == FileOperation::rename && operation.target == copy ? 1 : 0;
        return SystemError::none;
    };
    playfile_.TotalFrames(3);
    for (const auto& [pictures, expected] : {std::pair{Texts{a, a, a}, 1}, {Texts{a, b, a}, 3}}) {
        for (std::int16_t number = 1; number <= 3; ++number) {
            playfile_.CurrentFrame(number);
            playfile_.PicturefileName(pictures.at(static_cast<std::size_t>(number - 1)));
        }
        host_.machine.messageBoxes().answers = {MessageAnswer::yes};
        EXPECT_TRUE(playfile_.WritePlayfileToDisk(path_));
        EXPECT_EQ(std::exchange(copies, 0), expected);
        EXPECT_EQ(files().content(copy), "picture A") << "the last of a name wins";
    }
}

/// Names of elements and their values as they stand in the export.
using Elements = std::vector<std::pair<std::string, std::string>>;

std::string block(const std::string& tag, const Elements& elements) {
    std::string text = "<" + tag + ">\r\n";
    for (const auto& [name, value] : elements)
        text.append("<" + name + ">\r\n").append("\"" + value + "\"\r\n").append("</" + name + ">\r\n");
    return text + "</" + tag + ">\r\n";
}

TEST_F(PlayfileStore, ExportsEveryElementOfFramesAndLinesInOrder) {
    Texts values = oneFrame();
    const std::string first = withoutCount(fileOf(values));
    values[13] = "0"; // whether the command file is sent as it is
    values[14] = "7"; // whether it is an overlay
    values[kLineCount] = "0";
    values.resize(kLineCount + 1);
    ASSERT_TRUE(load(" 2 \r\n" + first + withoutCount(fileOf(values))));
    Elements frame{
        {"PlayFrameID", "1"},           {"CMDFile_Name", "c.cmd"},    {"CMDFile_SendAsIs", "-1"},
        {"Delay_Time", "1.25"},         {"Font_Height", "16"},        {"FrameInfo_Name", "Welcome"},
        {"FrameInfo_Type", "2"},        {"Picture", "p.bmp"},         {"Prefix_Code", "5001"},
        {"Suffix_Code", "5000"},        {"PictureFile_Display", "3"}, {"PictureFile_Type", "-4"},
        {"Number_of_Frames_Used", "7"}, {"GridRow_Height", "40"},     {"Previous_Frame_Overlay", "-1"},
        {"AVI_Frames", "12"},           {"Audio_Name", "s.wav"},      {"Line_Count", "1"}};
    const Elements line{{"PlayFrameID", "1"},  {"PlayLineID", "1"},     {"RTF_Text", "6\x01 <sign> & more"},
                        {"Font", "6"},         {"Scrolling", "False"},  {"Inverse", "True"},
                        {"Blinking", "False"}, {"CustomFont", "f.cff"}, {"Merge", "True"}};
    std::string expected = block("PlayFrame", frame) + block("PlayLines", line);
    frame[0].second = "2";
    frame[2].second = frame.back().second = "0";
    expected += block("PlayFrame", frame);
    for (const char* name : {"plain", "already.xml"}) {
        const std::string path = host_.inLibrary(name);
        EXPECT_TRUE(playfile_.WriteXMLToDisk(path));
        EXPECT_EQ(files().content(path + ".xml"), expected) << "an ending more";
        EXPECT_EQ(playfile_.CurrentFileName(), path);
    }
}

TEST_F(PlayfileStore, TellsOfASaveOrExportThatFailsEvenWhenMessagesAreSuppressed) {
    playfile_.SetSuppressMessages(true);
    for (const std::string& file : {path_, path_ + ".xml"}) {
        files().put(file, "old");
        files().setReadOnly(file, true);
    }
    EXPECT_FALSE(playfile_.WritePlayfileToDisk(path_));
    EXPECT_FALSE(playfile_.WriteXMLToDisk(path_));
    ASSERT_EQ(shown().size(), 2u);
    EXPECT_EQ(shown()[0].text, "Error writing to file.\r\nCheck if file is read-only and you have rights to "
                               "read/write to the playfile folder.");
    EXPECT_EQ(shown()[1].text, "Error writing to file. Maybe read-only.");
    EXPECT_EQ(playfile_.CurrentFileName(), path_) << "remembered all the same";
}

} // namespace
} // namespace qrtVistrelClasses4
