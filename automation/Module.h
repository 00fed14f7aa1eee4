// The file that this code was loaded from, and what keeps it loaded.
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

    // For uses that no object stands for.
    static void begin();
    static void end();
    static bool isOver();
};

/// Full path of the module.
std::wstring ModulePath();

/// The type library inside the module.
HRESULT LoadModuleTypeLibrary(ITypeLib** result);

/// What that type library says of the interface or class `id`.
HRESULT LoadModuleTypeInfo(REFGUID id, ITypeInfo** result);

} // namespace qrtVistrelClasses4
