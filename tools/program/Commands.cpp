#include "tools/program/Commands.h"

namespace qrtVistrelClasses4 {
namespace {

/// In the order of the program's help.
constexpr Command kCommands[] = {
    {"show", "Shows the frames of a playfile", "vistrel show harbour.playfile --frame 2", &SetUpShowCommand},
    {"save", "Opens a playfile and saves it under another name",
     "vistrel save harbour.playfile pier.playfile", &SetUpSaveCommand},
    {"export", "Writes the frames of a playfile as XML for other tools",
     "vistrel export harbour.playfile --out harbour", &SetUpExportCommand},
    {"preview", "Shows frames of a playfile as a sign does",
     "vistrel preview harbour.playfile --sheet --out harbour.png", &SetUpPreviewCommand},
    {"frames", "Inserts, deletes, moves and copies frames of a playfile",
     "vistrel frames harbour.playfile move 2 5 --out new.playfile", &SetUpFramesCommand},
    {"convert", "Saves playfiles of the older format (PL2) as current ones",
     "vistrel convert old/*.PL2 --to new", &SetUpConvertCommand},
    {"inspect", "Shows the records of a playfile of the older format (PL2) as they are",
     "vistrel inspect lobby.PL2", &SetUpInspectCommand},
    {"signs", "Shows and changes the list of signs of a site",
     "vistrel signs set \"Pier 1\" DisplayWidth=192", &SetUpSignsCommand},
    {"commands", "Shows and changes the table of the sign's commands", "vistrel commands set \"##BELL\" 07",
     &SetUpCommandsCommand},
    {"text", "Shows and converts the codes in texts", "vistrel text preview \"It is |h:m|\"",
     &SetUpTextCommand},
    {"recent", "Shows and changes the list of the files opened last", "vistrel recent list",
     &SetUpRecentCommand},
    {"settings", "Shows and changes the application's preferences", "vistrel settings set DisplayHeight 32",
     &SetUpSettingsCommand},
    {"effects", "Shows the effect codes, and which of them lists offer now", "vistrel effects --home site",
     &SetUpEffectsCommand},
    {"font", "Shows, makes and checks the fonts of signs", "vistrel font show bin/6x8.cmd",
     &SetUpFontCommand},
};

void SetHelpFlag(CLI::App& command) {
    command.set_help_flag("-h,--help", "Print this help message and exit");
}

} // namespace

void AddCommands(CLI::App& program, Session& session) {
    // A new command copies the help flag of its parent. That takes most of its time, and one needs it.
    program.set_help_flag();
    for (const Command& row : kCommands) {
        CLI::App* command = program.add_subcommand(row.name, row.description);
        command->preparse_callback([&row, command, &session](std::size_t) {
            SetHelpFlag(*command);
            SetUpCommon(*command, row.example);
            row.setUp(*command, session);
        });
    }
    SetHelpFlag(program);
}

} // namespace qrtVistrelClasses4
