// Any bytes as the command table, up to a NUL; then keys and byte strings to set, each up to a NUL.
#include "Fuzz.h"
#include "commands/CommandFormat.h"
#include <qrtVistrelClasses4/clsCommandInterface.h>

#include <algorithm>
#include <optional>

namespace qrtVistrelClasses4 {
namespace {

using Rows = OneBasedArray<CommandInfoType>;

/// The first row of a plain list with that key.
template <class List>
auto find(List& rows, const std::string& key) {
    const auto isMeant = [&](const CommandInfoType& row) { return row.sCMDInfo[kCommandKey] == key; };
    return std::ranges::find_if(rows, isMeant);
}

/// Sets the bytes in a plain list.
void set(Rows& rows, const std::string& key, const std::string& bytes) {
    if (key.empty() || bytes.empty())
        return;
    if (const auto row = find(rows, key); row != rows.end()) {
        row->sCMDInfo[kCommandBytes] = bytes;
    } else {
        rows.resize(rows.upperBound() + 1);
        rows.at(rows.upperBound()) = {{key, bytes}};
    }
}

bool comesBack(const std::string& text) { return text.find_first_of("\n\xff") == text.npos; }

} // namespace

void RunFuzzed(FuzzedInput input) {
    TestHost host;
    const std::string path = host.inLibrary(JoinPath("db", "VistrelLite.dat"));
    const auto rowsInFile = [&] {
        CommandTable table = BuiltInCommands();
        Require(ReadCommandRows(host.machine.files().content(path).value_or(""), table), "rows have numbers");
        return table.rows();
    };
    const std::string text = input.text();
    host.machine.files().put(path, text);
    Rows rows = rowsInFile();
    { const clsCommandInterface table; }
    Require(rowsInFile() == rows, "every row is kept");

    std::optional<clsCommandInterface> table(std::in_place);
    bool allComeBack = true;
    while (!input.atEnd()) {
        const std::string key = input.text();
        const std::string bytes = input.text();
        table->sCommandBytesByKey(key, bytes);
        set(rows, key, bytes);
        allComeBack = allComeBack && comesBack(key) && comesBack(bytes);
        Require(key.empty() || bytes.empty() || table->sCommandBytesByKey(key) == bytes,
                "a key has the bytes set last");
        Require(table->iTotalCommands() == rows.upperBound(), "a known key gets no row");
    }
    const CommandTable copy = table->Value();
    for (std::int16_t number = 1; number <= rows.upperBound(); ++number) {
        const std::string& key = rows.at(number).sCMDInfo[kCommandKey];
        Require(table->sCommandKeyByNum(number) == key, "rows keep places");
        Require(copy.find(key) == find(rows, key) - rows.begin() + 1, "the first row with a key is found");
    }
    table.reset();
    for (std::int32_t number = 1; number <= BuiltInCommandCount(); ++number)
        rows.at(number) = BuiltInCommands().rows().at(number); // change in memory only
    Require(!allComeBack || rowsInFile() == rows, "what was set comes back");
    const bool isForeign = !host.reports.all.empty();
    Require(host.machine.files().content(path + ".bak") == (isForeign ? std::optional(text) : std::nullopt),
            "nothing of it is an error, and a file that was no table is kept");
}

} // namespace qrtVistrelClasses4
