// Files of the current format, and what comes of reading them.
#include <qrtVistrelClasses4/LoadPlayfile.h>

#include "HostTest.h"
#include "platform/CodePage.h"
#include <qrtVistrelClasses4/FrameInfoClass.h>
#include <qrtVistrelClasses4/SavePlayfile.h>

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
constexpr std::size_t kLineCount = 27; ///< Place of the frame's number of lines.

std::string fileOf(const Texts& values) {
    std::string text = values.at(0) + "\r\n";
    for (std::size_t line = 1; line < values.size(); ++line)
        text += "\"" + values[line] + "\"\r\n";
    return text;
}
std::string fileWith(std::size_t line, const std::string& value) {
    Texts values = oneFrame();
    values.at(line) = value;
    return fileOf(values);
}
std::string withoutCount(const std::string& file) { return file.substr(5); }

class LoadingPlayfiles : public HostTest {
protected:
    LoadingPlayfiles() { files().makeFolders(folder_); }
    LoadOutcome load(const std::string& text) {
        files().put(path_, text);
        return LoadPlayfile(path_);
    }
    /// What is read when the value in a line of the file is another one.
    template <class Record, class Value>
    void expectRead(const char* why, std::size_t line, const std::string& value, Value Record::*member,
                    const std::type_identity_t<Value>& expected) {
        const LoadOutcome outcome = load(fileWith(line, value));
        ASSERT_TRUE(outcome.isComplete) << why;
        const FrameRecord& frame = outcome.playfile.frames.at(1);
        if constexpr (std::is_same_v<Record, FrameRecord>)
            EXPECT_EQ(frame.*member, expected) << why;
        else
            EXPECT_EQ(frame.lines.at(1).*member, expected) << why;
    }

    std::string folder_ = host_.inLibrary("plays");
    std::string path_ = JoinPath(folder_, "a.playfile");
};

TEST_F(LoadingPlayfiles, ReadsEveryValueIntoItsMemberAndSavingGivesItBack) {
    Playfile expected{OneBasedArray<FrameRecord>(1), path_, false};
    FrameRecord& frame = expected.frames.at(1) = {// clang-format off
        .PicturefileName = "p.bmp", .commandfile = "c.cmd", .lines = OneBasedArray<LineRecord>(1), .FrameType = 2,
        .FontHeight = 16, .PrefixCode = 5001, .DelayTime = 1.25, .SuffixCode = 5000, .FrameName = "Welcome",
        .PictureFileDisplay = 3, .PictureFileType = -4, .TotalDisplayFramesUsedForThisFrame = 7, .RowHeightForGrid = 40,
        .SendCommandFileAsIs = 1, .OverlayFrame = 1, .AVIFrames = 12, .FastScroll = 1, .AudioFile = "s.wav",
        .WinBackColor = 70000, .FixedNumberOfLines = 9, .spareTexts = {"s", "t", "u", "v"}, .spareLongs = {1, -2, 3}};
    frame.lines.at(1) = {
        .LineFontSize = 6, .CurrentLineText = "6\" <sign> & more", .Inverse = true, .LineCustomFont = "f.cff",
        .Merge = true, .spareShorts = {7, -8}, .spareTexts = {"x", "", "z"}, .spareLongs = {4, 5, -6},
        .spareFlags = {true, false}};
    // clang-format on
    EXPECT_TRUE(load(fileOf(oneFrame())).playfile == expected);
    files().put(path_, "old content");
    EXPECT_TRUE(SavePlayfile(expected, path_).isWritten());
    EXPECT_EQ(files().content(path_), fileOf(oneFrame()));
}

TEST_F(LoadingPlayfiles, ConvertsWhatOtherPlacesAndVersionsWrote) {
    using Frame = FrameRecord;
    expectRead("a decimal comma", 2, "1,25", &Frame::DelayTime, 1.25);
    expectRead("a font height with decimals", 3, "15.6", &Frame::FontHeight, 16);
    expectRead("half a dot goes to the even height", 3, "12.5", &Frame::FontHeight, 12);
    expectRead("9999 on one side only is kept", 7, "9999", &Frame::SuffixCode, 5000);
    expectRead("a flag as a number", 30, "-1", &LineRecord::Scrolling, true);
    expectRead("a flag of a frame is kept as stored", 16, "-1", &Frame::FastScroll, -1);
}

