// dump_typelib FILE: prints what a type library promises to programs: names, identifiers, member numbers,
// arguments.
#include "automation/Module.h"
#include "automation/Values.h"

#include <ole2.h>

#include <algorithm>
#include <iostream>
#include <iterator>
#include <map>
#include <regex>
#include <stdexcept>
#include <string>
#include <vector>

namespace qrtVistrelClasses4 {
namespace {

const std::map<VARTYPE, std::string> kTypes = {
    {VT_I2, "short"},  {VT_I4, "long"},         {VT_R8, "double"},           {VT_BOOL, "VARIANT_BOOL"},
    {VT_BSTR, "BSTR"}, {VT_VARIANT, "VARIANT"}, {VT_DISPATCH, "IDispatch*"}, {VT_HRESULT, "HRESULT"}};
const std::map<INVOKEKIND, std::string> kCalls = {
    {INVOKE_FUNC, ""}, {INVOKE_PROPERTYGET, "get "}, {INVOKE_PROPERTYPUT, "put "}};
const std::map<TYPEKIND, std::string> kKinds = {
    {TKIND_ENUM, "enum"}, {TKIND_RECORD, "record"}, {TKIND_INTERFACE, "interface"}, {TKIND_COCLASS, "class"}};

void check(HRESULT done) {
    if (FAILED(done))
        throw std::runtime_error("the type library cannot be read");
}

std::string take(BSTR text) { return NarrowText(OwnedBstr(text).get()); }

std::string textOf(REFGUID id) {
    wchar_t text[39];
    StringFromGUID2(id, text, 39);
    return take(SysAllocString(text));
}

/// Of a type, or of the library.
std::string nameOf(auto& described) {
    BSTR name = nullptr;
    check(described.GetDocumentation(-1, &name, nullptr, nullptr, nullptr));
    return take(name);
}

/// Names of a member and its arguments.
std::vector<std::string> namesOf(ITypeInfo& type, MEMBERID member, int arguments) {
    std::vector<BSTR> names(static_cast<std::size_t>(arguments) + 1);
    UINT count = 0;
    check(type.GetNames(member, names.data(), static_cast<UINT>(names.size()), &count));
    std::vector<std::string> result;
    std::ranges::transform(names, std::back_inserter(result), take);
    return result;
}

std::string typeName(ITypeInfo& type, const TYPEDESC& description) {
    if (description.vt == VT_PTR)
        return typeName(type, *description.lptdesc) + "*";
    if (description.vt == VT_SAFEARRAY)
        return "SAFEARRAY(" + typeName(type, *description.lptdesc) + ")";
    if (description.vt != VT_USERDEFINED)
        return kTypes.at(description.vt);
    ComPtr<ITypeInfo> named;
    check(type.GetRefTypeInfo(description.hreftype, &named));
    return nameOf(*named.Get());
}

std::string functionText(ITypeInfo& type, const FUNCDESC& function) {
    const auto names = namesOf(type, function.memid, function.cParams);
    std::string text = std::to_string(function.memid) + " " + kCalls.at(function.invkind) + names[0] + "(";
    for (int i = 0; i < function.cParams; ++i) {
        const ELEMDESC& argument = function.lprgelemdescParam[i];
        const USHORT flags = argument.paramdesc.wParamFlags;
        text += std::string(i ? ", " : "") + (flags & PARAMFLAG_FIN ? "in " : "") +
                (flags & PARAMFLAG_FOUT ? "out " : "") + (flags & PARAMFLAG_FRETVAL ? "retval " : "") +
                (flags & PARAMFLAG_FOPT ? "optional " : "") + typeName(type, argument.tdesc);
        if (function.invkind != INVOKE_PROPERTYPUT) // whose number gives the names of the get
            text += " " + names[static_cast<std::size_t>(i) + 1];
    }
    return text + ") " + typeName(type, function.elemdescFunc.tdesc);
}

void printFunctions(ITypeInfo& type, UINT count) {
    std::vector<std::string> texts;
    for (UINT i = 0; i < count; ++i) {
        FUNCDESC* function = nullptr;
        check(type.GetFuncDesc(i, &function));
        texts.push_back(functionText(type, *function));
    }
    // A get and the put after it share a line if they are those of a usual property.
    const std::regex property(
        R"((\d+) get (\w+)\(out retval (\w+)\* result\) HRESULT\n\1 put \2\(in \3\) HRESULT)");
    for (UINT i = 0; i < count; ++i) {
        std::smatch match;
        const std::string pair = i + 1 < count ? texts[i] + "\n" + texts[i + 1] : "";
        if (std::regex_match(pair, match, property)) {
            std::cout << "    " << match[1] << " get put " << match[2] << " " << match[3] << "\n";
            ++i;
        } else {
            std::cout << "    " << texts[i] << "\n";
        }
    }
}

void printVariable(ITypeInfo& type, const VARDESC& variable) {
    std::cout << "    " << namesOf(type, variable.memid, 0)[0];
    if (variable.varkind == VAR_CONST)
        std::cout << " = " << V_I4(variable.lpvarValue) << "\n";
    else
        std::cout << " " << typeName(type, variable.elemdescVar.tdesc) << "\n";
}

ComPtr<ITypeInfo> referredType(ITypeInfo& type, UINT index) {
    HREFTYPE reference = 0;
    ComPtr<ITypeInfo> referred;
    check(type.GetRefTypeOfImplType(index, &reference));
    check(type.GetRefTypeInfo(reference, &referred));
    return referred;
}

// Descriptions are not released: the program ends soon.

void printType(ITypeInfo& type) {
    TYPEATTR* attributes = nullptr;
    check(type.GetTypeAttr(&attributes));
    std::cout << "\n"
              << (attributes->wTypeFlags & TYPEFLAG_FDUAL ? "dual " : "") << kKinds.at(attributes->typekind)
              << " " << nameOf(type) << " " << textOf(attributes->guid) << "\n";
    printFunctions(type, attributes->cFuncs);
    for (UINT i = 0; i < attributes->cVars; ++i) {
        VARDESC* variable = nullptr;
        check(type.GetVarDesc(i, &variable));
        printVariable(type, *variable);
    }
    for (UINT i = 0; attributes->typekind == TKIND_COCLASS && i < attributes->cImplTypes; ++i) {
        INT flags = 0;
        check(type.GetImplTypeFlags(i, &flags));
        std::cout << "    " << (flags & IMPLTYPEFLAG_FDEFAULT ? "default " : "")
                  << nameOf(*referredType(type, i).Get()) << "\n";
    }
}

void printLibrary(ITypeLib& library) {
    TLIBATTR* attributes = nullptr;
    check(library.GetLibAttr(&attributes));
    std::cout << "library " << nameOf(library) << " " << textOf(attributes->guid) << " "
              << attributes->wMajorVerNum << "." << attributes->wMinorVerNum << "\n";
    for (UINT i = 0; i < library.GetTypeInfoCount(); ++i) {
        ComPtr<ITypeInfo> type;
        TYPEKIND kind{};
        check(library.GetTypeInfo(i, &type));
        check(library.GetTypeInfoType(i, &kind));
        if (kind == TKIND_DISPATCH) // a dual interface, of which the function table shows the order
            type = referredType(*type.Get(), static_cast<UINT>(-1));
        printType(*type.Get());
    }
}

} // namespace
} // namespace qrtVistrelClasses4

int main(int, char** arguments) try {
    using namespace qrtVistrelClasses4;
    ComPtr<ITypeLib> library;
    check(LoadTypeLibEx(WideText(arguments[1]).get(), REGKIND_NONE, &library));
    printLibrary(*library.Get());
} catch (const std::exception& error) {
    std::cerr << "dump_typelib: " << error.what() << "\n";
    return 1;
}
