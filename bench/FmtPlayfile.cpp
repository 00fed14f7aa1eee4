#include "bench/FmtPlayfile.h"

#include "bench/WholeFile.h"
#include "playfile/PlayfileFormat.h"

#include <fmt/compile.h>

#include <algorithm>

namespace qrtVistrelClasses4::bench {
namespace {

template <class Value>
void put(fmt::memory_buffer& file, const Value& value) {
    fmt::format_to(fmt::appender(file), FMT_COMPILE("\"{}\"\r\n"), value);
}
void put(fmt::memory_buffer& file, bool flag) { put(file, flag ? "True" : "False"); }
void put(fmt::memory_buffer& file, const std::string& text) {
    const std::size_t start = file.size() + 1;
    put(file, std::string_view(text));
    if (text.find('"') != text.npos)
        std::replace(file.begin() + start, file.begin() + start + text.size(), '"', kStoredQuote);
}
template <class Value, std::size_t count>
void put(fmt::memory_buffer& file, const std::array<Value, count>& values) {
    for (const Value& value : values)
        put(file, value);
}

template <class Record>
void putAll(fmt::memory_buffer& file, const Record& record) {
    ForEachFileRow(kMembersOf<Record>, [&](const auto& row) { put(file, record.*row.member); });
}

} // namespace

void FormatPlayfile(const Frames& frames, fmt::memory_buffer& file) {
    fmt::format_to(fmt::appender(file), FMT_COMPILE(" {} \r\n"), frames.upperBound());
    for (const FrameRecord& frame : frames) {
        putAll(file, frame);
        put(file, frame.lines.upperBound());
        for (const LineRecord& line : frame.lines)
            putAll(file, line);
    }
}

void SaveWithFmt(const Frames& frames, const std::string& path) {
    fmt::memory_buffer file;
    FormatPlayfile(frames, file);
    WriteNewFile(path, {file.data(), file.size()});
}

} // namespace qrtVistrelClasses4::bench
