// The playfile: one quoted value a line, in a fixed order, without names or version.
#pragma once

#include "frame/QuotedLines.h"
#include <qrtVistrelClasses4/FrameRecord.h>

#include <cstdint>

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

/// Reads the values of a frame and gives it as many lines as the file says; existing lines keep their
/// content. After an error, the values before the bad one have been read.
void ReadFrameValues(QuotedLineReader& in, FrameRecord& frame);
void ReadLineValues(QuotedLineReader& in, LineRecord& line);

/// Writes a frame with its lines.
void WriteFrame(QuotedLineWriter& out, const FrameRecord& frame);

} // namespace qrtVistrelClasses4
