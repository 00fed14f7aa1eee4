// Writing records as JSON: indented, and in ASCII, so that no control character of a file reaches a terminal.
#pragma once

#include "frame/BufferedText.h"
#include "tools/exchange/RecordKinds.h"

#include <cstddef>
#include <deque>
#include <string>
#include <string_view>
#include <vector>

namespace qrtVistrelClasses4 {

/// Writes values one after the other; arrays and objects are begun and ended. Errors of the file are thrown.
class JsonOutput {
public:
    /// `file` must outlive this object. The destructor writes nothing; call `finish`.
    explicit JsonOutput(ByteSink& file) : text_(file) {}

    /// Writes a record, or a list of records.
    template <class Value>
    void put(const Value& value) {
        put(JsonKindOf<Value>::get(), &value);
    }
    /// Writes the value at `value`, which is of that kind.
    void put(const JsonKind& kind, const void* value);

    void beginArray() { begin("["); }
    void endArray() { end("]"); }
    void beginObject() { begin("{"); }
    void endObject() { end("}"); }
    /// Starts a member of an object; its value comes next.
    void putKey(std::string_view key);
    /// Writes a text in Windows-1252.
    void putAnsi(std::string_view ansi);
    /// Writes the name of a file on disk. What is not UTF-8 in it becomes U+FFFD.
    void putPath(std::string_view path);

    /// Ends the last line and writes the rest.
    void finish();

private:
    /// What comes before the values of an object at a depth, made once.
    struct Layout {
        const JsonKind* kind;
        std::size_t depth;
        std::vector<std::string> starts{};      ///< Each with the comma after the value before.
        std::vector<std::string> emptyValues{}; ///< Of members that are spare values: the usual ones.
    };

    const Layout& layoutOf(const JsonKind& kind);
    void begin(std::string_view bracket);
    void end(std::string_view bracket);
    void startValue();
    std::string_view lineStart() const;
    void startLine();
    void putReal(double number);
    void putScalar(const JsonKind& kind, const void* value);
    void putRecords(const JsonElements& elements, const void* list);
    void putSpareValues(const JsonElements& elements, const void* list);
    void putObject(const JsonKind& kind, const void* record);

    BufferedText text_;
    std::size_t depth_ = 0;
    bool isFirst_ = true; ///< Of its array or object.
    bool hasKey_ = false; ///< Whether the next value follows its key.
    std::deque<Layout> layouts_;
};

} // namespace qrtVistrelClasses4
