// The sign's commands as a value: keys in sign texts, and the bytes that the sign understands for them.
#pragma once

#include <qrtVistrelClasses4/Export.h>
#include <qrtVistrelClasses4/OneBasedArray.h>

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace QRT_PUBLIC qrtVistrelClasses4 {

/// One command: its key, its byte string (one byte a character), and two spare texts that files keep.
struct CommandInfoType {
    std::array<std::string, 4> sCMDInfo;

    bool operator==(const CommandInfoType&) const = default;
};

/// The texts of a new row, in the order of `sCMDInfo`. Texts that are left out are empty.
using CommandTexts = std::array<std::string_view, 4>;

/// Indexes into `sCMDInfo`, from 0.
inline constexpr std::size_t kCommandKey = 0;
inline constexpr std::size_t kCommandBytes = 1;

inline constexpr std::int32_t kMostCommands = 32767;

/// Rows of commands, numbered from 1: the built-in ones, then those that users added. Rows are only added at
/// the end or given other bytes. Keys are compared exactly; of two rows with the same key, the first counts.
class CommandTable {
public:
    const OneBasedArray<CommandInfoType>& rows() const { return rows_; }
    std::int32_t count() const { return rows_.upperBound(); }
    /// The key of row `number`; error 9 outside the table.
    const std::string& key(std::int32_t number) const { return rows_.at(number).sCMDInfo[kCommandKey]; }

    /// Number of the first row with that key.
    std::optional<std::int32_t> find(const std::string& key) const;
    /// Byte string of that row; the key itself if there is none.
    std::string bytesOf(const std::string& key) const;

    /// Sets the byte string of that row, or adds a row. Without a key or without bytes it does nothing. Error
    /// 6 if the table is full.
    void set(const std::string& key, const std::string& bytes);
    /// Adds a row at the end. The texts must not be those of another row. Error 6 if the table is full.
    void add(const CommandTexts& texts);
    /// Reserves memory for as many rows in all. The table keeps those that it has.
    void reserve(std::int32_t rows);

    bool operator==(const CommandTable& other) const { return rows_ == other.rows_; }

private:
    std::size_t slotOf(const std::string& key) const;
    void enterRow(std::int32_t number);

    OneBasedArray<CommandInfoType> rows_;
    /// A hash table with the number of the first row of each key, and 0 in free slots. There are at least
    /// twice as many slots as rows; their number is a power of two.
    std::vector<std::uint16_t> slots_;
};

/// The commands that every table starts with.
QRT_PUBLIC CommandTable BuiltInCommands();
QRT_PUBLIC std::int32_t BuiltInCommandCount();

} // namespace qrtVistrelClasses4
