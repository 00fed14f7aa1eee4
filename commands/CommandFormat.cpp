#include "commands/CommandFormat.h"

#include "frame/TextLines.h"

#include <algorithm>
#include <iterator>
#include <tuple>

namespace qrtVistrelClasses4 {
namespace {

constexpr char kFieldEnd = '\xff';

/// The row of a line: missing fields are empty, and further ones are dropped.
CommandInfoType rowOf(std::string_view line) {
    CommandInfoType row;
    for (std::string& field : row.sCMDInfo) {
        const std::size_t end = std::min(line.find(kFieldEnd), line.size());
        field = line.substr(0, end);
        line.remove_prefix(std::min(end + 1, line.size()));
    }
    return row;
}

} // namespace

bool MayBeCommandTable(std::string_view text) {
    constexpr auto fieldEnds = std::tuple_size_v<decltype(CommandInfoType::sCMDInfo)> - 1;
    for (std::int32_t number = 1; number <= BuiltInCommandCount() && !text.empty(); ++number) {
        const TextLine line = FirstLine(text);
        text.remove_prefix(line.size);
        const auto found = static_cast<std::size_t>(std::ranges::count(line.text, kFieldEnd));
        if (!line.text.empty() && found < fieldEnds)
            return false;
    }
    return true;
}

bool ReadCommandRows(std::string_view text, CommandTable& commands) {
    for (std::int32_t number = 1; !text.empty(); ++number) {
        const TextLine line = FirstLine(text);
        text.remove_prefix(line.size);
        if (number <= BuiltInCommandCount())
            continue;
        if (number > kMostCommands)
            return false;
        commands.add(rowOf(line.text));
    }
    return true;
}

void WriteCommandRows(BufferedText& out, const CommandTable& commands) {
    for (const CommandInfoType& command : commands.rows()) {
        const auto& info = command.sCMDInfo;
        out.append(info.front());
        for (auto field = std::next(info.begin()); field != info.end(); ++field) {
            out.appendLiteral("\xff");
            out.append(*field);
        }
        out.appendLiteral("\r\n");
    }
}

} // namespace qrtVistrelClasses4
