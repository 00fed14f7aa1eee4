// Playfiles saved and exported.
#include <qrtVistrelClasses4/SavePlayfile.h>

#include "TestHost.h"
#include "platform/CodePage.h"
#include <qrtVistrelClasses4/FrameInfoClass.h>

#include <gtest/gtest.h>

#include <array>
#include <limits>

namespace qrtVistrelClasses4 {
namespace {

struct SavingPlayfiles : testing::Test {
    MemoryFileSystem& files() { return host_.machine.files(); }
    std::vector<Message>& shown() { return host_.machine.messageBoxes().shown; }
    std::string saved() { return files().content(path_).value_or("no file"); }

    TestHost host_;
    std::string path_ = host_.inLibrary("a.playfile");
};

TEST_F(SavingPlayfiles, CopiesFilesFromDrivesThatMayGoAwayIfTheOperatorWantsIt) {
    const std::string loose = host_.inLibrary("floppy"), data = host_.inLibrary("Data"),
                      copy = JoinPath(data, "tw\xf6.cmd"),
                      onDisk = AreNamesUtf8() ? "tw\u00f6.cmd" : "tw\xf6.cmd";
    const FrameReference picture{1, &FrameRecord::PicturefileName, JoinPath(loose, "one.bmp")},
        other{2, &FrameRecord::PicturefileName, JoinPath(loose, "other.bmp")},
        command{2, &FrameRecord::commandfile, JoinPath(loose, "tw\xf6.cmd")};
    files().put(JoinPath(loose, onDisk), "commands");
    Playfile playfile{OneBasedArray<FrameRecord>(2), "", false};
    for (const FrameReference& reference : {picture, other, command})
        playfile.frames.at(reference.frame).*reference.member = reference.file;
    int questions = 0;
    const auto save = [&](bool wantsCopies) {
        return SavePlayfile(playfile, path_,
                            {[&questions, wantsCopies] { return ++questions > 0 && wantsCopies; }});
    };
    EXPECT_TRUE(save(true).copies.empty());
    files().addLooseDrive(loose); // in place of the drive that was there
    EXPECT_TRUE(SavePlayfile(playfile, path_).copies.empty()) << "nobody to ask";
    EXPECT_TRUE(save(false).copies.empty());
    EXPECT_EQ(questions, 1) << "for three files, once the drive may go away";
    EXPECT_NE(saved().find(command.file), std::string::npos);
    const SaveOutcome outcome = save(true);
    EXPECT_EQ(outcome.copies, (std::vector<ChangedReference>{{command, copy}}));
    EXPECT_EQ(outcome.failedCopies, (std::vector{picture, other}));
    for (std::size_t i = 0; i < host_.reports.all.size(); ++i)
        EXPECT_EQ(host_.reports.all[i].error.isQuiet(), i > 0) << "only one is shown, and the last counts";
    EXPECT_EQ(host_.reports.takeNumbers(), (Numbers{53, 53, 75}));
    EXPECT_EQ(files().content(JoinPath(data, onDisk)), "commands");
    EXPECT_NE(saved().find(copy), std::string::npos);
    ReferToCopies(playfile, outcome.copies);
    EXPECT_EQ(playfile.frames.at(2).commandfile, copy);
    playfile.frames.at(2).DelayTime = std::numeric_limits<double>::infinity();
    EXPECT_EQ(SavePlayfile(playfile, path_).error->number(), 6) << "it could not be loaded";
    playfile.frames.at(2).DelayTime = 0;
    playfile.frames.at(1).PicturefileName = playfile.frames.at(2).PicturefileName = "";
    EXPECT_TRUE(save(true).copies.empty());
    EXPECT_EQ(questions, 2) << "nothing is left to ask";
}

TEST_F(SavingPlayfiles, LetsTheHostChangeTheFramesWhileItAsks) {
    struct HostThatEdits final : MessageBoxes {
        MessageAnswer show(const Message& message) override {
            playfile.TotalFrames(total);
            return message.buttons == MessageButtons::yesNo ? MessageAnswer::yes : MessageAnswer::ok;
        }
        bool attended() override { return true; }
        FrameInfoClass playfile;
        std::int16_t total = 0;
    } host;
    const ScopedMessageBoxes scope(host);
    files().addLooseDrive("Q:");
    for (const std::int16_t total : std::array<std::int16_t, 3>{0, 1, 30000}) {
        host.total = total;
        host.playfile.TotalFrames(2);
        host.playfile.CurrentFrame(1);
        host.playfile.PicturefileName("Q:\\gone.bmp");
        files().put(path_, "old");
        EXPECT_EQ(host.playfile.WritePlayfileToDisk(path_), total > 1)
            << "a frame that has gone is not saved";
        EXPECT_EQ(saved().substr(0, 3), total > 1 ? " 2 " : "old");
        EXPECT_EQ(host.playfile.TotalFrames(), total);
    }
}

TEST_F(SavingPlayfiles, CopiesAFileOnceUnlessAnotherOfItsNameComesBetween) {
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
    Playfile playfile{OneBasedArray<FrameRecord>(3), "", false};
    for (const auto& [pictures, expected] : {std::pair{Texts{a, a, a}, 1}, {Texts{a, b, a}, 3}}) {
        for (std::int32_t number = 1; number <= 3; ++number)
            playfile.frames.at(number).PicturefileName = pictures.at(static_cast<std::size_t>(number - 1));
        EXPECT_EQ(SavePlayfile(playfile, path_, {[] { return true; }}).copies.size(), 3u);
        EXPECT_EQ(std::exchange(copies, 0), expected);
        EXPECT_EQ(files().content(copy), "picture A") << "the last of a name wins";
    }
}

TEST_F(SavingPlayfiles, NeverReplacesAPlayfileOfTheOlderFormat) {
    FrameInfoClass playfile;
    EXPECT_TRUE(playfile.WritePlayfileToDisk(host_.inLibrary("missing.PL2")));
    for (const auto& [name, content, isKept] : {std::tuple("a.pl2", "PLWREV 1.50, records", true),
                                                {"c.PL2", "PLWREV 1.5", false},
                                                {"a.playfile", "PLWREV 1.50", false}}) {
        const std::string path = host_.inLibrary(name);
        files().put(path, content);
        EXPECT_NE(playfile.WritePlayfileToDisk(path), isKept) << name;
        EXPECT_EQ(files().content(path) == content, isKept) << name;
        EXPECT_EQ(host_.reports.takeNumbers(), isKept ? Numbers{58} : Numbers{});
        EXPECT_EQ(std::exchange(shown(), {}).size(), isKept ? 1u : 0u);
        EXPECT_EQ(SavePlayfile(playfile.Value(), path).wouldReplaceOlder, isKept) << name;
    }
    host_.failReads(1, 1);
    EXPECT_FALSE(SavePlayfile(playfile.Value(), host_.inLibrary("c.PL2")).isWritten()) << "it might be one";
}

TEST_F(SavingPlayfiles, ExportsFlagsAsYesAndNoAndFramesWithoutLines) {
    Playfile playfile{OneBasedArray<FrameRecord>(1), "", false};
    playfile.frames.at(1).OverlayFrame = 7;
    EXPECT_EQ(ExportXml(playfile, path_), std::nullopt);
    for (const char* part : {"<CMDFile_SendAsIs>\r\n\"0\"", "<Previous_Frame_Overlay>\r\n\"-1\"",
                             "<Line_Count>\r\n\"0\"\r\n</Line_Count>\r\n</PlayFrame>\r\n"})
        EXPECT_NE(saved().find(part), std::string::npos) << part;
    EXPECT_EQ(saved().find("PlayLines"), std::string::npos);
}

TEST_F(SavingPlayfiles, AsksTheOperatorUnlessSuppressedAndShowsFailuresAlways) {
    FrameInfoClass playfile;
    files().addLooseDrive("Q:");
    playfile.CurrentFrame(1);
    playfile.PicturefileName("Q:\\gone.bmp");
    EXPECT_TRUE(playfile.WritePlayfileToDisk(path_));
    playfile.SetSuppressMessages(true);
    EXPECT_TRUE(playfile.WriteXMLToDisk(path_)) << "an ending more";
    for (const std::string& file : {path_, path_ + ".xml"})
        files().setReadOnly(file, true);
    EXPECT_FALSE(playfile.WritePlayfileToDisk(path_));
    EXPECT_FALSE(playfile.WriteXMLToDisk(path_));
    ASSERT_EQ(shown().size(), 3u);
    EXPECT_EQ(shown()[0].title, "File Validation");
    EXPECT_EQ(shown()[0].text,
              "At least one file is not on a fixed drive \r\nThis might prevent this playfile to open "
              "properly in the future\r\nDo you want to make a copy of all files in a fixed drive?");
    EXPECT_EQ(shown()[0].buttons, MessageButtons::yesNo);
    EXPECT_EQ(shown()[1].text, "Error writing to file.\r\nCheck if file is read-only and you have rights to "
                               "read/write to the playfile folder.");
    EXPECT_EQ(shown()[2].text, "Error writing to file. Maybe read-only.");
    EXPECT_EQ(playfile.CurrentFileName(), path_) << "remembered all the same, without that ending";
}

} // namespace
} // namespace qrtVistrelClasses4
