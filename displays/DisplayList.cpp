// Signs found, added, removed and duplicated.
#include "displays/DisplayDatabaseClass.h"
#include "displays/DisplayNames.h"
#include "displays/DisplayProcedures.h"
#include "frame/Traced.h"
#include "platform/LetterCase.h"

#include <utility>

namespace qrtVistrelClasses4 {
namespace {

constexpr std::int16_t kNoDisplay = -1;

} // namespace

std::int16_t DisplayDatabaseClass::TotalDisplays() {
    return traced(DisplayProcedure(ProcedureKind::PropertyGet, "TotalDisplays"), [&] {
        const std::int16_t last = NarrowToInt16(displays_.upperBound());
        return displays_.at(last).DisplayName.empty() ? std::int16_t{0} : last;
    });
}

std::int16_t DisplayDatabaseClass::FindDisplayByName(const std::string& theName) {
    return traced(
        DisplayFunction("FindDisplayByName"),
        [&] {
            const std::int16_t total = TotalDisplays();
            for (std::int32_t number = 1; number <= total; ++number)
                if (EqualIgnoringAnsiCase(displays_.at(number).DisplayName, theName))
                    return NarrowToInt16(number);
            return kNoDisplay;
        },
        Arg{"theName", theName});
}

bool DisplayDatabaseClass::mayName(const std::string& name) {
    return !name.empty() && FindDisplayByName(name) < 1;
}

DisplayRecord& DisplayDatabaseClass::append() {
    displays_.resize(NarrowToInt16(TotalDisplays() + 1));
    return displays_.at(displays_.upperBound());
}

std::int16_t DisplayDatabaseClass::AddNewDisplay(const std::string& DisplayName) {
    return traced(
        DisplayFunction("AddNewDisplay"),
        [&] {
            if (!mayName(DisplayName))
                return kNoDisplay;
            std::string name = EscapeNumericName(DisplayName);
            append().DisplayName = std::move(name);
            return NarrowToInt16(displays_.upperBound());
        },
        Arg{"DisplayName", DisplayName});
}

bool DisplayDatabaseClass::RemoveDisplay(std::int16_t displayNumber) {
    return traced(
        DisplayFunction("RemoveDisplay"),
        [&] {
            const std::int16_t total = TotalDisplays();
            if (total == 1 && displayNumber == 1)
                displays_.at(1) = DisplayRecord();
            else if (displayNumber >= 1 && displayNumber <= total)
                displays_.erase(displayNumber);
            return false;
        },
        Arg{"displayNumber", displayNumber});
}

std::int32_t DisplayDatabaseClass::Duplicate(const std::string& OriginalDisplayName,
                                             const std::string& NewDisplayName) {
    return traced(
        DisplayFunction("Duplicate"),
        [&]() -> std::int32_t {
            const std::int16_t original = FindDisplayByName(OriginalDisplayName);
            if (original < 1 || !mayName(NewDisplayName))
                return kNoDisplay;
            DisplayRecord copy = displays_.at(original);
            copy.DisplayName = EscapeNumericName(NewDisplayName);
            append() = std::move(copy);
            return displays_.upperBound();
        },
        Arg{"NewDisplayName", NewDisplayName});
}

} // namespace qrtVistrelClasses4
