#include "bench/JsonDisplays.h"

#include "bench/Json.h"
#include "bench/Ratio.h"

#include <string_view>

namespace qrtVistrelClasses4::bench {
namespace {

template <class Record, class Table>
void putAll(JsonWriter& out, const Record& record, const Table& table) {
    ForEachValue(record, table, [&](std::string_view name, const auto& value) {
        PutKey(out, name.empty() ? "Reserved" : name);
        PutJson(out, value);
    });
}

void add(DisplayContents& contents, std::string_view text) {
    ++contents.texts;
    contents.textSize += text.size();
}
void add(DisplayContents& contents, std::int32_t number) {
    ++contents.numbers;
    contents.sum += number;
}
void add(DisplayContents& contents, bool flag) {
    ++contents.flags;
    contents.flagsSet += flag ? 1 : 0;
}

void addAll(DisplayContents& contents, const rapidjson::Value& value) {
    if (value.IsString()) {
        add(contents, std::string_view(value.GetString(), value.GetStringLength()));
    } else if (value.IsInt()) {
        add(contents, value.GetInt());
    } else if (value.IsBool()) {
        add(contents, value.GetBool());
    } else if (value.IsArray()) {
        for (const auto& element : value.GetArray())
            addAll(contents, element);
    } else {
        for (const auto& member : value.GetObject())
            addAll(contents, member.value);
    }
}

} // namespace

void SaveAsJson(const Displays& displays, const std::string& path) {
    rapidjson::StringBuffer text;
    JsonWriter out(text);
    out.StartArray();
    for (const DisplayRecord& display : displays) {
        out.StartObject();
        putAll(out, display, kDisplayMembers);
        PutKey(out, "Schedules");
        out.StartArray();
        for (const BrightnessSchedule& schedule : display.schedules) {
            out.StartObject();
            putAll(out, schedule, kScheduleMembers);
            out.EndObject();
        }
        out.EndArray();
        out.EndObject();
    }
    out.EndArray();
    WriteNewFile(path, TextOf(text));
}

DisplayContents ContentsOf(const Displays& displays) {
    DisplayContents contents;
    const auto addValue = [&](std::string_view, const auto& value) { add(contents, value); };
    for (const DisplayRecord& display : displays) {
        ForEachValue(display, kDisplayMembers, addValue);
        for (const BrightnessSchedule& schedule : display.schedules)
            ForEachValue(schedule, kScheduleMembers, addValue);
    }
    return contents;
}

DisplayContents ContentsOfJson(const std::string& path) {
    const ParsedJson parsed(path);
    Require(!parsed.document.HasParseError(), "the JSON does not parse");
    DisplayContents contents;
    addAll(contents, parsed.document);
    return contents;
}

} // namespace qrtVistrelClasses4::bench
