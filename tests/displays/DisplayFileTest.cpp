// Reading the list of signs.
#include "DisplayTesting.h"
#include "settings/RegistrySettings.h"

#include <algorithm>
#include <random>

namespace qrtVistrelClasses4 {
namespace {

class DisplayFile : public DisplaysTest {
protected:
    /// The list as it is written, even if damage has left its last record without a name.
    std::string savedWhole() {
        for (int last = 4; last > 1 && displays_.TotalDisplays() == 0; --last) {
            displays_.CurrentDisplayNumber(static_cast<std::int16_t>(last));
            displays_.DisplayName("damaged");
        }
        host_.reports.all.clear();
        return saved();
    }
};

TEST_F(DisplayFile, ComesBackByteForByteWhateverTheTextsHold) {
    std::mt19937 random(20010203);
    const auto randomValue = [&]<class Value>(Value, int line) {
        if constexpr (std::is_same_v<Value, std::string>) {
            std::string text(1 + random() % 40, ' ');
            for (char& character : text)
                do
                    character = static_cast<char>(random());
                while (character == '"' || character == '\r' || character == '\n');
            return text;
        } else if constexpr (std::is_same_v<Value, bool>) {
            return random() % 2 != 0;
        } else {
            return line == 19 ? Value(32767) : static_cast<Value>(random() | 1); // so that nothing is mended
        }
    };
    std::vector<Texts> signs;
    for (int count = 0; count < 200; ++count)
        signs.push_back(linesOf(randomValue));
    load(fileText(signs));
    EXPECT_EQ(displays_.TotalDisplays(), 200);
    EXPECT_EQ(saved(), fileText(signs));
    EXPECT_TRUE(host_.reports.all.empty());
}

TEST_F(DisplayFile, IsMendedWhereOldFilesLeaveValuesEmpty) {
    const struct {
        const char* why;
        std::vector<std::pair<int, const char*>> given; ///< Line and value.
        int line;
        const char* mended;
    } cases[] = {
        {"an unset maximum", {{18, "0"}, {19, "0"}}, 19, "9"},
        {"then one below the minimum", {{18, "12"}, {19, "0"}}, 19, "12"},
        {"a maximum below the minimum", {{18, "12"}, {19, "11"}}, 19, "12"},
        {"a negative maximum", {{18, "-4"}, {19, "-5"}}, 19, "-4"},
        {"a maximum at the minimum", {{18, "3"}, {19, "3"}}, 19, "3"},
        {"an unset minimum is none", {{18, "0"}, {19, "5"}}, 18, "0"},
        {"no port in the network", {{22, "\"\""}, {24, "2"}}, 22, "\"3001\""},
        {"a negative port", {{22, "\"-1\""}, {24, "2"}}, 22, "\"3001\""},
        {"a serial port in the network", {{22, "\"COM1\""}, {24, "2"}}, 22, "\"3001\""},
        {"a port with a text behind it", {{22, "\" 80 x\""}, {24, "2"}}, 22, "\" 80 x\""},
        {"by modem", {{22, "\"\""}, {24, "3"}}, 22, "\"\""},
        {"blink on-time", {{29, "0"}}, 29, "600"},
        {"blink off-time", {{30, "0"}}, 30, "400"},
        {"negative blink times stay", {{30, "-1"}}, 30, "-1"},
    };
    for (const auto& row : cases) {
        Texts lines = displayLines(1);
        for (const auto& [line, value] : row.given)
            lines.at(line - 1) = value;
        load(fileText({lines}));
        lines.at(row.line - 1) = row.mended;
        EXPECT_EQ(saved(), fileText({lines})) << row.why;
    }
    EXPECT_TRUE(host_.reports.all.empty());
}

TEST_F(DisplayFile, KeepsTheSignsBeforeAByteThatIsMissing) {
    const std::string one = fileText({displayLines(0)});
    const std::string whole = fileText({displayLines(0), displayLines(1)});
    for (std::size_t size = 0; size <= whole.size(); ++size) {
        load(whole.substr(0, size));
        const Numbers errors = host_.reports.takeNumbers();
        // Only the line end of the last value can be missing without loss.
        if (size == 0 || (size + 2 >= one.size() && size <= one.size()) || size + 2 >= whole.size())
            EXPECT_EQ(errors, Numbers()) << size;
        else
            EXPECT_TRUE(errors == Numbers{62} || errors == Numbers{13}) << size;
        if (size > one.size()) {
            ASSERT_EQ(savedWhole().substr(0, one.size()), one) << size;
        }
    }
    EXPECT_EQ(saved(), whole);
}

TEST_F(DisplayFile, KeepsTheSignsBeforeALineThatIsDamaged) {
    const Texts second = displayLines(1);
    const std::string one = fileText({displayLines(0)});
    const char* const damages[] = {"",     "x",     "\"", "\"a",          "\"6\" sign\"", ",",    ",,,", " ",
                                   "1e99", "70000", "-",  "\"\"\"\"\"\"", "#TRUE",        "\xFF", "1\r2"};
    for (std::size_t line = 0; line < second.size(); ++line)
        for (const char* damage : damages) {
            SCOPED_TRACE(std::to_string(line + 1) + ": " + damage);
            Texts lines = second;
            lines[line] = damage;
            load(one + fileText({lines, displayLines(2)}));
            for (const int number : host_.reports.takeNumbers())
                EXPECT_TRUE(number == 6 || number == 13 || number == 62) << number;
            ASSERT_EQ(savedWhole().substr(0, one.size()), one);
        }
}

TEST_F(DisplayFile, FillsARecordAsFarAsItCanBeRead) {
    const struct {
        const char* why;
        int line;
        const char* value;
        int error;
    } cases[] = {{"no number", 13, "\"x\"", 13},
                 {"too large for 16 bits", 13, "32768", 6},
                 {"too large for 32 bits", 12, "2147483648", 6},
                 {"an empty line", 30, "", 13},
                 {"a text without end", 48, "\"12:00", 62}};
    for (const auto& row : cases) {
        SCOPED_TRACE(row.why);
        loadSigns(3);
        Texts lines = displayLines(4);
        lines.at(row.line - 1) = row.value;
        load(fileText({displayLines(0), lines}));
        EXPECT_EQ(host_.reports.all.at(0).procedure.procedure, "Sub RetrieveAllDisplayInfoFromDisk");
        EXPECT_EQ(host_.reports.takeNumbers(), Numbers{row.error});
        EXPECT_EQ(displays_.TotalDisplays(), 2);
        Texts filled = linesOf([](auto value, int) { return value; }); // blank
        std::copy_n(lines.begin(), row.line - 1, filled.begin());
        EXPECT_EQ(saved(), fileText({displayLines(0), filled}));
    }
}

TEST_F(DisplayFile, LeavesTheListAloneWithoutARecord) {
    loadSigns(3);
    displays_.CurrentDisplayNumber(7);
    load("");
    EXPECT_TRUE(host_.reports.all.empty());
    (void)files().remove(path_);
    std::string fileName = "Displays.dat";
    displays_.RetrieveAllDisplayInfoFromDisk(fileName);
    EXPECT_EQ(fileName, path_);
    fileName = JoinPath("nowhere", "Displays.dat");
    displays_.RetrieveAllDisplayInfoFromDisk(fileName);
    EXPECT_EQ(host_.reports.takeNumbers(), (Numbers{53, 76}));
    EXPECT_EQ(displays_.TotalDisplays(), 3);
    EXPECT_EQ(displays_.CurrentDisplayNumber(), 7);
    EXPECT_EQ(saved(), fileText({displayLines(0), displayLines(1), displayLines(2)}));
    loadSigns(2);
    EXPECT_EQ(displays_.TotalDisplays(), 2) << "a shorter list takes the place of a longer one";
    load(fileText({displayLines(0)}) + "\r\n");
    EXPECT_EQ(host_.reports.takeNumbers(), Numbers{62}) << "an empty line begins a record";
    EXPECT_EQ(displays_.TotalDisplays(), 0) << "whose name it is";
    EXPECT_EQ(nameOf(1), displayValue<std::string>(0, 1));
}

TEST_F(DisplayFile, HoldsAsManySignsAsCanBeNumbered) {
    load(fileText(std::vector<Texts>(32768, Texts(kLinesOfADisplay, "1"))));
    EXPECT_EQ(displays_.TotalDisplays(), 32767);
    EXPECT_EQ(displays_.AddNewDisplay("new"), 0);
    EXPECT_EQ(displays_.Duplicate("1", "new"), 0);
    EXPECT_EQ(host_.reports.takeNumbers(), (Numbers{6, 6, 6}));
    EXPECT_EQ(displays_.FindDisplayByName("new"), -1);
    EXPECT_EQ(nameOf(32767), "#1");
    EXPECT_FALSE(displays_.RemoveDisplay(32767));
    EXPECT_EQ(displays_.AddNewDisplay("new"), 32767);
    const std::string all = saved();
    EXPECT_EQ(std::ranges::count(all, '\n'), 32767 * kLinesOfADisplay);
    EXPECT_TRUE(host_.reports.all.empty() && host_.machine.messageBoxes().shown.empty());
}

TEST_F(DisplayFile, IsReadFromWhereTheSettingPointsAndWrittenBesideTheLibrary) {
    const auto setting = [] { return ReadSetting("VistrelLite", "Preview", "DisplayDataFile", "none"); };
    const std::string elsewhere = JoinPath(host_.inLibrary("network"), "signs.dat");
    files().put(path_, fileText({displayLines(1)}));
    files().put(elsewhere, fileText({displayLines(0)}));
    WriteSetting("VistrelLite", "Preview", "DisplayDataFile", elsewhere);
    KeptTrace trace;
    const ScopedTraceRecorder scope(trace);
    std::string fileName = "Displays.dat";
    displays_.RetrieveAllDisplayInfoFromDisk(fileName);
    EXPECT_EQ(fileName, elsewhere);
    EXPECT_EQ(trace.lines.front(), "> Sub RetrieveAllDisplayInfoFromDisk (sFileName=Displays.dat)");
    EXPECT_EQ(trace.lines.back(), "< Sub RetrieveAllDisplayInfoFromDisk (sFileName=" + elsewhere + ")");
    displays_.RetrieveAllDisplayInfoFromDisk();
    EXPECT_EQ(trace.lines.back(), "< Sub RetrieveAllDisplayInfoFromDisk (sFileName=<Missing>)");
    EXPECT_EQ(setting(), elsewhere);
    files().put(elsewhere, "untouched");
    fileName = "Displays.dat";
    displays_.WriteAllDisplaysToDisk(fileName);
    EXPECT_EQ(fileName, path_);
    EXPECT_EQ(trace.lines.back(), "< Sub WriteAllDisplaysToDisk (sFileName=" + path_ + ")");
    EXPECT_EQ(setting(), path_);
    EXPECT_EQ(files().content(path_), fileText({displayLines(0)}));
    EXPECT_EQ(files().content(elsewhere), "untouched");
}

} // namespace
} // namespace qrtVistrelClasses4
