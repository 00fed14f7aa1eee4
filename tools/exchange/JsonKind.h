// What values look like in JSON: a description that writing, reading and schemas follow.
#pragma once

#include "tools/program/AllowedValues.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace qrtVistrelClasses4 {

struct JsonKind;

/// What the type of a value in memory is, and what its JSON is.
enum class JsonForm : std::uint8_t {
    text,         ///< `std::string` in Windows-1252; a text in UTF-8.
    int16,        ///< `std::int16_t`; a whole number.
    int32,        ///< `std::int32_t`; a whole number.
    real,         ///< `double`; a number.
    flag,         ///< `bool`; true or false.
    flagInNumber, ///< `std::int16_t`; true for 1, false for 0, and otherwise the number.
    count,   ///< A number that follows from the rest of the record. It is written; when read, any is taken.
    ignored, ///< Nothing; any text is taken.
    array,
    object,
};

/// Of an object. Reading has a bit for each.
inline constexpr std::size_t kMostMembers = 64;

/// A key of an object, and the member of a record that has its value.
struct JsonMember {
    std::string key;
    const JsonKind* kind;
    const void* (*valueIn)(const void* record);
    /// What is allowed for its values; for an array of records, see those.
    const AllowedValues* allowed;
    /// Whether an object needs the key, and a text must not be empty. Without the key, a record has the
    /// default value otherwise.
    bool isRequired = false;
    /// Gives a record without the key what it has instead of the default value.
    void (*setMissing)(void* record) = nullptr;
    /// For schemas: a regular expression for the texts that are taken, where `allowed` has none.
    const char* pattern = nullptr;
};

/// How the elements of a list are reached. Indexes start at 0.
struct JsonElements {
    const JsonKind* kind;
    std::int32_t most; ///< As many may be read.
    std::int32_t (*count)(const void* list);
    const void* (*at)(const void* list, std::int32_t index);
    /// Element `index`, which is made if it is the one after the last.
    void* (*make)(void* list, std::int32_t index);
};

/// What a value in memory is, which type-erased functions get as a pointer, and its form in JSON.
struct JsonKind {
    JsonForm form;
    /// Of a text: whether the file that the record is kept in can hold it.
    bool (*canHold)(std::string_view ansi) = nullptr;
    std::int32_t (*countIn)(const void* record) = nullptr; ///< Of a count.
    JsonElements elements{};                               ///< Of an array.
    std::vector<JsonMember> members{};                     ///< Of an object, in the order of writing.
    /// Of an array that may also be the value of a key: the object with that key.
    const JsonKind* orObject = nullptr;
};

/// What error messages call the values that a kind takes: "a whole number from 0 to 255".
std::string ExpectedOf(const JsonKind& kind, const AllowedValues& allowed);

} // namespace qrtVistrelClasses4
