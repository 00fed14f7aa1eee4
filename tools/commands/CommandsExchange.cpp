// vistrel commands export and import.
#include "tools/commands/CommandsExchange.h"

#include "platform/Hex.h"
#include "tools/commands/StoredCommands.h"
#include "tools/exchange/JsonInput.h"
#include "tools/exchange/JsonOutput.h"
#include "tools/exchange/Stores.h"
#include "tools/program/Encoding.h"
#include "tools/program/Inputs.h"

#include <charconv>
#include <sstream>
#include <unordered_map>
#include <utility>

namespace qrtVistrelClasses4 {
namespace {

/// The texts that `BytesOfHex` takes, without the empty one.
constexpr char kHexPattern[] = R"(^\s*([0-9A-Fa-f]{2}\s*)+$)";

/// Puts the commands of a file into a table.
class CommandCollector {
public:
    CommandCollector(const CommandsImport& import, ErrorLines& errors) : import_(import), errors_(errors) {
        if (!import.merged)
            return;
        for (const ExchangedCommand& command : CommandsToExchange(*import.merged))
            put(command);
    }

    void add(const ExchangedCommand& command, std::int32_t index) {
        const std::string place = import_.fileName + ": $[" + std::to_string(index) + "]";
        errors_.about(place + ".bytes");
        const std::optional<std::string> bytes = BytesOfHex(command.bytes);
        if (!bytes)
            return errors_.add("takes pairs of hexadecimal digits, not \"" + command.bytes + "\"");
        if (bytes->find_first_of(kNotInCommands) != bytes->npos)
            return errors_.add("a command table cannot hold the bytes 0A and FF");
        errors_.about(place);
        const char* const fault = import_.isUnchecked ? nullptr : FaultOfCommand(command.key, *bytes);
        if (fault)
            return errors_.add(fault + std::string("; --unchecked stores it all the same"));
        errors_.about(place + ".key");
        const auto [earlier, isNew] = indexes_.emplace(command.key, index);
        if (!isNew && !import_.isUnchecked)
            return errors_.add("$[" + std::to_string(earlier->second) + "] has that key, too");
        put(command);
    }

    CommandTable table() const {
        CommandTable table = BuiltInCommands();
        table.reserve(table.count() + commands_.upperBound());
        for (const ExchangedCommand& command : commands_) {
            const std::string bytes = BytesOfHex(command.bytes).value_or("");
            table.add({command.key, bytes, command.firstSpare, command.secondSpare});
        }
        return table;
    }

private:
    void put(const ExchangedCommand& command) {
        const auto [place, isNew] = numbers_.emplace(command.key, commands_.upperBound() + 1);
        if (import_.merged && !isNew) {
            commands_.at(place->second) = command;
            return;
        }
        if (BuiltInCommandCount() + commands_.upperBound() >= kMostCommands)
            return errors_.add("a table has at most " + std::to_string(kMostCommands) + " commands");
        commands_.resize(commands_.upperBound() + 1);
        commands_.at(commands_.upperBound()) = command;
    }

    const CommandsImport& import_;
    ErrorLines& errors_;
    ExchangedCommands commands_;
    std::unordered_map<std::string, std::int32_t> numbers_; ///< In `commands_`, by key.
    std::unordered_map<std::string, std::int32_t> indexes_; ///< In the file, by key.
};

struct CommandsExchangeOptions {
    OutputOptions output;
    ImportOptions input;
};

ExitCode exportCommands(const CommandsExchangeOptions& options, Session& session) {
    return WithStoredCommands(session.errors, [&](const CommandTable& table) {
        return session.errors.empty() ? WriteJsonExport(options.output, CommandsToExchange(table), session)
                                      : ExitCode::failed;
    });
}

ExitCode importCommands(const CommandsExchangeOptions& options, Session& session) {
    const std::optional<std::string> text = ReadImport(options.input, session.errors);
    if (!text)
        return ExitCode::failed;
    CommandTableOutcome loaded;
    if (options.input.merges)
        loaded = LoadStoredCommands(session.errors);
    if (!session.errors.empty())
        return ExitCode::failed;
    const CommandsImport import{InputName(options.input.file), options.input.isUnchecked,
                                options.input.merges ? &loaded.table : nullptr};
    const std::optional<CommandTable> table = CommandsOfJson(*text, import, session.errors);
    if (!table)
        return ExitCode::failed;
    const SavedCommandTable saved = SaveCommandTable(*table, loaded.source);
    if (saved.error) {
        session.errors.about("the command table cannot be saved");
        session.errors.add(*saved.error);
        return ExitCode::failed;
    }
    session.out << Visible(saved.path + ": imported " + import.fileName) << "; "
                << Counted(table->count(), "command") << " now\n";
    if (saved.keptAs)
        session.out << Visible("The table before is kept as " + *saved.keptAs) << '\n';
    return ExitCode::done;
}

} // namespace

std::string HexText(std::string_view bytes) {
    std::string text;
    for (const char character : bytes) {
        if (!text.empty())
            text += ' ';
        AppendHex(text, static_cast<unsigned char>(character));
    }
    return text;
}

std::optional<std::string> BytesOfHex(const std::string& text) {
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

const char* FaultOfCommand(const std::string& key, const std::string& bytes) {
    return bytes.empty()                 ? "a command needs bytes"
           : key.empty()                 ? "a command needs a key"
           : BuiltInCommands().find(key) ? "a built-in command cannot be changed"
           : (key + bytes).find_first_of("\n\r\xff") != key.npos
               ? "a command table cannot hold the bytes 0A, 0D and FF"
               : nullptr;
}

void Exchanged<ExchangedCommand>::addMembers(JsonKind& kind) {
    for (std::size_t index : {kCommandKey, kCommandBytes})
        kind.members.at(index).isRequired = true;
    kind.members.at(kCommandBytes).pattern = kHexPattern;
}

ExchangedCommands CommandsToExchange(const CommandTable& table) {
    ExchangedCommands commands;
    commands.reserve(table.count());
    for (std::int32_t number = BuiltInCommandCount() + 1; number <= table.count(); ++number) {
        const auto& [key, bytes, firstSpare, secondSpare] = table.rows().at(number).sCMDInfo;
        commands.resize(commands.upperBound() + 1);
        commands.at(commands.upperBound()) = {key, HexText(bytes), firstSpare, secondSpare};
    }
    return commands;
}

std::optional<CommandTable> CommandsOfJson(const std::string& text, const CommandsImport& import,
                                           ErrorLines& errors) {
    const std::size_t before = errors.count();
    ExchangedCommands read;
    errors.about(import.fileName);
    if (!ReadJson(text, read, errors))
        return std::nullopt;
    CommandCollector commands(import, errors);
    std::int32_t index = 0;
    for (const ExchangedCommand& command : read)
        commands.add(command, index++);
    return errors.count() == before ? std::optional(commands.table()) : std::nullopt;
}

void AddCommandsExchange(CLI::App& commands, Session& session) {
    const auto options = std::make_shared<CommandsExchangeOptions>();
    AddExportOptions(AddCommand(commands, "export", "Writes the commands that are not built in as JSON",
                                "vistrel commands export --out commands.json", session, options,
                                &exportCommands),
                     options->output);
    AddImportOptions(
        AddCommand(commands, "import",
                   "Replaces the commands that are not built in by those of a JSON file, once all of it has "
                   "been checked",
                   "vistrel commands import commands.json", session, options, &importCommands),
        options->input,
        {"Changes the commands that have the same keys, keeps all others, and adds those that are new",
         "Takes commands that nobody can use, too"});
}

} // namespace qrtVistrelClasses4
