// Prints what a type library promises to programs: names, identifiers, member numbers, arguments, in order.
#include <ole2.h>
#include <wrl/client.h>

#include <cstdio>
#include <iostream>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

using Microsoft::WRL::ComPtr;

void check(HRESULT done) {
    if (FAILED(done))
        throw std::runtime_error("the type library cannot be read");
}

/// Names in type libraries are plain ASCII.
std::string narrow(const wchar_t* text) {
    std::string result;
    for (; text && *text; ++text)
        result += static_cast<char>(*text);
    return result;
}

std::string take(BSTR text) {
    const std::string result = narrow(text);
    SysFreeString(text);
    return result;
}

std::string textOf(REFGUID id) {
    wchar_t text[39];
    StringFromGUID2(id, text, 39);
    return narrow(text);
}

std::string nameOf(ITypeInfo& type) {
    BSTR name = nullptr;
    check(type.GetDocumentation(MEMBERID_NIL, &name, nullptr, nullptr, nullptr));
    return take(name);
}

/// Names of a member and its arguments.
std::vector<std::string> namesOf(ITypeInfo& type, MEMBERID member, UINT most) {
    std::vector<BSTR> names(most);
    UINT count = 0;
    check(type.GetNames(member, names.data(), most, &count));
    std::vector<std::string> result;
    for (UINT i = 0; i < count; ++i)
        result.push_back(" " + take(names[i]));
    result.resize(most);
    return result;
}

std::string typeName(ITypeInfo& type, const TYPEDESC& description) {
    switch (description.vt) {
    case VT_PTR:
        return typeName(type, *description.lptdesc) + "*";
    case VT_SAFEARRAY:
        return "SAFEARRAY(" + typeName(type, *description.lptdesc) + ")";
    case VT_USERDEFINED: {
        ComPtr<ITypeInfo> named;
        check(type.GetRefTypeInfo(description.hreftype, &named));
        return nameOf(*named.Get());
    }
    case VT_I2:
        return "short";
    case VT_I4:
        return "long";
    case VT_R8:
        return "double";
    case VT_BOOL:
        return "VARIANT_BOOL";
    case VT_BSTR:
        return "BSTR";
    case VT_VARIANT:
        return "VARIANT";
    case VT_DISPATCH:
        return "IDispatch*";
    case VT_HRESULT:
        return "HRESULT";
    default:
        return "type " + std::to_string(description.vt);
    }
}

std::string flagsText(USHORT flags) {
    struct Flag {
        USHORT bit;
        const char* name;
    };
    constexpr Flag names[] = {{PARAMFLAG_FIN, "in "},
                              {PARAMFLAG_FOUT, "out "},
                              {PARAMFLAG_FRETVAL, "retval "},
                              {PARAMFLAG_FOPT, "optional "}};
    std::string text;
    for (const Flag& flag : names)
        if (flags & flag.bit)
            text += flag.name;
    return text;
}

const char* kindText(INVOKEKIND kind) {
    switch (kind) {
    case INVOKE_PROPERTYGET:
        return " get";
    case INVOKE_PROPERTYPUT:
        return " put";
    case INVOKE_PROPERTYPUTREF:
        return " putref";
    default:
        return "";
    }
}

void printFunction(ITypeInfo& type, UINT index) {
    FUNCDESC* function = nullptr;
    check(type.GetFuncDesc(index, &function));
    const UINT arguments = static_cast<UINT>(function->cParams);
    // The names that a number gives are those of its method or get.
    const bool hasNames = !(function->invkind & (INVOKE_PROPERTYPUT | INVOKE_PROPERTYPUTREF));
    const std::vector<std::string> names = namesOf(type, function->memid, arguments + 1);
    std::cout << "    " << function->memid << kindText(function->invkind) << names[0] << "(";
    for (UINT i = 0; i < arguments; ++i) {
        const ELEMDESC& argument = function->lprgelemdescParam[i];
        std::cout << (i ? ", " : "") << flagsText(argument.paramdesc.wParamFlags)
                  << typeName(type, argument.tdesc) << (hasNames ? names[i + 1] : "");
    }
    std::cout << ") " << typeName(type, function->elemdescFunc.tdesc) << "\n";
    type.ReleaseFuncDesc(function);
}

