// Conversions between values of automation and values of the library.
#pragma once

#include <ole2.h>

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>

namespace qrtVistrelClasses4 {

struct FreeBstr {
    void operator()(OLECHAR* text) const { SysFreeString(text); }
};
using OwnedBstr = std::unique_ptr<OLECHAR, FreeBstr>;

struct OwnedVariant : VARIANT {
    OwnedVariant() { VariantInit(this); }
    ~OwnedVariant() { VariantClear(this); }
    OwnedVariant(const OwnedVariant&) = delete;
    OwnedVariant& operator=(const OwnedVariant&) = delete;
};

/// Convert between texts of the ANSI code page and wide texts. A character that the code page lacks becomes a
/// similar one or "?". Characters with code 0 are kept. A null `text` is an empty text.
OwnedBstr WideText(std::string_view text);
std::string NarrowText(BSTR text);

/// The text of `value`, or of the variable that it refers to. Empty if the argument is omitted. Throws error
/// 13 if the value cannot be converted to a text.
std::optional<std::string> OptionalText(const VARIANT& value);

/// Stores a text in the caller's variable. A variable whose type cannot hold a text is left unchanged, and so
/// is an argument that is omitted.
void PutText(OwnedBstr text, VARIANT& variable);

inline bool IsOmitted(const VARIANT& value) {
    return V_VT(&value) == VT_ERROR && V_ERROR(&value) == DISP_E_PARAMNOTFOUND;
}

/// Converts an argument to the type that the library wants.
template <class Wanted, class Given>
Wanted FromAutomation(const Given& given) {
    if constexpr (std::is_same_v<Wanted, std::string>)
        return NarrowText(given);
    else if constexpr (std::is_same_v<Wanted, std::optional<std::string>>)
        return OptionalText(given);
    else if constexpr (std::is_same_v<Wanted, bool>)
        return given != VARIANT_FALSE;
    else
        return static_cast<Wanted>(given);
}

/// Stores a value of the library in the caller's `*result`. The caller owns it from then on.
template <class Result, class Value>
void ToAutomation(const Value& value, Result* result) {
    if constexpr (std::is_same_v<Result, BSTR>) {
        *result = WideText(value).release();
    } else if constexpr (std::is_same_v<Result, VARIANT>) {
        V_VT(result) = VT_I4;
        V_I4(result) = value;
    } else if constexpr (std::is_same_v<Value, bool>) {
        *result = value ? VARIANT_TRUE : VARIANT_FALSE;
    } else {
        *result = static_cast<Result>(value);
    }
}

} // namespace qrtVistrelClasses4
