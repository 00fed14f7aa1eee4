#include "playfile/PlayfileFormat.h"

#include <array>

namespace qrtVistrelClasses4 {
namespace {

template <class Value>
void getValue(QuotedLineReader& in, Value& value) {
    in.get(value);
}
template <class Value, std::size_t count>
void getValue(QuotedLineReader& in, std::array<Value, count>& values) {
    for (Value& value : values)
        in.get(value);
}

template <class Record, class Value>
void getField(QuotedLineReader& in, Record& record, const PlayfileField<Record, Value>& field) {
    getValue(in, record.*field.member);
}
template <class Record>
void getField(QuotedLineReader& in, Record& record, const RoundedPlayfileField<Record>& field) {
    double number = 0;
    in.get(number);
    record.*field.member = RoundToInt16(number);
}

template <class Value>
void putValue(QuotedLineWriter& out, const Value& value) {
    out.put(value);
}
template <class Value, std::size_t count>
void putValue(QuotedLineWriter& out, const std::array<Value, count>& values) {
    for (const Value& value : values)
        out.put(value);
}

template <class Record, class Fields>
void getAll(QuotedLineReader& in, Record& record, const Fields& fields) {
    std::apply([&](const auto&... field) { (getField(in, record, field), ...); }, fields);
}
template <class Record, class Fields>
void putAll(QuotedLineWriter& out, const Record& record, const Fields& fields) {
    std::apply([&](const auto&... field) { (putValue(out, record.*field.member), ...); }, fields);
}

} // namespace

std::int16_t ReadFrameCount(QuotedLineReader& in) {
    std::int16_t count = 0;
    in.get(count);
    return count;
}

void WriteFrameCount(QuotedLineWriter& out, std::int32_t count) {
    out.putPlainLine(' ' + NumberToText(count) + ' '); // a blank where a minus sign would stand
}

void ReadFrameValues(QuotedLineReader& in, FrameRecord& frame) {
    getAll(in, frame, kFrameFields);
    std::int16_t lineCount = 0;
    in.get(lineCount);
    frame.lines.resize(lineCount);
}

void ReadLineValues(QuotedLineReader& in, LineRecord& line) { getAll(in, line, kLineFields); }

void WriteFrame(QuotedLineWriter& out, const FrameRecord& frame) {
    putAll(out, frame, kFrameFields);
    out.put(frame.lines.upperBound());
    for (const LineRecord& line : frame.lines)
        putAll(out, line, kLineFields);
}

} // namespace qrtVistrelClasses4
