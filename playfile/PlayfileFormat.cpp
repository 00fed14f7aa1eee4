#include "playfile/PlayfileFormat.h"

#include "frame/Conversions.h"

#include <array>

namespace qrtVistrelClasses4 {
namespace {

template <class Value>
void putValue(QuotedLineWriter& out, const Value& value) {
    out.put(value);
}
template <class Value, std::size_t count>
void putValue(QuotedLineWriter& out, const std::array<Value, count>& values) {
    for (const Value& value : values)
        out.put(value);
}

template <class Record>
void putAll(QuotedLineWriter& out, const Record& record) {
    ForEachFileRow(kMembersOf<Record>, [&](const auto& row) { putValue(out, record.*row.member); });
}

} // namespace

std::int16_t ReadFrameCount(QuotedLineReader& in) {
    std::int16_t count = 0;
    in.get(count);
    return count;
}

void WriteFrameCount(QuotedLineWriter& out, std::int32_t count) {
    out.putPlainLine(' ' + NumberToText(count) + ' '); // the blank takes the place of a minus sign
}

void ReadLineCount(QuotedLineReader& in, FrameRecord& frame) {
    std::int16_t count = 0;
    in.get(count);
    frame.lines.resize(count);
}

void WriteFrame(QuotedLineWriter& out, const FrameRecord& frame) {
    putAll(out, frame);
    out.put(frame.lines.upperBound());
    for (const LineRecord& line : frame.lines)
        putAll(out, line);
}

} // namespace qrtVistrelClasses4