TEST_F(LoadingPlayfiles, FindsMissingFilesBesideThePlayfile) {
    const std::string elsewhere = host_.inLibrary(AreNamesUtf8() ? "h\u00e9re.bmp" : "here.bmp"),
                      beside = JoinPath(folder_, "Moved.bmp");
    for (const std::string& picture : {elsewhere, JoinPath(folder_, SplitPath(elsewhere).name), beside})
        files().put(picture, "picture");
    const std::tuple<const char*, std::string, std::string> cases[] = {
        {"a reference that holds is kept", elsewhere, elsewhere},
        {"spelt otherwise", "Q:\\Signs\\MOVED.BMP", beside},
        {"a name alone says no place", "Moved.bmp", beside},
        {"a file that is nowhere", "Q:\\Signs\\gone.bmp", "Q:\\Signs\\gone.bmp"},
        {"a folder is no file", folder_, folder_}};
    for (const auto& [why, reference, found] : cases) {
        expectRead(why, 6, reference, &FrameRecord::PicturefileName, found);
        expectRead(why, 1, reference, &FrameRecord::commandfile, found);
    }
    const LoadOutcome changed = load(fileWith(6, "Moved.bmp"));
    EXPECT_EQ(changed.found,
              (std::vector<ChangedReference>{{{1, &FrameRecord::PicturefileName, "Moved.bmp"}, beside}}));
    const LoadOutcome kept = LoadPlayfile(path_, {.keepsReferences = true});
    EXPECT_EQ(kept.playfile.frames.at(1).PicturefileName + std::to_string(kept.found.size()), "Moved.bmp0");
    const std::string cutShort = fileWith(6, "Moved.bmp").substr(0, 60);
    files().put(path_, cutShort);
    EXPECT_EQ(LoadPlayfileOver({OneBasedArray<FrameRecord>(1), "", false}, path_)
                  .playfile.frames.at(1)
                  .PicturefileName,
              beside)
        << cutShort;
}

TEST_F(LoadingPlayfiles, AsksAboutEachFileAndFolderOnce) {
    const std::string gone = JoinPath(folder_, "gone") + kPathSeparator;
    Texts values = oneFrame();
    values[1] = gone + "a.cmd";
    values[6] = gone + "Logo.bmp";
    int listings = 0, looks = 0;
    SystemError listing = SystemError::none;
    files().observer = [&](const FileOperation& operation) {
        looks += operation.kind == FileOperation::look && operation.path.starts_with(gone) ? 1 : 0;
        listings += operation.kind == FileOperation::list ? 1 : 0;
        return operation.kind == FileOperation::list ? listing : SystemError::none;
    };
    const auto pictureFound = [&] { return load(fileOf(values)).playfile.frames.at(1).PicturefileName; };
    EXPECT_EQ(pictureFound(), values[6]);
    EXPECT_EQ(std::tuple(listings, looks), std::tuple(1, 2)) << "for two files that are missing";
    for (const char* name : {"Logo.bmp", "LOGO.bmp"}) { // the second one comes first in the list
        files().put(JoinPath(folder_, name), "picture");
        for (const SystemError error : {SystemError::none, SystemError::accessDenied}) {
            listing = error;
            EXPECT_EQ(pictureFound(), JoinPath(folder_, "Logo.bmp")) << "also beside " << name;
        }
    }
}

TEST_F(LoadingPlayfiles, TakesThe4x8FontFromAnotherFolderIfTheApplicationHasNone) {
    host_.machine.others[FileUse::onlyRead] = {folder_};
    const std::string font = JoinPath(JoinPath(folder_, "CustomFonts"), "fnt4x8.cff");
    files().put(font, "");
    Texts values = oneFrame();
    values[29] = "2";
    EXPECT_EQ(load(fileOf(values)).playfile.frames.at(1).lines.at(1).LineCustomFont, font);
}

TEST_F(LoadingPlayfiles, LeavesWhatWasThereWhereNothingWasRead) {
    Playfile old{OneBasedArray<FrameRecord>(3), "", false};
    for (FrameRecord& frame : old.frames)
        std::tie(frame.FrameName, frame.FontWidth) = std::tuple("old", 5);
    FrameInfoClass playfile;
    const auto load = [&](const std::string& text) {
        playfile.Adopt(old);
        files().put(path_, text);
        std::string names = playfile.GetPlayfileFromDisk(path_) ? "loaded " : "failed ";
        for (const FrameRecord& frame : playfile.Value().frames)
            names += frame.FrameName + std::to_string(frame.FontWidth) + " ";
        return names;
    };
    const std::string frame = withoutCount(fileOf(oneFrame()));
    EXPECT_EQ(load(" 1 \r\n" + frame), "loaded Welcome5 ") << "files do not hold that number";
    EXPECT_EQ(load(" -1 \r\n"), "failed old5 old5 old5 ");
    EXPECT_EQ(load(" 4 \r\n" + frame + frame.substr(0, 60)), "failed Welcome5 Welcome5 old5 0 ");
    EXPECT_EQ(takeErrors(), (Numbers{9, 62}));
    EXPECT_EQ(load(" 0 \r\n"), "loaded ") << "a playfile without frames is one";
    EXPECT_FALSE(playfile.GetPlayfileFromDisk("/missing"));
    EXPECT_EQ(playfile.CurrentFileName(), "/missing");
    EXPECT_EQ(takeErrors(), Numbers{53});
    files().observer = [&](const FileOperation& operation) {
        if (operation.kind == FileOperation::look && operation.path == folder_)
            playfile.TotalFrames(0);
        return SystemError::none;
    };
    EXPECT_EQ(load(fileWith(1, folder_)), "loaded Welcome5 ") << "whatever the host does meanwhile";
}

} // namespace
} // namespace qrtVistrelClasses4
