// vistrel signs: the list of signs of a site.
#include "platform/LetterCase.h"
#include "tools/program/Commands.h"
#include "tools/program/Encoding.h"
#include "tools/program/JsonText.h"
#include "tools/program/PropertyValues.h"
#include "tools/program/Table.h"
#include "tools/signs/SignList.h"
#include "tools/signs/SignProperties.h"

#include <optional>
#include <vector>

namespace qrtVistrelClasses4 {
namespace {

using nlohmann::ordered_json;

struct SignsOptions {
    bool json = false;
    std::string name;
    std::string newName;
    std::vector<std::string> assignments; ///< As "DisplayWidth=128".
};

/// The typed name for a sign, which may be the present one of sign `number`; none, after telling why, when it
/// cannot be used.
std::optional<std::string> freeName(DisplayDatabaseClass& signs, const std::string& typed, ErrorLines& errors,
                                    std::int16_t number = 0) {
    errors.about(typed);
    std::optional<std::string> name = AnsiFromTyped(typed, errors);
    if (!name)
        return std::nullopt;
    const std::int16_t holder = FindSign(signs, *name);
    if (name->empty())
        errors.add("a sign needs a name");
    else if (holder >= 1 && holder != number)
        errors.add("sign " + std::to_string(holder) + " has that name");
    else
        return name;
    return std::nullopt;
}

// What is shown.

std::string connection(DisplayDatabaseClass& signs) {
    const std::string method = signs.TranslateConnectionMethodToString(signs.ConnectionMethod());
    return Visible(Utf8FromAnsi(method.empty() ? method : method + " " + signs.GetConnectionInfoInString()));
}

void printSigns(std::ostream& out, DisplayDatabaseClass& signs, const std::vector<ordered_json>& records) {
    Table table({{"No.", Table::Align::right}, {"Name"}, {"Type"}, {"Size"}, {"Connection"}});
    for (std::size_t i = 0; i < records.size(); ++i) {
        const ordered_json& sign = records[i];
        signs.CurrentDisplayNumber(static_cast<std::int16_t>(i + 1));
        table.addRow({std::to_string(i + 1), CellText(sign["DisplayName"]), signs.GetSignTypeDescription(),
                      CellText(sign["DisplayWidth"]) + " x " + CellText(sign["DisplayHeight"]),
                      connection(signs)});
    }
    out << table;
}

ExitCode listSigns(const SignsOptions& options, Session& session) {
    SignList list;
    const std::vector<ordered_json> records = list.records();
    list.tellFaults(session.errors);
    if (options.json)
        session.out << JsonText(records) << '\n';
    else if (!records.empty())
        printSigns(session.out, list.signs, records);
    else if (list.isComplete())
        session.out << "No signs: " << Visible(list.path()) << " is empty\n";
    else if (list.isMissing())
        session.out << "No signs: there is no file " << Visible(list.path()) << " yet\n";
    return ExitCode::done;
}

void printSign(std::ostream& out, DisplayDatabaseClass& signs, const ordered_json& sign) {
    Table properties({{"Property"}, {"Value"}});
    for (const auto& [name, value] : sign.items()) {
        if (name == "Schedules")
            continue;
        const std::string meaning = name == "DisplayType" ? signs.GetSignTypeDescription()
                                    : name == "ConnectionMethod"
                                        ? signs.TranslateConnectionMethodToString(value.get<std::int16_t>())
                                        : "";
        properties.addRow({name, CellText(value) + (meaning.empty() ? "" : " (" + meaning + ")")});
    }
    Table schedules(
        {{"Schedule", Table::Align::right}, {"Start"}, {"Stop"}, {"Brightness", Table::Align::right}});
    for (std::size_t i = 0; i < sign["Schedules"].size(); ++i) {
        const ordered_json& schedule = sign["Schedules"][i];
        schedules.addRow({std::to_string(i + 1), CellText(schedule["StartTime"]),
                          CellText(schedule["StopTime"]), CellText(schedule["BrightnessLevel"])});
    }
    out << properties << '\n' << schedules;
}

ExitCode showSign(const SignsOptions& options, Session& session) {
    SignList list;
    list.tellFaults(session.errors);
    if (!SelectSign(list.signs, options.name, session.errors))
        return ExitCode::failed;
    const ordered_json sign = SignJson(list.signs, list.signs.CurrentDisplayNumber());
    if (options.json)
        session.out << JsonText(sign) << '\n';
    else
        printSign(session.out, list.signs, sign);
    return ExitCode::done;
}

// The changes. What cannot be done has been told.

/// Does all assignments at the sign under the cursor.
ExitCode assign(DisplayDatabaseClass& signs, const SignsOptions& options, ErrorLines& errors) {
    for (const std::string& assignment : options.assignments) {
        const std::size_t equals = assignment.find('=');
        if (equals == assignment.npos || equals == 0) {
            errors.about(assignment);
            errors.add("a property takes the form Property=Value");
            return ExitCode::wrongUsage;
        }
        const std::string property = assignment.substr(0, equals);
        const std::string value = assignment.substr(equals + 1);
        if (EqualIgnoringAsciiCase(property, "DisplayName") &&
            !freeName(signs, value, errors, signs.CurrentDisplayNumber()))
            return ExitCode::failed;
        if (!SetSignProperty(signs, property, value, errors))
            return ExitCode::wrongUsage;
    }
    return ExitCode::done;
}

ExitCode addSign(DisplayDatabaseClass& signs, const SignsOptions& options, ErrorLines& errors) {
    const std::optional<std::string> name = freeName(signs, options.name, errors);
    if (!name)
        return ExitCode::failed;
    signs.CurrentDisplayNumber(signs.AddNewDisplay(*name));
    const std::string added = signs.DisplayName();
    const ExitCode assigned = assign(signs, options, errors);
    if (assigned != ExitCode::done || signs.DisplayName() == added)
        return assigned;
    errors.about(options.name);
    errors.add("a new sign cannot be given another name as DisplayName");
    return ExitCode::wrongUsage;
}

ExitCode removeSign(DisplayDatabaseClass& signs, const SignsOptions& options, ErrorLines& errors) {
    if (!SelectSign(signs, options.name, errors))
        return ExitCode::failed;
    signs.RemoveDisplay(signs.CurrentDisplayNumber());
    return ExitCode::done;
}

ExitCode duplicateSign(DisplayDatabaseClass& signs, const SignsOptions& options, ErrorLines& errors) {
    if (!SelectSign(signs, options.name, errors))
        return ExitCode::failed;
    const std::optional<std::string> name = freeName(signs, options.newName, errors);
    if (!name)
        return ExitCode::failed;
    signs.Duplicate(signs.DisplayName(), *name);
    return ExitCode::done;
}

ExitCode setProperties(DisplayDatabaseClass& signs, const SignsOptions& options, ErrorLines& errors) {
    return SelectSign(signs, options.name, errors) ? assign(signs, options, errors) : ExitCode::failed;
}

struct Change {
    ExitCode (*make)(DisplayDatabaseClass&, const SignsOptions&, ErrorLines&);
    const char* told;
};

ExitCode changeSigns(const Change& change, const SignsOptions& options, Session& session) {
    SignList list;
    if (!list.mayBeChanged(session.errors))
        return ExitCode::failed;
    const ExitCode made = change.make(list.signs, options, session.errors);
    if (made != ExitCode::done)
        return made;
    const std::string readFrom = list.path();
    if (!list.save(session.errors))
        return ExitCode::failed;
    const std::string done =
        change.told + (" " + options.name) + (options.newName.empty() ? "" : " as " + options.newName);
    const std::int16_t count = list.signs.TotalDisplays();
    if (options.json) {
        session.out << JsonText({{"file", list.path()}, {"done", done}, {"TotalDisplays", count}}) << '\n';
        return ExitCode::done;
    }
    session.out << Visible(list.path() + ": " + done) << "; " << count << (count == 1 ? " sign" : " signs")
                << " now\n";
    if (readFrom != list.path())
        session.out << Visible("The list had been read from " + readFrom + ", which is as it was.") << '\n';
    return ExitCode::done;
}

} // namespace

void AddSignsCommand(CLI::App& program, Session& session) {
    const auto options = std::make_shared<SignsOptions>();
    CLI::App& signs = AddCommand(program, "signs", "Shows and changes the list of signs of a site",
                                 "vistrel signs set \"Pier 1\" DisplayWidth=192");
    signs.require_subcommand(1);
    signs.add_flag("--json", options->json, "Prints JSON: signs with every property, or what was done");
    signs.footer("The list is read where it was saved last. It is saved as Displays.dat in the folder of the "
                 "program, or of --home; the list that was there stays beside it as Displays.dat.bak.");

    const auto add = [&](const char* name, auto run, const char* description, const char* example) {
        CLI::App& command = AddCommand(signs, name, description, example);
        command.callback([run, options, &session] {
            session.command = [run, options, &session] { return run(*options, session); };
        });
        return &command;
    };
    const auto addChange = [&](const char* name, Change change, const char* description,
                               const char* example) {
        const auto run = [change](const SignsOptions& given, Session& now) {
            return changeSigns(change, given, now);
        };
        CLI::App* command = add(name, run, description, example);
        command->add_option("NAME", options->name, "Name of the sign")->required();
        return command;
    };
    const auto takeAssignments = [&](CLI::App* command) {
        return command->add_option("PROPERTIES", options->assignments,
                                   "What to set, as DisplayWidth=192 or \"Schedule1.StartTime=6:30 PM\"; "
                                   "\"signs show\" tells the names");
    };

    add("list", &listSigns, "Shows all signs", "vistrel signs list");
    add("show", &showSign, "Shows a sign with all its properties", "vistrel signs show \"Pier 1\"")
        ->add_option("NAME", options->name, "Name of the sign, in any case")
        ->required();
    takeAssignments(addChange("add", {&addSign, "added"}, "Puts a new sign behind the others",
                              "vistrel signs add Pier2 DisplayType=160 ConnectionMethod=1 CommPort=COM1"));
    addChange("remove", {&removeSign, "removed"}, "Takes a sign out", "vistrel signs remove Gate");
    addChange("duplicate", {&duplicateSign, "duplicated"}, "Puts a copy of a sign behind the others",
              "vistrel signs duplicate Gate \"Back gate\"")
        ->add_option("NEWNAME", options->newName, "Name of the copy")
        ->required();
    takeAssignments(addChange("set", {&setProperties, "changed"}, "Changes properties of a sign",
                              "vistrel signs set Gate DisplayWidth=192 Schedule1.BrightnessLevel=4"))
        ->required();
}

} // namespace qrtVistrelClasses4
