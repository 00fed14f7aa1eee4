#include <qrtVistrelClasses4/SignList.h>

#include "frame/Conversions.h"
#include "platform/LetterCase.h"

#include <algorithm>
#include <utility>

namespace qrtVistrelClasses4 {

std::int16_t SignList::count() const {
    const std::int32_t last = signs.upperBound();
    return last == 0 || signs.at(last).DisplayName.empty() ? std::int16_t{0} : NarrowToInt16(last);
}

std::optional<std::int16_t> SignList::find(const std::string& name) const {
    const auto end = signs.begin() + count();
    const auto found = std::find_if(signs.begin(), end, [&](const DisplayRecord& sign) {
        return EqualIgnoringAnsiCase(sign.DisplayName, name);
    });
    return found == end ? std::nullopt : std::optional(static_cast<std::int16_t>(found - signs.begin() + 1));
}

std::optional<std::int16_t> SignList::add(const std::string& name) {
    return name.empty() || find(name) ? std::nullopt : std::optional(addUnchecked(name));
}

std::optional<std::int16_t> SignList::duplicate(std::int16_t original, const std::string& name) {
    return name.empty() || find(name) ? std::nullopt : std::optional(duplicateUnchecked(original, name));
}

std::int16_t SignList::addUnchecked(const std::string& name) {
    std::string stored = EscapeNumericName(name);
    grow().DisplayName = std::move(stored);
    return NarrowToInt16(signs.upperBound());
}

std::int16_t SignList::duplicateUnchecked(std::int16_t original, const std::string& name) {
    DisplayRecord copy = signs.at(original);
    copy.DisplayName = EscapeNumericName(name);
    grow() = std::move(copy);
    return NarrowToInt16(signs.upperBound());
}

/// The record after the last sign. It is a new one, unless the last record has no name.
DisplayRecord& SignList::grow() {
    signs.resize(NarrowToInt16(count() + 1));
    return signs.at(signs.upperBound());
}

void SignList::remove(std::int16_t number) {
    const std::int16_t last = count();
    if (last == 1 && number == 1)
        signs.at(1) = DisplayRecord();
    else if (number >= 1 && number <= last)
        signs.erase(number);
}

} // namespace qrtVistrelClasses4
