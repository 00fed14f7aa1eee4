#include "commands/CommandFormat.h"

#include "frame/TextLines.h"

#include <algorithm>
#include <iterator>
#include <tuple>

namespace qrtVistrelClasses4 {
namespace {

constexpr char kFieldEnd = '\xff';

/// The texts of a line: missing ones are empty, and further ones are dropped.
CommandTexts textsOf(std::string_view line) {
    CommandTexts texts;
    for (std::string_view& text : texts) {
        text = line.substr(0, line.find(kFieldEnd));
        line.remove_prefix(std::min(text.size() + 1, line.size()));
    }
    return texts;
}

} // namespace

bool MayBeCommandTable(std::string_view text) {
    constexpr auto fieldEnds = std::tuple_size_v<CommandTexts> - 1;
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
    const auto lines = static_cast<std::size_t>(std::ranges::count(text, '\n')) + 1;
    commands.reserve(static_cast<std::int32_t>(std::min<std::size_t>(lines, kMostCommands)));
    for (std::int32_t number = 1; !text.empty(); ++number) {
        const TextLine line = FirstLine(text);
        text.remove_prefix(line.size);
        if (number <= BuiltInCommandCount())
            continue;
        if (number > kMostCommands)
            return false;
        commands.add(textsOf(line.text));
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
