// Makes the descriptions of records in JSON from their member tables. A kind of record takes one
// specialisation of `Exchanged`.
#pragma once

#include "tools/exchange/JsonKind.h"
#include <qrtVistrelClasses4/MemberTable.h>
#include <qrtVistrelClasses4/OneBasedArray.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>
#include <tuple>
#include <type_traits>
#include <utility>
#include <vector>

namespace qrtVistrelClasses4 {

/// What is known about a type of record:
///   static constexpr const auto& rows     its member table
///   static constexpr std::int32_t most    the most of them that one list can have
///   static bool canHold(std::string_view) whether its file can hold a text
///   static void addMembers(JsonKind&)     optional; adds members that the table lacks
template <class Record>
struct Exchanged;

/// Whether a text has no line breaks or other control characters, which most files cannot hold.
inline bool HasNoControls(std::string_view ansi) {
    return std::ranges::none_of(ansi,
                                [](char character) { return static_cast<unsigned char>(character) < ' '; });
}

template <class Record>
const JsonKind& KindOfRecord();
template <class Record, class Elements>
const JsonKind& KindOfList();

/// How a value of a record's member is written and read.
template <class Record, class Value>
struct MemberKind {
    static const JsonKind& get() {
        static const JsonKind kind{.form = form(), .canHold = &Exchanged<Record>::canHold};
        return kind;
    }
    static constexpr JsonForm form() {
        if constexpr (std::is_same_v<Value, std::string>)
            return JsonForm::text;
        else if constexpr (std::is_same_v<Value, std::int16_t>)
            return JsonForm::int16;
        else if constexpr (std::is_same_v<Value, std::int32_t>)
            return JsonForm::int32;
        else if constexpr (std::is_same_v<Value, double>)
            return JsonForm::real;
        else {
            static_assert(std::is_same_v<Value, bool>);
            return JsonForm::flag;
        }
    }
    static std::string spareKey(int number) { return "SpareText" + std::to_string(number); }
};

/// The spare values of a record.
template <class Record, class Value, std::size_t size>
struct MemberKind<Record, std::array<Value, size>> {
    using List = std::array<Value, size>;

    static const JsonKind& get() {
        static const JsonKind kind{
            .form = JsonForm::array,
            .elements = {&MemberKind<Record, Value>::get(), static_cast<std::int32_t>(size),
                         [](const void*) { return static_cast<std::int32_t>(size); },
                         [](const void* list, std::int32_t index) -> const void* {
                             return &(*static_cast<const List*>(list))[static_cast<std::size_t>(index)];
                         },
                         [](void* list, std::int32_t index) -> void* {
                             return &(*static_cast<List*>(list))[static_cast<std::size_t>(index)];
                         }}};
        return kind;
    }
    static std::string spareKey(int /*number*/) {
        constexpr JsonForm form = MemberKind<Record, Value>::form();
        return form == JsonForm::text    ? "SpareTexts"
               : form == JsonForm::int16 ? "SpareShorts"
               : form == JsonForm::int32 ? "SpareLongs"
                                         : "SpareFlags";
    }
};

/// A list of records within a record.
template <class Record, class Element, class Elements>
struct MemberKind<Record, OneBasedArray<Element, Elements>> {
    static const JsonKind& get() { return KindOfList<Element, Elements>(); }
    static std::string spareKey(int /*number*/) { return "Schedules"; }
};

/// Whether a member is a number that its property reads as true or false.
template <class Row>
constexpr bool IsFlagInNumber() {
    if constexpr (requires { typename Row::Value; })
        return std::is_same_v<typename Row::Value, bool> && !std::is_same_v<ValueOfRow<Row>, bool>;
    else
        return false;
}

template <class Record, class Row>
const JsonKind& KindOfRow() {
    static const JsonKind flagInNumber{.form = JsonForm::flagInNumber};
    return IsFlagInNumber<Row>() ? flagInNumber : MemberKind<Record, ValueOfRow<Row>>::get();
}

/// The keys of a record's rows. A row without a name gets a key for its type.
template <class Record>
void AddRows(JsonKind& kind) {
    constexpr const auto& rows = Exchanged<Record>::rows;
    constexpr std::size_t rowCount = std::tuple_size_v<std::remove_cvref_t<decltype(rows)>>;
    constexpr std::size_t addedMembers = 2; // at the most
    static_assert(rowCount + addedMembers <= kMostMembers);
    int unnamed = 0;
    const auto add = [&]<std::size_t index>(std::integral_constant<std::size_t, index>) {
        const auto& row = std::get<index>(rows);
        using Row = std::remove_cvref_t<decltype(row)>;
        const auto valueIn = [](const void* record) -> const void* {
            return &(static_cast<const Record*>(record)->*std::get<index>(Exchanged<Record>::rows).member);
        };
        std::string key = row.name.empty() ? MemberKind<Record, ValueOfRow<Row>>::spareKey(++unnamed)
                                           : std::string(row.name);
        kind.members.push_back(
            {std::move(key), &KindOfRow<Record, Row>(), valueIn, &AllowedValuesOf(row.name)});
    };
    [&]<std::size_t... index>(std::index_sequence<index...>) {
        (add(std::integral_constant<std::size_t, index>()), ...);
    }
    (std::make_index_sequence<rowCount>());
}

/// An object with a key for each member of a record.
template <class Record>
const JsonKind& KindOfRecord() {
    static const JsonKind kind = [] {
        JsonKind made{.form = JsonForm::object};
        AddRows<Record>(made);
        if constexpr (requires { Exchanged<Record>::addMembers(made); })
            Exchanged<Record>::addMembers(made);
        return made;
    }();
    return kind;
}

/// Memory is reserved for as many elements when the first one is read.
inline constexpr std::int32_t kFirstElements = 4;

/// An array of such objects.
template <class Record, class Elements>
const JsonKind& KindOfList() {
    using List = OneBasedArray<Record, Elements>;
    static const JsonKind kind{
        .form = JsonForm::array,
        .elements = {&KindOfRecord<Record>(), Exchanged<Record>::most,
                     [](const void* list) { return static_cast<const List*>(list)->upperBound(); },
                     [](const void* list, std::int32_t index) -> const void* {
                         return &*(static_cast<const List*>(list)->begin() + index);
                     },
                     [](void* place, std::int32_t index) -> void* {
                         List& list = *static_cast<List*>(place);
                         if constexpr (std::is_same_v<Elements, std::vector<Record>>)
                             if (index == list.upperBound()) {
                                 if (index == 0)
                                     list.reserve(kFirstElements);
                                 list.resize(index + 1);
                             }
                         return &*(list.begin() + index);
                     }}};
    return kind;
}

/// The description of a record or of a list of records.
template <class Value>
struct JsonKindOf {
    static const JsonKind& get() { return KindOfRecord<Value>(); }
};
template <class Record, class Elements>
struct JsonKindOf<OneBasedArray<Record, Elements>> {
    static const JsonKind& get() { return KindOfList<Record, Elements>(); }
};

} // namespace qrtVistrelClasses4
