#include "automation/Module.h"

#include <ole2.h>

#include <atomic>

namespace qrtVistrelClasses4 {
namespace {

std::atomic<long> uses = 0;

/// Its address identifies the module.
const int addressInModule = 0;

} // namespace

void ModuleUse::begin() { ++uses; }

void ModuleUse::end() { --uses; }

bool ModuleUse::isOver() { return uses == 0; }

std::wstring ModulePath() {
    HMODULE module = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       reinterpret_cast<LPCWSTR>(&addressInModule), &module);
    std::wstring path(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length = GetModuleFileNameW(module, path.data(), static_cast<DWORD>(path.size()));
        if (length < path.size()) {
            path.resize(length);
            return path;
        }
        path.resize(path.size() * 2);
    }
}

HRESULT LoadModuleTypeLibrary(ITypeLib** result) {
    return LoadTypeLibEx(ModulePath().c_str(), REGKIND_NONE, result);
}

HRESULT LoadModuleTypeInfo(REFGUID id, ITypeInfo** result) {
    ComPtr<ITypeLib> library;
    const HRESULT loaded = LoadModuleTypeLibrary(&library);
    return FAILED(loaded) ? loaded : library->GetTypeInfoOfGuid(id, result);
}

} // namespace qrtVistrelClasses4
