// JSON, for the parser and the writer that the library is measured against.
#pragma once

#include "bench/WholeFile.h"

#include <rapidjson/document.h>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace qrtVistrelClasses4::bench {

using JsonWriter = rapidjson::Writer<rapidjson::StringBuffer>;

inline rapidjson::SizeType JsonSize(std::string_view text) {
    return static_cast<rapidjson::SizeType>(text.size());
}
inline void PutKey(JsonWriter& out, std::string_view name) { out.Key(name.data(), JsonSize(name)); }

inline void PutJson(JsonWriter& out, bool flag) { out.Bool(flag); }
inline void PutJson(JsonWriter& out, std::int32_t number) { out.Int(number); }
inline void PutJson(JsonWriter& out, double number) { out.Double(number); }
inline void PutJson(JsonWriter& out, const std::string& text) { out.String(text.data(), JsonSize(text)); }
template <class Value, std::size_t count>
void PutJson(JsonWriter& out, const std::array<Value, count>& values) {
    out.StartArray();
    for (const Value& value : values)
        PutJson(out, value);
    out.EndArray();
}

inline std::string_view TextOf(const rapidjson::StringBuffer& buffer) {
    return {buffer.GetString(), buffer.GetSize()};
}

/// A file read whole and parsed in place.
struct ParsedJson {
    explicit ParsedJson(const std::string& path) : file(ReadWholeFile(path)) {
        document.ParseInsitu(file.bytes.get());
    }

    WholeFile file; ///< Holds the texts of `document`.
    rapidjson::Document document;
};

} // namespace qrtVistrelClasses4::bench
