#include "commands/CommandTable.h"

#include "frame/TextLines.h"

#include <algorithm>
#include <iterator>
#include <tuple>

namespace qrtVistrelClasses4 {
namespace {

constexpr char kFieldEnd = '\xff';

/// Its two bytes are the command for the 24-hour clock.
constexpr std::int16_t kMilitaryTime = 7700;

struct BuiltInCommand {
    std::string_view key;
    std::string_view bytes; ///< Empty: those of `kMilitaryTime`.
};

constexpr BuiltInCommand kBuiltInCommands[] = {
    {"|h:m|", "\x14"},
    {"|hm|", ""},
    {"|m/dd/y|", "\x04"
                 "1"},
    {"|mmmmmmm_dd,_yyy|", "\x04"
                          "2"},
    {"|dddddddd_mmmmmmmm_dd,_yyy|", "\x04"
                                    "3"},
    {"|mm_d|", "\x04"
               "4"},
    {"|ddddddd|", "\x04"
                  "5"},
    {"##F", "\x06"},
    {"##C", "\x03"},
    {"\xa6", "\x7f"},
    {"|CMMMMMM_DD,_YYY|", "\x04"
                          "6"},
    {"|CDDDDDDD_MMMMMMMM_DD,_YYY|", "\x04"
                                    "7"},
    {"|CM_D|", "\x04"
               "8"},
    {"|CDDDDDD|", "\x04"
                  "9"},
};

/// High byte, then low byte. A negative number has the high byte 255.
std::string bytesOf(std::int16_t number) {
    const int high = number < 0 ? 255 : (number / 256) & 0xff;
    return {static_cast<char>(high), static_cast<char>(number & 0xff)};
}

/// Puts the fields of a line into a row: what is missing is empty, what is more is dropped.
void readRow(std::string_view line, CommandInfoType& row) {
    for (std::string& field : row.sCMDInfo) {
        const std::size_t end = std::min(line.find(kFieldEnd), line.size());
        field = line.substr(0, end);
        line.remove_prefix(std::min(end + 1, line.size()));
    }
}

} // namespace

std::int32_t BuiltInCommandCount() { return static_cast<std::int32_t>(std::size(kBuiltInCommands)); }

CommandTable BuiltInCommands() {
    CommandTable commands(BuiltInCommandCount());
    std::int32_t number = 0;
    for (const auto& [key, bytes] : kBuiltInCommands) {
        auto& info = commands.at(++number).sCMDInfo;
        info[kCommandKey] = key;
        info[kCommandBytes] = bytes.empty() ? bytesOf(kMilitaryTime) : std::string(bytes);
    }
    return commands;
}

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
        commands.resize(number);
        readRow(line.text, commands.at(number));
    }
    return true;
}

void WriteCommandRows(BufferedText& out, const CommandTable& commands) {
    for (const CommandInfoType& command : commands) {
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
