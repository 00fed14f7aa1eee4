// What the files in "sessions" show is what the program does.
#include "Program.h"

namespace qrtVistrelClasses4 {
namespace {

class Session : public testing::TestWithParam<const char*> {};

TEST_P(Session, RunsAsItIsWritten) { Program().play(GetParam()); }

INSTANTIATE_TEST_SUITE_P(Of, Session,
                         testing::Values("commands", "fonts", "frames", "older", "preview", "refusals",
                                         "settings", "show", "signs"),
                         [](const auto& session) { return std::string(session.param); });

/// The examples of the README as one script, and what it prints. One without output may print anything.
std::pair<std::string, std::string> examples() {
    std::ifstream readme(QRT_SAMPLES_FOLDER "/../README.md");
    std::string script, output, command = ":", shown, blank;
    const auto endExample = [&] {
        // An example that shows an error also ends with one.
        script += command + (shown.empty() ? " > /dev/null" : "") +
                  (shown.find("vistrel: ") == std::string::npos ? " || echo failed\n" : "\n");
        output += std::exchange(shown, "");
    };
    for (std::string line; std::getline(readme, line) && line != "## From C++";) {
        if (line.starts_with("    $ ")) {
            endExample();
            command = line.substr(6, line.find(" # ") - 6);
        } else if (line.starts_with("    ") && command != ":") {
            shown += blank + line.substr(4) + "\n";
        }
        blank = line.empty() ? "\n" : "";
    }
    endExample();
    return {script, output};
}

TEST(Readme, ShowsWhatItsExamplesPrintAndLeavesTheCheckoutAsItWas) {
    const auto [script, output] = examples();
    EXPECT_EQ(Program().run("unset -f vistrel; PATH=\"$(dirname '" VISTREL_PROGRAM "'):$PATH\"\n"
                            "mkdir ../checkout; cp -r . ../checkout/samples; cd ../checkout\n"
                            "ls -lR --full-time > ../before\n" +
                            script + "cd ../checkout; ls -lR --full-time | diff ../before -"),
              output);
}

} // namespace
} // namespace qrtVistrelClasses4
