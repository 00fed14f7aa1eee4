// vistrel signs: the list of signs of a site.
#include "platform/LetterCase.h"
#include "tools/program/Commands.h"
#include "tools/program/Encoding.h"
#include "tools/program/JsonText.h"
#include "tools/program/PropertyValues.h"
#include "tools/program/Table.h"
#include "tools/program/ValueKinds.h"
#include "tools/signs/SignsExchange.h"
#include "tools/signs/SignsFile.h"
#include "tools/signs/SignsReport.h"

#include <optional>
#include <vector>

namespace qrtVistrelClasses4 {
namespace {

using nlohmann::ordered_json;

struct SignsOptions {
    bool json = false;
    std::string name;
    std::string newName;
    std::int32_t to = 0;                  ///< The place to move a sign to, from 1.
    std::vector<std::string> assignments; ///< For example "DisplayWidth=128".
    bool isUnchecked = false;             ///< They may be values that no sign has.
};

/// The typed name for a sign, which may be the present one of sign `number`. Returns nothing, and adds the
/// reason to `errors`, if it cannot be used.
std::optional<std::string> freeName(const SignList& list, const std::string& typed, ErrorLines& errors,
                                    std::int16_t number = 0) {
    errors.about(typed);
    std::optional<std::string> name = AnsiFromTyped(typed, errors);
    if (!name)
        return std::nullopt;
    const std::int16_t holder = FindSign(list, *name).value_or(number);
    if (name->empty())
        errors.add("a sign needs a name");
    else if (holder != number)
        errors.add("sign " + std::to_string(holder) + " has that name");
    else
        return name;
    return std::nullopt;
}

// What is shown.

std::string shown(std::string_view ansi) { return Visible(Utf8FromAnsi(ansi)); }

std::string connection(const DisplayRecord& sign) {
    const auto method = ConnectionMethodName(sign.ConnectionMethod);
    return method ? shown(std::string(*method) + " " + ConnectionOf(sign).value_or("")) : "";
}

void printSigns(std::ostream& out, const SignList& list) {
    Table table({{"No.", Table::Align::right},
                 {"Name"},
                 {"Type"},
                 {"Size", Table::Align::left, true},
                 {"Connection"}});
    int number = 0;
    for (const DisplayRecord& sign : list.signs)
        table.addRow({std::to_string(++number), shown(sign.DisplayName),
                      std::string(SignTypeName(sign.DisplayType)),
                      std::to_string(sign.DisplayWidth) + " x " + std::to_string(sign.DisplayHeight),
                      connection(sign)});
    out << table;
}

ExitCode listSigns(const SignsOptions& options, Session& session) {
    const std::optional<SignsFile> file = LoadSigns(session.errors);
    if (!file)
        return ExitCode::failed;
    AddFaults(*file, session.errors);
    if (options.json) {
        auto array = ordered_json::array();
        for (const DisplayRecord& sign : file->list.signs)
            array.push_back(JsonOf(sign, kDisplayMembers));
        session.out << JsonText(array) << '\n';
    } else if (!file->list.signs.empty())
        printSigns(session.out, file->list);
    else if (file->isComplete())
        session.out << "No signs: " << Visible(file->path) << " is empty\n";
    else if (file->isMissing())
        session.out << "No signs: there is no file " << Visible(file->path) << " yet\n";
    return ExitCode::done;
}

void printSign(std::ostream& out, const DisplayRecord& sign) {
    Table properties({{"Property"}, {"Value"}});
    ForEachRow(kDisplayMembers, [&]<class Row>(const Row& row) {
        if constexpr (!RowOfRecords<Row>) {
            if (row.name.empty())
                return;
            properties.addRow(
                {std::string(row.name), CellText(row.name, JsonOf(ValueOfProperty(row, sign)))});
        }
    });
    Table schedules(
        {{"Schedule", Table::Align::right}, {"Start"}, {"Stop"}, {"Brightness", Table::Align::right}});
    int number = 0;
    for (const BrightnessSchedule& schedule : sign.schedules)
        schedules.addRow({std::to_string(++number), shown(schedule.StartTime), shown(schedule.StopTime),
                          std::to_string(schedule.BrightnessLevel)});
    out << properties << '\n' << schedules;
}

ExitCode showSign(const SignsOptions& options, Session& session) {
    const std::optional<SignsFile> file = LoadSigns(session.errors);
    if (!file)
        return ExitCode::failed;
    AddFaults(*file, session.errors);
    const std::optional<std::int16_t> number = FindTypedSign(file->list, options.name, session.errors);
    if (!number)
        return ExitCode::failed;
    const DisplayRecord& sign = file->list.signs.at(*number);
    if (options.json)
        session.out << JsonText(JsonOf(sign, kDisplayMembers)) << '\n';
    else
        printSign(session.out, sign);
    return ExitCode::done;
}

ExitCode printNumbers(const SignsOptions& options, Session& session, const std::vector<SignTypes>& numbers) {
    Table table({{"Numbers"}, {"Name"}});
    auto array = ordered_json::array();
    for (const auto& [first, last, name] : numbers) {
        table.addRow(
            {std::to_string(first) + (last > first ? " to " + std::to_string(last) : ""), std::string(name)});
        array.push_back({{"first", first}, {"last", last}, {"name", name}});
    }
    if (options.json)
        session.out << JsonText(array) << '\n';
    else
        session.out << table;
    return ExitCode::done;
}

ExitCode listTypes(const SignsOptions& options, Session& session) {
    const auto types = NamedSignTypes();
    return printNumbers(options, session, {types.begin(), types.end()});
}

ExitCode listConnections(const SignsOptions& options, Session& session) {
    constexpr std::string_view method = kRowOf<kDisplayMembers, &DisplayRecord::ConnectionMethod>.name;
    std::vector<SignTypes> connections;
    for (const NamedNumber& named : AllowedValuesOf(method).names->all())
        connections.push_back({named.number, named.number, named.name});
    return printNumbers(options, session, connections);
}

// The changes. If a change cannot be made, its reason is in `errors`.

/// False, after adding the reason, if a value would not be read back, for example a serial port as the port
/// of a sign in the network.
bool areReadBack(const DisplayRecord& sign, const std::vector<std::string>& assignments, ErrorLines& errors) {
    const std::size_t before = errors.count();
    for (const ChangedProperty& mended : ChangesBetween(sign, SignAsLoaded(sign), kDisplayMembers))
        for (const std::string& assignment : assignments)
            if (EqualIgnoringAsciiCase(assignment.substr(0, assignment.find('=')), mended.name)) {
                errors.about(mended.name);
                errors.add(NotReadBack(mended.before, mended.after));
            }
    return errors.count() == before;
}

/// Makes all assignments to sign `number`.
ExitCode assign(SignList& list, std::int16_t number, const SignsOptions& options, ErrorLines& errors) {
    for (const std::string& assignment : options.assignments) {
        const auto parts = SplitAssignment(assignment, errors);
        if (!parts)
            return ExitCode::wrongUsage;
        const TypedValue typed{parts->first, parts->second, options.isUnchecked};
        if (EqualIgnoringAsciiCase(typed.property,
                                   kRowOf<kDisplayMembers, &DisplayRecord::DisplayName>.name) &&
            !freeName(list, std::string(typed.text), errors, number))
            return ExitCode::failed;
        if (!SetByName(list.signs.at(number), kDisplayMembers, typed, errors))
            return ExitCode::wrongUsage;
    }
    return options.isUnchecked || areReadBack(list.signs.at(number), options.assignments, errors)
               ? ExitCode::done
               : ExitCode::wrongUsage;
}

ExitCode addSign(SignList& list, const SignsOptions& options, ErrorLines& errors) {
    const std::optional<std::string> name = freeName(list, options.name, errors);
    if (!name)
        return ExitCode::failed;
    const std::int16_t number = list.addUnchecked(*name);
    const ExitCode assigned = assign(list, number, options, errors);
    if (assigned != ExitCode::done || list.signs.at(number).DisplayName == EscapeNumericName(*name))
        return assigned;
    errors.about(options.name);
    errors.add("a new sign cannot be given another name as DisplayName");
    return ExitCode::wrongUsage;
}

ExitCode removeSign(SignList& list, const SignsOptions& options, ErrorLines& errors) {
    const std::optional<std::int16_t> number = FindTypedSign(list, options.name, errors);
    if (!number)
        return ExitCode::failed;
    list.remove(*number);
    return ExitCode::done;
}

ExitCode duplicateSign(SignList& list, const SignsOptions& options, ErrorLines& errors) {
    const std::optional<std::int16_t> number = FindTypedSign(list, options.name, errors);
    if (!number)
        return ExitCode::failed;
    const std::optional<std::string> name = freeName(list, options.newName, errors);
    if (!name)
        return ExitCode::failed;
    list.duplicateUnchecked(*number, *name);
    return ExitCode::done;
}

ExitCode moveSign(SignList& list, const SignsOptions& options, ErrorLines& errors) {
    const std::optional<std::int16_t> number = FindTypedSign(list, options.name, errors);
    if (!number)
        return ExitCode::failed;
    errors.about(options.name);
    if (!IsWithin("TO", options.to, list.count(), "sign", errors))
        return ExitCode::failed;
    list.signs.move(*number, options.to);
    return ExitCode::done;
}

ExitCode setProperties(SignList& list, const SignsOptions& options, ErrorLines& errors) {
    const std::optional<std::int16_t> number = FindTypedSign(list, options.name, errors);
    return number ? assign(list, *number, options, errors) : ExitCode::failed;
}

/// What assignments have changed in the sign of that name, or in the last one, which is new.
std::vector<ChangedProperty> changesOf(const SignList& before, const SignList& after,
                                       const std::string& name) {
    const std::int16_t number = FindSign(before, AnsiFromUtf8(name).value_or("")).value_or(after.count());
    DisplayRecord old;
    if (number <= before.signs.upperBound())
        old = before.signs.at(number);
    else
        old.DisplayName = after.signs.at(number).DisplayName;
    return ChangesBetween(SignAsLoaded(std::move(old)), SignAsLoaded(after.signs.at(number)),
                          kDisplayMembers);
}

struct Change {
    ExitCode (*make)(SignList&, const SignsOptions&, ErrorLines&);
    const char* done;
};

ExitCode changeSigns(const Change& change, const SignsOptions& options, Session& session) {
    std::optional<SignsFile> file = LoadSigns(session.errors);
    if (!file || !MayBeChanged(*file, session.errors))
        return ExitCode::failed;
    const SignList before = file->list;
    const ExitCode made = change.make(file->list, options, session.errors);
    if (made != ExitCode::done)
        return made;
    SignsReport report{.done = {}, .readFrom = file->path};
    if (!SaveSigns(*file, session.errors))
        return ExitCode::failed;
    if (!options.assignments.empty())
        report.changes = changesOf(before, file->list, options.name);
    const bool isUnchanged =
        report.changes && report.changes->empty() && file->list.count() == before.count();
    report.done = (isUnchanged ? "changed nothing in " : change.done + std::string(" ")) + options.name +
                  (options.newName.empty() ? "" : " as " + options.newName) +
                  (options.to > 0 ? " to " + std::to_string(options.to) : "");
    PrintReport(session.out, report, *file, options.json);
    return ExitCode::done;
}

} // namespace

void SetUpSignsCommand(CLI::App& signs, Session& session) {
    const auto options = std::make_shared<SignsOptions>();
    signs.require_subcommand(1);
    signs.add_flag("--json", options->json, "Prints JSON: signs with every property, or what was done");
    signs.footer(
        "The list is read from where it was saved last. It is saved as Displays.dat in "
        "the library's folder, which vistrel doctor prints, or in that of --home. The previous list is kept "
        "beside it as Displays.dat.bak.");

    const auto add = [&](const char* name, auto run, const char* description, const char* example) {
        CLI::App& command = AddCommand(signs, name, description, example);
        SetAction(command, session, [run, options, &session] { return run(*options, session); });
        return &command;
    };
    const auto addChange = [&](const char* name, Change change, const char* description,
                               const char* example) {
        const auto run = [change](const SignsOptions& given, Session& now) {
            return changeSigns(change, given, now);
        };
        CLI::App* command = add(name, run, description, example);
        command->add_option("NAME", options->name, "Name of the sign")->type_name(kSignValue)->required();
        return command;
    };
    const auto takeAssignments = [&](CLI::App* command) {
        command->add_flag("--unchecked", options->isUnchecked, "Takes values that no sign has, too");
        return command
            ->add_option(
                "PROPERTIES", options->assignments,
                "What to set, such as DisplayWidth=192, DisplayType=Kestrel or "
                "\"Schedule1.StartTime=6:30 PM\"; \"signs show\" prints the names of all properties, "
                "\"signs types\" and \"signs connections\" those of types and connections")
            ->type_name(kPropertyValue);
    };

    add("list", &listSigns, "Shows all signs", "vistrel signs list");
    add("show", &showSign, "Shows a sign with all its properties", "vistrel signs show \"Pier 1\"")
        ->add_option("NAME", options->name, "Name of the sign, in any case")
        ->type_name(kSignValue)
        ->required();
    add("types", &listTypes, "Shows the types of signs that have a name", "vistrel signs types");
    add("connections", &listConnections, "Shows the ways to reach a sign", "vistrel signs connections");
    takeAssignments(
        addChange("add", {&addSign, "added"}, "Adds a sign after the others",
                  "vistrel signs add Pier2 DisplayType=Kestrel ConnectionMethod=Direct CommPort=COM1"));
    addChange("remove", {&removeSign, "removed"}, "Takes a sign out", "vistrel signs remove Gate");
    addChange("duplicate", {&duplicateSign, "duplicated"}, "Adds a copy of a sign after the others",
              "vistrel signs duplicate Gate \"Back gate\"")
        ->add_option("NEWNAME", options->newName, "Name of the copy")
        ->required();
    addChange("move", {&moveSign, "moved"}, "Moves a sign to another place in the list",
              "vistrel signs move Gate 1")
        ->add_option("TO", options->to, "Number that it gets, from 1")
        ->required();
    takeAssignments(addChange("set", {&setProperties, "changed"}, "Changes properties of a sign",
                              "vistrel signs set Gate DisplayWidth=192 Schedule1.BrightnessLevel=4"))
        ->required();
    AddSignsExchange(signs, session, {options, &options->json});
}

} // namespace qrtVistrelClasses4
