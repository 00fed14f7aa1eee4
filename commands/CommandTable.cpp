#include <qrtVistrelClasses4/CommandTable.h>

#include <iterator>
#include <string_view>

namespace qrtVistrelClasses4 {
namespace {

/// Its two bytes are the command for the 24-hour clock.
constexpr std::int16_t kMilitaryTime = 7700;

struct BuiltInCommand {
    std::string_view key;
    std::string_view bytes; ///< If empty, those of `kMilitaryTime`.
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

} // namespace

std::int32_t BuiltInCommandCount() { return static_cast<std::int32_t>(std::size(kBuiltInCommands)); }

CommandTable BuiltInCommands() {
    CommandTable commands;
    for (const auto& [key, bytes] : kBuiltInCommands)
        commands.add({{std::string(key), bytes.empty() ? bytesOf(kMilitaryTime) : std::string(bytes)}});
    return commands;
}

std::optional<std::int32_t> CommandTable::find(const std::string& key) const {
    if (const auto known = index_.find(key); known != index_.end())
        return known->second;
    while (indexed_ < count()) {
        const std::string& next = this->key(indexed_ + 1);
        index_.try_emplace(next, indexed_ + 1);
        ++indexed_;
        if (next == key)
            return indexed_;
    }
    return std::nullopt;
}

std::string CommandTable::bytesOf(const std::string& key) const {
    const std::optional<std::int32_t> number = find(key);
    return number ? rows_.at(*number).sCMDInfo[kCommandBytes] : key;
}

void CommandTable::set(const std::string& key, const std::string& bytes) {
    if (key.empty() || bytes.empty())
        return;
    if (const std::optional<std::int32_t> number = find(key)) {
        rows_.at(*number).sCMDInfo[kCommandBytes] = bytes;
        return;
    }
    add({{key, bytes}});
}

} // namespace qrtVistrelClasses4
