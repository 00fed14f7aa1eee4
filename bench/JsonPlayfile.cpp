#include "bench/JsonPlayfile.h"

#include "bench/Json.h"
#include "bench/Ratio.h"
#include "playfile/PlayfileFormat.h"

namespace qrtVistrelClasses4::bench {
namespace {

template <class Record>
void putAll(JsonWriter& out, const Record& record) {
    int spares = 0;
    ForEachFileRow(kMembersOf<Record>, [&](const auto& row) {
        std::string name(row.fileName);
        if (row.fileName == kSpare)
            name += std::to_string(++spares);
        PutKey(out, name);
        PutJson(out, record.*row.member);
    });
}

} // namespace

std::string MakeJson(const Frames& frames) {
    rapidjson::StringBuffer text;
    JsonWriter out(text);
    out.StartArray();
    for (const FrameRecord& frame : frames) {
        out.StartObject();
        putAll(out, frame);
        out.Key("Lines");
        out.StartArray();
        for (const LineRecord& line : frame.lines) {
            out.StartObject();
            putAll(out, line);
            out.EndObject();
        }
        out.EndArray();
        out.EndObject();
    }
    out.EndArray();
    return std::string(TextOf(text));
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
