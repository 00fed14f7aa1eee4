// vistrel commands: the sign's commands, and the bytes that stand for them.
#include "commands/CommandTable.h"
#include "commands/clsCommandInterface.h"
#include "tools/program/Commands.h"
#include "tools/program/Encoding.h"
#include "tools/program/JsonText.h"
#include "tools/program/PropertyValues.h"
#include "tools/program/Table.h"

#include <algorithm>
#include <charconv>
#include <map>
#include <optional>
#include <sstream>
#include <vector>

namespace qrtVistrelClasses4 {
namespace {

using nlohmann::ordered_json;

struct CommandsOptions {
    bool json = false;
    bool isText = false;
    std::string key;
    std::vector<std::string> bytes; ///< Typed with or without blanks between them.
};

/// Lets `use` work on the table, which is saved then.
template <class Use>
ExitCode withTable(Session& session, Use use) {
    EveryErrorReporter reporter(session.errors);
    const ScopedErrorReporter scope(reporter);
    session.errors.about("the command table cannot be read");
    clsCommandInterface commands;
    const ExitCode code = use(commands);
    session.errors.about("the command table cannot be saved");
    return code;
}

/// As pairs of hexadecimal digits.
std::string hexText(std::string_view bytes) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string text;
    for (const char character : bytes) {
        const auto byte = static_cast<unsigned char>(character);
        if (!text.empty())
            text += ' ';
        (text += digits[byte >> 4]) += digits[byte & 0xf];
    }
    return text;
}

/// The way back; none when a word is not made of such pairs.
std::optional<std::string> bytesOfHex(const std::string& text) {
    std::string bytes;
    std::istringstream words(text);
    for (std::string word; words >> word;)
        for (std::string_view rest = word; !rest.empty(); rest.remove_prefix(2)) {
            unsigned byte = 0;
            if (rest.size() < 2 ||
                std::from_chars(rest.data(), rest.data() + 2, byte, 16).ptr != rest.data() + 2)
                return std::nullopt;
            bytes += static_cast<char>(byte);
        }
    return bytes;
}

/// Every row as JSON, texts in UTF-8.
std::vector<ordered_json> rows(clsCommandInterface& commands) {
    std::vector<ordered_json> rows;
    std::map<std::string, std::int16_t> found; // the first row of each key
    const std::int32_t total = commands.iTotalCommands();
    for (std::int32_t place = 1; place <= total; ++place) {
        const auto number = static_cast<std::int16_t>(place);
        const std::string key = commands.sCommandKeyByNum(number);
        const std::string bytes = commands.sCommandBytesByNum(number);
        const std::int16_t first = found.emplace(key, number).first->second;
        rows.push_back({{"number", number},
                        {"key", Utf8FromAnsi(key)},
                        {"bytes", hexText(bytes)},
                        {"text", Utf8FromAnsi(bytes)},
                        {"isBuiltIn", number <= BuiltInCommandCount()},
                        {"hiddenBy", first == number ? ordered_json() : ordered_json(first)}});
    }
    return rows;
}

void print(std::ostream& out, const std::vector<ordered_json>& rows) {
    Table table({{"No.", Table::Align::right}, {"Key"}, {"Bytes"}, {"As text"}, {"Made"}});
    for (const ordered_json& row : rows) {
        const std::string made = row["isBuiltIn"].get<bool>() ? "built in"
                                 : row["hiddenBy"].is_null()  ? "own"
                                                              : "own, hidden by " + CellText(row["hiddenBy"]);
        table.addRow({CellText(row["number"]), CellText(row["key"]), CellText(row["bytes"]),
                      CellText(row["text"]), made});
    }
    out << table;
}

ExitCode listCommands(const CommandsOptions& options, Session& session) {
    return withTable(session, [&](clsCommandInterface& commands) {
        const std::vector<ordered_json> all = rows(commands);
        if (options.json)
            session.out << JsonText(all) << '\n';
        else
            print(session.out, all);
        return ExitCode::done;
    });
}

ExitCode getCommand(const CommandsOptions& options, Session& session) {
    return withTable(session, [&](clsCommandInterface& commands) {
        const std::vector<ordered_json> all = rows(commands);
        const auto row =
            std::ranges::find_if(all, [&](const ordered_json& it) { return it["key"] == options.key; });
        if (row == all.end()) {
            session.errors.about(options.key);
            session.errors.add("there is no command of that key");
            return ExitCode::failed;
        }
        session.out << (options.json ? JsonText(*row) : CellText((*row)["bytes"])) << '\n';
        return ExitCode::done;
    });
}

bool isBuiltIn(const std::string& key) {
    return std::ranges::any_of(BuiltInCommands(), [&](const CommandInfoType& command) {
        return command.sCMDInfo[kCommandKey] == key;
    });
}

/// What was typed as bytes; none after telling why.
std::optional<std::string> typedBytes(const CommandsOptions& options, ErrorLines& errors) {
    std::string typed;
    for (const std::string& part : options.bytes)
        typed += (typed.empty() ? "" : " ") + part;
    std::optional<std::string> bytes = options.isText ? AnsiFromTyped(typed, errors) : bytesOfHex(typed);
    if (!bytes && !options.isText)
        errors.add("bytes are pairs of hexadecimal digits, not \"" + typed + "\"; a text needs --text");
    else if (bytes && bytes->empty())
        errors.add("a command needs bytes");
    return bytes && bytes->empty() ? std::nullopt : bytes;
}

/// What the bytes of a command may be set to. None, after telling why, when that would not last.
std::optional<std::pair<std::string, std::string>> typedCommand(const CommandsOptions& options,
                                                                ErrorLines& errors) {
    errors.about(options.key);
    const std::optional<std::string> key = AnsiFromTyped(options.key, errors);
    const std::optional<std::string> bytes = key ? typedBytes(options, errors) : std::nullopt;
    if (!bytes)
        return std::nullopt;
    if (key->empty())
        errors.add("a command needs a key");
    else if (isBuiltIn(*key))
        errors.add("a command that is built in cannot be changed");
    else if ((*key + *bytes).find_first_of("\n\r\xff") != key->npos)
        errors.add("a command table cannot hold the bytes 0A, 0D and FF");
    else
        return std::pair(*key, *bytes);
    return std::nullopt;
}

ExitCode setCommand(const CommandsOptions& options, Session& session) {
    const auto command = typedCommand(options, session.errors);
    if (!command)
        return ExitCode::wrongUsage;
    return withTable(session, [&](clsCommandInterface& commands) {
        session.errors.about(options.key);
        commands.sCommandBytesByKey(command->first, command->second);
        return ExitCode::done;
    });
}

} // namespace

