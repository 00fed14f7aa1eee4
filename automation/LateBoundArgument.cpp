#include "automation/LateBoundArgument.h"

#include <cstddef>
#include <cstring>

namespace qrtVistrelClasses4 {
namespace {

DeclaredArgument declaredByName(ITypeInfo& type, HREFTYPE reference) {
    DeclaredArgument declared;
    ComPtr<ITypeInfo> named;
    TYPEATTR* attributes = nullptr;
    if (FAILED(type.GetRefTypeInfo(reference, &named)) || FAILED(named->GetTypeAttr(&attributes)))
        return declared;
    if (attributes->typekind == TKIND_ENUM)
        declared.type = VT_I4;
    else if (attributes->typekind == TKIND_ALIAS)
        declared = Declared(*named.Get(), attributes->tdescAlias);
    else if (attributes->typekind == TKIND_DISPATCH || (attributes->wTypeFlags & TYPEFLAG_FDISPATCHABLE))
        declared = {VT_DISPATCH, false, nullptr, attributes->guid};
    named->ReleaseTypeAttr(attributes);
    return declared;
}

/// The size in bytes of a value of `type`; 0 for a type that the system should convert.
std::size_t sizeOf(VARTYPE type) {
    switch (type) {
    case VT_I1:
    case VT_UI1:
        return 1;
    case VT_I2:
    case VT_UI2:
    case VT_BOOL:
        return 2;
    case VT_I4:
    case VT_UI4:
    case VT_INT:
    case VT_UINT:
    case VT_ERROR:
    case VT_R4:
        return 4;
    case VT_I8:
    case VT_UI8:
    case VT_R8:
    case VT_CY:
    case VT_DATE:
        return 8;
    case VT_BSTR:
    case VT_DISPATCH:
    case VT_UNKNOWN:
        return sizeof(void*);
    case VT_VARIANT:
        return sizeof(VARIANT);
    default:
        return 0;
    }
}

/// `value` becomes the interface `interfaceId` of the object it holds. An empty or omitted value becomes
/// Nothing.
HRESULT convertToObject(VARIANT& value, REFIID interfaceId) {
    ComPtr<IUnknown> given;
    if (V_VT(&value) == VT_DISPATCH || V_VT(&value) == VT_UNKNOWN)
        given = V_UNKNOWN(&value);
    else if (V_VT(&value) != VT_EMPTY && !IsOmitted(value))
        return DISP_E_TYPEMISMATCH;
    void* object = nullptr;
    if (given && FAILED(given->QueryInterface(interfaceId, &object)))
        return DISP_E_TYPEMISMATCH;
    VariantClear(&value);
    V_VT(&value) = VT_DISPATCH;
    V_DISPATCH(&value) = static_cast<IDispatch*>(object);
    return S_OK;
}

/// Where `value` stores its content, whatever its type.
void* contentOf(VARIANT& value) { return &V_I4(&value); }
const void* contentOf(const VARIANT& value) { return &V_I4(&value); }

} // namespace

DeclaredArgument Declared(ITypeInfo& type, const TYPEDESC& declared) {
    if (declared.vt == VT_USERDEFINED)
        return declaredByName(type, declared.hreftype);
    if (declared.vt == VT_DISPATCH)
        return {VT_DISPATCH, false, nullptr, IID_IDispatch};
    if (declared.vt != VT_PTR)
        return {declared.vt};
    DeclaredArgument pointedTo = Declared(type, *declared.lptdesc);
    // A pointer to an interface is an object, not a reference to one.
    pointedTo.byReference = !(pointedTo.type == VT_DISPATCH && declared.lptdesc->vt == VT_USERDEFINED);
    return pointedTo;
}

HRESULT LateBoundArgument::convert(const DeclaredArgument& declared, VARIANT& given, LCID locale,
                                   VARIANT& passed) {
    given_ = &given;
    passed = given;
    if (sizeOf(declared.type) == 0)
        return S_OK;
    HRESULT done = VariantCopyInd(&value_, &given);
    if (SUCCEEDED(done))
        done = convertValue(declared, locale);
    passed = value_;
    if (declared.byReference && (declared.type == VT_VARIANT || !IsOmitted(value_))) {
        V_VT(&passed) = static_cast<VARTYPE>(declared.type | VT_BYREF);
        V_BYREF(&passed) = declared.type == VT_VARIANT ? &value_ : contentOf(value_);
        std::memcpy(contentOf(passedNumber_), contentOf(value_), sizeof(V_I8(&value_)));
        writesBack_ = (V_VT(&given) & VT_BYREF) != 0;
        if (SUCCEEDED(done) && !writesBack_ && declared.type == VT_DISPATCH)
            objectToFill_ = V_DISPATCH(&value_);
    }
    return done;
}

HRESULT LateBoundArgument::convertValue(const DeclaredArgument& declared, LCID locale) {
    if (declared.type == VT_DISPATCH)
        return convertToObject(value_, declared.interfaceId);
    if (declared.defaultValue && IsOmitted(value_))
        VariantCopy(&value_, declared.defaultValue);
    if (declared.type == VT_VARIANT || IsOmitted(value_))
        return S_OK;
    return VariantChangeTypeEx(&value_, &value_, locale, VARIANT_ALPHABOOL, declared.type);
}

/// True for every object, text and variant: a new one can have the address of the old one.
bool LateBoundArgument::mayHaveChanged() const {
    switch (V_VT(&value_)) {
    case VT_I2:
    case VT_I4:
    case VT_BOOL:
    case VT_R8:
        return std::memcmp(contentOf(passedNumber_), contentOf(value_), sizeOf(V_VT(&value_))) != 0;
    default:
        return true;
    }
}

HRESULT LateBoundArgument::writeBack(LCID locale, const FillObject& fill) {
    if (objectToFill_ && V_DISPATCH(&value_) && V_DISPATCH(&value_) != objectToFill_.Get())
        fill(*objectToFill_.Get(), *V_DISPATCH(&value_));
    if (!writesBack_ || !mayHaveChanged())
        return S_OK;
    const auto type = static_cast<VARTYPE>(V_VT(given_) & ~VT_BYREF);
    if (type == VT_VARIANT)
        return VariantCopy(V_VARIANTREF(given_), &value_);
    OwnedVariant converted;
    const HRESULT done = VariantChangeTypeEx(&converted, &value_, locale, VARIANT_ALPHABOOL, type);
    if (FAILED(done) || sizeOf(type) == 0)
        return done;
    // `converted` takes over the old content of the variable and releases it.
    std::byte previous[sizeof(VARIANT)];
    std::memcpy(previous, V_BYREF(given_), sizeOf(type));
    std::memcpy(V_BYREF(given_), contentOf(converted), sizeOf(type));
    std::memcpy(contentOf(converted), previous, sizeOf(type));
    return S_OK;
}

} // namespace qrtVistrelClasses4
