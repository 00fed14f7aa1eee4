#include "playfile/PlayfileFormat.h"

#include "frame/Conversions.h"

#include <array>
#include <type_traits>

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

/// A whole number that old files hold with decimals.
void getRounded(QuotedLineReader& in, std::int16_t& value) {
    double number = 0;
    in.get(number);
    value = RoundToInt16(number);
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

template <class Record>
void getAll(QuotedLineReader& in, Record& record) {
    ForEachFileRow(kMembersOf<Record>, [&](const auto& row) {
        if constexpr (std::is_same_v<ValueOfRow<std::remove_cvref_t<decltype(row)>>, std::int16_t>)
            if (row.quirk == Quirk::roundedWhenRead)
                return getRounded(in, record.*row.member);
        getValue(in, record.*row.member);
    });
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

void ReadFrameValues(QuotedLineReader& in, FrameRecord& frame) {
    getAll(in, frame);
    std::int16_t lineCount = 0;
    in.get(lineCount);
    frame.lines.resize(lineCount);
}

void ReadLineValues(QuotedLineReader& in, LineRecord& line) { getAll(in, line); }

void WriteFrame(QuotedLineWriter& out, const FrameRecord& frame) {
    putAll(out, frame);
    out.put(frame.lines.upperBound());
    for (const LineRecord& line : frame.lines)
        putAll(out, line);
}

} // namespace qrtVistrelClasses4
