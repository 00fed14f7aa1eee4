#include "tools/exchange/JsonKind.h"

#include <limits>

namespace qrtVistrelClasses4 {
namespace {

template <class Integer>
std::string expectedInteger(const AllowedValues& allowed) {
    using Limits = std::numeric_limits<Integer>;
    return DescriptionOf(allowed, "a whole number", Limits::min(), Limits::max());
}

} // namespace

std::string ExpectedOf(const JsonKind& kind, const AllowedValues& allowed) {
    AllowedValues inJson = allowed;
    inJson.names = nullptr; // numbers have no names in JSON
    switch (kind.form) {
    case JsonForm::text:
    case JsonForm::ignored:
        return DescriptionOf(inJson);
    case JsonForm::int16:
        return expectedInteger<std::int16_t>(inJson);
    case JsonForm::int32:
    case JsonForm::count:
        return expectedInteger<std::int32_t>(inJson);
    case JsonForm::real: {
        constexpr double infinity = std::numeric_limits<double>::infinity();
        return DescriptionOf(inJson, "a number", -infinity, infinity);
    }
    case JsonForm::flag:
        return "true or false";
    case JsonForm::flagInNumber:
        return "true, false or " + expectedInteger<std::int16_t>(inJson);
    case JsonForm::array:
        return kind.orObject ? "an array or an object" : "an array";
    case JsonForm::object:
        return "an object";
    }
    return {};
}

} // namespace qrtVistrelClasses4
