#include "bench/JsonPlayfile.h"

#include "bench/Ratio.h"
#include "playfile/PlayfileFormat.h"

#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

namespace qrtVistrelClasses4::bench {
namespace {

using Writer = rapidjson::Writer<rapidjson::StringBuffer>;

void put(Writer& out, bool flag) { out.Bool(flag); }
void put(Writer& out, std::int32_t number) { out.Int(number); }
void put(Writer& out, double number) { out.Double(number); }
void put(Writer& out, const std::string& text) {
    out.String(text.data(), static_cast<rapidjson::SizeType>(text.size()));
}
template <class Value, std::size_t count>
void put(Writer& out, const std::array<Value, count>& values) {
    out.StartArray();
    for (const Value& value : values)
        put(out, value);
    out.EndArray();
}

template <class Record, class Fields>
void putAll(Writer& out, const Record& record, const Fields& fields) {
    int spares = 0;
    const auto putField = [&](const auto& field) {
        const std::string name =
            field.name.empty() ? "Spare" + std::to_string(++spares) : std::string(field.name);
        out.Key(name.c_str());
        put(out, record.*field.member);
    };
    std::apply([&](const auto&... field) { (putField(field), ...); }, fields);
}

} // namespace

std::string MakeJson(const Frames& frames) {
    rapidjson::StringBuffer text;
    Writer out(text);
    out.StartArray();
    for (const FrameRecord& frame : frames) {
        out.StartObject();
        putAll(out, frame, kFrameFields);
        out.Key("Lines");
        out.StartArray();
        for (const LineRecord& line : frame.lines) {
            out.StartObject();
            putAll(out, line, kLineFields);
            out.EndObject();
        }
        out.EndArray();
        out.EndObject();
    }
    out.EndArray();
    return {text.GetString(), text.GetSize()};
}

ParsedJson::ParsedJson(const std::string& path) : file(ReadWholeFile(path)) {
    document.ParseInsitu(file.bytes.get());
}

JsonContents ReadJson(const std::string& path) {
    const ParsedJson parsed(path);
    Require(!parsed.document.HasParseError(), "the JSON does not parse");
    JsonContents contents;
    for (const auto& frame : parsed.document.GetArray()) {
        ++contents.frames;
        contents.delaySeconds += frame["Delay_Time"].GetDouble();
        for (const auto& line : frame["Lines"].GetArray()) {
            ++contents.lines;
            contents.textSize += line["RTF_Text"].GetStringLength();
        }
    }
    return contents;
}

} // namespace qrtVistrelClasses4::bench
