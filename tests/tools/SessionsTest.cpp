// The program as users see it: commands that are typed in a shell, and their output, as "sessions" shows
// them.
#include "TempFolder.h"

#include <gtest/gtest.h>
#include <lodepng.h>

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <regex>
#include <sstream>
#include <sys/wait.h>
#include <utility>
#include <vector>

namespace qrtVistrelClasses4 {
namespace {

std::string contentOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// The sessions that the page of a command shows, without the text around them.
std::string sessionsIn(const std::string& page) {
    std::istringstream lines(page);
    std::string sessions;
    bool isShown = false;
    for (std::string line; std::getline(lines, line);)
        if (line == "```console" || line == "```")
            isShown = line != "```";
        else if (isShown)
            sessions += line + "\n";
    return sessions;
}

/// The command that runs the program for Windows, if that is to be tested: VISTREL_FOR_WINDOWS.
std::string commandForWindows() {
    const char* const command = std::getenv("VISTREL_FOR_WINDOWS");
    return command ? command : "";
}

/// A text with the separators of Windows paths, double ones of JSON, too, as POSIX has them. Wine's drive Z:
/// is the whole file system.
std::string withPosixPaths(const std::string& text) {
    static const std::regex separator(R"((Z:)?[\\/]\\?)");
    return std::regex_replace(text, separator, "/");
}

/// Runs on a copy of the samples, which usually is its home ("~"). The user's own folder is an empty one.
class Program {
public:
    /// `vistrel` is the shell's command for the program.
    explicit Program(std::string vistrel = commandForWindows().empty()
                                               ? "'" VISTREL_PROGRAM R"(' --home "$PWD")"
                                               : commandForWindows() + R"( --home "Z:$PWD")")
        : vistrel_(std::move(vistrel)) {
        std::filesystem::copy(QRT_SAMPLES_FOLDER, home(), std::filesystem::copy_options::recursive);
        std::filesystem::create_directory(folder_.file("user"));
    }

    /// Runs the commands of a session in a file, which start with "$ ". The text under each command must be
    /// what the command prints: output, errors, and the exit code unless it is 0. A command of the program
    /// that only prints an error takes one line: "! CODE ARGUMENTS -> ERROR". Lines that start with "# " are
    /// remarks, and those that start with "[POSIX] " or "[Windows] " hold only there.
    void play(const std::string& file) const {
        const std::string content = contentOf(file);
        std::istringstream lines(file.ends_with(".md") ? sessionsIn(content) : content);
        ASSERT_FALSE(lines.str().empty()) << file;
        std::string line, command = ":", wanted; // which does nothing
        const auto runLast = [&] { EXPECT_EQ(run(command), shown(std::exchange(wanted, ""))) << command; };
        while (std::getline(lines, line)) {
            if (const auto [here, other] = systems(); line.starts_with(other))
                continue;
            else if (line.starts_with(here))
                line.erase(0, here.size());
            if (line.starts_with("$ ")) {
                runLast();
                command = line.substr(2);
            } else if (const std::size_t arrow = line.find(" -> "); line.starts_with("! ")) {
                runLast();
                command = "vistrel " + line.substr(4, arrow - 4);
                wanted = "vistrel: " + line.substr(arrow + 4) + "\n[" + line[2] + "]\n";
            } else if (!line.starts_with("# ") && (!line.empty() || lines.peek() != '#')) {
                wanted += line + "\n";
            }
        }
        runLast();
    }

    /// What the commands print, errors included, and the exit code unless it is 0.
    std::string run(const std::string& command) const {
        const std::string script =
            "cd '" + home() + "'; export HOME='" + folder_.file("user") +
            R"sh(' XDG_CONFIG_HOME= XDG_DATA_HOME= XDG_STATE_HOME= VISTREL_HOME= LC_ALL=C
                vistrel() { )sh" +
            vistrel_ +
            R"sh( "$@"; }
                native() { ')sh" VISTREL_PROGRAM R"sh(' --home "$PWD" "$@"; }
                names() { # the first letters of the frames of a playfile
                    vistrel show "$1" --json | sed -n 's/.*"FrameName": "\(.*\)",/\1-/p' | cut -c 1 | tr -d '\n'
                    echo
                }
                { )sh" +
            command + "\n} > ../out 2>&1 < /dev/null";
        const int status = std::system(script.c_str());
        std::string out = shown(contentOf(folder_.file("out")));
        for (const auto& [folder, name] : {std::pair{home(), "~"}, {folder_.path(), ".."}})
            for (std::size_t at = 0; (at = out.find(folder, at)) != out.npos;)
                out.replace(at, folder.size(), name);
        const std::string code = WIFEXITED(status) ? std::to_string(WEXITSTATUS(status)) : "crashed";
        return code == "0" ? out : out + "[" + code + "]\n";
    }

    /// The path of a file beside the home.
    std::string file(const std::string& name) const { return folder_.file(name); }

private:
    std::string home() const { return file("home"); }

    /// What lines for the system of the program start with, and those for the other one.
    std::pair<std::string_view, std::string_view> systems() const {
        constexpr std::string_view posix = "[POSIX] ", windows = "[Windows] ";
        return isForWindows_ ? std::pair(windows, posix) : std::pair(posix, windows);
    }
    std::string shown(const std::string& text) const { return isForWindows_ ? withPosixPaths(text) : text; }

