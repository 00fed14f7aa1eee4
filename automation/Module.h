// The module that contains this code (a DLL or a program), and what keeps it loaded.
#pragma once

#include <ole2.h>
#include <wrl/client.h>

#include <string>

namespace qrtVistrelClasses4 {

using Microsoft::WRL::ComPtr;

/// Keeps the module loaded as long as this object lives.
class ModuleUse {
public:
    ModuleUse() { begin(); }
    ~ModuleUse() { end(); }
    ModuleUse(const ModuleUse&) = delete;
    ModuleUse& operator=(const ModuleUse&) = delete;

    // For uses that have no object, such as locks.
    static void begin();
    static void end();
    /// True if nothing uses the module.
    static bool isOver();
};

/// Full path of the module.
std::wstring ModulePath();

/// Loads the type library that the module contains.
HRESULT LoadModuleTypeLibrary(ITypeLib** result);

/// Loads the type library's description of the interface or class `id`.
HRESULT LoadModuleTypeInfo(REFGUID id, ITypeInfo** result);

} // namespace qrtVistrelClasses4
