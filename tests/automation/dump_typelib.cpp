// dump_typelib FILE: what a type library promises to programs: names, identifiers, member numbers, arguments.
#include <ole2.h>
#include <wrl/client.h>

#include <algorithm>
#include <iostream>
#include <map>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

using Microsoft::WRL::ComPtr;

const std::map<VARTYPE, std::string> kTypes = {
    {VT_I2, "short"},  {VT_I4, "long"},         {VT_R8, "double"},           {VT_BOOL, "VARIANT_BOOL"},
    {VT_BSTR, "BSTR"}, {VT_VARIANT, "VARIANT"}, {VT_DISPATCH, "IDispatch*"}, {VT_HRESULT, "HRESULT"}};
const std::map<INVOKEKIND, std::string> kKinds = {
    {INVOKE_FUNC, ""}, {INVOKE_PROPERTYGET, "get "}, {INVOKE_PROPERTYPUT, "put "}};

void check(HRESULT done) {
    if (FAILED(done))
        throw std::runtime_error("the type library cannot be read");
}

/// Names in type libraries are plain ASCII.
std::string take(BSTR text) {
    const std::string result(text, text + SysStringLen(text));
    SysFreeString(text);
    return result;
}

std::string textOf(REFGUID id) {
    wchar_t text[39];
    StringFromGUID2(id, text, 39);
    return {text, text + 38};
}

/// Of a type, or of the library.
template <class Described>
std::string nameOf(Described& described) {
    BSTR name = nullptr;
    check(described.GetDocumentation(-1, &name, nullptr, nullptr, nullptr));
    return take(name);
}

/// Names of a member and its arguments.
std::vector<std::string> namesOf(ITypeInfo& type, MEMBERID member, UINT most) {
    std::vector<BSTR> names(most);
    UINT count = 0;
    check(type.GetNames(member, names.data(), most, &count));
    std::vector<std::string> result(most);
    std::ranges::transform(names, result.begin(), take);
    return result;
}

std::string typeName(ITypeInfo& type, const TYPEDESC& description) {
    if (description.vt == VT_PTR)
        return typeName(type, *description.lptdesc) + "*";
    if (description.vt == VT_SAFEARRAY)
        return "SAFEARRAY(" + typeName(type, *description.lptdesc) + ")";
    if (description.vt == VT_USERDEFINED) {
        ComPtr<ITypeInfo> named;
        check(type.GetRefTypeInfo(description.hreftype, &named));
        return nameOf(*named.Get());
    }
    return kTypes.count(description.vt) ? kTypes.at(description.vt)
                                        : "type " + std::to_string(description.vt);
}

void printFunction(ITypeInfo& type, UINT index) {
    FUNCDESC* function = nullptr;
    check(type.GetFuncDesc(index, &function));
    const UINT arguments = static_cast<UINT>(function->cParams);
    const auto names = namesOf(type, function->memid, arguments + 1);
    std::cout << "    " << function->memid << " " << kKinds.at(function->invkind) << names[0] << "(";
    for (UINT i = 0; i < arguments; ++i) {
        const ELEMDESC& argument = function->lprgelemdescParam[i];
        std::cout << (i ? ", " : "");
        const USHORT flags = argument.paramdesc.wParamFlags;
        std::cout << (flags & PARAMFLAG_FIN ? "in " : "") << (flags & PARAMFLAG_FOUT ? "out " : "")
                  << (flags & PARAMFLAG_FRETVAL ? "retval " : "")
                  << (flags & PARAMFLAG_FOPT ? "optional " : "") << typeName(type, argument.tdesc);
        // The names that a number gives are those of its method or get.
        if (function->invkind & (INVOKE_FUNC | INVOKE_PROPERTYGET))
            std::cout << " " << names[i + 1];
    }
    std::cout << ") " << typeName(type, function->elemdescFunc.tdesc) << "\n";
    type.ReleaseFuncDesc(function);
}

void printVariable(ITypeInfo& type, UINT index) {
    VARDESC* variable = nullptr;
    check(type.GetVarDesc(index, &variable));
    const bool isConstant = variable->varkind == VAR_CONST;
    std::cout << "    " << namesOf(type, variable->memid, 1)[0]
              << (isConstant ? " = " + std::to_string(V_I4(variable->lpvarValue))
                             : " " + typeName(type, variable->elemdescVar.tdesc))
              << "\n";
    type.ReleaseVarDesc(variable);
}

ComPtr<ITypeInfo> referredType(ITypeInfo& type, UINT index) {
    HREFTYPE reference = 0;
    ComPtr<ITypeInfo> referred;
    check(type.GetRefTypeOfImplType(index, &reference));
    check(type.GetRefTypeInfo(reference, &referred));
    return referred;
}

void printType(ITypeInfo& type) {
    const char* const kinds[] = {"enum",  "record", "module", "interface", "dispatch interface",
                                 "class", "alias",  "union"};
    TYPEATTR* attributes = nullptr;
    check(type.GetTypeAttr(&attributes));
    std::cout << "\n"
              << (attributes->wTypeFlags & TYPEFLAG_FDUAL ? "dual " : "") << kinds[attributes->typekind]
              << " " << nameOf(type) << " " << textOf(attributes->guid) << "\n";
    for (UINT i = 0; i < attributes->cFuncs; ++i)
        printFunction(type, i);
    for (UINT i = 0; i < attributes->cVars; ++i)
        printVariable(type, i);
    for (UINT i = 0; attributes->typekind == TKIND_COCLASS && i < attributes->cImplTypes; ++i) {
        INT flags = 0;
        check(type.GetImplTypeFlags(i, &flags));
        std::cout << "    " << (flags & IMPLTYPEFLAG_FDEFAULT ? "default " : "")
                  << nameOf(*referredType(type, i).Get()) << "\n";
    }
    type.ReleaseTypeAttr(attributes);
}

void printLibrary(ITypeLib& library) {
    TLIBATTR* attributes = nullptr;
    check(library.GetLibAttr(&attributes));
    std::cout << "library " << nameOf(library) << " " << textOf(attributes->guid) << " "
              << attributes->wMajorVerNum << "." << attributes->wMinorVerNum << "\n";
    library.ReleaseTLibAttr(attributes);
    for (UINT i = 0; i < library.GetTypeInfoCount(); ++i) {
        ComPtr<ITypeInfo> type;
        TYPEKIND kind{};
        check(library.GetTypeInfo(i, &type));
        check(library.GetTypeInfoType(i, &kind));
        if (kind ==
            TKIND_DISPATCH) // a dual interface: as it lies in memory, where the order of functions shows
            type = referredType(*type.Get(), static_cast<UINT>(-1));
        printType(*type.Get());
    }
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 2)
        return 2;
    const std::string file = argv[1];
    ComPtr<ITypeLib> library;
    check(LoadTypeLibEx(std::wstring(file.begin(), file.end()).c_str(), REGKIND_NONE, &library));
    printLibrary(*library.Get());
}
