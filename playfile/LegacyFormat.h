// Playfiles of the older generation: a mark, then records of one size. Only a part of a record is known.
#pragma once

#include "platform/FileSystem.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qrtVistrelClasses4 {

inline constexpr std::string_view kLegacyMark = "PLWREV 1.50";
inline constexpr std::size_t kLegacyRecordSize = 18704;
/// The known fields lie within this many bytes at the start of a record.
inline constexpr std::size_t kLegacyUsedSize = 1124;
inline constexpr std::size_t kLegacyFlagCount = 24;

/// True if a playfile of that name is of this format: the name ends in "PL2", in any case.
bool HasLegacyEnding(std::string_view fileName);

/// One frame as the file holds it.
struct LegacyRecord {
    std::string prefixKeyword;
    std::int32_t delay = 0; ///< Seconds.
    std::string text;       ///< Lines separated by `kLegacyLineEnd`.
    std::string suffixKeyword;
    std::uint8_t fontCode = 0; ///< See `FontOfLegacyCode`.
    std::array<std::uint8_t, kLegacyFlagCount> lineFlags{};
    std::string reference; ///< Of a command file or a picture, with a width.

    bool operator==(const LegacyRecord&) const = default;
};

inline constexpr char kLegacyLineEnd = '\x1f';

/// True for the suffix keyword that joins all lines of the text into one scrolling line: "SC", in any case.
bool IsJoiningKeyword(std::string_view keyword);

/// The font number for a record's code, if the code is known.
std::optional<std::int16_t> FontOfLegacyCode(std::uint8_t code);

/// The known fields of a record. `bytes` are its first `kLegacyUsedSize` ones.
LegacyRecord ReadLegacyRecord(std::string_view bytes);

/// Bytes of a record, from its start.
struct LegacyByteRange {
    std::size_t first = 0;
    std::size_t last = 0; ///< Included.
};
/// The bytes that the known fields of a record are made of, in rising order.
std::vector<LegacyByteRange> KnownLegacyBytes();

/// Whether the file starts with the mark. Here and below, a failure of the system is thrown as a
/// `RuntimeError`.
bool HasLegacyMark(InputFile& file);

/// The number of whole records in a file with the mark, and of the bytes after them.
struct LegacyExtent {
    std::uint64_t records = 0;
    std::uint64_t bytesAfter = 0;
};
LegacyExtent ExtentOf(const InputFile& file);

/// Place of record `index` (from 0) in the file.
constexpr std::uint64_t LegacyRecordStart(std::uint64_t index) {
    return kLegacyMark.size() + index * kLegacyRecordSize;
}

/// Reads the whole records of a file with the mark, at most `most` of them.
std::vector<LegacyRecord> ReadLegacyRecords(InputFile& file, std::size_t most);

enum class LegacyFileKind { none, command, leaveCommand, bitmap, animation };

struct LegacyReference {
    std::string fileName; ///< Without "Width=" and its number.
    std::optional<std::string_view>
        width; ///< The text of the number; lives as long as the record's reference.
    LegacyFileKind kind() const;
};
LegacyReference SplitLegacyReference(std::string_view reference);

} // namespace qrtVistrelClasses4
