// Names of signs, and names of their types.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace qrtVistrelClasses4 {

/// The name as it is stored: "#" before one that reads as a plain number, so that it is not taken for the
/// number of a sign. "12.50" and " 12" are no plain numbers.
std::string EscapeNumericName(const std::string& name);

/// "Generic" for a number without a name.
std::string_view SignTypeName(std::int32_t signType);

/// Whether the type belongs to the "ZR-7" family.
constexpr bool IsZr7(std::int32_t signType) { return signType >= 160 && signType <= 169; }

} // namespace qrtVistrelClasses4
