// vistrel recent: the files opened last.
#include "platform/Platform.h"
#include "tools/program/Commands.h"
#include "tools/program/Encoding.h"
#include "tools/program/JsonText.h"
#include "tools/program/PropertyValues.h"
#include "tools/program/ValueKinds.h"
#include <qrtVistrelClasses4/RecentFiles.h>

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qrtVistrelClasses4 {
namespace {

constexpr std::string_view kSubject = "the list of recent files";

struct RecentOptions {
    bool json = false;
    std::string name;
};

/// The list on disk. Anything wrong with it is reported.
RecentFilesOutcome loadList(ErrorLines& errors) {
    errors.about(kSubject);
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

/// The full path of a typed name, in UTF-8. A file in the current folder has one however it is typed; ".."
/// stays, because it leads elsewhere after a link.
std::string fullPath(const std::string& typed) {
    if (IsFullOnWindows(typed))
        return typed;
    std::string name = typed;
    for (std::size_t at = 0; (at = name.find("/./")) != name.npos;)
        name.erase(at, 2);
    if (name.starts_with("./"))
        name.erase(0, 2);
    return platform().files().fullName(name);
}

/// The typed name as the list holds it; nothing, after reporting the reason, if the list cannot.
std::optional<std::string> nameToAdd(const std::string& typed, ErrorLines& errors) {
    errors.about(typed);
    const std::string path = fullPath(typed);
    std::optional<std::string> name = AnsiFromUtf8(path);
    if (typed.empty())
        errors.add("a file needs a name");
    else if (!name)
        errors.add("the list of recent files holds names in Windows-1252, and " + path +
                   " has a character that is not in it");
    else if (name->find('"') != name->npos)
        errors.add("the list of recent files cannot hold quotes");
    else if (std::ranges::any_of(*name, [](char each) { return static_cast<unsigned char>(each) < ' '; }))
        errors.add("the list of recent files cannot hold line breaks and other control characters");
    else
        return name;
    return std::nullopt;
}

/// Removes the names that are the typed one, or its full path, in any case and encoding. A name may also be
/// typed as the list is printed. Returns whether there were any.
bool removeTyped(RecentFiles& files, const std::string& typed) {
    const std::string name = FoldedName(typed), path = FoldedName(fullPath(typed));
    std::vector<std::string> meant;
    for (const std::string& entry : files.entries)
        if (const std::string folded = FoldedName(entry);
            !entry.empty() && (folded == name || folded == path || VisibleName(entry) == typed))
            meant.push_back(entry);
    for (const std::string& entry : meant)
        files.remove(entry);
    return !meant.empty();
}

/// Saves and prints a list.
ExitCode save(const RecentFiles& files, const RecentOptions& options, Session& session) {
    session.errors.about(kSubject);
    if (const std::optional<RuntimeError> refusal = SaveRecentFiles(files)) {
        session.errors.add("not saved", *refusal);
        return ExitCode::failed;
    }
    printList(files, options.json, session.out);
    return ExitCode::done;
}

ExitCode add(const RecentOptions& options, Session& session) {
    const std::optional<std::string> name = nameToAdd(options.name, session.errors);
    if (!name)
        return ExitCode::wrongUsage;
    RecentFilesOutcome list = loadList(session.errors);
    if (!list.mayBeReplaced)
        return ExitCode::failed;
    list.files.remove(*name);
    list.files.putFirst(*name);
    return save(list.files, options, session);
}

ExitCode remove(const RecentOptions& options, Session& session) {
    RecentFilesOutcome list = loadList(session.errors);
    if (!list.mayBeReplaced)
        return ExitCode::failed;
    if (removeTyped(list.files, options.name))
        return save(list.files, options, session);
    session.errors.about(options.name);
    session.errors.add("the list of recent files has no such name");
    return ExitCode::failed;
}

ExitCode clear(const RecentOptions& options, Session& session) {
    if (!loadList(session.errors).mayBeReplaced)
        return ExitCode::failed;
    RecentFiles none;
    none.entries.resize(1);
    return save(none, options, session);
}

} // namespace

void SetUpRecentCommand(CLI::App& recent, Session& session) {
    const auto options = std::make_shared<RecentOptions>();
    recent.require_subcommand(1);
    recent.add_flag("--json", options->json, "Prints an array of names");
    AddCommand(recent, "list", "Shows the names, the newest first", "vistrel recent list --json", session,
               options, &list);
    AddCommand(recent, "add", "Puts a name in front, and shows the list",
               "vistrel recent add harbour.playfile", session, options, &add)
        .add_option("NAME", options->name,
                    "Name of a file, which need not exist; the list gets its full path")
        ->type_name(kFileValue)
        ->required();
    AddCommand(recent, "clear", "Removes all names", "vistrel recent clear", session, options, &clear);
    AddCommand(recent, "remove", "Removes a name, and shows the list",
               "vistrel recent remove harbour.playfile", session, options, &remove)
        .add_option("NAME", options->name, "The name, in any case, or the file's name in the current folder")
        ->required();
}

} // namespace qrtVistrelClasses4
