#include "tools/program/Commands.h"

#include <algorithm>
#include <iterator>

namespace qrtVistrelClasses4 {
namespace {

constexpr const char* kLook = "Look at playfiles";
constexpr const char* kChange = "Change playfiles";
constexpr const char* kConvert = "Convert and export";
constexpr const char* kSigns = "Signs, texts and fonts";
constexpr const char* kSettings = "Settings and help";

/// In the order of the program's help.
constexpr Command kCommands[] = {
    {kLook, "show", "Shows the frames of a playfile", "vistrel show harbour.playfile --frame 2",
     &SetUpShowCommand},
    {kLook, "check", "Finds what is wrong with playfiles before they are sent",
     "vistrel check harbour.playfile --sign \"Pier 1\"", &SetUpCheckCommand},
    {kLook, "preview", "Shows frames of a playfile as a sign does",
     "vistrel preview harbour.playfile --sheet --out harbour.png", &SetUpPreviewCommand},
    {kLook, "time", "Works out how long a sign takes to show playfiles",
     "vistrel time harbour.playfile --sign \"Pier 1\" --steps", &SetUpTimeCommand},
    {kLook, "find", "Finds a text in the lines of playfiles", "vistrel find ferry *.playfile --ignore-case",
     &SetUpFindCommand},
    {kLook, "diff", "Compares two playfiles", "vistrel diff old.playfile harbour.playfile",
     &SetUpDiffCommand},
    {kLook, "inspect", "Shows the records of a playfile of the older format (PL2) as they are",
     "vistrel inspect lobby.PL2", &SetUpInspectCommand},
    {kLook, "effects", "Shows the effect codes, and which of them lists offer now",
     "vistrel effects --home site", &SetUpEffectsCommand},
    {kChange, "frames", "Changes, adds, inserts, deletes, moves and copies frames",
     "vistrel frames harbour.playfile move 2 5 --out new.playfile", &SetUpFramesCommand},
    {kChange, "lines", "Changes, inserts, deletes and moves lines of frames",
     "vistrel lines harbour.playfile set 1 2 \"Text=Gate 2\"", &SetUpLinesCommand},
    {kChange, "replace", "Replaces a text in the lines of playfiles by another",
     "vistrel replace 555-0142 555-0199 *.playfile --whole-word --dry-run", &SetUpReplaceCommand},
    {kChange, "new", "Makes a playfile with one frame",
     "vistrel new notice.playfile DelayTime=5 \"Text=Gate 2 is closed\"", &SetUpNewCommand},
    {kChange, "save", "Opens a playfile and saves it under another name",
     "vistrel save harbour.playfile pier.playfile", &SetUpSaveCommand},
    {kConvert, "convert", "Saves playfiles of the older format (PL2) as current ones",
     "vistrel convert old/*.PL2 --to new", &SetUpConvertCommand},
    {kConvert, "export", "Writes the frames of a playfile as XML for other tools",
     "vistrel export harbour.playfile --out harbour", &SetUpExportCommand},
    {kConvert, "make", "Makes playfiles from JSON, the counterpart of \"show --json\"",
     "vistrel make frames.json --out new.playfile", &SetUpMakeCommand},
    {kSigns, "signs", "Shows and changes the list of signs of a site",
     "vistrel signs set \"Pier 1\" DisplayWidth=192", &SetUpSignsCommand},
    {kSigns, "commands", "Shows and changes the table of the sign's commands",
     "vistrel commands set \"##BELL\" 07", &SetUpCommandsCommand},
    {kSigns, "text", "Shows and converts the codes in texts", "vistrel text preview \"It is |h:m|\"",
     &SetUpTextCommand},
    {kSigns, "font", "Shows, makes and checks the fonts of signs", "vistrel font show bin/6x8.cmd",
     &SetUpFontCommand},
    {kSettings, "settings", "Shows and changes the application's preferences",
     "vistrel settings set DisplayHeight 32", &SetUpSettingsCommand},
    {kSettings, "recent", "Shows and changes the list of the files opened last", "vistrel recent list",
     &SetUpRecentCommand},
    {kSettings, "doctor", "Examines this machine: rights, stores, fonts, registered servers",
     "vistrel doctor", &SetUpDoctorCommand},
    {kSettings, "completion", "Prints the script that makes a shell complete what is typed",
     "vistrel completion bash", &SetUpCompletionCommand},
    {kSettings, "help", "Explains a command", "vistrel help frames insert", &SetUpHelpCommand},
};

void SetHelpFlag(CLI::App& command) { command.set_help_flag("-h,--help", "Prints this help and exits"); }

} // namespace

void AddCommands(CLI::App& program) {
    // A new command copies the help flag of its parent. That takes most of its time, and one needs it.
    program.set_help_flag();
    for (const Command& row : kCommands)
        program.add_subcommand(row.name, row.description)->group(row.task);
    SetHelpFlag(program);
}

std::vector<std::string> NamesOfCommands() {
    std::vector<std::string> names;
    std::ranges::transform(kCommands, std::back_inserter(names), &Command::name);
    return names;
}

CLI::App* SetUpCommand(CLI::App& program, const std::string& name, Session& session) {
    const auto* const row =
        std::ranges::find_if(kCommands, [&](const Command& each) { return each.name == name; });
    if (row == std::end(kCommands))
        return nullptr;
    CLI::App* const command = program.get_subcommand(name);
    const bool isSetUp = command->get_formatter() != program.get_formatter(); // it has its own help then
    if (!isSetUp) {
        SetHelpFlag(*command);
        SetUpCommon(*command, row->example);
        row->setUp(*command, session);
    }
    return command;
}

} // namespace qrtVistrelClasses4
