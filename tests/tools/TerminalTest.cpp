// What the program prints on terminals of several kinds and widths.
#include "TempFolder.h"
#include "tools/program/Table.h"

#include <gtest/gtest.h>

#include <pty.h>
#include <regex>
#include <sstream>
#include <sys/wait.h>
#include <unistd.h>

namespace qrtVistrelClasses4 {
namespace {

/// What the shell's command prints on a terminal `columns` wide.
std::string shownOn(int columns, const std::string& command) {
    const winsize size{24, static_cast<unsigned short>(columns), 0, 0};
    int terminal = -1;
    const pid_t shell = ::forkpty(&terminal, nullptr, nullptr, &size);
    if (shell == 0) {
        ::execl("/bin/sh", "sh", "-c", command.c_str(), nullptr);
        ::_exit(1);
    }
    std::string shown(1 << 20, '\0');
    std::size_t length = 0;
    for (ssize_t count = 0; (count = ::read(terminal, shown.data() + length, shown.size() - length)) > 0;)
        length += static_cast<std::size_t>(count);
    ::waitpid(shell, nullptr, 0);
    ::close(terminal);
    return std::regex_replace(shown.substr(0, length), std::regex("\r\n"), "\n");
}

bool contains(const std::string& text, std::string_view part) { return text.find(part) != text.npos; }

/// The width of the widest line, and the note on a picture that did not fit, which may be wider.
std::pair<int, std::string> widthAndNote(const std::string& shown) {
    std::size_t widest = 0;
    std::string note;
    std::istringstream lines(std::regex_replace(shown, std::regex("\x1b\\[[0-9;]*m"), ""));
    for (std::string line; std::getline(lines, line);)
        if (contains(line, "to fit"))
            note = line;
        else
            widest = std::max(widest, WidthOf(line));
    return {static_cast<int>(widest), note};
}

TEST(Terminal, ShowsTablesAndPicturesInItsWidthAndColours) {
    const TempFolder folder;
    const std::string home = folder.file("home");
    std::filesystem::copy(QRT_SAMPLES_FOLDER, home, std::filesystem::copy_options::recursive);
    const std::string amber = "\x1b[33m";
    const struct {
        const char* why;
        std::string environment, options, color;
        bool isTerminal = true, hasSymbols = true;
    } kinds[] = {
        {"dumb", "TERM=dumb COLORTERM=truecolor LANG=C.UTF-8", "", "", true, false},
        {"16 colours", "TERM=xterm LANG=C.UTF-8", "", amber},
        {"256 colours", "TERM=screen-256color LC_CTYPE=en_GB.utf8", "", "\x1b[38;5;214m"},
        {"all", "TERM=xterm COLORTERM=truecolor LANG=C.UTF-8", "", "\x1b[38;2;255;170;0m"},
        {"one colour", "TERM=vt220 LANG=C.UTF-8", "", ""},
        {"colours refused", "TERM=xterm NO_COLOR=1 LANG=C.UTF-8", "", ""},
        {"never", "TERM=xterm LANG=C.UTF-8", "--color=never", ""},
        {"always", "TERM=xterm NO_COLOR=1 LANG=C.UTF-8", "--color=always", amber},
        {"no UTF-8", "TERM=xterm LANG=de_DE", "", amber, true, false},
        {"a pipe", "TERM=xterm LANG=C.UTF-8", "| cat", "", false, false},
        {"a pipe that takes colours", "TERM=xterm LANG=C.UTF-8", "--color=always | cat", amber, false},
        {"all of it", "TERM=xterm LANG=C.UTF-8", "--wide", amber, false},
    };
    for (const auto& kind : kinds)
        for (const int columns : {40, 80, 200}) {
            SCOPED_TRACE(std::string(kind.why) + ", " + std::to_string(columns));
            std::string command = "cd '" + home + "'; unset LC_ALL LC_CTYPE COLORTERM NO_COLOR; export " +
                                  kind.environment + " VISTREL_HOME=.\n";
            for (const char* arguments : {"signs list", "font show bin/6x8.cmd", "preview harbour.playfile"})
                command.append("'" VISTREL_PROGRAM "' 2> ../errors ").append(arguments).append(" ") +=
                    kind.options + "\n";
            const std::string shown = shownOn(columns, command);
            const auto [widest, note] = widthAndNote(shown);
            EXPECT_EQ(contains(shown, "\x1b"), !kind.color.empty());
            EXPECT_TRUE(contains(shown, kind.color));
            EXPECT_EQ(contains(shown, "▀"), kind.hasSymbols);
            EXPECT_TRUE(contains(shown, "256 x 64")) << "numbers are never cut";
            const bool isNarrow = kind.isTerminal && columns < 200;
            EXPECT_LE(widest, kind.isTerminal ? columns : 160);
            EXPECT_EQ(contains(shown, "555-0142:COM3:2400"), !isNarrow);
            EXPECT_EQ(contains(shown, "…"), isNarrow && kind.hasSymbols);
            EXPECT_EQ(note, !isNarrow ? ""
                            : columns == 80 && kind.hasSymbols
                                ? "Narrowed to fit the terminal: a character shows 2 x 2 dots"
                                : "Cut to fit the terminal: the left " +
                                      std::to_string(kind.hasSymbols ? 2 * columns : columns) +
                                      " of 160 dots are shown; --out draws them all");
        }
}

TEST(Terminal, ShowsABarWhileAFilmIsWritten) {
    const TempFolder home;
    std::filesystem::copy(QRT_SAMPLES_FOLDER, home.path(), std::filesystem::copy_options::recursive);
    const std::string write = "cd " + home.path() + " && " VISTREL_PROGRAM +
                              " --home . preview plant.playfile --seconds 20 --out plant.gif";
    const std::string shown = shownOn(80, write);
    EXPECT_TRUE(std::regex_search(shown, std::regex("\rplant.gif \\[#*\\.*\\] [0-9]+ %\x1b\\[K"))) << shown;
    EXPECT_TRUE(contains(shown, "\r\x1b[K")) << "it is gone in the end";
    EXPECT_FALSE(contains(shownOn(80, write + " --quiet"), "["));
    EXPECT_FALSE(contains(shownOn(80, write + " 2> errors"), "["));
}

} // namespace
} // namespace qrtVistrelClasses4
