// vistrel recent: the files opened last.
#include "platform/LetterCase.h"
#include "settings/MostRecentlyUsed.h"
#include "tools/program/Commands.h"
#include "tools/program/Encoding.h"
#include "tools/program/JsonText.h"
#include "tools/program/PropertyValues.h"

#include <algorithm>
#include <optional>
#include <vector>

namespace qrtVistrelClasses4 {
namespace {

struct RecentOptions {
    bool json = false;
    std::string name;
};

/// The names as they are on the disk.
std::vector<std::string> recentNames(ErrorLines& errors) {
    errors.about("the list of recent files");
    MostRecentlyUsed recent;
    std::vector<std::string> names;
    const std::int32_t total = recent.TotalFilesInList();
    for (std::int32_t number = 1; number <= total; ++number)
        names.push_back(recent.GetFileName(static_cast<std::int16_t>(number)));
    std::erase(names, ""); // the last one usually is
    return names;
}

ExitCode list(const RecentOptions& options, Session& session) {
    auto names = nlohmann::ordered_json::array();
    for (const std::string& name : recentNames(session.errors))
        names.push_back(Utf8FromAnsi(name));
    if (options.json)
        session.out << JsonText(names) << '\n';
    else if (names.empty())
        session.out << "No files\n";
    else
        for (const nlohmann::ordered_json& name : names)
            session.out << CellText(name) << '\n';
    return ExitCode::done;
}

/// The typed name; none, after telling why, when the list cannot hold it.
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

ExitCode add(const RecentOptions& options, Session& session) {
    const std::optional<std::string> name = typedName(options, session.errors);
    if (!name)
        return ExitCode::wrongUsage;
    session.errors.about("the list of recent files");
    MostRecentlyUsed().AddFileToMostRecentlyUsedList(*name);
    return list(options, session);
}

ExitCode remove(const RecentOptions& options, Session& session) {
    const std::optional<std::string> name = typedName(options, session.errors);
    if (!name)
        return ExitCode::wrongUsage;
    if (std::ranges::none_of(recentNames(session.errors),
                             [&](const std::string& known) { return EqualIgnoringAnsiCase(known, *name); })) {
        session.errors.about(options.name);
        session.errors.add("the list of recent files has no such name");
        return ExitCode::failed;
    }
    MostRecentlyUsed().RemoveFileFromMostRecentlyUsed(*name);
    return list(options, session);
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
