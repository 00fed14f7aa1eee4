#include "tools/program/Program.h"

#include "platform/Platform.h"
#include "tools/program/Commands.h"
#include "tools/program/ValueKinds.h"

#include <qrtVistrelClasses4/Version.h>

namespace qrtVistrelClasses4 {
namespace {

/// Why `path` cannot be a home; empty if it can.
std::string faultOfHome(const std::string& path) {
    switch (platform().files().kindOf(path)) {
    case EntryKind::folder:
        return {};
    case EntryKind::missing:
        return "there is no folder " + path;
    default:
        return path + " is not a folder";
    }
}

} // namespace

std::unique_ptr<CLI::App> MakeProgram(ProgramOptions& options) {
    auto program = std::make_unique<CLI::App>(
        "Shows and changes playfiles, the list of signs, commands and settings of LED message signs",
        "vistrel");
    program->formatter(std::make_shared<HelpWithExample>("vistrel show harbour.playfile"));
    program->require_subcommand(1);
    program->allow_windows_style_options(false); // "/signs/a" is a file on every system
    AddCommands(*program);
    program->set_version_flag("--version", "vistrel " + std::string(kVersion),
                              "Prints the program's version and exits");
    program
        ->add_option(
            "--home", options.home,
            "Folder that holds settings, INI files and fonts, in place of the system's and the user's own")
        ->envname("VISTREL_HOME")
        ->type_name(kFolderValue)
        ->check(CLI::Validator(&faultOfHome, ""));
    AddScreenOptions(*program, options.screen);
    return program;
}

} // namespace qrtVistrelClasses4