void AddCommandsCommand(CLI::App& program, Session& session) {
    const auto options = std::make_shared<CommandsOptions>();
    CLI::App& commands = AddCommand(program, "commands", "Shows and changes the table of the sign's commands",
                                    "vistrel commands set \"##BELL\" 07");
    commands.require_subcommand(1);
    commands.footer(
        "The table is read where it was saved last, at first db/VistrelLite.dat in the folder of the "
        "program, or of --home. Every use writes it anew.");
    const auto add = [&](const char* name, auto run, const char* description, const char* example) {
        CLI::App& command = AddCommand(commands, name, description, example);
        command.callback([run, options, &session] {
            session.command = [run, options, &session] { return run(*options, session); };
        });
        return &command;
    };
    constexpr const char* keyHelp = "Key of the command, as it stands in texts";

    add("list", &listCommands, "Shows every command", "vistrel commands list --home samples")
        ->add_flag("--json", options->json, "Prints an array of commands");

    CLI::App* get = add("get", &getCommand, "Shows the bytes of a command", "vistrel commands get \"|hm|\"");
    get->add_option("KEY", options->key, keyHelp)->required();
    get->add_flag("--json", options->json, "Prints the command");

    CLI::App* set = add("set", &setCommand, "Sets the bytes of a command, or adds one",
                        "vistrel commands set \"|flash|\" 1B 80 46");
    set->add_option("KEY", options->key, keyHelp)->required();
    set->add_option("BYTES", options->bytes, "Pairs of hexadecimal digits")->required();
    set->add_flag("--text", options->isText, "Takes BYTES as a text instead");
}

} // namespace qrtVistrelClasses4
