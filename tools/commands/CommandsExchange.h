// The commands that users added, as other programs write and read them.
#pragma once

#include "tools/exchange/RecordKinds.h"
#include "tools/program/Commands.h"
#include <qrtVistrelClasses4/CommandTable.h>

#include <optional>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

namespace qrtVistrelClasses4 {

/// The bytes as pairs of hexadecimal digits with blanks between them: "1B 80 46".
std::string HexText(std::string_view bytes);
/// The bytes of such a text, in which blanks may be missing; nothing if a word does not consist of pairs.
std::optional<std::string> BytesOfHex(const std::string& text);

/// The reason why the file would not keep a key with these bytes; nothing if it does.
const char* FaultOfCommand(const std::string& key, const std::string& bytes);

/// Bytes that the file of commands cannot have in a text.
inline constexpr std::string_view kNotInCommands = "\n\xff";

/// A command as it is in JSON.
struct ExchangedCommand {
    std::string key;
    std::string bytes; ///< See `HexText`.
    // They have no meaning here, but are kept from file to file.
    std::string firstSpare;
    std::string secondSpare;

    struct Text {
        using Record = ExchangedCommand;
        std::string_view name;
        std::string Record::*member;
    };
    static constexpr std::tuple kMembers{
        Text{"key", &ExchangedCommand::key}, Text{"bytes", &ExchangedCommand::bytes},
        Text{"", &ExchangedCommand::firstSpare}, Text{"", &ExchangedCommand::secondSpare}};
};

template <>
struct Exchanged<ExchangedCommand> {
    static constexpr const auto& rows = ExchangedCommand::kMembers;
    static constexpr std::int32_t most = kMostCommands;
    static bool canHold(std::string_view ansi) { return ansi.find_first_of(kNotInCommands) == ansi.npos; }
    static void addMembers(JsonKind& kind);
};

using ExchangedCommands = OneBasedArray<ExchangedCommand>;

/// Those of the table that are not built in.
ExchangedCommands CommandsToExchange(const CommandTable& table);

struct CommandsImport {
    std::string fileName;     ///< As error messages name it.
    bool isUnchecked = false; ///< Commands may be such as nobody can use.
    const CommandTable* merged =
        nullptr; ///< Its commands are kept, unless the file has others for their keys.
};

/// The table that a file makes. Returns nothing, after adding all errors, if anything in it is wrong.
std::optional<CommandTable> CommandsOfJson(const std::string& text, const CommandsImport& import,
                                           ErrorLines& errors);

/// Adds "export" and "import".
void AddCommandsExchange(CLI::App& commands, Session& session);

} // namespace qrtVistrelClasses4
