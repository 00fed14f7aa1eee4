// vistrel recent: the files opened last.
#include "settings/RecentFiles.h"
#include "tools/program/Commands.h"
#include "tools/program/Encoding.h"
#include "tools/program/JsonText.h"
#include "tools/program/PropertyValues.h"

#include <optional>

namespace qrtVistrelClasses4 {
namespace {

struct RecentOptions {
    bool json = false;
    std::string name;
};

/// The list as it is on the disk; what is wrong with it is reported.
RecentFilesOutcome loadList(ErrorLines& errors) {
    errors.about("the list of recent files");
    const std::optional<std::string> path = RecentFilesPath();
    RecentFilesOutcome list = path ? LoadRecentFiles(*path) : RecentFilesOutcome();
    if (list.error)
        errors.add(*list.error);
    return list;
}

void printList(const RecentFiles& files, bool json, std::ostream& out) {
    auto names = nlohmann::ordered_json::array();
    for (const std::string& name : files.entries)
        if (!name.empty())
            names.push_back(Utf8FromAnsi(name));
    if (json)
        out << JsonText(names) << '\n';
    else if (names.empty())
        out << "No files\n";
    else
        for (const nlohmann::ordered_json& name : names)
            out << CellText(name) << '\n';
}

ExitCode list(const RecentOptions& options, Session& session) {
    printList(loadList(session.errors).files, options.json, session.out);
    return ExitCode::done;
}

/// The typed name; nothing, after the reason has been reported, if the list cannot hold it.
std::optional<std::string> typedName(const RecentOptions& options, ErrorLines& errors) {
    errors.about(options.name);
    std::optional<std::string> name = AnsiFromTyped(options.name, errors);
    if (!name)
        return std::nullopt;
    if (name->empty())
        errors.add("a file needs a name");
    else if (name->find('"') != name->npos)
        errors.add("the list of recent files cannot hold quotes");
    else
        return name;
    return std::nullopt;
}

/// Saves and prints the list that `change(files, name)` makes; it returns false if it cannot.
template <class Change>
ExitCode changeList(const RecentOptions& options, Session& session, Change change) {
    const std::optional<std::string> name = typedName(options, session.errors);
    if (!name)
        return ExitCode::wrongUsage;
    RecentFilesOutcome list = loadList(session.errors);
    if (list.mayBeReplaced) {
        if (!change(list.files, *name))
            return ExitCode::failed;
        if (const std::optional<RuntimeError> error = SaveRecentFiles(list.files)) {
            session.errors.add(*error);
            return ExitCode::failed;
        }
    }
    printList(list.files, options.json, session.out);
    return ExitCode::done;
}

ExitCode add(const RecentOptions& options, Session& session) {
    return changeList(options, session, [](RecentFiles& files, const std::string& name) {
        files.remove(name);
        files.putFirst(name);
        return true;
    });
}

ExitCode remove(const RecentOptions& options, Session& session) {
    return changeList(options, session, [&](RecentFiles& files, const std::string& name) {
        if (files.remove(name))
            return true;
        session.errors.about(options.name);
        session.errors.add("the list of recent files has no such name");
        return false;
    });
}

} // namespace

void AddRecentCommand(CLI::App& program, Session& session) {
    const auto options = std::make_shared<RecentOptions>();
    CLI::App& recent = AddCommand(program, "recent", "Shows and changes the list of the files opened last",
                                  "vistrel recent list");
    recent.require_subcommand(1);
    recent.add_flag("--json", options->json, "Prints an array of names");
    const auto addOne = [&](const char* name, auto run, const char* description, const char* example) {
        CLI::App& command = AddCommand(recent, name, description, example);
        command.callback([run, options, &session] {
            session.command = [run, options, &session] { return run(*options, session); };
        });
        return &command;
    };
    addOne("list", &list, "Shows the names, the newest first", "vistrel recent list --json");
    addOne("add", &add, "Puts a name in front, and shows the list", "vistrel recent add harbour.playfile")
        ->add_option("NAME", options->name, "Name of a file, which need not exist")
        ->required();
    addOne("remove", &remove, "Takes a name out, and shows the list",
           "vistrel recent remove harbour.playfile")
        ->add_option("NAME", options->name, "The name, in any case")
        ->required();
}

} // namespace qrtVistrelClasses4
