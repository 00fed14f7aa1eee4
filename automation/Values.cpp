#include "automation/Values.h"

#include <qrtVistrelClasses4/RuntimeError.h>

#include <ole2.h>

#include <new>

namespace qrtVistrelClasses4 {

OwnedBstr WideText(std::string_view text) {
    const int length = static_cast<int>(text.size());
    const int wideLength = MultiByteToWideChar(CP_ACP, 0, text.data(), length, nullptr, 0);
    OwnedBstr wide(SysAllocStringLen(nullptr, static_cast<UINT>(wideLength)));
    if (!wide)
        throw std::bad_alloc();
    MultiByteToWideChar(CP_ACP, 0, text.data(), length, wide.get(), wideLength);
    return wide;
}

std::string NarrowText(BSTR text) {
    const int length = static_cast<int>(SysStringLen(text));
    std::string narrow;
    narrow.resize(
        static_cast<std::size_t>(WideCharToMultiByte(CP_ACP, 0, text, length, nullptr, 0, nullptr, nullptr)));
    WideCharToMultiByte(CP_ACP, 0, text, length, narrow.data(), static_cast<int>(narrow.size()), nullptr,
                        nullptr);
    return narrow;
}

namespace {

/// The variable that `value` refers to, or `value` itself if it does not refer to one.
VARIANT& variableOf(VARIANT& value) {
    return V_VT(&value) == (VT_BYREF | VT_VARIANT) ? *V_VARIANTREF(&value) : value;
}

} // namespace

std::optional<std::string> OptionalText(const VARIANT& value) {
    if (IsOmitted(variableOf(const_cast<VARIANT&>(value))))
        return std::nullopt;
    OwnedVariant text;
    if (FAILED(VariantChangeType(&text, const_cast<VARIANT*>(&value), VARIANT_ALPHABOOL, VT_BSTR)))
        throw RuntimeError(ErrorNumber::typeMismatch);
    return NarrowText(V_BSTR(&text));
}

void PutText(OwnedBstr text, VARIANT& variable) {
    VARIANT& target = variableOf(variable);
    if (V_VT(&target) == (VT_BYREF | VT_BSTR)) {
        SysFreeString(*V_BSTRREF(&target));
        *V_BSTRREF(&target) = text.release();
    } else if (!(V_VT(&target) & VT_BYREF) && !IsOmitted(target)) {
        VariantClear(&target);
        V_VT(&target) = VT_BSTR;
        V_BSTR(&target) = text.release();
    }
}

} // namespace qrtVistrelClasses4
