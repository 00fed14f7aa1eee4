// vistrel commands: the sign's commands, and the bytes that the sign understands for them.
#include "tools/commands/CommandsExchange.h"
#include "tools/commands/StoredCommands.h"
#include "tools/program/Commands.h"
#include "tools/program/Encoding.h"
#include "tools/program/JsonText.h"
#include "tools/program/PropertyValues.h"
#include "tools/program/Table.h"

#include <algorithm>
#include <optional>
#include <utility>
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

/// A command as it takes effect: the first row with its key decides.
struct ShownCommand {
    ShownCommand(const CommandTable& table, std::int32_t row)
        : number(row), key(table.key(row)), bytes(table.bytesOf(key)), first(table.find(key).value_or(row)) {}
    bool isBuiltIn() const { return number <= BuiltInCommandCount(); }
    bool isHidden() const { return first != number; }

    std::int32_t number;
    std::string key;
    std::string bytes; ///< The bytes of the first row with the key.
    std::int32_t first;
};

void to_json(ordered_json& json, const ShownCommand& command) {
    json = {{"number", command.number},
            {"key", Utf8FromAnsi(command.key)},
            {"bytes", HexText(command.bytes)},
            {"text", Utf8FromAnsi(command.bytes)},
            {"isBuiltIn", command.isBuiltIn()},
            {"hiddenBy", command.isHidden() ? ordered_json(command.first) : ordered_json()}};
}

ExitCode listCommands(const CommandsOptions& options, Session& session) {
    return WithStoredCommands(session.errors, [&](const CommandTable& commands) {
        auto array = ordered_json::array();
        Table table({{"No.", Table::Align::right}, {"Key"}, {"Bytes"}, {"As text"}, {"Made"}});
        for (std::int32_t number = 1; number <= commands.count(); ++number) {
            const ShownCommand command(commands, number);
            array.push_back(command);
            const std::string hidden =
                command.isHidden() ? ", hidden by " + std::to_string(command.first) : "";
            table.addRow({std::to_string(number), Visible(Utf8FromAnsi(command.key)), HexText(command.bytes),
                          Visible(Utf8FromAnsi(command.bytes)),
                          command.isBuiltIn() ? "built in" : "own" + hidden});
        }
        if (options.json)
            session.out << JsonText(array) << '\n';
        else
            session.out << table;
        return ExitCode::done;
    });
}

ExitCode getCommand(const CommandsOptions& options, Session& session) {
    return WithStoredCommands(session.errors, [&](const CommandTable& table) {
        const std::optional<std::string> key = AnsiFromUtf8(options.key);
        const std::optional<std::int32_t> number = key ? table.find(*key) : std::nullopt;
        if (!number) {
            session.errors.about(options.key);
            session.errors.add("there is no command with that key");
            return ExitCode::failed;
        }
        const ShownCommand command(table, *number);
        session.out << (options.json ? JsonText(command) : HexText(command.bytes)) << '\n';
        return ExitCode::done;
    });
}

/// The bytes that were typed; nothing, after reporting the reason, if they cannot be used.
std::optional<std::string> typedBytes(const CommandsOptions& options, ErrorLines& errors) {
    std::string typed;
    for (const std::string& part : options.bytes)
        typed += (typed.empty() ? "" : " ") + part;
    if (options.isText)
        return AnsiFromTyped(typed, errors);
    std::optional<std::string> bytes = BytesOfHex(typed);
    if (!bytes)
        errors.add("bytes are pairs of hexadecimal digits, not \"" + typed + "\"; a text needs --text");
    return bytes;
}

ExitCode setCommand(const CommandsOptions& options, Session& session) {
    session.errors.about(options.key);
    const std::optional<std::string> key = AnsiFromTyped(options.key, session.errors);
    const std::optional<std::string> bytes = key ? typedBytes(options, session.errors) : std::nullopt;
    const char* const fault = bytes ? FaultOfCommand(*key, *bytes) : nullptr;
    if (fault)
        session.errors.add(fault);
    if (!bytes || fault)
        return ExitCode::wrongUsage;
    return WithStoredCommands(session.errors, [&](CommandTable& table) {
        table.set(*key, *bytes);
        return ExitCode::done;
    });
}

/// The table without the commands of users that have this key.
CommandTable without(const CommandTable& table, const std::string& key) {
    CommandTable kept;
    kept.reserve(table.count());
    for (std::int32_t number = 1; number <= table.count(); ++number)
        if (number <= BuiltInCommandCount() || table.key(number) != key) {
            CommandTexts texts;
            std::ranges::copy(table.rows().at(number).sCMDInfo, texts.begin());
            kept.add(texts);
        }
    return kept;
}

ExitCode removeCommand(const CommandsOptions& options, Session& session) {
    return WithStoredCommands(session.errors, [&](CommandTable& table) {
        const std::optional<std::string> key = AnsiFromUtf8(options.key);
        CommandTable kept = key ? without(table, *key) : table;
        const std::int32_t removed = table.count() - kept.count();
        if (removed > 0) {
            table = std::move(kept);
            session.out << Visible(options.key) << ": removed; " << Counted(table.count(), "command")
                        << " now\n";
            return ExitCode::done;
        }
        session.errors.about(options.key);
        session.errors.add(key && table.find(*key) ? "a built-in command cannot be removed"
                                                   : "there is no command with that key");
        return ExitCode::failed;
    });
}

} // namespace

void SetUpCommandsCommand(CLI::App& commands, Session& session) {
    const auto options = std::make_shared<CommandsOptions>();
    commands.require_subcommand(1);
    commands.footer("The table is read where it was saved last, at first db/VistrelLite.dat in "
                    "the library's folder, which vistrel doctor prints, or in that of --home.");
    constexpr const char* keyHelp = "Key of the command, as texts hold it";

    AddCommand(commands, "list", "Shows every command", "vistrel commands list --home site", session, options,
               &listCommands)
        .add_flag("--json", options->json, "Prints an array of commands");

    CLI::App& get = AddCommand(commands, "get", "Shows the bytes of a command",
                               "vistrel commands get \"|hm|\"", session, options, &getCommand);
    get.add_option("KEY", options->key, keyHelp)->required();
    get.add_flag("--json", options->json, "Prints the command");

    CLI::App& set = AddCommand(commands, "set", "Sets the bytes of a command, or adds one",
                               "vistrel commands set \"|flash|\" 1B 80 46", session, options, &setCommand);
    set.add_option("KEY", options->key, keyHelp)->required();
    set.add_option("BYTES", options->bytes, "Pairs of hexadecimal digits")->required();
    set.add_flag("--text", options->isText, "Takes BYTES as a text instead");

    AddCommand(commands, "remove", "Removes a command that is not built in",
               "vistrel commands remove \"|flash|\"", session, options, &removeCommand)
        .add_option("KEY", options->key, keyHelp)
        ->required();
    AddCommandsExchange(commands, session);
}

} // namespace qrtVistrelClasses4