void printVariable(ITypeInfo& type, UINT index) {
    VARDESC* variable = nullptr;
    check(type.GetVarDesc(index, &variable));
    std::cout << "   " << namesOf(type, variable->memid, 1)[0];
    if (variable->varkind == VAR_CONST)
        std::cout << " = " << V_I4(variable->lpvarValue) << "\n";
    else
        std::cout << " " << typeName(type, variable->elemdescVar.tdesc) << "\n";
    type.ReleaseVarDesc(variable);
}

void printInterfacesOfClass(ITypeInfo& type, UINT count) {
    for (UINT i = 0; i < count; ++i) {
        HREFTYPE reference = 0;
        INT flags = 0;
        ComPtr<ITypeInfo> face;
        check(type.GetRefTypeOfImplType(i, &reference));
        check(type.GetImplTypeFlags(i, &flags));
        check(type.GetRefTypeInfo(reference, &face));
        std::cout << "    " << ((flags & IMPLTYPEFLAG_FDEFAULT) ? "default " : "") << nameOf(*face.Get())
                  << "\n";
    }
}

/// A dual interface as it lies in memory, so that the order of its functions shows.
ComPtr<ITypeInfo> functionTableOf(ITypeInfo& type) {
    HREFTYPE reference = 0;
    ComPtr<ITypeInfo> table;
    check(type.GetRefTypeOfImplType(static_cast<UINT>(-1), &reference));
    check(type.GetRefTypeInfo(reference, &table));
    return table;
}

void printType(ITypeInfo& type) {
    const char* const kinds[] = {"enum",  "record", "module", "interface", "dispatch interface",
                                 "class", "alias",  "union"};
    TYPEATTR* attributes = nullptr;
    check(type.GetTypeAttr(&attributes));
    std::cout << "\n"
              << ((attributes->wTypeFlags & TYPEFLAG_FDUAL) ? "dual " : "") << kinds[attributes->typekind]
              << " " << nameOf(type) << " " << textOf(attributes->guid) << "\n";
    for (UINT i = 0; i < attributes->cFuncs; ++i)
        printFunction(type, i);
    for (UINT i = 0; i < attributes->cVars; ++i)
        printVariable(type, i);
    if (attributes->typekind == TKIND_COCLASS)
        printInterfacesOfClass(type, attributes->cImplTypes);
    type.ReleaseTypeAttr(attributes);
}

void printLibrary(ITypeLib& library) {
    TLIBATTR* attributes = nullptr;
    BSTR name = nullptr;
    check(library.GetLibAttr(&attributes));
    check(library.GetDocumentation(-1, &name, nullptr, nullptr, nullptr));
    std::cout << "library " << take(name) << " " << textOf(attributes->guid) << " "
              << attributes->wMajorVerNum << "." << attributes->wMinorVerNum << "\n";
    library.ReleaseTLibAttr(attributes);
    for (UINT i = 0; i < library.GetTypeInfoCount(); ++i) {
        ComPtr<ITypeInfo> type;
        TYPEKIND kind{};
        check(library.GetTypeInfo(i, &type));
        check(library.GetTypeInfoType(i, &kind));
        printType(kind == TKIND_DISPATCH ? *functionTableOf(*type.Get()).Get() : *type.Get());
    }
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "usage: dump_typelib FILE\n";
        return 2;
    }
    try {
        const std::string file = argv[1];
        ComPtr<ITypeLib> library;
        check(LoadTypeLibEx(std::wstring(file.begin(), file.end()).c_str(), REGKIND_NONE, &library));
        printLibrary(*library.Get());
        return 0;
    } catch (const std::exception& error) {
        std::cerr << argv[1] << ": " << error.what() << "\n";
        return 1;
    }
}
