// The playfile: one quoted value a line, in a fixed order, without names or version.
#pragma once

#include "frame/Conversions.h"
#include "frame/QuotedLines.h"
#include <qrtVistrelClasses4/FrameRecord.h>

#include <array>
#include <cstdint>
#include <type_traits>

namespace qrtVistrelClasses4 {

/// Calls `visit(row)` for each member of a record that files hold, in file order.
template <class Table, class Visit>
constexpr void ForEachFileRow(const Table& table, Visit&& visit) {
    ForEachRow(table, [&](const auto& row) {
        if (row.isInFile())
            visit(row);
    });
}

/// What a playfile starts with. Reading throws like `QuotedLineReader::get`.
std::int16_t ReadFrameCount(QuotedLineReader& in);
void WriteFrameCount(QuotedLineWriter& out, std::int32_t count);

template <class Value>
void ReadValue(QuotedLineReader& in, Quirk quirk, Value& value) {
    if constexpr (std::is_same_v<Value, std::int16_t>) {
        if (quirk == Quirk::roundedWhenRead) {
            double number = 0;
            in.get(number);
            value = RoundToInt16(number);
            return;
        }
    }
    in.get(value);
}
template <class Value, std::size_t count>
void ReadValue(QuotedLineReader& in, Quirk /*quirk*/, std::array<Value, count>& values) {
    in.get(values);
}

/// Reads the values of a line, or those of a frame up to its number of lines. `onRead(row)` is called after
/// the value of each row, so that the caller knows what was read before an error.
template <class Record, class OnRead>
void ReadValues(QuotedLineReader& in, Record& record, OnRead onRead) {
    ForEachFileRow(kMembersOf<Record>, [&](const auto& row) {
        ReadValue(in, row.quirk, record.*row.member);
        onRead(row);
    });
}
/// Reads how many lines a frame has. Existing lines keep their content.
void ReadLineCount(QuotedLineReader& in, FrameRecord& frame);

/// Writes a frame with its lines.
void WriteFrame(QuotedLineWriter& out, const FrameRecord& frame);

} // namespace qrtVistrelClasses4
