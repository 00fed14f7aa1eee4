// Values on their way between automation and the library.
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

/// The ANSI code page's characters as wide ones, and back; a character that the code page lacks becomes the
/// nearest one or "?". Characters of code 0 are kept. A null text is an empty one.
OwnedBstr WideText(std::string_view text);
std::string NarrowText(BSTR text);

/// The text of `value`, or of the variable that it refers to; none for an omitted argument. Error 13 when it
/// is no text.
std::optional<std::string> OptionalText(const VARIANT& value);

/// Puts a text into the caller's variable. One of a type that holds no text stays as it is.
void PutText(OwnedBstr text, VARIANT& variable);

inline bool IsOmitted(const VARIANT& value) {
    return V_VT(&value) == VT_ERROR && V_ERROR(&value) == DISP_E_PARAMNOTFOUND;
}

/// An argument as the library wants it.
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

/// Hands a value of the library to the caller, who then owns it.
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
