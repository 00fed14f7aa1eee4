// Names of signs, and names of their types.
#pragma once

#include <qrtVistrelClasses4/Export.h>

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace QRT_PUBLIC qrtVistrelClasses4 {

/// The name as it is stored: with "#" before it if it reads as a plain number, so that no name is taken for
/// the number of a sign. "12.50" and " 12" are not plain numbers.
QRT_PUBLIC std::string EscapeNumericName(const std::string& name);

/// Sign types with the same name.
struct SignTypes {
    std::int32_t first;
    std::int32_t last;
    std::string_view name;
};

/// All types with a name, in the order of their numbers. One family may have several entries.
QRT_PUBLIC std::span<const SignTypes> NamedSignTypes();

/// Name of a sign type; "Generic" for a number without a name.
QRT_PUBLIC std::string_view SignTypeName(std::int32_t signType);

/// True for the types of the "ZR-7" family.
constexpr bool IsZr7(std::int32_t signType) { return signType >= 160 && signType <= 169; }

} // namespace qrtVistrelClasses4
