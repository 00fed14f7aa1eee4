#include <qrtVistrelClasses4/CommandTable.h>

#include <qrtVistrelClasses4/RuntimeError.h>

#include <algorithm>
#include <bit>
#include <functional>
#include <iterator>
#include <limits>
#include <string_view>
#include <utility>

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
    const std::string military = bytesOf(kMilitaryTime);
    for (const auto& [key, bytes] : kBuiltInCommands)
        commands.add({key, bytes.empty() ? std::string_view(military) : bytes});
    return commands;
}

/// The slot of the first row with that key, or the free one where it belongs.
std::size_t CommandTable::slotOf(const std::string& key) const {
    const std::size_t last = slots_.size() - 1;
    std::size_t slot = std::hash<std::string>()(key) & last;
    while (slots_[slot] != 0 && this->key(slots_[slot]) != key)
        slot = (slot + 1) & last;
    return slot;
}

void CommandTable::enterRow(std::int32_t number) {
    if (std::uint16_t& slot = slots_[slotOf(key(number))]; slot == 0)
        slot = static_cast<std::uint16_t>(number);
}

void CommandTable::reserve(std::int32_t rows) {
    static_assert(kMostCommands <= std::numeric_limits<std::uint16_t>::max());
    rows_.reserve(rows);
    const auto fewestSlots = 2 * static_cast<std::size_t>(rows);
    if (fewestSlots <= slots_.size())
        return;
    slots_ = std::vector<std::uint16_t>(std::bit_ceil(fewestSlots));
    for (std::int32_t number = 1; number <= count(); ++number)
        enterRow(number);
}

void CommandTable::add(const CommandTexts& texts) {
    const std::int32_t number = count() + 1;
    if (number > kMostCommands)
        Raise(ErrorNumber::overflow);
    if (slots_.size() < 2 * static_cast<std::size_t>(number))
        reserve(std::min(2 * number, kMostCommands));
    rows_.resize(number);
    try {
        std::ranges::copy(texts, rows_.at(number).sCMDInfo.begin());
    } catch (...) {
        rows_.resize(number - 1);
        throw;
    }
    enterRow(number);
}

std::optional<std::int32_t> CommandTable::find(const std::string& key) const {
    const std::int32_t number = slots_.empty() ? 0 : slots_[slotOf(key)];
    return number == 0 ? std::nullopt : std::optional(number);
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
    const CommandInfoType row{{key, bytes}}; // these may be texts of other rows
    add({row.sCMDInfo[kCommandKey], row.sCMDInfo[kCommandBytes]});
}

} // namespace qrtVistrelClasses4
