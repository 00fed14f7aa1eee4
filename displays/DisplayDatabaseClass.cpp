#include <qrtVistrelClasses4/DisplayDatabaseClass.h>

#include "displays/DisplayProcedures.h"
#include "frame/Conversions.h"
#include "frame/Traced.h"
#include "platform/LetterCase.h"

#include <type_traits>
#include <utility>

namespace qrtVistrelClasses4 {
namespace {

constexpr std::int16_t kNoDisplay = -1;

constexpr Procedure propertyGet(std::string_view name) {
    return DisplayProcedure(ProcedureKind::PropertyGet, name);
}
constexpr Procedure propertyLet(std::string_view name) {
    return DisplayProcedure(ProcedureKind::PropertyLet, name);
}

/// Name of the property of a row.
template <class Row>
std::string_view propertyName(const Row& row) {
    if constexpr (requires { row.property; })
        return row.property;
    else
        return row.name;
}

/// True for a number that the property shows as text.
template <class Row>
constexpr bool isNumberAsText = !std::is_same_v<typename Row::Value, typename Row::Property>;

/// What the property of a row reads.
template <class Row>
typename Row::Property propertyOf(const Row& row, const typename Row::Record& record) {
    if constexpr (isNumberAsText<Row>)
        return NumberToText(std::int32_t{record.*row.member});
    else
        return record.*row.member;
}

} // namespace

DisplayDatabaseClass::DisplayDatabaseClass() {
    traced({lastError_, DisplaySub("Class_Initialize")}, [&] {
        list_.signs.resize(1);
        currentDisplayNumber_ = 1;
    });
}
DisplayDatabaseClass::~DisplayDatabaseClass() {
    traced({lastError_, DisplaySub("Class_Terminate")}, [] {});
}

// The properties.

template <class Record, class Self>
auto& DisplayDatabaseClass::currentOf(Self& self) {
    auto& sign = self.list_.signs.at(self.currentDisplayNumber_);
    if constexpr (std::is_same_v<Record, BrightnessSchedule>)
        return sign.schedules.at(self.currentScheduleNumber_);
    else
        return sign;
}
template <class Record>
const Record& DisplayDatabaseClass::current() const {
    return currentOf<Record>(*this);
}
template <class Record>
Record& DisplayDatabaseClass::current() {
    return currentOf<Record>(*this);
}

template <Access access, class Row>
typename Row::Property DisplayDatabaseClass::readRow(const Row& row) const {
    return asAccessedNow<access>([&]<Access now>() { return readRowAs<now>(row); });
}
template <Access now, class Row>
typename Row::Property DisplayDatabaseClass::readRowAs(const Row& row) const {
    return accessed<now>({lastError_, propertyGet(propertyName(row))},
                         [&] { return propertyOf(row, current<typename Row::Record>()); });
}
template <class Row>
typename Row::Property DisplayDatabaseClass::readAndStoreRow(const Row& row) {
    return tracedProperty({lastError_, propertyGet(row.name)}, [&] {
        auto& sign = current<DisplayRecord>();
        typename Row::Value value = row.get(sign);
        if (sign.*row.member != value) {
            sign.*row.member = value;
            noteChange(row);
        }
        return value;
    });
}
template <Access access, class Row>
void DisplayDatabaseClass::writeRow(const Row& row, const typename Row::Property& vData) {
    asAccessedNow<access>([&]<Access now>() { writeRowAs<now>(row, vData); });
}
template <Access now, class Row>
void DisplayDatabaseClass::writeRowAs(const Row& row, const typename Row::Property& vData) {
    const auto body = [&] {
        if constexpr (isNumberAsText<Row>) {
            const std::int16_t number = TextToInt16(vData);
            row.set(current<DisplayRecord>(), number);
        } else {
            row.set(current<typename Row::Record>(), vData);
            noteChange(row);
        }
    };
    accessed<now>({lastError_, propertyLet(propertyName(row))}, body, Arg{"vData", vData});
}

template <class Row>
void DisplayDatabaseClass::noteChange(const Row& row) {
    if constexpr (std::is_same_v<decltype(row.member), std::string DisplayRecord::*>)
        if (row.member == &DisplayRecord::DisplayName)
            names_.forget();
}

// For the types of rows that the tables have.
// clang-format off
template std::string DisplayDatabaseClass::readRow<Access::traced>(const SignMember<std::string>&) const;
template std::int16_t DisplayDatabaseClass::readRow<Access::traced>(const SignMember<std::int16_t>&) const;
template std::int32_t DisplayDatabaseClass::readRow<Access::traced>(const SignMember<std::int32_t>&) const;
template bool DisplayDatabaseClass::readRow<Access::traced>(const SignMember<bool>&) const;
template std::string DisplayDatabaseClass::readRow<Access::traced>(const SignMember<std::int16_t, std::string>&) const;
template std::string DisplayDatabaseClass::readRow<Access::trapped>(const SignMember<std::string>&) const;
template std::int16_t DisplayDatabaseClass::readRow<Access::trapped>(const SignMember<std::int16_t>&) const;
template std::int32_t DisplayDatabaseClass::readRow<Access::trapped>(const SignMember<std::int32_t>&) const;
template std::string DisplayDatabaseClass::readRow<Access::traced>(const ScheduleMember<std::string>&) const;
template std::int16_t DisplayDatabaseClass::readRow<Access::traced>(const ScheduleMember<std::int16_t>&) const;
template std::string DisplayDatabaseClass::readAndStoreRow(const SignMember<std::string>&);
template std::int16_t DisplayDatabaseClass::readAndStoreRow(const SignMember<std::int16_t>&);
template void DisplayDatabaseClass::writeRow<Access::traced>(const SignMember<std::string>&, const std::string&);
template void DisplayDatabaseClass::writeRow<Access::traced>(const SignMember<std::int16_t>&, const std::int16_t&);
template void DisplayDatabaseClass::writeRow<Access::traced>(const SignMember<std::int32_t>&, const std::int32_t&);
template void DisplayDatabaseClass::writeRow<Access::traced>(const SignMember<bool>&, const bool&);
template void DisplayDatabaseClass::writeRow<Access::traced>(const SignMember<std::int16_t, std::string>&, const std::string&);
template void DisplayDatabaseClass::writeRow<Access::trapped>(const SignMember<std::string>&, const std::string&);
template void DisplayDatabaseClass::writeRow<Access::trapped>(const SignMember<std::int16_t>&, const std::int16_t&);
template void DisplayDatabaseClass::writeRow<Access::trapped>(const SignMember<std::int32_t>&, const std::int32_t&);
template void DisplayDatabaseClass::writeRow<Access::traced>(const ScheduleMember<std::string>&, const std::string&);
template void DisplayDatabaseClass::writeRow<Access::traced>(const ScheduleMember<std::int16_t>&, const std::int16_t&);
// clang-format on

// The cursors.

std::int16_t DisplayDatabaseClass::CurrentDisplayNumber() const {
    return tracedProperty({lastError_, propertyGet("CurrentDisplayNumber")},
                          [&] { return currentDisplayNumber_; });
}
void DisplayDatabaseClass::CurrentDisplayNumber(std::int16_t vData) {
    tracedProperty(
        {lastError_, propertyLet("CurrentDisplayNumber")}, [&] { currentDisplayNumber_ = vData; },
        Arg{"vData", vData});
}

std::int16_t DisplayDatabaseClass::CurrentBrightnessScheduleNumber() const {
    return tracedProperty({lastError_, propertyGet("CurrentBrightnessScheduleNumber")},
                          [&] { return currentScheduleNumber_; });
}
void DisplayDatabaseClass::CurrentBrightnessScheduleNumber(std::int16_t vData) {
    tracedProperty(
        {lastError_, propertyLet("CurrentBrightnessScheduleNumber")}, [&] { currentScheduleNumber_ = vData; },
        Arg{"vData", vData});
}

// Finding signs.

std::optional<std::int16_t> DisplayDatabaseClass::NameIndex::find(const SignList& list,
                                                                  const std::string& name) {
    constexpr int searchesWorthAnIndex = 16; // take about as long as making one
    if (numbers_.empty() && ++searches_ < searchesWorthAnIndex)
        return list.find(name);
    if (numbers_.empty())
        numbers_ = numbersOf(list);
    const auto found = numbers_.find(AnsiUpperCase(name));
    return found == numbers_.end() ? std::nullopt : std::optional(found->second);
}

auto DisplayDatabaseClass::NameIndex::numbersOf(const SignList& list) -> Numbers {
    Numbers numbers;
    const std::int32_t count = list.count();
    for (std::int32_t number = 1; number <= count; ++number)
        numbers.try_emplace(AnsiUpperCase(list.signs.at(number).DisplayName),
                            static_cast<std::int16_t>(number));
    return numbers;
}

void DisplayDatabaseClass::NameIndex::noteAdded(const SignList& list, std::int16_t number) noexcept {
    if (number == 1) // the others have been removed
        return forget();
    try {
        if (!numbers_.empty())
            numbers_.try_emplace(AnsiUpperCase(list.signs.at(number).DisplayName), number);
    } catch (...) { // no memory, but the sign has been added
        forget();
    }
}

void DisplayDatabaseClass::NameIndex::forget() noexcept {
    numbers_.clear();
    searches_ = 0;
}

// The list. Members that find, add or remove a sign also show a call of `TotalDisplays` on the trace.

std::int16_t DisplayDatabaseClass::TotalDisplays() const {
    return tracedProperty({lastError_, propertyGet("TotalDisplays")}, [&] { return list_.count(); });
}

std::int16_t DisplayDatabaseClass::FindDisplayByName(const std::string& theName) const {
    return traced(
        {lastError_, DisplayFunction("FindDisplayByName")},
        [&] {
            (void)TotalDisplays();
            return names_.find(list_, theName).value_or(kNoDisplay);
        },
        Arg{"theName", theName});
}

bool DisplayDatabaseClass::isFree(const std::string& name) const {
    return !name.empty() && FindDisplayByName(name) < 1;
}

std::int16_t DisplayDatabaseClass::AddNewDisplay(const std::string& DisplayName) {
    return traced(
        {lastError_, DisplayFunction("AddNewDisplay")},
        [&] {
            if (!isFree(DisplayName))
                return kNoDisplay;
            (void)TotalDisplays();
            const std::int16_t number = list_.addUnchecked(DisplayName);
            names_.noteAdded(list_, number);
            return number;
        },
        Arg{"DisplayName", DisplayName});
}

bool DisplayDatabaseClass::RemoveDisplay(std::int16_t displayNumber) {
    return traced(
        {lastError_, DisplayFunction("RemoveDisplay")},
        [&] {
            (void)TotalDisplays();
            list_.remove(displayNumber);
            names_.forget();
            return false;
        },
        Arg{"displayNumber", displayNumber});
}

std::int32_t DisplayDatabaseClass::Duplicate(const std::string& OriginalDisplayName,
                                             const std::string& NewDisplayName) {
    return traced(
        {lastError_, DisplayFunction("Duplicate")},
        [&]() -> std::int32_t {
            const std::int16_t original = FindDisplayByName(OriginalDisplayName);
            if (original < 1 || !isFree(NewDisplayName))
                return kNoDisplay;
            (void)TotalDisplays();
            const std::int16_t number = list_.duplicateUnchecked(original, NewDisplayName);
            names_.noteAdded(list_, number);
            return number;
        },
        Arg{"NewDisplayName", NewDisplayName});
}

} // namespace qrtVistrelClasses4
