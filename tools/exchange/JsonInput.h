// Reading records from JSON. Everything is checked: a key that a record lacks, a key twice, a value of
// another type or out of its range, and texts that its file cannot hold are errors with their place.
#pragma once

#include "tools/exchange/RecordKinds.h"
#include "tools/program/ErrorLines.h"

#include <string>

namespace qrtVistrelClasses4 {

enum class JsonChecks {
    usual,
    typesOnly, ///< Values of the right type are taken that `AllowedValues` forbids.
};

/// Reads `text` into `value`, which has its default values before, and adds everything that is wrong to
/// `errors`. Returns false, and leaves `value` partly filled, if something is wrong.
bool ReadJson(const std::string& text, const JsonKind& kind, void* value, ErrorLines& errors,
              JsonChecks checks = JsonChecks::usual);

/// The same for a record or a list of records.
template <class Value>
bool ReadJson(const std::string& text, Value& value, ErrorLines& errors,
              JsonChecks checks = JsonChecks::usual) {
    return ReadJson(text, JsonKindOf<Value>::get(), &value, errors, checks);
}

} // namespace qrtVistrelClasses4
