#include "tools/compare/Report.h"
#include "tools/exchange/PlayfileJson.h"

namespace qrtVistrelClasses4 {
namespace {

const JsonKind& kindOfNumber() { return MemberKind<FrameRecord, std::int32_t>::get(); }

/// A record is not in one of the lists if its number there is 0.
void putNumber(JsonOutput& json, std::string_view key, std::int32_t number) {
    if (number == 0)
        return;
    json.putKey(key);
    json.put(kindOfNumber(), &number);
}

template <class Row>
void putStored(JsonOutput& json, std::string_view key, const StoredValue& value) {
    using Record = typename Row::Record;
    json.putKey(key);
    if constexpr (kIsArrayOfValues<ValueOfRow<Row>>)
        json.put(MemberKind<Record, StoredIn<Row>>::get(), &std::get<StoredIn<Row>>(value));
    else
        json.put(KindOfRow<Record, Row>(), &std::get<StoredIn<Row>>(value));
}

template <class Record>
void putValue(JsonOutput& json, const ValueDifference& value) {
    json.beginObject();
    json.putKey("name");
    json.put(MemberKind<Record, std::string>::get(), &value.name);
    VisitRowNamed<Record>(value.name, [&]<class Row>(const Row&) {
        if constexpr (kIsArrayOfValues<ValueOfRow<Row>>) {
            const auto index = static_cast<std::int32_t>(value.index);
            json.putKey("index");
            json.put(kindOfNumber(), &index);
        }
        putStored<Row>(json, "before", value.before);
        putStored<Row>(json, "after", value.after);
    });
    json.endObject();
}

/// A record that both lists have, but for its lines.
template <class Record>
void putPair(JsonOutput& json, const RecordDifference<Record>& difference) {
    json.putKey("moved");
    json.put(MemberKind<Record, bool>::get(), &difference.isMoved);
    json.putKey("values");
    json.beginArray();
    for (const ValueDifference& value : difference.values)
        putValue<Record>(json, value);
    json.endArray();
}

/// `recordKey` is what the record itself is called, which is written if only one list has it.
template <class Difference>
void putDifferences(JsonOutput& json, const std::vector<Difference>& differences,
                    std::string_view recordKey) {
    json.beginArray();
    for (const Difference& difference : differences) {
        json.beginObject();
        putNumber(json, "before", difference.before);
        putNumber(json, "after", difference.after);
        if (difference.isAdded() || difference.isRemoved()) {
            json.putKey(recordKey);
            json.put(difference.record);
        } else {
            putPair(json, difference);
            if constexpr (requires { difference.lines; }) {
                json.putKey("lines");
                putDifferences(json, difference.lines, "line");
            }
        }
        json.endObject();
    }
    json.endArray();
}

} // namespace

void WriteDifferences(JsonOutput& json, const Differences& differences) {
    putDifferences(json, differences, "frame");
}

} // namespace qrtVistrelClasses4
