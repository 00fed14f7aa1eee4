// vistrel recent: the files opened last.
#include "tools/program/Commands.h"
#include "tools/program/Encoding.h"
#include "tools/program/JsonText.h"
#include "tools/program/PropertyValues.h"
#include <qrtVistrelClasses4/RecentFiles.h>

#include <optional>

namespace qrtVistrelClasses4 {
namespace {

struct RecentOptions {
    bool json = false;
    std::string name;
};

/// The list on disk. Anything wrong with it is reported.
RecentFilesOutcome loadList(ErrorLines& errors) {
    errors.about("the list of recent files");
    const std::optional<std::string> path = RecentFilesPath();
    RecentFilesOutcome list = path ? LoadRecentFiles(*path) : RecentFilesOutcome();
    if (list.error)
        errors.add(*list.error);
    if (list.keptAs)
        errors.add("a copy of the damaged file is kept as " + *list.keptAs);
    return list;
}

void printList(const RecentFiles& files, bool json, std::ostream& out) {
    auto names = nlohmann::ordered_json::array();
    std::string lines;
    for (const std::string& name : files.entries)
        if (!name.empty())
            lines += CellText(names.emplace_back(Utf8FromName(name))) + '\n';
    out << (json ? JsonText(names) + '\n' : lines.empty() ? "No files\n" : lines);
}

ExitCode list(const RecentOptions& options, Session& session) {
    printList(loadList(session.errors).files, options.json, session.out);
    return ExitCode::done;
}

/// The typed name; nothing, after reporting the reason, if the list cannot hold it.
std::optional<std::string> typedName(const RecentOptions& options, ErrorLines& errors) {
    errors.about(options.name);
    std::optional<std::string> name = AnsiFromTyped(options.name, errors);
    if (!name || (!name->empty() && name->find('"') == name->npos))
        return name;
    errors.add(name->empty() ? "a file needs a name" : "the list of recent files cannot hold quotes");
    return std::nullopt;
}

/// Saves and prints the list without the name, or with it in front.
ExitCode change(const RecentOptions& options, Session& session, bool isAdded) {
    const std::optional<std::string> name = typedName(options, session.errors);
    if (!name)
        return ExitCode::wrongUsage;
    RecentFilesOutcome loaded = loadList(session.errors);
    if (!loaded.mayBeReplaced)
        return ExitCode::failed;
    RecentFiles& files = loaded.files;
    const bool isKnown = files.remove(*name);
    if (isAdded) {
        files.putFirst(*name);
    } else if (!isKnown) {
        session.errors.about(options.name);
        session.errors.add("the list of recent files has no such name");
        return ExitCode::failed;
    }
    if (const std::optional<RuntimeError> refusal = SaveRecentFiles(files))
        session.errors.add(*refusal);
    else
        printList(files, options.json, session.out);
    return ExitCode::done;
}

ExitCode add(const RecentOptions& options, Session& session) { return change(options, session, true); }
ExitCode remove(const RecentOptions& options, Session& session) { return change(options, session, false); }

} // namespace

void SetUpRecentCommand(CLI::App& recent, Session& session) {
    const auto options = std::make_shared<RecentOptions>();
    recent.require_subcommand(1);
    recent.add_flag("--json", options->json, "Prints an array of names");
    AddCommand(recent, "list", "Shows the names, the newest first", "vistrel recent list --json", session,
               options, &list);
    AddCommand(recent, "add", "Puts a name in front, and shows the list",
               "vistrel recent add harbour.playfile", session, options, &add)
        .add_option("NAME", options->name, "Name of a file, which need not exist")
        ->required();
    AddCommand(recent, "remove", "Removes a name, and shows the list",
               "vistrel recent remove harbour.playfile", session, options, &remove)
        .add_option("NAME", options->name, "The name, in any case")
        ->required();
}

} // namespace qrtVistrelClasses4