    bool isForWindows_ = !commandForWindows().empty();
    std::string vistrel_;
    TempFolder folder_;
};

class Session : public testing::TestWithParam<std::filesystem::path> {};

TEST_P(Session, RunsAsItIsWritten) { Program().play(GetParam().string()); }

std::vector<std::filesystem::path> filesIn(const char* folder, std::string_view except = {}) {
    std::vector<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::directory_iterator(folder))
        if (entry.path().filename() != except)
            files.push_back(entry.path());
    std::ranges::sort(files);
    return files;
}

const auto kStemOfFile = [](const auto& file) { return file.param.stem().string(); };
INSTANTIATE_TEST_SUITE_P(Of, Session, testing::ValuesIn(filesIn(VISTREL_SESSIONS_FOLDER, "installed.txt")),
                         kStemOfFile);
INSTANTIATE_TEST_SUITE_P(OfThePageOf, Session, testing::ValuesIn(filesIn(VISTREL_PAGES_FOLDER)), kStemOfFile);

TEST(Installed, WorksForAUserWhoMayNotWriteWhereItLies) {
    // As root, another user runs it.
    const Program program("$(test $(id -u) != 0 || echo setpriv --reuid 65534 --regid 65534 --clear-groups) "
                          "../installed/bin/vistrel");
    ASSERT_EQ(program.run(VISTREL_INSTALL " ../installed > /dev/null; chmod -R a-w ../installed\n"
                                          "test $(id -u) != 0 || chown 65534 . ../user"),
              "");
    program.play(VISTREL_SESSIONS_FOLDER "/installed.txt");
}

/// The examples of a document as one script, and what it prints. One without output may print anything. What
/// follows "  <- " explains a line of the output.
std::pair<std::string, std::string> examplesOf(const std::string& document) {
    std::ifstream lines(QRT_SAMPLES_FOLDER "/../" + document);
    std::string script, output, command, shown, blank;
    bool isFenced = false;
    const auto endExample = [&] {
        // An example that shows an error must also end with one.
        if (!command.empty())
            script +=
                std::exchange(command, "") + (shown.empty() ? " > /dev/null" : "") +
                (shown.find("vistrel: ") == std::string::npos ? " || echo failed\n" : " && echo done\n");
        output += std::exchange(shown, "");
    };
    for (std::string line; std::getline(lines, line); blank = line.empty() ? "\n" : "") {
        isFenced ^= line.starts_with("```");
        if (const bool isExample = line.starts_with("    $ ") && !isFenced;
            isExample || (!line.empty() && !line.starts_with("    "))) {
            endExample();
            command = isExample ? line.substr(6, line.find(" # ") - 6) : "";
        } else if (!line.empty() && !command.empty()) {
            shown += blank + line.substr(4, line.find("  <- ") - 4);
            shown.resize(shown.find_last_not_of(' ') + 1);
            shown += '\n';
        }
    }
    endExample();
    return {script, output};
}

std::vector<unsigned char> pixelsOf(const std::string& picture) {
    std::vector<unsigned char> pixels;
    unsigned width = 0, height = 0;
    EXPECT_EQ(lodepng::decode(pixels, width, height, picture), 0U) << picture;
    return pixels;
}

class Document : public testing::TestWithParam<std::string> {};

TEST_P(Document, ShowsWhatItsExamplesMakeAndLeavesTheCheckoutAsItWas) {
    const auto [script, output] = examplesOf(GetParam());
    if (script.find("git ") != std::string::npos && std::system("git --version > /dev/null 2>&1") != 0)
        GTEST_SKIP() << "git is not installed";
    const Program program;
    EXPECT_EQ(program.run("unset -f vistrel; PATH=\"$(dirname '" VISTREL_PROGRAM "'):$PATH\"\n"
                          "mkdir ../checkout; cp -r . ../checkout/samples; cd ../checkout\n"
                          "ls -lR --full-time > ../before\n" +
                          script + "cd ../checkout; ls -lR --full-time | diff ../before -"),
              output);
    for (const auto& entry : std::filesystem::directory_iterator(QRT_SAMPLES_FOLDER "/../docs/pictures")) {
        const std::string made = program.file("site/" + entry.path().filename().string());
        EXPECT_TRUE(!std::filesystem::exists(made) || pixelsOf(made) == pixelsOf(entry.path())) << made;
    }
}

/// The documents that have examples.
std::vector<std::string> documents() {
    std::vector<std::string> names;
    for (const std::string folder : {"", "docs/", "docs/formats/"})
        for (const auto& entry : std::filesystem::directory_iterator(QRT_SAMPLES_FOLDER "/../" + folder))
            if (entry.path().extension() == ".md")
                names.push_back(folder + entry.path().filename().string());
    std::erase_if(names, [](const std::string& name) { return examplesOf(name).first.empty(); });
    return names;
}

INSTANTIATE_TEST_SUITE_P(Of, Document, testing::ValuesIn(documents()), [](const auto& document) {
    std::string name = document.param;
    std::replace_if(
        name.begin(), name.end(), [](char letter) { return std::isalnum(letter) == 0; }, '_');
    return name;
});

} // namespace
} // namespace qrtVistrelClasses4
