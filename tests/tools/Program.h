// The program as its user meets it: arguments in; output, messages and exit code out.
#pragma once

#include "TempFolder.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <sys/wait.h>

namespace qrtVistrelClasses4 {

inline std::string ContentOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// What a file of `expected/` holds.
inline std::string Expected(const std::string& name) { return ContentOf(VISTREL_EXPECTED_FOLDER "/" + name); }

struct Outcome {
    int exitCode = -1; ///< -1: ended by a signal.
    std::string out, err;
};

/// Runs the program on a copy of the samples, which also is its home. The user's own folder is an empty one.
class Program {
public:
    Program() {
        std::filesystem::copy(QRT_SAMPLES_FOLDER, home(), std::filesystem::copy_options::recursive);
        std::filesystem::create_directory(usersFolder());
    }

    std::string home() const { return folder_.file("home"); }
    std::string usersFolder() const { return folder_.file("user"); }
    std::string inHome(const std::string& name) const { return home() + "/" + name; }

    /// Runs it in its home with `arguments` as they are typed.
    Outcome run(const std::string& arguments) const { return runShell(line(arguments) + " > ../out"); }
    std::string line(const std::string& arguments) const {
        return "'" VISTREL_PROGRAM "' --home \"$PWD\" " + arguments;
    }
    /// Runs a shell command in its home; what it leaves in the file "out" beside that counts as output.
    Outcome runShell(const std::string& command) const {
        const std::string setUp =
            "cd '" + home() + "'; export HOME='" + usersFolder() + "' XDG_CONFIG_HOME= LC_ALL=C ;";
        const int status = std::system((setUp + command + " 2> ../err < /dev/null").c_str());
        return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, ContentOf(folder_.file("out")),
                ContentOf(folder_.file("err"))};
    }

private:
    TempFolder folder_;
};

} // namespace qrtVistrelClasses4
